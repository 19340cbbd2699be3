// The main window driven by its control names: menu, shortcuts, title and age warning, parameters,
// registry defaults, help key, and the single-instance guard between two real rvw32 processes.
#include <QLocalSocket>

#include "app/forms/DataRootStart.h"
#include "app/forms/Rvmain.h"
#include "app/forms/SingleInstance.h"
#include "tests/forms/support/Windows.h"

using rovanel::testing::ScratchDirectory;

namespace
{

enum class StartChange { None, OldDatabase, KeyWithoutValue, NoTitlePicture };

// "name caption shortcut", and "(off)" for a disabled item.
QStringList describe(const QList<QAction*>& actions)
{
    QStringList items;
    for (const QAction* action : actions) {
        QStringList parts{action->objectName(), action->text(), action->shortcut().toString(),
                          action->isEnabled() ? "" : "(off)"};
        parts.removeAll(QString());
        items << parts.join(' ');
    }
    return items;
}

void startRvw32(QProcess& process, const ScratchDirectory& data, const ScratchDirectory& profile)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    environment.insert("ROVANEL_CONFIG_DIR", QString::fromStdString(profile.path().string()));
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(QString::fromStdString(data.path().string()));
    process.start(ROVANEL_RVW32, {});
    QVERIFY(process.waitForStarted());
}

// Whether a running Rovanel of this profile answers a request to come to the front.
bool answers()
{
    QLocalSocket socket;
    socket.connectToServer(singleInstanceServerName());
    if (!socket.waitForConnected(200)) return false;
    socket.write("raise\n");
    return socket.waitForReadyRead(2000) && socket.readAll() == "raised\n";
}

}  // namespace

class TestRvmain : public QObject
{
    Q_OBJECT
    std::unique_ptr<TinyDatabaseStart> m_start;

    [[nodiscard]] QStringList messages() const { return m_start->messages.texts(); }

private slots:
    void init() { m_start = std::make_unique<TinyDatabaseStart>(); }
    void cleanup() { m_start.reset(); }

    void menuHoldsEveryItemWithCaptionAndShortcutF1OpensHelpAndVgeEndsTheProgram()
    {
        TMain main({});
        QCOMPARE(main.state().tables.productNames.size(), std::size_t{5});
        auto* drugs = control<QMenu>(main, "Edit1");  // titled "&Gyógyszer", as the menu bar says below
        // No window of this program is attached here: only the refresh and exit items work.
        QCOMPARE(describe(drugs->actions()),
                 (QStringList{"RefMenu &Részletes lista Ctrl+R (off)", "LeirMenu &Leírások Ctrl+L (off)",
                              "KhMenu &Kölcsönhatás - ATC Ctrl+K (off)", "HaMenu &Hatóanyag Ctrl+H (off)",
                              "Mellkhats1 &Mellékhatás Ctrl+M (off)", "FoNo1 &FoNo Ctrl+F (off)",
                              "SajtMagi1 Saját Magi Ctrl+S (off)",
                              "Kzgygyigazols1 Köz&gyógy igazolás Ctrl+G (off)",
                              "AllandoGy Állandó gyógyszerek listája Ctrl+N (off)",
                              "Rendeletek1 &Rendeletek Ctrl+R (off)"}));
        QCOMPARE(describe(control<QMenuBar>(main, "MainMenu1")->actions()),
                 (QStringList{"Edit1Item &Gyógyszer", "Bno1 &Bno (off)", "Segdeszkz1 &Segédeszköz (off)",
                              "Belltsok1 Beá&llítások (off)", "Frissites &Frissítés", "Vge1 Vége"}));
        main.show();
        QVERIFY(QTest::qWaitForWindowActive(&main));
        // F1 asks for the main window's page.
        {
            HelpRequests help;
            QTest::keyClick(&main, Qt::Key_F1);
            QCOMPARE(help.contexts, QList<int>{100});
        }
        // Every window's context has its page; an unknown one gets the index.
        for (const int context : {100, 620, 720}) {
            const QString page = helpPagePath(context);
            QVERIFY2(page.endsWith(QString("help/%1.html").arg(context)) && QFile::exists(page),
                     qPrintable(page));
        }
        QVERIFY(helpPagePath(99999).endsWith("help/index.html"));

        // The real help window: F1 opens it on the page, Escape closes it.
        QTest::keyClick(&main, Qt::Key_F1);
        QWidget* help = nullptr;
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->objectName() == "HelpBrowser") help = window;
        QVERIFY(help);
        QTRY_VERIFY(help->isVisible());
        QVERIFY(QTest::qWaitForWindowActive(help));
        QTest::keyClick(help, Qt::Key_Escape);
        QVERIFY(!help->isVisible());

