// TMsgDlg: the notice that a newer database is published ("Új adatbázis elérhető"), filled and shown by
// the update notice check. Its check box switches the notice off for later automatic checks.
#pragma once

#include <QWidget>

class QCheckBox;
class QLabel;
class QPushButton;

namespace rovanel
{
class RegistryStore;
struct NoticeLines;
}  // namespace rovanel

class TMsgDlg : public QWidget
{
    Q_OBJECT
public:
    explicit TMsgDlg(rovanel::RegistryStore& registry, QWidget* parent = nullptr);

    // Sets the labels from the reply's lines and shows the window (modeless).
    void showNotice(const rovanel::NoticeLines& lines);

    void Button1Click();
    void FormClose();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    rovanel::RegistryStore& m_registry;
    QLabel* Label1 = nullptr;
    QLabel* Label2 = nullptr;
    QLabel* Label3 = nullptr;
    QLabel* Label4 = nullptr;
    QLabel* Label5 = nullptr;
    QPushButton* Button1 = nullptr;
    QCheckBox* chbNoUpgMsg = nullptr;
};
