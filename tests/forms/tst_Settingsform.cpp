// The settings window, the update notice check and the notice window, driven by control names against
// an HTTP server on the loopback address; and the database refresh from the main menu.
#include <QAction>
#include <QCheckBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QtTest>
#include <memory>

#include "app/RegistrySettings.h"
#include "app/forms/Msgdlg.h"
#include "app/forms/RefreshFromUpdatePath.h"
#include "app/forms/Rvmain.h"
#include "app/forms/Settingsform.h"
#include "app/forms/UpgradeCheck.h"
#include "tests/forms/support/LoopbackHttpServer.h"
#include "tests/forms/support/MessageRecorder.h"
#include "tests/support/TinyDatabase.h"

using rovanel::testing::ScratchDirectory;
using Behaviour = LoopbackHttpServer::Behaviour;

namespace
{

const QByteArray kNewer =
    "20261201\r\n2026.12.01\r\nwww.rovanel.hu\r\n";  // the tiny database closes 20261101
const QString kSuffix = QString::fromUtf8(" - Frissítés elérhető a www.rovanel.hu oldalon");
const QString kUnreachable = QString::fromUtf8("Hiba: 127.0.0.1 nem érhető el.");

// The main window's store, noting the last part of the path of every write, in order.
class RecordingStore : public rovanel::RegistryStore
{
public:
    explicit RecordingStore(rovanel::RegistryStore& inner) : m_inner(inner) {}
    bool keyExists(std::string_view key) override { return m_inner.keyExists(key); }
    std::optional<std::string> createKey(std::string_view key) override { return m_inner.createKey(key); }
    rovanel::RegistryValueRead readValue(std::string_view key, std::string_view name) override
    {
        return m_inner.readValue(key, name);
    }
    std::optional<std::string> writeValue(std::string_view key, std::string_view name,
                                          const rovanel::RegistryValue& value) override
    {
        writes.append(QString::fromStdString(std::string(key)).section('\\', -1));
        return m_inner.writeValue(key, name, value);
    }
    QStringList writes;

private:
    rovanel::RegistryStore& m_inner;
};

}  // namespace

class TestSettingsform : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();

    void windowShowsTheStoredSettingsAndSavesThemInOrderOnEveryClose();
    void testButtonShowsProgressNoticeAndTitleEveryTime();
    void manualRunTellsWhatTheServerSaid_data();
    void manualRunTellsWhatTheServerSaid();
    void silentServerEndsByItsTimeOutWhileTheWindowAnswersAndRefusesASecondRun();
    void proxyFromTheSettingsCarriesTheRequest();
    void automaticRunIsOncePerProgramRunAndShowsOnlyTheTitleWhenSwitchedOff();
    void registryErrorLeavesTheCheckRunningForTheRestOfTheRun();
    void noticeSwitchedOffOnlyByItsCheckedBox();
    void refreshFromTheMenuInstallsTheNewerDatabaseAndRestarts();

private:
    template <typename T>
    T* control(const char* name)
    {
        return m_settings->findChild<T*>(name);
    }
    QStringList memo()
    {
        return control<QPlainTextEdit>("ChkMemo")->toPlainText().split('\n', Qt::SkipEmptyParts);
    }
    void runManually()
    {
        QTest::mouseClick(control<QPushButton>("HttpChk"), Qt::LeftButton);
        QTRY_VERIFY_WITH_TIMEOUT(memo().endsWith("Lekérdezés vége"), 20000);
    }
    void setRegistry(const char* name, const std::string& value)
    {
        QVERIFY(
            !rovanel::RegWriteString(m_main->registry(), std::string("\\Software\\Rovanel\\") + name, value));
    }
    bool upgShow() { return rovanel::RegReadBool(m_main->registry(), "\\Software\\Rovanel\\UpgShow").value; }

    std::unique_ptr<ScratchDirectory> m_data;
    std::unique_ptr<ScratchDirectory> m_config;
    std::unique_ptr<MessageRecorder> m_messages;
    std::unique_ptr<LoopbackHttpServer> m_server;
    std::unique_ptr<TMain> m_main;
    std::unique_ptr<TMsgDlg> m_notice;
    std::unique_ptr<RecordingStore> m_store;
    std::unique_ptr<TRvSettings> m_settings;
    QString m_previousDirectory;
};

