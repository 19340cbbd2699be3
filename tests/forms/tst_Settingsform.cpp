// The settings window, the update notice check and the notice window, driven by control names against
// an HTTP server on the loopback address; and the database refresh from the main menu.
#include <QAction>
#include <QCheckBox>
#include <QDir>
#include <QGroupBox>
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
#include "db/Cp1250.h"
#include "db/DataFile.h"
#include "tests/forms/support/LoopbackHttpServer.h"
#include "tests/forms/support/MessageRecorder.h"
#include "tests/support/TinyDatabase.h"

using rovanel::testing::ScratchDirectory;

namespace
{

const QByteArray kNewer =
    "20261201\r\n2026.12.01\r\nwww.rovanel.hu\r\n";  // the tiny database closes 20261101
const QString kSuffix = QString::fromUtf8(" - Frissítés elérhető a www.rovanel.hu oldalon");

// Passes everything to the main window's store and notes the path of every write, in order.
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

QStringList lines(QPlainTextEdit* memo) { return memo->toPlainText().split('\n', Qt::SkipEmptyParts); }

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
    void floodingServerIsCutAndItsFirstLinesRead();
    void proxyFromTheSettingsCarriesTheRequest();
    void automaticRunIsOncePerProgramRunAndShowsOnlyTheTitleWhenSwitchedOff();
    void registryErrorLeavesTheCheckRunningForTheRestOfTheRun();
    void noticeSwitchedOffOnlyByItsCheckedBox();
    void refreshFromTheMenuInstallsTheNewerDatabaseAndRestarts();

private:
    void setServer(const QString& url) { qputenv("ROVANEL_UPDATE_URL", url.toUtf8()); }
    void setRegistry(const char* name, const std::string& value)
    {
        QVERIFY(
            !rovanel::RegWriteString(m_main->registry(), std::string("\\Software\\Rovanel\\") + name, value));
    }
    void runManually(TRvSettings& settings);

    std::unique_ptr<ScratchDirectory> m_data;
    std::unique_ptr<ScratchDirectory> m_config;
    std::unique_ptr<MessageRecorder> m_messages;
    std::unique_ptr<TMain> m_main;
    std::unique_ptr<TMsgDlg> m_notice;
    std::unique_ptr<LoopbackHttpServer> m_server;
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
    setServer(m_server->url());
    m_main = std::make_unique<TMain>(QStringList{"-gy"});  // no title picture
    m_notice = std::make_unique<TMsgDlg>(m_main->registry());
    m_main->upgradeCheck().setNoticeWindow(m_notice.get());
    m_main->show();  // FormShow clears UpgChecked
    m_messages->clear();
}

void TestSettingsform::cleanup()
{
    m_notice.reset();
    m_main.reset();
    m_server.reset();
    m_messages.reset();
    QDir::setCurrent(m_previousDirectory);
    m_data.reset();
    m_config.reset();
}

void TestSettingsform::runManually(TRvSettings& settings)
{
    QTest::mouseClick(settings.findChild<QPushButton*>("HttpChk"), Qt::LeftButton);
    QTRY_VERIFY_WITH_TIMEOUT(
        lines(settings.findChild<QPlainTextEdit*>("ChkMemo")).endsWith("Lekérdezés vége"), 20000);
}

