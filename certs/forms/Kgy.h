// TKgyForm: the public-care certificate window ("Közgyógy igazolás"). Builds the family doctor's
// certificate from the public-care list, the patient's and the physician's data each time it is shown,
// lets the physician edit it, and prints, previews or saves as PDF what the box holds.
#pragma once

#include <QWidget>

namespace rovanel
{
struct SharedState;
}

class QPushButton;
class QTextEdit;

class TKgyForm : public QWidget
{
    Q_OBJECT
public:
    explicit TKgyForm(rovanel::SharedState& state, QWidget* parent = nullptr);

public slots:
    void KgyPrintClick();
    void KgyPreviewClick();
    void KgyPdfClick();
    void KgyEmptyListClick();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void FormShow();

    rovanel::SharedState& m_state;
    QTextEdit* m_k = nullptr;
};
