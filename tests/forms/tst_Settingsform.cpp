// The settings window, the update notice check and the notice window, driven by control names against
// an HTTP server on the loopback address; and the database refresh from the main menu.
#include <memory>

#include "app/RegistrySettings.h"
#include "app/forms/Msgdlg.h"
#include "app/forms/RefreshFromUpdatePath.h"
#include "app/forms/Rvmain.h"
#include "app/forms/Settingsform.h"
#include "app/forms/UpgradeCheck.h"
#include "tests/forms/support/LoopbackHttpServer.h"
#include "tests/forms/support/Windows.h"

using Behaviour = LoopbackHttpServer::Behaviour;

namespace
{

const QByteArray kNewer =
    "20261201\r\n2026.12.01\r\nwww.rovanel.hu\r\n";  // the tiny database closes 20261101
const QString kSuffix = QString(" - Frissítés elérhető a www.rovanel.hu oldalon");
const QString kUnreachable = QString("Hiba: 127.0.0.1 nem érhető el.");
const std::string kRovanel = "\\Software\\Rovanel\\";

// One program run on the tiny database, with a server for the update notice, and the windows.
struct Run : TinyDatabaseStart {
    Run()
    {
        server.body = kNewer;
        environment.set("ROVANEL_UPDATE_URL", server.url().toStdString());
        main.upgradeCheck().setNoticeWindow(&notice);
        main.show();  // FormShow clears UpgChecked
        settings.show();
        messages.clear();
    }

    LoopbackHttpServer server;
    TMain main{QStringList{"-gy"}};  // no title picture
    rovanel::RegistryStore& registry = main.registry();
    TMsgDlg notice{registry};
    TRvSettings settings{main, registry};
    rovanel::testing::ScopedEnvironment environment;

    QLineEdit* edit(const char* name) const { return control<QLineEdit>(settings, name); }
    [[nodiscard]] QStringList memo() const
    {
        return control<QPlainTextEdit>(settings, "ChkMemo")->toPlainText().split('\n');
    }
    // The settings window's test button, waited for to its end.
    void runManually() const
    {
        click(settings, "HttpChk");
        QTRY_VERIFY_WITH_TIMEOUT(memo().endsWith("Lekérdezés vége"), 20000);
    }
    [[nodiscard]] bool setting(const char* name)
    {
        return rovanel::RegReadBool(registry, kRovanel + name).value;
    }
};

}  // namespace

class TestSettingsform : public QObject
{
    Q_OBJECT
private slots:
    void windowShowsTheStoredSettingsAndSavesThemOnEveryClose()
    {
        Run run;
        QCOMPARE(run.settings.windowTitle(), QString("Rovanel beállítások"));
        QCOMPARE(textsOf(run.settings, {"WebChk", "chbUpgShow2", "CloseSettings", "HttpChk", "SettingsQuit",
                                        "Label1", "Port", "GroupBox1", "GroupBox2"}),
                 (QStringList{"Internetes frissítés lekérdezés a program indításakor",
                              "Figyelmeztetés fölugró ablakban", "&Tovább", "Lekérdezés indul", "Kilép",
                              "Proxy", "Port", "Proxy használata", "Internetes lekérdezés tesztelése"}));

        // Loaded on every showing.
        run.settings.hide();
        QVERIFY(!rovanel::RegWriteString(run.registry, kRovanel + "HttpProxy", "proxy.rendelo.hu"));
        QVERIFY(!rovanel::RegWriteBool(run.registry, kRovanel + "UpgShow", false));
        run.settings.show();
        QVERIFY(control<QCheckBox>(run.settings, "WebChk")->isChecked());
        QVERIFY(!control<QCheckBox>(run.settings, "chbUpgShow2")->isChecked());
        QCOMPARE(run.edit("HttpProxy")->text(), QString("proxy.rendelo.hu"));

        // "&Tovább", the title bar and "Kilép" each save.
        const std::function<void()> closings[] = {[&] { click(run.settings, "CloseSettings"); },
                                                  [&] { run.settings.close(); },
                                                  [&] { click(run.settings, "SettingsQuit"); }};
        for (int round = 0; round < 3; ++round) {
            run.settings.show();
            control<QCheckBox>(run.settings, "WebChk")->setChecked(round == 1);
            run.edit("HttpProxyPort")->setText(QString("31x%1").arg(round));  // saved as typed
            closings[round]();
            QVERIFY(!run.settings.isVisible());
            QCOMPARE(run.setting("CheckUpg"), round == 1);
            QCOMPARE(rovanel::RegReadString(run.registry, kRovanel + "ProxyPort").value,
                     "31x" + std::to_string(round));
        }
        QVERIFY(run.messages.texts().isEmpty());
    }

