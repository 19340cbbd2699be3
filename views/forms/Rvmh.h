// TMh: the side-effect search ("Mellékhatások"). Lists the drugs that can cause the chosen side effect,
// among all drugs or among the drugs taken. The drugs taken are the interaction window's shared
// selection; this window's list shows only what was added through it.
#pragma once

#include <QWidget>

#include "views/forms/kit/Lists.h"

namespace rovanel
{
struct SharedState;
}

class QListWidget;
class QTreeWidget;

namespace rovanel::forms
{
class TakenDrugs;
}

class TMh : public QWidget
{
    Q_OBJECT
public:
    explicit TMh(rovanel::SharedState& state, QWidget* parent = nullptr);
    void setDescriptionViewer(rovanel::forms::DescriptionViewer viewer) { m_viewer = std::move(viewer); }

public slots:
    void GyToListClick();
    void SzGyTorolClick();
    void SzGyListatTorolClick();
    void MhTreeChange();
    void MhKeresClick();
    void GyListMegnezClick();
    void GyMegnezClick();
    void MhSzedettGyListDblClick(rovanel::ProductRecord record, const QString& caption);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void FormShow();

    rovanel::SharedState& m_state;
    rovanel::forms::DescriptionViewer m_viewer;
    bool m_loaded = false;
    rovanel::forms::TakenDrugs* m_szedett = nullptr;
    QTreeWidget* m_tree = nullptr;
    QListWidget* m_found = nullptr;
};