void TestSettingsform::init()
{
    m_data = std::make_unique<ScratchDirectory>();
    m_config = std::make_unique<ScratchDirectory>();
    rovanel::testing::writeTinyDatabase(*m_data);
    qputenv("ROVANEL_CONFIG_DIR", QByteArray::fromStdString(m_config->path().string()));
    m_previousDirectory = QDir::currentPath();
    QDir::setCurrent(QString::fromStdString(m_data->path().string()));
    m_messages = std::make_unique<MessageRecorder>();
    m_server = std::make_unique<LoopbackHttpServer>();
    m_server->body = kNewer;
    qputenv("ROVANEL_UPDATE_URL", m_server->url().toUtf8());
    m_main = std::make_unique<TMain>(QStringList{"-gy"});  // no title picture
    m_notice = std::make_unique<TMsgDlg>(m_main->registry());
    m_main->upgradeCheck().setNoticeWindow(m_notice.get());
    m_store = std::make_unique<RecordingStore>(m_main->registry());
    m_settings = std::make_unique<TRvSettings>(*m_main, *m_store);
    m_main->show();  // FormShow clears UpgChecked
    m_settings->show();
    m_messages->clear();
}

void TestSettingsform::cleanup()
{
    m_settings.reset();
    m_notice.reset();
    m_main.reset();
    m_server.reset();
    m_messages.reset();
    QDir::setCurrent(m_previousDirectory);
    m_data.reset();
    m_config.reset();
}

void TestSettingsform::windowShowsTheStoredSettingsAndSavesThemInOrderOnEveryClose()
{
    QCOMPARE(m_settings->windowTitle(), QString::fromUtf8("Rovanel beállítások"));
    const std::pair<const char*, const char*> texts[] = {
        {"WebChk", "Internetes frissítés lekérdezés a program indításakor"},
        {"chbUpgShow2", "Figyelmeztetés fölugró ablakban"},
        {"CloseSettings", "&Tovább"},
        {"HttpChk", "Lekérdezés indul"},
        {"SettingsQuit", "Kilép"},
        {"Label1", "Proxy"},
        {"Port", "Port"},
        {"GroupBox1", "Proxy használata"},
        {"GroupBox2", "Internetes lekérdezés tesztelése"},
    };
    for (const auto& [name, text] : texts) {
        QWidget* widget = control<QWidget>(name);
        QVERIFY2(widget, name);
        QCOMPARE(widget->property(widget->inherits("QGroupBox") ? "title" : "text").toString(),
                 QString::fromUtf8(text));
    }

    // Loaded on every showing.
    m_settings->hide();
    setRegistry("HttpProxy", "proxy.rendelo.hu");
    setRegistry("ProxyPort", "3128");
    QVERIFY(!rovanel::RegWriteBool(m_main->registry(), "\\Software\\Rovanel\\UpgShow", false));
    m_settings->show();
    QVERIFY(control<QCheckBox>("WebChk")->isChecked());
    QVERIFY(!control<QCheckBox>("chbUpgShow2")->isChecked());
    QCOMPARE(control<QLineEdit>("HttpProxy")->text(), QString("proxy.rendelo.hu"));
    QCOMPARE(control<QLineEdit>("HttpProxyPort")->text(), QString("3128"));

    // "&Tovább", the title bar, and "Kilép" (which saves, then closes and saves again).
    const QStringList order{"CheckUpg", "UpgShow", "HttpProxy", "ProxyPort"};
    const std::function<void()> closings[] = {
        [&] { QTest::mouseClick(control<QPushButton>("CloseSettings"), Qt::LeftButton); },
        [&] { m_settings->close(); },
        [&] { QTest::mouseClick(control<QPushButton>("SettingsQuit"), Qt::LeftButton); },
    };
    for (int round = 0; round < 3; ++round) {
        m_settings->show();
        control<QCheckBox>("WebChk")->setChecked(round == 1);
        control<QLineEdit>("HttpProxyPort")->setText(QString("31x%1").arg(round));  // saved as typed
        m_store->writes.clear();
        closings[round]();
        QVERIFY(!m_settings->isVisible());
        QCOMPARE(m_store->writes, round == 2 ? order + order : order);
        QCOMPARE(rovanel::RegReadBool(*m_store, "\\Software\\Rovanel\\CheckUpg").value, round == 1);
        QCOMPARE(rovanel::RegReadString(*m_store, "\\Software\\Rovanel\\ProxyPort").value,
                 "31x" + std::to_string(round));
    }
    QVERIFY(m_messages->texts().isEmpty());
}

