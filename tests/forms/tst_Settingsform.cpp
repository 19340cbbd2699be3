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
const std::string kRovanel = "\\Software\\Rovanel\\";

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

// One program run: a tiny database as working directory, a clean profile, a server, and the windows.
struct Run {
    Run()
    {
        server.body = kNewer;
        qputenv("ROVANEL_UPDATE_URL", server.url().toUtf8());
        main.upgradeCheck().setNoticeWindow(&notice);
        main.show();  // FormShow clears UpgChecked
        settings.show();
        messages.clear();
    }
    ~Run() { QDir::setCurrent(previousDirectory); }

    QString previousDirectory = QDir::currentPath();
    ScratchDirectory data;
    ScratchDirectory config;
    bool prepared = [this] {  // before the main window loads
        rovanel::testing::writeTinyDatabase(data);
        qputenv("ROVANEL_CONFIG_DIR", QByteArray::fromStdString(config.path().string()));
        return QDir::setCurrent(QString::fromStdString(data.path().string()));
    }();
    MessageRecorder messages;
    LoopbackHttpServer server;
    TMain main{QStringList{"-gy"}};  // no title picture
    rovanel::RegistryStore& registry = main.registry();
    TMsgDlg notice{registry};
    RecordingStore store{registry};
    TRvSettings settings{main, store};
};

}  // namespace

class TestSettingsform : public QObject
{
    Q_OBJECT
private slots:
    void init() { m_run = std::make_unique<Run>(); }
    void cleanup() { m_run.reset(); }

    void windowShowsTheStoredSettingsAndSavesThemInOrderOnEveryClose();
    void testButtonShowsProgressNoticeAndTitleEveryTime();
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
        return m_run->settings.findChild<T*>(name);
    }
    QStringList memo() { return control<QPlainTextEdit>("ChkMemo")->toPlainText().split('\n'); }
    void runManually()
    {
        QTest::mouseClick(control<QPushButton>("HttpChk"), Qt::LeftButton);
        QTRY_VERIFY_WITH_TIMEOUT(memo().endsWith("Lekérdezés vége"), 20000);
    }
    bool setting(const char* name) { return rovanel::RegReadBool(m_run->registry, kRovanel + name).value; }

    std::unique_ptr<Run> m_run;
};

void TestSettingsform::windowShowsTheStoredSettingsAndSavesThemInOrderOnEveryClose()
{
    Run& run = *m_run;
    QCOMPARE(run.settings.windowTitle(), QString::fromUtf8("Rovanel beállítások"));
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
    run.settings.hide();
    QVERIFY(!rovanel::RegWriteString(run.registry, kRovanel + "HttpProxy", "proxy.rendelo.hu"));
    QVERIFY(!rovanel::RegWriteBool(run.registry, kRovanel + "UpgShow", false));
    run.settings.show();
    QVERIFY(control<QCheckBox>("WebChk")->isChecked());
    QVERIFY(!control<QCheckBox>("chbUpgShow2")->isChecked());
    QCOMPARE(control<QLineEdit>("HttpProxy")->text(), QString("proxy.rendelo.hu"));

    // "&Tovább", the title bar, and "Kilép" (which saves, then closes and saves again).
    const QStringList order{"CheckUpg", "UpgShow", "HttpProxy", "ProxyPort"};
    const std::function<void()> closings[] = {
        [&] { QTest::mouseClick(control<QPushButton>("CloseSettings"), Qt::LeftButton); },
        [&] { run.settings.close(); },
        [&] { QTest::mouseClick(control<QPushButton>("SettingsQuit"), Qt::LeftButton); },
    };
    for (int round = 0; round < 3; ++round) {
        run.settings.show();
        control<QCheckBox>("WebChk")->setChecked(round == 1);
        control<QLineEdit>("HttpProxyPort")->setText(QString("31x%1").arg(round));  // saved as typed
        run.store.writes.clear();
        closings[round]();
        QVERIFY(!run.settings.isVisible());
        QCOMPARE(run.store.writes, round == 2 ? order + order : order);
        QCOMPARE(setting("CheckUpg"), round == 1);
        QCOMPARE(rovanel::RegReadString(run.registry, kRovanel + "ProxyPort").value,
                 "31x" + std::to_string(round));
    }
    QVERIFY(run.messages.texts().isEmpty());
}

