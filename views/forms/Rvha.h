// THaForm: the active-ingredient search ("Hatóanyagok"). Lists the drugs containing the chosen ingredient
// and shows the clicked one's description in its own box.
#pragma once

#include <QWidget>

#include "views/forms/FormSupport.h"

namespace rovanel
{
struct SharedState;
}

class QComboBox;
class QListWidget;
class QTextEdit;

class THaForm : public QWidget
{
    Q_OBJECT
public:
    explicit THaForm(rovanel::SharedState& state, QWidget* parent = nullptr);
    // Writes a description into GyLeiro (the description builder).

public slots:
    void HaKeresClick();
    void HaListChange();
    void HaGyListClick();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void FormCreate();

    rovanel::SharedState& m_state;
    QComboBox* m_haList = nullptr;
    QListWidget* m_found = nullptr;
    QTextEdit* m_leiro = nullptr;
};