void TestSettingsform::testButtonShowsProgressNoticeAndTitleEveryTime()
{
    const QString title = m_main->windowTitle();
    for (int run = 1; run <= 2; ++run) {
        runManually();
        QStringList seen = memo();
        seen.removeDuplicates();  // "Adat érkezett" for every packet
        QCOMPARE(seen, QStringList({"Lekérdezés indul", "Szerver megvan", "Kapcsolódás", "Adat elment",
                                    "Státusz változott", "Adat érkezett", "Rendben", "Szétkapcsolás",
                                    "Lekérdezés vége"}));
        QCOMPARE(m_main->windowTitle(), title + kSuffix.repeated(run));  // once more per run
        QVERIFY(m_notice->isVisible());
        QVERIFY(m_main->UpgChecked && !m_main->UpgRunning);
    }
    QCOMPARE(m_notice->windowTitle(), QString::fromUtf8("Új adatbázis elérhető"));
    const QStringList labels{"Frissítés elérhető a", "www.rovanel.hu", "oldalon.",
                             "Az adatok lezárásának időpontja:", "2026.12.01"};
    for (int i = 0; i < 5; ++i)
        QCOMPARE(m_notice->findChild<QLabel*>(QString("Label%1").arg(i + 1))->text(), labels[i]);
    QCOMPARE(m_server->requestLines, QList<QByteArray>(2, "GET /rovanel/rvupg.ini HTTP/1.1"));
    QVERIFY(m_messages->texts().isEmpty());
}

void TestSettingsform::manualRunTellsWhatTheServerSaid_data()
{
    QTest::addColumn<int>("behaviour");
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("lastProgress");  // before "Lekérdezés vége"
    QTest::addColumn<QString>("place");         // on the notice window, when it shows

    const QString none = QString::fromUtf8("Nincsen újabb adatbázis a www.rovanel.hu oldalon");
    const int answer = static_cast<int>(Behaviour::Answer);
    QTest::newRow("equal date") << answer << 200 << QByteArray("20261101\r\n2026.11.01\r\nwww.rovanel.hu")
                                << none << "Szétkapcsolás"
                                << "";
    // Bytes, not dates: "2026-12" sorts before "20261101".
    QTest::newRow("text order") << answer << 200 << QByteArray("2026-12\r\n\r\nwww.rovanel.hu") << none
                                << "Szétkapcsolás"
                                << "";
    QTest::newRow("empty reply: silent") << answer << 200 << QByteArray() << ""
                                         << "Szétkapcsolás"
                                         << "";
    QTest::newRow("no CR: empty date")
        << answer << 200 << QByteArray("20261201") << QString::fromUtf8("Nincsen újabb adatbázis a  oldalon")
        << "Szétkapcsolás"
        << "";
    QTest::newRow("lines over 100 bytes")
        << answer << 200 << QByteArray("20261201\r\n2026\r\n" + QByteArray(120, 'w') + "\r\n") << ""
        << "Szétkapcsolás" << QString(100, 'w');
    QTest::newRow("404") << answer << 404 << QByteArray("nincs") << kUnreachable << "Szétkapcsolás"
                         << "";
    QTest::newRow("refused connection") << -1 << 200 << kNewer << kUnreachable << "Kapcsolódás sikertelen"
                                        << "";
    QTest::newRow("ten megabytes: the first 64 KiB")
        << static_cast<int>(Behaviour::Flood) << 200 << QByteArray() << ""
        << "Szétkapcsolás"
        << "www.rovanel.hu";
}