void TestSettingsform::testButtonShowsProgressNoticeAndTitleEveryTime()
{
    Run& run = *m_run;
    const QString title = run.main.windowTitle();
    for (int time = 1; time <= 2; ++time) {
        runManually();
        QStringList seen = memo();
        seen.removeDuplicates();  // "Adat érkezett" for every packet
        QCOMPARE(seen, QStringList({"Lekérdezés indul", "Szerver megvan", "Kapcsolódás", "Adat elment",
                                    "Státusz változott", "Adat érkezett", "Rendben", "Szétkapcsolás",
                                    "Lekérdezés vége"}));
        QCOMPARE(run.main.windowTitle(), title + kSuffix.repeated(time));  // once more every time
        QVERIFY(run.notice.isVisible());
        QVERIFY(run.main.UpgChecked && !run.main.UpgRunning);
    }
    QCOMPARE(run.notice.windowTitle(), QString::fromUtf8("Új adatbázis elérhető"));
    const QStringList labels{"Frissítés elérhető a", "www.rovanel.hu", "oldalon.",
                             "Az adatok lezárásának időpontja:", "2026.12.01"};
    for (int i = 0; i < 5; ++i)
        QCOMPARE(run.notice.findChild<QLabel*>(QString("Label%1").arg(i + 1))->text(), labels[i]);
    QCOMPARE(run.server.requestLines, QList<QByteArray>(2, "GET /rovanel/rvupg.ini HTTP/1.1"));
    QVERIFY(run.messages.texts().isEmpty());
}

void TestSettingsform::manualRunTellsWhatTheServerSaid()
{
    Run& run = *m_run;
    const QString none = QString::fromUtf8("Nincsen újabb adatbázis a www.rovanel.hu oldalon");
    const struct {
        const char* what;
        Behaviour behaviour;
        int status;  // 0: nothing listens
        QByteArray body;
        QString message;
        const char* lastLine;  // before "Lekérdezés vége"
        QString place;         // on the notice window, when it shows
    } cases[] = {
        {"equal date", Behaviour::Answer, 200, "20261101\r\n\r\nwww.rovanel.hu", none, "Szétkapcsolás", ""},
        // Bytes, not dates: "2026-12" sorts before "20261101".
        {"text order", Behaviour::Answer, 200, "2026-12\r\n\r\nwww.rovanel.hu", none, "Szétkapcsolás", ""},
        {"empty reply: silent", Behaviour::Answer, 200, "", "", "Szétkapcsolás", ""},
        {"no CR: empty date", Behaviour::Answer, 200, "20261201",
         QString::fromUtf8("Nincsen újabb adatbázis a  oldalon"), "Szétkapcsolás", ""},
        {"404", Behaviour::Answer, 404, "nincs", kUnreachable, "Szétkapcsolás", ""},
        {"refused", Behaviour::Answer, 0, "", kUnreachable, "Kapcsolódás sikertelen", ""},
        {"ten megabytes: the first 64 KiB", Behaviour::Flood, 200, "", "", "Szétkapcsolás", "www.rovanel.hu"},
    };
    for (const auto& c : cases) {
        run.server.behaviour = c.behaviour;
        run.server.status = c.status;
        run.server.body = c.body;
        const quint16 port = c.status == 0 ? LoopbackHttpServer::closedPort() : run.server.serverPort();
        qputenv("ROVANEL_UPDATE_URL", QString("http://127.0.0.1:%1/rvupg.ini").arg(port).toUtf8());
        run.notice.hide();
        run.messages.clear();
        runManually();
        QVERIFY2(run.messages.texts() == (c.message.isEmpty() ? QStringList{} : QStringList{c.message}),
                 c.what);
        QVERIFY2(memo().value(memo().size() - 2) == QString::fromUtf8(c.lastLine), c.what);
        QVERIFY2(run.notice.isVisible() == !c.place.isEmpty(), c.what);
        QVERIFY2(c.place.isEmpty() || run.notice.findChild<QLabel*>("Label2")->text() == c.place, c.what);
        QVERIFY2(run.main.UpgChecked && !run.main.UpgRunning, c.what);
    }
}

