// TRvSettings: "Rovanel beállítások". The update notice check and its pop-up switched on or off, the HTTP
// proxy, and the check run by hand while its progress lines are watched. Every way of closing the window
// saves the four settings.
#pragma once

#include <QWidget>

class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class TMain;

namespace rovanel
{
class RegistryStore;
}

class TRvSettings : public QWidget
{
    Q_OBJECT
public:
    // The main window carries the check and its flags; `registry` is the main window's store.
    TRvSettings(TMain& main, rovanel::RegistryStore& registry, QWidget* parent = nullptr);

    void FormShow();
    void FormClose();
    void WriteSettingsToReg();
    void CloseSettingsClick();
    void SettingsQuitClick();
    void HttpChkClick();

    // A progress line of the check, shown whether or not the window is open.
    void addProgressLine(const QString& line);

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    TMain& m_main;
    rovanel::RegistryStore& m_registry;
    QCheckBox* WebChk = nullptr;
    QGroupBox* GroupBox1 = nullptr;
    QLineEdit* HttpProxy = nullptr;
    QLineEdit* HttpProxyPort = nullptr;
    QCheckBox* chbUpgShow2 = nullptr;
    QPushButton* CloseSettings = nullptr;
    QGroupBox* GroupBox2 = nullptr;
    QPushButton* HttpChk = nullptr;
    QPlainTextEdit* ChkMemo = nullptr;
    QPushButton* SettingsQuit = nullptr;
};