void TestSettingsform::manualRunTellsWhatTheServerSaid()
{
    QFETCH(int, behaviour);
    QFETCH(int, status);
    QFETCH(QByteArray, body);
    QFETCH(QString, message);
    QFETCH(QString, lastProgress);
    QFETCH(QString, place);
    m_server->status = status;
    m_server->body = body;
    if (behaviour < 0)
        qputenv("ROVANEL_UPDATE_URL",
                QString("http://127.0.0.1:%1/").arg(LoopbackHttpServer::closedPort()).toUtf8());
    else
        m_server->behaviour = static_cast<Behaviour>(behaviour);
    runManually();
    QCOMPARE(m_messages->texts(), message.isEmpty() ? QStringList{} : QStringList{message});
    QCOMPARE(memo().value(memo().size() - 2), lastProgress);
    QCOMPARE(m_notice->isVisible(), !place.isEmpty());
    if (!place.isEmpty()) QCOMPARE(m_notice->findChild<QLabel*>("Label2")->text(), place);
    QVERIFY(m_main->UpgChecked && !m_main->UpgRunning);
}

void TestSettingsform::silentServerEndsByItsTimeOutWhileTheWindowAnswersAndRefusesASecondRun()
{
    m_server->behaviour = Behaviour::NeverAnswer;
    QTest::mouseClick(control<QPushButton>("HttpChk"), Qt::LeftButton);
    // The click returned at once; the check runs on while the window takes input.
    QVERIFY(m_main->UpgRunning);
    QTRY_COMPARE(m_server->requestLines.size(), 1);
    QTest::keyClicks(control<QLineEdit>("HttpProxyPort"), "8");
    QCOMPARE(control<QLineEdit>("HttpProxyPort")->text(), QString("8"));
    // A second test and a timer tick meanwhile: both return at once and send nothing.
    QTest::mouseClick(control<QPushButton>("HttpChk"), Qt::LeftButton);
    QCOMPARE(memo(), QStringList({"Lekérdezés indul", "Lekérdezés vége"}));
    m_main->Timer1Timer();
    QTRY_VERIFY_WITH_TIMEOUT(!m_main->UpgRunning, 20000);
    QCOMPARE(m_server->requestLines.size(), 1);
    // The first run's own lines come after the second test's.
    QCOMPARE(memo(), QStringList({"Lekérdezés indul", "Lekérdezés vége", "Hiba", "Szétkapcsolás",
                                  "Lekérdezés vége"}));
    QCOMPARE(m_messages->texts(), QStringList{kUnreachable});
}

void TestSettingsform::proxyFromTheSettingsCarriesTheRequest()
{
    qputenv("ROVANEL_UPDATE_URL", "http://frissites.rovanel.invalid/rovanel/rvupg.ini");
    control<QLineEdit>("HttpProxy")->setText("127.0.0.1");  // saved by the test button before it runs
    control<QLineEdit>("HttpProxyPort")->setText(QString::number(m_server->serverPort()));
    runManually();
    QCOMPARE(m_server->requestLines,
             QList<QByteArray>{"GET http://frissites.rovanel.invalid/rovanel/rvupg.ini HTTP/1.1"});
    QVERIFY(m_notice->isVisible());
    // Without the proxy the made-up host is not found, and the message names it.
    control<QLineEdit>("HttpProxy")->clear();
    runManually();
    QVERIFY(memo().contains(QString::fromUtf8("Érvénytelen cím")));
    QCOMPARE(m_messages->texts(),
             QStringList{QString::fromUtf8("Hiba: frissites.rovanel.invalid nem érhető el.")});
}