void TestSettingsform::silentServerEndsByItsTimeOutWhileTheWindowAnswersAndRefusesASecondRun()
{
    Run& run = *m_run;
    run.server.behaviour = Behaviour::NeverAnswer;
    QTest::mouseClick(control<QPushButton>("HttpChk"), Qt::LeftButton);
    // The click returned at once; the check runs on while the window takes input.
    QVERIFY(run.main.UpgRunning);
    QTRY_COMPARE(run.server.requestLines.size(), 1);
    QTest::keyClicks(control<QLineEdit>("HttpProxyPort"), "8");
    QCOMPARE(control<QLineEdit>("HttpProxyPort")->text(), QString("8"));
    // A second test and a timer tick meanwhile: both return at once and send nothing.
    QTest::mouseClick(control<QPushButton>("HttpChk"), Qt::LeftButton);
    QCOMPARE(memo(), QStringList({"Lekérdezés indul", "Lekérdezés vége"}));
    run.main.Timer1Timer();
    QTRY_VERIFY_WITH_TIMEOUT(!run.main.UpgRunning, 20000);
    QCOMPARE(run.server.requestLines.size(), 1);
    // The first run's own lines come after the second test's.
    QCOMPARE(memo(), QStringList({"Lekérdezés indul", "Lekérdezés vége", "Hiba", "Szétkapcsolás",
                                  "Lekérdezés vége"}));
    QCOMPARE(run.messages.texts(), QStringList{kUnreachable});
}

void TestSettingsform::proxyFromTheSettingsCarriesTheRequest()
{
    Run& run = *m_run;
    qputenv("ROVANEL_UPDATE_URL", "http://frissites.rovanel.invalid/rovanel/rvupg.ini");
    control<QLineEdit>("HttpProxy")->setText("127.0.0.1");  // saved by the test button before it runs
    control<QLineEdit>("HttpProxyPort")->setText(QString::number(run.server.serverPort()));
    runManually();
    QCOMPARE(run.server.requestLines,
             QList<QByteArray>{"GET http://frissites.rovanel.invalid/rovanel/rvupg.ini HTTP/1.1"});
    QVERIFY(run.notice.isVisible());
    // Without the proxy the made-up host is not found, and the message names it.
    control<QLineEdit>("HttpProxy")->clear();
    runManually();
    QVERIFY(memo().contains(QString::fromUtf8("Érvénytelen cím")));
    QCOMPARE(run.messages.texts(),
             QStringList{QString::fromUtf8("Hiba: frissites.rovanel.invalid nem érhető el.")});
}

