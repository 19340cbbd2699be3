// TRend: the regulations ("Rendeletek"), rend2.ful shown as a tree or as the same text unchanged.
#pragma once

#include <QWidget>

namespace rovanel
{
struct SharedState;
}

class QRadioButton;
class QTextEdit;
class QTreeWidget;

class TRend : public QWidget
{
    Q_OBJECT
public:
    explicit TRend(rovanel::SharedState& state, QWidget* parent = nullptr);

public slots:
    void RendeletFaClick();
    void RendeletSzovegesenClick();
    void RendListClick() {}  // kept empty on purpose

protected:
    void showEvent(QShowEvent* event) override;

private:
    void FormShow();

    rovanel::SharedState& m_state;
    bool m_loaded = false;
    QTreeWidget* m_tree = nullptr;
    QTextEdit* m_text = nullptr;
    QRadioButton* m_fa = nullptr;
    QRadioButton* m_szoveges = nullptr;
};