        // "Vége" releases the tables and ends the program.
        QSignalSpy closed(&main, &TMain::closed);
        control<QAction>(main, "Vge1")->trigger();
        QCOMPARE(closed.count(), 1);
        QVERIFY(main.state().tables.productNames.empty() && main.state().tables.productCodes.empty());
    }

    void itemsOpenTheirWindowsFromTheKeyboard_data()
    {
        QTest::addColumn<bool>("detailedListThere");
        QTest::addColumn<QStringList>("keys");
        QTest::addColumn<QString>("opened");
        QTest::newRow("Ctrl+K") << true << QStringList{"Ctrl+K"} << "interactions";
        QTest::newRow("Alt+G, L: the only L") << true << QStringList{"Alt+G", "L"} << "descriptions";
        // The menu sets the permanent drugs' list mode to 3 first.
        QTest::newRow("Ctrl+N") << true << QStringList{"Ctrl+N"} << "permanent drugs in list mode";
        QTest::newRow("Ctrl+R: the first item") << true << QStringList{"Ctrl+R"} << "detailed list";
        QTest::newRow("Ctrl+R again: every press")
            << true << QStringList{"Ctrl+R", "Ctrl+R"} << "detailed list";
        QTest::newRow("Ctrl+R, first item disabled") << false << QStringList{"Ctrl+R"} << "regulations";
        // The menu opens with its first item marked; R marks the next item with that mnemonic, round.
        QTest::newRow("R marks, opens nothing") << true << QStringList{"Alt+G", "R"} << "";
        QTest::newRow("R, Enter") << true << QStringList{"Alt+G", "R", "Enter"} << "regulations";
        QTest::newRow("R, R, Enter: round again")
            << true << QStringList{"Alt+G", "R", "R", "Enter"} << "detailed list";
    }

    // Two items carry Ctrl+R and the mnemonic R. Ctrl+R opens the first enabled one, every time. The
    // "&Gyógyszer" menu opens with its first item marked; R marks the next item with that mnemonic (so
    // first "&Rendeletek", then "&Részletes lista" again) and opens nothing; Enter opens the one marked.
    void itemsOpenTheirWindowsFromTheKeyboard()
    {
        QFETCH(bool, detailedListThere);
        QFETCH(QStringList, keys);
        QFETCH(QString, opened);
        TMain main({});
        QWidget regulations, detailedList, descriptions, interactions;
        QList<bool> permanentCalls;
        main.attachWindow(TMain::Window::Rend, &regulations);
        if (detailedListThere) main.attachWindow(TMain::Window::RefForm, &detailedList);
        main.attachWindow(TMain::Window::Gylist, &descriptions);
        main.attachWindow(TMain::Window::Kh, &interactions);
        main.attachPermanentDrugs([&](bool setListMode) { permanentCalls.append(setListMode); });
        main.show();
        QVERIFY(QTest::qWaitForWindowActive(&main));
        for (const QString& key : keys) {
            if (key.startsWith("Ctrl+")) {
                detailedList.hide();
                main.activateWindow();
                QVERIFY(QTest::qWaitForWindowActive(&main));
                QTest::keySequence(&main, QKeySequence(key));
            } else if (key == "Alt+G") {
                QTest::keyClick(&main, Qt::Key_G, Qt::AltModifier);
                QTRY_VERIFY(QApplication::activePopupWidget());
            } else {  // to the open menu, as the keyboard sends it
                QTest::keyClick(static_cast<QWidget*>(nullptr),
                                QKeySequence(key == "Enter" ? "Return" : key)[0].key());
            }
        }
        QCOMPARE(detailedList.isVisible(), opened == "detailed list");
        QCOMPARE(regulations.isVisible(), opened == "regulations");
        QCOMPARE(descriptions.isVisible(), opened == "descriptions");
        QCOMPARE(interactions.isVisible(), opened == "interactions");
        QCOMPARE(permanentCalls, opened.startsWith("permanent") ? QList<bool>{true} : QList<bool>{});
    }

    void parametersChooseWhatOpens_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<bool>("picture");
        QTest::addColumn<QString>("opened");
        QTest::newRow("none") << QStringList{} << true << QString();
        QTest::newRow("-gy") << QStringList{"-gy"} << false << QString("Gylist");
        QTest::newRow("-r") << QStringList{"-r"} << false << QString("RefForm");
        QTest::newRow("-a") << QStringList{"-a"} << false << QString("permanent");
        QTest::newRow("upper-case -GY") << QStringList{"-GY"} << true << QString();
        QTest::newRow("-gy second") << QStringList{"x", "-gy"} << true << QString();
    }

    void parametersChooseWhatOpens()
    {
        QFETCH(QStringList, arguments);
        QFETCH(bool, picture);
        QFETCH(QString, opened);
        TMain main(arguments);
        QWidget descriptions, detailedList;
        QList<bool> permanentCalls;
        main.attachWindow(TMain::Window::Gylist, &descriptions);
        main.attachWindow(TMain::Window::RefForm, &detailedList);
        main.attachPermanentDrugs([&](bool setListMode) { permanentCalls.append(setListMode); });
        main.show();
        QVERIFY(QTest::qWaitForWindowExposed(&main));
        auto* RG1 = control<QLabel>(main, "RG1");
        QCOMPARE(RG1->isVisible(), picture);
        QCOMPARE(!RG1->pixmap().isNull(), picture);
        QCOMPARE(main.centralWidget()->height(), picture ? 400 : 0);
        QCOMPARE(descriptions.isVisible(), opened == "Gylist");
        QCOMPARE(detailedList.isVisible(), opened == "RefForm");
        QCOMPARE(permanentCalls, opened == "permanent" ? QList<bool>{false} : QList<bool>{});
        QCOMPARE(main.PicCount, 1);  // Rg0.jpg and Rg1.jpg; r1.jpg and r2.jpg do not count
    }

    // What the window does at start with the database's age (DatabaseAge_test), the registry
    // (RegistrySettings_test) and the title picture: its title and its messages; start-up goes on.
    void startShowsTheTitleAndSaysWhatIsWrong_data()
    {
        QTest::addColumn<StartChange>("change");
        QTest::addColumn<QStringList>("shown");
        QTest::newRow("clean profile") << StartChange::None << QStringList{};
        QTest::newRow("year-old database")
            << StartChange::OldDatabase
            << QStringList{"Az adatbázis sokat veszített aktualitásából,\n        frissítse a programot."};
        QTest::newRow("registry key without value")
            << StartChange::KeyWithoutValue << QStringList{"A rendszer nem találja a megadott fájlt."};
        QTest::newRow("missing title picture")
            << StartChange::NoTitlePicture << QStringList{"A(z) \"Rg0.jpg\" kép nem tölthető be."};
    }

    void startShowsTheTitleAndSaysWhatIsWrong()
    {
        QFETCH(StartChange, change);
        QFETCH(QStringList, shown);
        if (change == StartChange::OldDatabase) {
            QFile file(QString::fromStdString((m_start->data.path() / "gy.ful").string()));
            QVERIFY(file.open(QIODevice::ReadWrite));
            QVERIFY(file.setFileTime(QDateTime::currentDateTime().addMonths(-12),
                                     QFileDevice::FileModificationTime));
        } else if (change == StartChange::KeyWithoutValue) {
            m_start->profile.directory().write("registry.ini", "[Software\\Rovanel\\CheckUpg]\r\n");
        } else if (change == StartChange::NoTitlePicture) {
            m_start->data.remove("Rg0.jpg");
        }
        TMain main({});
        QCOMPARE(main.windowTitle(), change == StartChange::OldDatabase
                                         ? "Rovanel - 20261101 Lezárva:2026.11.01 - Az adatbázis sokat "
                                           "veszített aktualitásából! "
                                         : "Rovanel - 20261101 Lezárva:2026.11.01");
        QCOMPARE(main.ClosingDate, std::string("20261101"));
        QCOMPARE(messages(), shown);
        QCOMPARE(m_start->messages.captions(), QStringList(shown.size(), "Rovanel"));
        QVERIFY(main.UpgChecked);  // set at creation whatever CheckUpg says; FormShow clears it
        if (change == StartChange::None)
            QVERIFY(m_start->profile.directory().read("registry.ini").find("CheckUpg=dword:1") !=
                    std::string::npos);
        main.show();
        QVERIFY(main.menuBar()->isVisible());
        QVERIFY(!main.UpgChecked);
    }

    // The data root: "--data DIR" or ROVANEL_DATA_DIR alone, else the working directory, then the user's
    // data folder; without a database the start-up message names the places and the ways to get one.
    void startFindsTheDatabaseOrSaysWhereItLooked_data()
    {
        QTest::addColumn<QString>("given");  // "option", "environment" or empty
        QTest::addColumn<bool>("givenHoldsDatabase");
        QTest::addColumn<bool>("userFolderHoldsDatabase");
        QTest::newRow("nowhere") << QString() << false << false;
        QTest::newRow("user's data folder") << QString() << false << true;
        QTest::newRow("--data") << "option" << true << false;
        QTest::newRow("--data without database") << "option" << false << true;
        QTest::newRow("ROVANEL_DATA_DIR without database") << "environment" << false << true;
    }

    void startFindsTheDatabaseOrSaysWhereItLooked()
    {
        QFETCH(QString, given);
        QFETCH(bool, givenHoldsDatabase);
        QFETCH(bool, userFolderHoldsDatabase);
        const ScratchDirectory empty, xdg;
        const auto userFolder = QString::fromStdString((xdg.path() / "rovanel").string());
        if (userFolderHoldsDatabase) std::filesystem::copy(m_start->data.path(), xdg.path() / "rovanel");
        const QString named =
            QString::fromStdString((givenHoldsDatabase ? m_start->data.path() : empty.path()).string());
        QDir::setCurrent(QString::fromStdString(empty.path().string()));
        rovanel::testing::ScopedEnvironment environment;
        environment.set("XDG_DATA_HOME", xdg.path().string());
        if (given == "environment") environment.set("ROVANEL_DATA_DIR", named.toStdString());
        QStringList arguments{"-gy"};
        if (given == "option") arguments = QStringList{"--data", named, "-gy"};

        const QStringList searched =
            given.isEmpty() ? QStringList{QDir::currentPath(), userFolder} : QStringList{named};
        const bool found = givenHoldsDatabase || (given.isEmpty() && userFolderHoldsDatabase);
        QCOMPARE(enterDataRoot(arguments), found);
        QCOMPARE(arguments, QStringList{"-gy"});
        if (found) {
            QCOMPARE(QDir::currentPath(), given.isEmpty() ? userFolder : named);
            QVERIFY(messages().isEmpty());
            return;
        }
        // The places looked at; the whole text is checked by
        // DataRoot.MissingDatabaseOffersTheInstalledCopies.
        QCOMPARE(messages().size(), 1);
        QCOMPARE(messages().front().section("\n\n", 0, 0),
                 "Rovanel nem talált adatbázist (gy.ful). Itt kereste:\n    " + searched.join("\n    "));
    }

    void secondStartRaisesTheRunningProgramAndEnds_data()
    {
        QTest::addColumn<bool>("pictureMissing");
        QTest::newRow("main window shown") << false;
        // The first start stops at the missing title picture's box, before its main window is shown: the
        // instance is claimed already.
        QTest::newRow("during a start-up box") << true;
    }

    void secondStartRaisesTheRunningProgramAndEnds()
    {
        QFETCH(bool, pictureMissing);
        if (pictureMissing) m_start->data.remove("Rg0.jpg");
        QProcess first;
        startRvw32(first, m_start->data, m_start->profile.directory());
        QTRY_VERIFY_WITH_TIMEOUT(answers(), 20000);
        // A second start ends at once with exit code 0, opening nothing, and the first one runs on.
        QProcess second;
        startRvw32(second, m_start->data, m_start->profile.directory());
        QVERIFY(second.waitForFinished(20000));
        QCOMPARE(second.exitStatus(), QProcess::NormalExit);
        QCOMPARE(second.exitCode(), 0);
        QCOMPARE(first.state(), QProcess::Running);
        first.kill();
        first.waitForFinished();
    }
};

QTEST_MAIN(TestRvmain)
#include "tst_Rvmain.moc"