void TestSettingsform::windowShowsTheStoredSettingsAndSavesThemInOrderOnEveryClose()
{
    RecordingStore store(m_main->registry());
    TRvSettings settings(*m_main, store);
    QCOMPARE(settings.windowTitle(), QString::fromUtf8("Rovanel beállítások"));
    struct Caption {
        const char* name;
        const char* text;
    };
    for (const Caption& c : {Caption{"WebChk", "Internetes frissítés lekérdezés a program indításakor"},
                             Caption{"chbUpgShow2", "Figyelmeztetés fölugró ablakban"}})
        QCOMPARE(settings.findChild<QCheckBox*>(c.name)->text(), QString::fromUtf8(c.text));
    for (const Caption& c : {Caption{"CloseSettings", "&Tovább"}, Caption{"HttpChk", "Lekérdezés indul"},
                             Caption{"SettingsQuit", "Kilép"}})
        QCOMPARE(settings.findChild<QPushButton*>(c.name)->text(), QString::fromUtf8(c.text));
    QCOMPARE(settings.findChild<QGroupBox*>("GroupBox1")->title(), QString::fromUtf8("Proxy használata"));
    QCOMPARE(settings.findChild<QGroupBox*>("GroupBox2")->title(),
             QString::fromUtf8("Internetes lekérdezés tesztelése"));
    QCOMPARE(settings.findChild<QLabel*>("Label1")->text(), QString("Proxy"));
    QCOMPARE(settings.findChild<QLabel*>("Port")->text(), QString("Port"));

    setRegistry("HttpProxy", "proxy.rendelo.hu");
    setRegistry("ProxyPort", "3128");
    QVERIFY(!rovanel::RegWriteBool(m_main->registry(), "\\Software\\Rovanel\\UpgShow", false));
    settings.show();
    auto* webChk = settings.findChild<QCheckBox*>("WebChk");
    auto* upgShow = settings.findChild<QCheckBox*>("chbUpgShow2");
    auto* proxy = settings.findChild<QLineEdit*>("HttpProxy");
    auto* port = settings.findChild<QLineEdit*>("HttpProxyPort");
    QVERIFY(webChk->isChecked());
    QVERIFY(!upgShow->isChecked());
    QCOMPARE(proxy->text(), QString("proxy.rendelo.hu"));
    QCOMPARE(port->text(), QString("3128"));
    QVERIFY(store.writes.isEmpty());

    const QStringList order{"CheckUpg", "UpgShow", "HttpProxy", "ProxyPort"};
    // "&Tovább", the title bar, and "Kilép" (which saves, then closes and saves again).
    const std::function<void()> closings[] = {
        [&] { QTest::mouseClick(settings.findChild<QPushButton*>("CloseSettings"), Qt::LeftButton); },
        [&] { settings.close(); },
        [&] { QTest::mouseClick(settings.findChild<QPushButton*>("SettingsQuit"), Qt::LeftButton); },
    };
    int round = 0;
    for (const auto& closeWindow : closings) {
        settings.show();
        webChk->setChecked(round % 2 == 1);
        port->setText(QString("31x%1").arg(round));  // not a number: saved as typed
        store.writes.clear();
        closeWindow();
        QVERIFY(!settings.isVisible());
        QCOMPARE(store.writes, round == 2 ? order + order : order);
        QCOMPARE(rovanel::RegReadBool(m_main->registry(), "\\Software\\Rovanel\\CheckUpg").value,
                 round % 2 == 1);
        QCOMPARE(QString::fromStdString(
                     rovanel::RegReadString(m_main->registry(), "\\Software\\Rovanel\\ProxyPort").value),
                 QString("31x%1").arg(round));
        ++round;
    }
    QVERIFY(m_messages->texts().isEmpty());
}

void TestSettingsform::testButtonShowsProgressNoticeAndTitleEveryTime()
{
    TRvSettings settings(*m_main, m_main->registry());
    settings.show();
    auto* memo = settings.findChild<QPlainTextEdit*>("ChkMemo");
    const QString title = m_main->windowTitle();
    for (int run = 1; run <= 2; ++run) {
        runManually(settings);
        QStringList seen = lines(memo);
        seen.removeDuplicates();  // "Adat érkezett" for every packet
        QCOMPARE(seen, QStringList({"Lekérdezés indul", "Szerver megvan", "Kapcsolódás", "Adat elment",
                                    "Státusz változott", "Adat érkezett", "Rendben", "Szétkapcsolás",
                                    "Lekérdezés vége"}));
        QCOMPARE(m_main->windowTitle(), title + kSuffix.repeated(run));  // once more per run
        QVERIFY(m_notice->isVisible());
        QVERIFY(m_main->UpgChecked);
        QVERIFY(!m_main->UpgRunning);
    }
    const QStringList expected{"Frissítés elérhető a", "www.rovanel.hu", "oldalon.",
                               "Az adatok lezárásának időpontja:", "2026.12.01"};
    for (int i = 0; i < 5; ++i)
        QCOMPARE(m_notice->findChild<QLabel*>(QString("Label%1").arg(i + 1))->text(), expected[i]);
    QCOMPARE(m_notice->windowTitle(), QString::fromUtf8("Új adatbázis elérhető"));
    QCOMPARE(m_server->requestLines, QList<QByteArray>(2, "GET /rovanel/rvupg.ini HTTP/1.1"));
    QVERIFY(m_messages->texts().isEmpty());
}

