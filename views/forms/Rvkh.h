// TKh: the interaction check window ("Kölcsönhatás - ATC"). Gathers the drugs a patient takes and the
// patient's contraindications into the shared selection, runs the interaction engine on them (check) or
// on an ATC group (listing), and shows the report and the drugs found.
#pragma once

#include <QWidget>

#include "views/forms/kit/Lists.h"

namespace rovanel
{
struct SharedState;
struct KhRunResult;
}  // namespace rovanel

class QCheckBox;
class QListWidget;
class QTabWidget;
class QTextEdit;
class QTreeWidget;

namespace rovanel::forms
{
class TakenDrugs;
}

class TKh : public QWidget
{
    Q_OBJECT
public:
    explicit TKh(rovanel::SharedState& state, QWidget* parent = nullptr);
    // Where "Megnéz" shows a description (the shared description window).
    void setDescriptionViewer(rovanel::forms::DescriptionViewer viewer) { m_viewer = std::move(viewer); }

public slots:
    void GyToListClick();
    void EllToListClick();
    void KhSzGyTorolClick();
    void EllTorolClick();
    void KhSzGyListTorolClick();
    void EllListTorolClick();
    void EllenorizClick();
    void ATCKeresClick();
    void ATCTreeChange();
    void GyMegnezClick();
    void KhGyMegnezClick();
    void KhSzedettGyListDblClick(rovanel::ProductRecord record, const QString& caption);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void FormShow();
    void showResult(const rovanel::KhRunResult& result);
    void clearResults();

    rovanel::SharedState& m_state;
    rovanel::forms::DescriptionViewer m_viewer;
    bool m_loaded = false;
    QTabWidget* m_tab = nullptr;
    QTreeWidget* m_ellTree = nullptr;
    QTreeWidget* m_atcTree = nullptr;
    QTextEdit* m_eredmeny = nullptr;
    rovanel::forms::TakenDrugs* m_szedett = nullptr;
    QListWidget* m_ellList = nullptr;
    QListWidget* m_found = nullptr;
    QCheckBox* m_kgy = nullptr;
};