    void testButtonShowsProgressNoticeAndTitleEveryTimeAndGoesThroughTheProxy()
    {
        Run run;
        const QString title = run.main.windowTitle();
        for (int time = 1; time <= 2; ++time) {
            run.runManually();
            QStringList seen = run.memo();
            seen.removeDuplicates();  // "Adat érkezett" for every packet
            QCOMPARE(seen, QStringList({"Lekérdezés indul", "Szerver megvan", "Kapcsolódás", "Adat elment",
                                        "Státusz változott", "Adat érkezett", "Rendben", "Szétkapcsolás",
                                        "Lekérdezés vége"}));
            QCOMPARE(run.main.windowTitle(), title + kSuffix.repeated(time));  // once more every time
            QVERIFY(run.notice.isVisible() && run.main.UpgChecked && !run.main.UpgRunning);
        }
        QCOMPARE(run.notice.windowTitle(), QString("Új adatbázis elérhető"));
        QCOMPARE(textsOf(run.notice, {"Label1", "Label2", "Label3", "Label4", "Label5"}),
                 (QStringList{"Frissítés elérhető a", "www.rovanel.hu", "oldalon.",
                              "Az adatok lezárásának időpontja:", "2026.12.01"}));
        QCOMPARE(run.server.requestLines, QList<QByteArray>(2, "GET /rovanel/rvupg.ini HTTP/1.1"));
        QVERIFY(run.messages.texts().isEmpty());
        // The notice is switched off only by its checked box.
        TMsgDlg& notice = run.notice;
        auto* box = control<QCheckBox>(notice, "chbNoUpgMsg");
        QCOMPARE(textsOf(notice, {"chbNoUpgMsg", "Button1"}),
                 (QStringList{"&Ez az üzenet ne jelenjék meg többet.", "&Tovább"}));
        // Unchecked "&Tovább"; checked and the title bar; unchecked again never switches it back on.
        for (const auto& [checked, expected] : {std::pair{false, true}, {true, false}, {false, false}}) {
            notice.show();
            box->setChecked(checked);
            if (checked)
                notice.close();
            else
                click(notice, "Button1");
            QVERIFY(!notice.isVisible());
            QCOMPARE(run.setting("UpgShow"), expected);
        }

        // A proxy from the settings carries the request.
        run.server.requestLines.clear();
        run.notice.hide();
        run.environment.set("ROVANEL_UPDATE_URL", "http://frissites.rovanel.invalid/rovanel/rvupg.ini");
        run.edit("HttpProxy")->setText("127.0.0.1");  // saved by the test button before it runs
        run.edit("HttpProxyPort")->setText(QString::number(run.server.serverPort()));
        run.runManually();
        QCOMPARE(run.server.requestLines,
                 QList<QByteArray>{"GET http://frissites.rovanel.invalid/rovanel/rvupg.ini HTTP/1.1"});
        QVERIFY(run.notice.isVisible());
        // Without the proxy the made-up host is not found, and the message names it.
        run.edit("HttpProxy")->clear();
        run.runManually();
        QVERIFY(run.memo().contains("Érvénytelen cím"));
        QCOMPARE(run.messages.texts(), QStringList{"Hiba: frissites.rovanel.invalid nem érhető el."});
    }

    void manualRunTellsWhatTheServerSaid()
    {
        Run run;
        const QString none("Nincsen újabb adatbázis a www.rovanel.hu oldalon");
        const struct {
            const char* what;
            Behaviour behaviour;
            int status;  // 0: nothing listens
            QByteArray body;
            QString message;
            const char* lastLine;  // before "Lekérdezés vége"
            bool notice;
        } cases[] = {
            {"equal date", Behaviour::Answer, 200, "20261101\r\n\r\nwww.rovanel.hu", none, "Szétkapcsolás",
             false},
            {"empty reply: silent", Behaviour::Answer, 200, "", "", "Szétkapcsolás", false},
            {"404", Behaviour::Answer, 404, "nincs", kUnreachable, "Szétkapcsolás", false},
            {"refused", Behaviour::Answer, 0, "", kUnreachable, "Kapcsolódás sikertelen", false},
            {"ten megabytes: the first 64 KiB", Behaviour::Flood, 200, "", "", "Szétkapcsolás", true}};
        for (const auto& c : cases) {
            run.server.behaviour = c.behaviour;
            run.server.status = c.status;
            run.server.body = c.body;
            const quint16 port = c.status == 0 ? LoopbackHttpServer::closedPort() : run.server.serverPort();
            run.environment.set("ROVANEL_UPDATE_URL",
                                "http://127.0.0.1:" + std::to_string(port) + "/rvupg.ini");
            run.notice.hide();
            run.messages.clear();
            run.runManually();
            QVERIFY2(run.messages.take() == (c.message.isEmpty() ? QStringList{} : QStringList{c.message}),
                     c.what);
            QVERIFY2(run.memo().value(run.memo().size() - 2) == QString(c.lastLine), c.what);
            QVERIFY2(run.notice.isVisible() == c.notice, c.what);
            QVERIFY2(!c.notice || textOf(run.notice, "Label2") == "www.rovanel.hu", c.what);
            QVERIFY2(run.main.UpgChecked && !run.main.UpgRunning, c.what);
        }
    }