void TestSettingsform::manualRunTellsWhatTheServerSaid_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<bool>("refused");
    QTest::addColumn<QStringList>("messages");
    QTest::addColumn<QString>("lastProgress");  // before "Lekérdezés vége"
    QTest::addColumn<bool>("notice");

    const QString unreachable = QString::fromUtf8("Hiba: 127.0.0.1 nem érhető el.");
    const QString none = QString::fromUtf8("Nincsen újabb adatbázis a www.rovanel.hu oldalon");
    QTest::newRow("equal date") << 200 << QByteArray("20261101\r\n2026.11.01\r\nwww.rovanel.hu") << false
                                << QStringList{none} << "Szétkapcsolás" << false;
    QTest::newRow("older date") << 200 << QByteArray("20261001\r\n2026.10.01\r\nwww.rovanel.hu\r\n") << false
                                << QStringList{none} << "Szétkapcsolás" << false;
    QTest::newRow("empty reply: silent")
        << 200 << QByteArray() << false << QStringList{} << "Szétkapcsolás" << false;
    QTest::newRow("no CR: empty date, no news")
        << 200 << QByteArray("20261201") << false
        << QStringList{QString::fromUtf8("Nincsen újabb adatbázis a  oldalon")} << "Szétkapcsolás" << false;
    QTest::newRow("lines over 100 bytes")
        << 200 << QByteArray("20261201\r\n" + QByteArray(120, 'd') + "\r\nwww.rovanel.hu\r\n") << false
        << QStringList{} << "Szétkapcsolás" << true;
    QTest::newRow("404") << 404 << QByteArray("nincs") << false << QStringList{unreachable} << "Szétkapcsolás"
                         << false;
    QTest::newRow("refused connection")
        << 200 << kNewer << true << QStringList{unreachable} << "Kapcsolódás sikertelen" << false;
}

void TestSettingsform::manualRunTellsWhatTheServerSaid()
{
    QFETCH(int, status);
    QFETCH(QByteArray, body);
    QFETCH(bool, refused);
    QFETCH(QStringList, messages);
    QFETCH(QString, lastProgress);
    QFETCH(bool, notice);
    m_server->status = status;
    m_server->body = body;
    if (refused) setServer(QString("http://127.0.0.1:%1/rvupg.ini").arg(LoopbackHttpServer::closedPort()));
    TRvSettings settings(*m_main, m_main->registry());
    settings.show();
    runManually(settings);
    QCOMPARE(m_messages->texts(), messages);
    const QStringList progress = lines(settings.findChild<QPlainTextEdit*>("ChkMemo"));
    QCOMPARE(progress.value(progress.size() - 2), lastProgress);
    QCOMPARE(m_notice->isVisible(), notice);
    if (notice) QCOMPARE(m_notice->findChild<QLabel*>("Label5")->text(), QString(100, 'd'));
    QVERIFY(m_main->UpgChecked && !m_main->UpgRunning);
}

void TestSettingsform::silentServerEndsByItsTimeOutWhileTheWindowAnswersAndRefusesASecondRun()
{
    m_server->behaviour = LoopbackHttpServer::Behaviour::NeverAnswer;
    TRvSettings settings(*m_main, m_main->registry());
    settings.show();
    auto* memo = settings.findChild<QPlainTextEdit*>("ChkMemo");
    QTest::mouseClick(settings.findChild<QPushButton*>("HttpChk"), Qt::LeftButton);
    // The click returned at once; the check runs on while the window takes input.
    QVERIFY(m_main->UpgRunning);
    QTRY_COMPARE(m_server->requestLines.size(), 1);
    auto* proxy = settings.findChild<QLineEdit*>("HttpProxy");
    QTest::keyClicks(proxy, "abc");
    QCOMPARE(proxy->text(), QString("abc"));
    // A second test, and a timer tick, while it runs: both return at once and send nothing.
    QTest::mouseClick(settings.findChild<QPushButton*>("HttpChk"), Qt::LeftButton);
    QCOMPARE(lines(memo), QStringList({"Lekérdezés indul", "Lekérdezés vége"}));
    m_main->Timer1Timer();
    QTRY_VERIFY_WITH_TIMEOUT(!m_main->UpgRunning, 20000);
    QCOMPARE(m_server->requestLines.size(), 1);
    // The first run's own lines arrive after the second test's.
    QCOMPARE(lines(memo), QStringList({"Lekérdezés indul", "Lekérdezés vége", "Hiba", "Szétkapcsolás",
                                       "Lekérdezés vége"}));
    QCOMPARE(m_messages->texts(), QStringList{QString::fromUtf8("Hiba: 127.0.0.1 nem érhető el.")});
    QVERIFY(m_main->UpgChecked);
}

void TestSettingsform::floodingServerIsCutAndItsFirstLinesRead()
{
    m_server->behaviour = LoopbackHttpServer::Behaviour::Flood;
    TRvSettings settings(*m_main, m_main->registry());
    settings.show();
    runManually(settings);
    QVERIFY(m_notice->isVisible());
    QCOMPARE(m_notice->findChild<QLabel*>("Label2")->text(), QString("www.rovanel.hu"));
    QVERIFY(lines(settings.findChild<QPlainTextEdit*>("ChkMemo")).contains("Rendben"));
    QVERIFY(m_messages->texts().isEmpty());
}