// Switching the check off is stored, but the automatic run still runs once: kept on purpose.
void TestSettingsform::automaticRunIsOncePerProgramRunAndShowsOnlyTheTitleWhenSwitchedOff()
{
    Run& run = *m_run;
    // This database was seen before, so the notice stays off.
    QVERIFY(!rovanel::RegWriteString(run.registry, kRovanel + "Version", "20261101"));
    QVERIFY(!rovanel::RegWriteBool(run.registry, kRovanel + "UpgShow", false));
    QVERIFY(!rovanel::RegWriteBool(run.registry, kRovanel + "CheckUpg", false));
    const QString title = run.main.windowTitle();
    for (int tick = 0; tick < 3; ++tick) {
        run.main.Timer1Timer();
        QTRY_VERIFY(!run.main.UpgRunning);
    }
    QCOMPARE(run.server.requestLines.size(), 1);
    QCOMPARE(run.main.windowTitle(), title + kSuffix);
    QVERIFY(!run.notice.isVisible());
    // A failed automatic run says nothing.
    run.main.UpgChecked = false;
    qputenv("ROVANEL_UPDATE_URL",
            QString("http://127.0.0.1:%1/").arg(LoopbackHttpServer::closedPort()).toUtf8());
    run.main.HttpChkClick();
    QTRY_VERIFY(run.main.UpgChecked);
    QVERIFY(run.messages.texts().isEmpty());
}

// Kept on purpose: a registry error ends the check with UpgRunning still set, so no check of any kind
// runs again in this program run.
void TestSettingsform::registryErrorLeavesTheCheckRunningForTheRestOfTheRun()
{
    QVERIFY(!rovanel::RegWriteInteger(m_run->registry, kRovanel + "Version", 1));
    runManually();
    QCOMPARE(m_run->messages.texts(), QStringList{QString::fromUtf8("Az adat érvénytelen.")});
    QVERIFY(m_run->main.UpgRunning && !m_run->notice.isVisible());
    runManually();
    QCOMPARE(memo(), QStringList({"Lekérdezés indul", "Lekérdezés vége"}));
    QCOMPARE(m_run->server.requestLines.size(), 1);
}

void TestSettingsform::noticeSwitchedOffOnlyByItsCheckedBox()
{
    TMsgDlg& notice = m_run->notice;
    auto* box = notice.findChild<QCheckBox*>("chbNoUpgMsg");
    QCOMPARE(box->text(), QString::fromUtf8("&Ez az üzenet ne jelenjék meg többet."));
    QCOMPARE(notice.findChild<QPushButton*>("Button1")->text(), QString::fromUtf8("&Tovább"));
    // Unchecked "&Tovább"; checked and the title bar; unchecked again never switches it back on.
    for (const auto& [checked, expected] : {std::pair{false, true}, {true, false}, {false, false}}) {
        notice.show();
        box->setChecked(checked);
        if (checked)
            notice.close();
        else
            QTest::mouseClick(notice.findChild<QPushButton*>("Button1"), Qt::LeftButton);
        QVERIFY(!notice.isVisible());
        QCOMPARE(setting("UpgShow"), expected);
    }
}

void TestSettingsform::refreshFromTheMenuInstallsTheNewerDatabaseAndRestarts()
{
    Run& run = *m_run;
    int restarts = 0;
    const Restarter previous = setRestarter([&] { ++restarts; });
    ScratchDirectory update;
    update.write("ZARAS.INF", "20261201\r\n2026.12.01\r\n");
    update.write("nevrend.dat", "new names");
    run.data.write("RV.INI", "[Rovanel Beallitasok]\r\nPathToUpdate=" + update.path().string() + "/\r\n");
    auto* item = run.main.findChild<QAction*>("Frissites");
    QVERIFY(item && item->isEnabled());
    item->trigger();
    QCOMPARE(run.messages.texts(),
             QStringList({QString::fromUtf8("Az adatbázis változott, indul a frissítés."),
                          QString::fromUtf8("Sikeres frissítés, a program újra indul.")}));
    QCOMPARE(restarts, 1);
    QCOMPARE(run.data.read("nevrend.dat"), std::string("new names"));
    run.messages.clear();
    item->trigger();
    QCOMPARE(run.messages.texts(),
             QStringList{QString::fromUtf8("Nincs újabb adatbázis a frissítési könyvtárban.")});
    QCOMPARE(restarts, 1);
    setRestarter(previous);
}

QTEST_MAIN(TestSettingsform)
#include "tst_Settingsform.moc"
