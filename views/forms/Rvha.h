// THaForm: the active-ingredient search ("Hatóanyagok"). Lists the drugs containing the chosen ingredient
// and shows the clicked one's description in its own box.
#pragma once

#include <QWidget>

namespace rovanel
{
struct SharedState;
}

class QListWidget;

namespace rovanel::forms
{
class DescriptionBox;
class NameList;
}  // namespace rovanel::forms

class THaForm : public QWidget
{
    Q_OBJECT
public:
    explicit THaForm(rovanel::SharedState& state, QWidget* parent = nullptr);

public slots:
    void HaKeresClick();
    void HaListChange();
    void HaGyListClick();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void FormCreate();

    rovanel::SharedState& m_state;
    rovanel::forms::NameList* m_haList = nullptr;
    QListWidget* m_found = nullptr;
    rovanel::forms::DescriptionBox* m_leiro = nullptr;
};