void TestSettingsform::proxyFromTheSettingsCarriesTheRequest()
{
    setServer("http://frissites.rovanel.invalid/rovanel/rvupg.ini");
    setRegistry("HttpProxy", "127.0.0.1");
    setRegistry("ProxyPort", std::to_string(m_server->serverPort()));
    TRvSettings settings(*m_main, m_main->registry());
    settings.show();
    runManually(settings);
    QCOMPARE(m_server->requestLines,
             QList<QByteArray>{"GET http://frissites.rovanel.invalid/rovanel/rvupg.ini HTTP/1.1"});
    QVERIFY(m_notice->isVisible());

    // Without a proxy the made-up host is not found, and the manual run names it.
    settings.findChild<QLineEdit*>("HttpProxy")->clear();
    runManually(settings);
    QCOMPARE(m_messages->texts(),
             QStringList{QString::fromUtf8("Hiba: frissites.rovanel.invalid nem érhető el.")});
}

void TestSettingsform::automaticRunIsOncePerProgramRunAndShowsOnlyTheTitleWhenSwitchedOff()
{
    setRegistry("Version", "20261101");  // this database was seen before: the notice stays off
    QVERIFY(!rovanel::RegWriteBool(m_main->registry(), "\\Software\\Rovanel\\UpgShow", false));
    // Switching the check off is stored but does not stop the automatic run.
    QVERIFY(!rovanel::RegWriteBool(m_main->registry(), "\\Software\\Rovanel\\CheckUpg", false));
    const QString title = m_main->windowTitle();
    auto* timer = m_main->findChild<QTimer*>("Timer1");
    QCOMPARE(timer->interval(), 60000);
    for (int tick = 0; tick < 3; ++tick) {
        m_main->Timer1Timer();
        QTRY_VERIFY(!m_main->UpgRunning);
    }
    QCOMPARE(m_server->requestLines.size(), 1);
    QCOMPARE(m_main->windowTitle(), title + kSuffix);
    QVERIFY(!m_notice->isVisible());
    QVERIFY(timer->isActive());  // never stopped

    // An automatic run that fails says nothing.
    m_main->UpgChecked = false;
    setServer(QString("http://127.0.0.1:%1/rvupg.ini").arg(LoopbackHttpServer::closedPort()));
    m_main->HttpChkClick();
    QTRY_VERIFY(m_main->UpgChecked);
    QVERIFY(m_messages->texts().isEmpty());
}

// Kept on purpose: a registry error ends the check with UpgRunning still set, so no check of any kind
// runs again in this program run.
void TestSettingsform::registryErrorLeavesTheCheckRunningForTheRestOfTheRun()
{
    QVERIFY(!rovanel::RegWriteInteger(m_main->registry(), "\\Software\\Rovanel\\Version", 1));
    TRvSettings settings(*m_main, m_main->registry());
    settings.show();
    runManually(settings);
    QCOMPARE(m_messages->texts(), QStringList{QString::fromUtf8("Az adat érvénytelen.")});
    QVERIFY(m_main->UpgRunning);
    QVERIFY(!m_notice->isVisible());
    runManually(settings);
    QCOMPARE(lines(settings.findChild<QPlainTextEdit*>("ChkMemo")),
             QStringList({"Lekérdezés indul", "Lekérdezés vége"}));
    QCOMPARE(m_server->requestLines.size(), 1);
}

void TestSettingsform::noticeSwitchedOffOnlyByItsCheckedBox()
{
    rovanel::RegistryStore& registry = m_main->registry();
    auto* box = m_notice->findChild<QCheckBox*>("chbNoUpgMsg");
    QCOMPARE(box->text(), QString::fromUtf8("&Ez az üzenet ne jelenjék meg többet."));
    QCOMPARE(m_notice->findChild<QPushButton*>("Button1")->text(), QString::fromUtf8("&Tovább"));
    m_notice->show();
    QTest::mouseClick(m_notice->findChild<QPushButton*>("Button1"), Qt::LeftButton);
    QVERIFY(!m_notice->isVisible());
    QVERIFY(rovanel::RegReadBool(registry, "\\Software\\Rovanel\\UpgShow").value);
    m_notice->show();
    box->setChecked(true);
    m_notice->close();  // the title bar
    QVERIFY(!rovanel::RegReadBool(registry, "\\Software\\Rovanel\\UpgShow").value);
    // Unchecking never switches it back on.
    m_notice->show();
    box->setChecked(false);
    m_notice->close();
    QVERIFY(!rovanel::RegReadBool(registry, "\\Software\\Rovanel\\UpgShow").value);
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