// Switching the check off is stored, but the automatic run still runs once: kept on purpose.
void TestSettingsform::automaticRunIsOncePerProgramRunAndShowsOnlyTheTitleWhenSwitchedOff()
{
    setRegistry("Version", "20261101");  // this database was seen before: the notice stays off
    QVERIFY(!rovanel::RegWriteBool(m_main->registry(), "\\Software\\Rovanel\\UpgShow", false));
    QVERIFY(!rovanel::RegWriteBool(m_main->registry(), "\\Software\\Rovanel\\CheckUpg", false));
    const QString title = m_main->windowTitle();
    QCOMPARE(m_main->findChild<QTimer*>("Timer1")->interval(), 60000);
    for (int tick = 0; tick < 3; ++tick) {
        m_main->Timer1Timer();
        QTRY_VERIFY(!m_main->UpgRunning);
    }
    QCOMPARE(m_server->requestLines.size(), 1);
    QCOMPARE(m_main->windowTitle(), title + kSuffix);
    QVERIFY(!m_notice->isVisible());
    // A failed automatic run says nothing.
    m_main->UpgChecked = false;
    qputenv("ROVANEL_UPDATE_URL",
            QString("http://127.0.0.1:%1/").arg(LoopbackHttpServer::closedPort()).toUtf8());
    m_main->HttpChkClick();
    QTRY_VERIFY(m_main->UpgChecked);
    QVERIFY(m_messages->texts().isEmpty());
}

// Kept on purpose: a registry error ends the check with UpgRunning still set, so no check of any kind
// runs again in this program run.
void TestSettingsform::registryErrorLeavesTheCheckRunningForTheRestOfTheRun()
{
    QVERIFY(!rovanel::RegWriteInteger(m_main->registry(), "\\Software\\Rovanel\\Version", 1));
    runManually();
    QCOMPARE(m_messages->texts(), QStringList{QString::fromUtf8("Az adat érvénytelen.")});
    QVERIFY(m_main->UpgRunning && !m_notice->isVisible());
    runManually();
    QCOMPARE(memo(), QStringList({"Lekérdezés indul", "Lekérdezés vége"}));
    QCOMPARE(m_server->requestLines.size(), 1);
}

void TestSettingsform::noticeSwitchedOffOnlyByItsCheckedBox()
{
    auto* box = m_notice->findChild<QCheckBox*>("chbNoUpgMsg");
    QCOMPARE(box->text(), QString::fromUtf8("&Ez az üzenet ne jelenjék meg többet."));
    QCOMPARE(m_notice->findChild<QPushButton*>("Button1")->text(), QString::fromUtf8("&Tovább"));
    // Unchecked "&Tovább"; checked and the title bar; unchecked again never switches it back on.
    const std::pair<bool, bool> closings[] = {{false, true}, {true, false}, {false, false}};
    for (const auto& [checked, expected] : closings) {
        m_notice->show();
        box->setChecked(checked);
        if (checked)
            m_notice->close();
        else
            QTest::mouseClick(m_notice->findChild<QPushButton*>("Button1"), Qt::LeftButton);
        QVERIFY(!m_notice->isVisible());
        QCOMPARE(upgShow(), expected);
    }
}

void TestSettingsform::refreshFromTheMenuInstallsTheNewerDatabaseAndRestarts()
{
    int restarts = 0;
    const Restarter previous = setRestarter([&] { ++restarts; });
    ScratchDirectory update;
    update.write("ZARAS.INF", "20261201\r\n2026.12.01\r\n");
    update.write("nevrend.dat", "new names");
    m_data->write("RV.INI", "[Rovanel Beallitasok]\r\nPathToUpdate=" + update.path().string() + "/\r\n");
    auto* item = m_main->findChild<QAction*>("Frissites");
    QVERIFY(item && item->isEnabled());
    item->trigger();
    QCOMPARE(m_messages->texts(),
             QStringList({QString::fromUtf8("Az adatbázis változott, indul a frissítés."),
                          QString::fromUtf8("Sikeres frissítés, a program újra indul.")}));
    QCOMPARE(restarts, 1);
    QCOMPARE(m_data->read("nevrend.dat"), std::string("new names"));
    QCOMPARE(m_data->read("zaras.inf"), std::string("20261201\r\n2026.12.01\r\n"));  // the name it had
    m_messages->clear();
    item->trigger();
    QCOMPARE(m_messages->texts(),
             QStringList{QString::fromUtf8("Nincs újabb adatbázis a frissítési könyvtárban.")});
    QCOMPARE(restarts, 1);
    setRestarter(previous);
}

QTEST_MAIN(TestSettingsform)
#include "tst_Settingsform.moc"
