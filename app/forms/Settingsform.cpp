#include "app/forms/Settingsform.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShowEvent>
#include <QVBoxLayout>

#include "app/RegistrySettings.h"
#include "app/forms/CreamPanel.h"
#include "app/forms/Help.h"
#include "app/forms/Rvmain.h"
#include "app/forms/ShowMessage.h"
#include "app/forms/UpgradeCheck.h"
#include "views/forms/kit/Lists.h"
#include "views/forms/kit/Text.h"
#include "views/forms/kit/WindowGeometry.h"

namespace
{

constexpr const char* kCheckUpg = "\\Software\\Rovanel\\CheckUpg";
constexpr const char* kUpgShow = "\\Software\\Rovanel\\UpgShow";
constexpr const char* kHttpProxy = "\\Software\\Rovanel\\HttpProxy";
constexpr const char* kProxyPort = "\\Software\\Rovanel\\ProxyPort";

}  // namespace

TRvSettings::TRvSettings(TMain& main, rovanel::RegistryStore& registry, QWidget* parent)
    : QWidget(parent), m_main(main), m_registry(registry)
{
    setObjectName("RvSettings");
    setWindowTitle(QString::fromUtf8("Rovanel beállítások"));
    rovanel::forms::rememberGeometry(this, QSize(445, 576));
    setHelpContext(this, 110);

    QWidget* panel = fillWithCreamPanel(this);

    WebChk = new QCheckBox(QString::fromUtf8("Internetes frissítés lekérdezés a program indításakor"), panel);
    WebChk->setObjectName("WebChk");

    GroupBox1 = new QGroupBox(QString::fromUtf8("Proxy használata"), panel);
    GroupBox1->setObjectName("GroupBox1");
    auto* proxyLabel = new QLabel(QStringLiteral("Proxy"), GroupBox1);
    proxyLabel->setObjectName("Label1");
    HttpProxy = new QLineEdit(GroupBox1);
    HttpProxy->setObjectName("HttpProxy");
    HttpProxy->setMinimumWidth(121);
    auto* portLabel = new QLabel(QStringLiteral("Port"), GroupBox1);
    portLabel->setObjectName("Port");
    HttpProxyPort = new QLineEdit(GroupBox1);
    HttpProxyPort->setObjectName("HttpProxyPort");
    HttpProxyPort->setFixedWidth(48);
    auto* proxyRow = new QHBoxLayout(GroupBox1);
    proxyRow->addWidget(proxyLabel);
    proxyRow->addWidget(HttpProxy, 1);
    proxyRow->addSpacing(16);
    proxyRow->addWidget(portLabel);
    proxyRow->addWidget(HttpProxyPort);

    chbUpgShow2 = new QCheckBox(QString::fromUtf8("Figyelmeztetés fölugró ablakban"), panel);
    chbUpgShow2->setObjectName("chbUpgShow2");
    CloseSettings = new QPushButton(QString::fromUtf8("&Tovább"), panel);
    CloseSettings->setObjectName("CloseSettings");
    CloseSettings->setMinimumSize(75, 25);

    GroupBox2 = new QGroupBox(QString::fromUtf8("Internetes lekérdezés tesztelése"), panel);
    GroupBox2->setObjectName("GroupBox2");
    HttpChk = new QPushButton(QString::fromUtf8("Lekérdezés indul"), GroupBox2);
    HttpChk->setObjectName("HttpChk");
    HttpChk->setMinimumSize(97, 25);
    ChkMemo = new QPlainTextEdit(GroupBox2);
    ChkMemo->setObjectName("ChkMemo");
    ChkMemo->setMinimumSize(257, 161);
    SettingsQuit = new QPushButton(QString::fromUtf8("Kilép"), GroupBox2);
    SettingsQuit->setObjectName("SettingsQuit");
    SettingsQuit->setMinimumSize(75, 25);
    auto* testColumn = new QVBoxLayout(GroupBox2);
    testColumn->addWidget(HttpChk, 0, Qt::AlignLeft);
    testColumn->addWidget(ChkMemo, 1);
    testColumn->addWidget(SettingsQuit, 0, Qt::AlignLeft);

    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(48, 32, 48, 24);
    column->addWidget(WebChk);
    column->addWidget(GroupBox1);
    column->addWidget(chbUpgShow2);
    column->addWidget(CloseSettings, 0, Qt::AlignHCenter);
    column->addWidget(GroupBox2, 1);

    connect(CloseSettings, &QPushButton::clicked, this, &TRvSettings::CloseSettingsClick);
    connect(SettingsQuit, &QPushButton::clicked, this, &TRvSettings::SettingsQuitClick);
    connect(HttpChk, &QPushButton::clicked, this, &TRvSettings::HttpChkClick);
    connect(&m_main.upgradeCheck(), &UpgradeCheck::progress, this, &TRvSettings::addProgressLine);
}

void TRvSettings::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (!event->spontaneous()) FormShow();
}

// A failed read shows its error and leaves the control unchecked or empty.
void TRvSettings::FormShow()
{
    rovanel::RegistryStore& registry = m_registry;
    const auto shown = [this](const std::optional<rovanel::Message>& error) {
        if (error) showMessage(this, *error);
    };
    const rovanel::BoolRead check = rovanel::RegReadBool(registry, kCheckUpg);
    shown(check.error);
    WebChk->setChecked(check.value);
    const rovanel::BoolRead show = rovanel::RegReadBool(registry, kUpgShow);
    shown(show.error);
    chbUpgShow2->setChecked(show.value);
    const rovanel::StringRead proxy = rovanel::RegReadString(registry, kHttpProxy);
    shown(proxy.error);
    HttpProxy->setText(rovanel::forms::fromCp1250(proxy.value));
    const rovanel::StringRead port = rovanel::RegReadString(registry, kProxyPort);
    shown(port.error);
    HttpProxyPort->setText(rovanel::forms::fromCp1250(port.value));
}

// In this order; a port that is not a number is saved as typed (the check takes it as no port).
void TRvSettings::WriteSettingsToReg()
{
    rovanel::RegistryStore& registry = m_registry;
    const std::optional<rovanel::Message> errors[] = {
        rovanel::RegWriteBool(registry, kCheckUpg, WebChk->isChecked()),
        rovanel::RegWriteBool(registry, kUpgShow, chbUpgShow2->isChecked()),
        rovanel::RegWriteString(registry, kHttpProxy, rovanel::forms::toCp1250(HttpProxy->text())),
        rovanel::RegWriteString(registry, kProxyPort, rovanel::forms::toCp1250(HttpProxyPort->text())),
    };
    for (const auto& error : errors)
        if (error) showMessage(this, *error);
}

void TRvSettings::closeEvent(QCloseEvent* event)
{
    FormClose();
    event->accept();
}

void TRvSettings::FormClose() { WriteSettingsToReg(); }

void TRvSettings::CloseSettingsClick() { close(); }

void TRvSettings::SettingsQuitClick()
{
    ChkMemo->clear();
    WriteSettingsToReg();
    close();
}

// Any number of times: the flag that ends the check for this program run is cleared first.
void TRvSettings::HttpChkClick()
{
    ChkMemo->clear();
    addProgressLine(QString::fromUtf8("Lekérdezés indul"));
    m_main.UpgChecked = false;
    WriteSettingsToReg();
    m_main.CheckUpgrade(true, [this] { addProgressLine(QString::fromUtf8("Lekérdezés vége")); });
}

void TRvSettings::addProgressLine(const QString& line) { ChkMemo->appendPlainText(line); }