    void silentServerEndsByItsTimeOutWhileTheWindowAnswersAndRefusesASecondRun()
    {
        Run run;
        run.server.behaviour = Behaviour::NeverAnswer;
        click(run.settings, "HttpChk");
        // The click returned at once; the check runs on while the window takes input.
        QVERIFY(run.main.UpgRunning);
        QTRY_COMPARE(run.server.requestLines.size(), 1);
        QTest::keyClicks(run.edit("HttpProxyPort"), "8");
        QCOMPARE(run.edit("HttpProxyPort")->text(), QString("8"));
        // A second test and a timer tick meanwhile: both return at once and send nothing.
        click(run.settings, "HttpChk");
        QCOMPARE(run.memo(), QStringList({"Lekérdezés indul", "Lekérdezés vége"}));
        run.main.Timer1Timer();
        QTRY_VERIFY_WITH_TIMEOUT(!run.main.UpgRunning, 20000);
        QCOMPARE(run.server.requestLines.size(), 1);
        // The first run's own lines come after the second test's.
        QCOMPARE(run.memo(), QStringList({"Lekérdezés indul", "Lekérdezés vége", "Hiba", "Szétkapcsolás",
                                          "Lekérdezés vége"}));
        QCOMPARE(run.messages.texts(), QStringList{kUnreachable});
    }

    // Switching the check off is stored, but the automatic run still runs once: kept on purpose.
    void automaticRunIsOncePerProgramRunAndShowsOnlyTheTitleWhenSwitchedOff()
    {
        Run run;
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
        run.environment.set("ROVANEL_UPDATE_URL",
                            "http://127.0.0.1:" + std::to_string(LoopbackHttpServer::closedPort()) + "/");
        run.main.HttpChkClick();
        QTRY_VERIFY(run.main.UpgChecked);
        QVERIFY(run.messages.texts().isEmpty());
    }

    // Kept on purpose: a registry error ends the check with UpgRunning still set, so no check of any kind
    // runs again in this program run.
    void registryErrorLeavesTheCheckRunningForTheRestOfTheRun()
    {
        Run run;
        QVERIFY(!rovanel::RegWriteInteger(run.registry, kRovanel + "Version", 1));
        run.runManually();
        QCOMPARE(run.messages.texts(), QStringList{"Az adat érvénytelen."});
        QVERIFY(run.main.UpgRunning && !run.notice.isVisible());
        run.runManually();
        QCOMPARE(run.memo(), QStringList({"Lekérdezés indul", "Lekérdezés vége"}));
        QCOMPARE(run.server.requestLines.size(), 1);
    }

    void refreshFromTheMenuInstallsTheNewerDatabaseAndRestarts()
    {
        Run run;
        int restarts = 0;
        const Restarter previous = setRestarter([&] { ++restarts; });
        rovanel::testing::ScratchDirectory update;
        update.write("ZARAS.INF", "20261201\r\n2026.12.01\r\n");
        update.write("nevrend.dat", "new names");
        run.data.write("RV.INI", "[Rovanel Beallitasok]\r\nPathToUpdate=" + update.path().string() + "/\r\n");
        auto* item = control<QAction>(run.main, "Frissites");
        item->trigger();  // a disabled item would do nothing
        QCOMPARE(run.messages.take(), QStringList({"Az adatbázis változott, indul a frissítés.",
                                                   "Sikeres frissítés, a program újra indul."}));
        QCOMPARE(restarts, 1);
        QCOMPARE(run.data.read("nevrend.dat"), std::string("new names"));
        item->trigger();
        QCOMPARE(run.messages.texts(), QStringList{"Nincs újabb adatbázis a frissítési könyvtárban."});
        QCOMPARE(restarts, 1);
        setRestarter(previous);
    }
};

QTEST_MAIN(TestSettingsform)
#include "tst_Settingsform.moc"
