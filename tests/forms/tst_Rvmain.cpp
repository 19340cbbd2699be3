// The main window driven by its control names: menu, shortcuts, title and age warning, parameters,
// registry defaults, help key, and the single-instance guard between two real rvw32 processes.
#include <QAction>
#include <QApplication>
#include <QDateTime>
#include <QDir>
#include <QLabel>
#include <QLocalSocket>
#include <QMenu>
#include <QMenuBar>
#include <QProcess>
#include <QSignalSpy>
#include <QtTest>
#include <memory>

#include "app/forms/DataRootStart.h"
#include "app/forms/Help.h"
#include "app/forms/Rvmain.h"
#include "app/forms/SingleInstance.h"
#include "db/Cp1250.h"
#include "tests/forms/support/MessageRecorder.h"
#include "tests/forms/support/UserProfile.h"
#include "tests/support/TinyDatabase.h"

using rovanel::testing::ScratchDirectory;

namespace
{

void copyPictures(const ScratchDirectory& directory)
{
    for (const char* name : {"Rg0.jpg", "Rg1.jpg", "r1.jpg", "r2.jpg"})
        std::filesystem::copy_file(std::filesystem::path(ROVANEL_SOURCE_DIR) / "data" / "demo" / name,
                                   directory.path() / name);
}

void setDatabaseAge(const ScratchDirectory& directory, int months)
{
    QFile file(QString::fromStdString((directory.path() / "gy.ful").string()));
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(
        file.setFileTime(QDateTime::currentDateTime().addMonths(-months), QFileDevice::FileModificationTime));
}

QString registryText(const ScratchDirectory& config)
{
    return QString::fromStdString(config.read("registry.ini"));
}

}  // namespace

class TestRvmain : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();

    void menuHoldsEveryItemWithCaptionAndShortcut();
    void attachedWindowOpensFromItsItemAndShortcut();
    void duplicateCtrlRAndMnemonicR_data();
    void duplicateCtrlRAndMnemonicR();
    void titleCarriesClosingDateAndAgeWarning();
    void parametersChooseWhatOpens_data();
    void parametersChooseWhatOpens();
    void cleanProfileGetsEveryRegistryDefault();
    void keyWithoutValueShowsTheReadErrorAtStart();
    void missingPictureIsReportedAndStartGoesOn();
    void helpKeyOpensTheMainWindowPage();
    void closingReleasesTheTablesAndEndsTheProgram();
    void startFindsTheDatabaseOrSaysWhereItLooked_data();
    void startFindsTheDatabaseOrSaysWhereItLooked();
    void secondStartRaisesTheRunningProgramAndEnds_data();
    void secondStartRaisesTheRunningProgramAndEnds();

private:
    std::unique_ptr<ScratchDirectory> m_data;
    std::unique_ptr<UserProfile> m_profile;
    std::unique_ptr<MessageRecorder> m_messages;
    QString m_previousDirectory;
};

void TestRvmain::init()
{
    m_data = std::make_unique<ScratchDirectory>();
    m_profile = std::make_unique<UserProfile>();
    rovanel::testing::writeTinyDatabase(*m_data);
    copyPictures(*m_data);
    m_previousDirectory = QDir::currentPath();
    QDir::setCurrent(QString::fromStdString(m_data->path().string()));
    m_messages = std::make_unique<MessageRecorder>();
}

void TestRvmain::cleanup()
{
    m_messages.reset();
    QDir::setCurrent(m_previousDirectory);
    m_data.reset();
    m_profile.reset();
}

void TestRvmain::menuHoldsEveryItemWithCaptionAndShortcut()
{
    TMain main({});
    auto* bar = main.findChild<QMenuBar*>("MainMenu1");
    auto* drugs = main.findChild<QMenu*>("Edit1");
    QVERIFY(bar && drugs);
    QCOMPARE(drugs->title(), QString::fromUtf8("&Gyógyszer"));
    struct Item {
        const char* name;
        const char* caption;
        const char* shortcut;
        QWidget* owner;
    };
    const Item items[] = {
        {"RefMenu", "&Részletes lista", "Ctrl+R", drugs},
        {"LeirMenu", "&Leírások", "Ctrl+L", drugs},
        {"KhMenu", "&Kölcsönhatás - ATC", "Ctrl+K", drugs},
        {"HaMenu", "&Hatóanyag", "Ctrl+H", drugs},
        {"Mellkhats1", "&Mellékhatás", "Ctrl+M", drugs},
        {"FoNo1", "&FoNo", "Ctrl+F", drugs},
        {"SajtMagi1", "Saját Magi", "Ctrl+S", drugs},
        {"Kzgygyigazols1", "Köz&gyógy igazolás", "Ctrl+G", drugs},
        {"AllandoGy", "Állandó gyógyszerek listája", "Ctrl+N", drugs},
        {"Rendeletek1", "&Rendeletek", "Ctrl+R", drugs},
        {"Bno1", "&Bno", "", bar},
        {"Segdeszkz1", "&Segédeszköz", "", bar},
        {"Belltsok1", "Beá&llítások", "", bar},
        {"Frissites", "&Frissítés", "", bar},
        {"Vge1", "Vége", "", bar},
    };
    QList<QAction*> drugItems;
    QList<QAction*> barItems{drugs->menuAction()};
    for (const Item& item : items) {
        auto* action = main.findChild<QAction*>(item.name);
        QVERIFY2(action, item.name);
        QCOMPARE(action->text(), QString::fromUtf8(item.caption));
        QCOMPARE(action->shortcut(), QKeySequence(QString::fromLatin1(item.shortcut)));
        // No window of this program is attached here: only the refresh and exit items work.
        QCOMPARE(action->isEnabled(),
                 QByteArray(item.name) == "Vge1" || QByteArray(item.name) == "Frissites");
        (item.owner == drugs ? drugItems : barItems).append(action);
    }
    QCOMPARE(drugs->actions(), drugItems);
    QCOMPARE(bar->actions(), barItems);
}

void TestRvmain::attachedWindowOpensFromItsItemAndShortcut()
{
    TMain main({});
    QWidget descriptions;
    QWidget interactions;
    main.attachWindow(TMain::Window::Gylist, &descriptions);
    main.attachWindow(TMain::Window::Kh, &interactions);
    auto* item = main.findChild<QAction*>("LeirMenu");
    QVERIFY(item->isEnabled());
    item->trigger();
    QVERIFY(descriptions.isVisible());
    descriptions.hide();

    main.show();
    QVERIFY(QTest::qWaitForWindowActive(&main));
    QTest::keyClick(&main, Qt::Key_K, Qt::ControlModifier);
    QVERIFY(interactions.isVisible());
    QVERIFY(!descriptions.isVisible());

    int calls = 0;
    bool listMode = false;
    main.attachPermanentDrugs([&](bool setListMode) {
        ++calls;
        listMode = setListMode;
    });
    main.findChild<QAction*>("AllandoGy")->trigger();
    QCOMPARE(calls, 1);
    QVERIFY(listMode);  // the menu sets the list mode to 3 first
}

void TestRvmain::duplicateCtrlRAndMnemonicR_data()
{
    QTest::addColumn<bool>("detailedListThere");
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<QString>("opened");
    QTest::newRow("Ctrl+R: the first item") << true << QStringList{"Ctrl+R"} << "detailed list";
    QTest::newRow("Ctrl+R again: every press") << true << QStringList{"Ctrl+R", "Ctrl+R"} << "detailed list";
    QTest::newRow("Ctrl+R, first item disabled") << false << QStringList{"Ctrl+R"} << "regulations";
    // The menu opens with its first item marked; R marks the next item with that mnemonic, round.
    QTest::newRow("R marks, opens nothing") << true << QStringList{"Alt+G", "R"} << "";
    QTest::newRow("R, Enter") << true << QStringList{"Alt+G", "R", "Enter"} << "regulations";
    QTest::newRow("R, R, Enter: round again")
        << true << QStringList{"Alt+G", "R", "R", "Enter"} << "detailed list";
}

// Both items carry Ctrl+R and the mnemonic R. Ctrl+R opens the first enabled one, every time. The
// "&Gyógyszer" menu opens with its first item marked; R marks the next item with that mnemonic (so
// first "&Rendeletek", then "&Részletes lista" again) and opens nothing; Enter opens the one marked.
void TestRvmain::duplicateCtrlRAndMnemonicR()
{
    QFETCH(bool, detailedListThere);
    QFETCH(QStringList, keys);
    QFETCH(QString, opened);
    TMain main({});
    QWidget regulations;
    QWidget detailedList;
    main.attachWindow(TMain::Window::Rend, &regulations);
    if (detailedListThere) main.attachWindow(TMain::Window::RefForm, &detailedList);
    main.show();
    QVERIFY(QTest::qWaitForWindowActive(&main));
    for (const QString& key : keys) {
        if (key == "Ctrl+R") {
            detailedList.hide();
            main.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&main));
            QTest::keyClick(&main, Qt::Key_R, Qt::ControlModifier);
        } else if (key == "Alt+G") {
            QTest::keyClick(&main, Qt::Key_G, Qt::AltModifier);
            QTRY_VERIFY(QApplication::activePopupWidget());
        } else {  // to the open menu, as the keyboard sends it
            QTest::keyClick(static_cast<QWidget*>(nullptr), key == "R" ? Qt::Key_R : Qt::Key_Return);
        }
    }
    QCOMPARE(detailedList.isVisible(), opened == "detailed list");
    QCOMPARE(regulations.isVisible(), opened == "regulations");
}

// The age rules themselves are pinned by DatabaseAge_test; here the window's title and message.
void TestRvmain::titleCarriesClosingDateAndAgeWarning()
{
    setDatabaseAge(*m_data, 12);
    TMain main({});
    QCOMPARE(main.windowTitle(),
             QString::fromUtf8(
                 "Rovanel - 20261101 Lezárva:2026.11.01 - Az adatbázis sokat veszített aktualitásából! "));
    QCOMPARE(main.ClosingDate, std::string("20261101"));
    QCOMPARE(m_messages->texts(),
             QStringList{QString::fromUtf8(
                 "Az adatbázis sokat veszített aktualitásából,\n        frissítse a programot.")});
    QCOMPARE(m_messages->captions(), QStringList{"Rovanel"});
}

void TestRvmain::parametersChooseWhatOpens_data()
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

void TestRvmain::parametersChooseWhatOpens()
{
    QFETCH(QStringList, arguments);
    QFETCH(bool, picture);
    QFETCH(QString, opened);
    TMain main(arguments);
    QWidget descriptions;
    QWidget detailedList;
    QList<bool> permanentCalls;
    main.attachWindow(TMain::Window::Gylist, &descriptions);
    main.attachWindow(TMain::Window::RefForm, &detailedList);
    main.attachPermanentDrugs([&](bool setListMode) { permanentCalls.append(setListMode); });
    main.show();
    QVERIFY(QTest::qWaitForWindowExposed(&main));

    auto* RG1 = main.findChild<QLabel*>("RG1");
    QVERIFY(RG1);
    QCOMPARE(RG1->isVisible(), picture);
    QCOMPARE(!RG1->pixmap().isNull(), picture);
    QCOMPARE(main.centralWidget()->height(), picture ? 400 : 0);
    QCOMPARE(descriptions.isVisible(), opened == "Gylist");
    QCOMPARE(detailedList.isVisible(), opened == "RefForm");
    QCOMPARE(permanentCalls, opened == "permanent" ? QList<bool>{false} : QList<bool>{});
    QCOMPARE(main.PicCount, 1);  // Rg0.jpg and Rg1.jpg; r1.jpg and r2.jpg do not count
}

// The defaults and the reads themselves are pinned by RegistrySettings_test; here what the window does
// with them.
void TestRvmain::cleanProfileGetsEveryRegistryDefault()
{
    TMain main({});
    QVERIFY(m_messages->texts().isEmpty());
    QVERIFY(main.UpgChecked);  // set at creation whatever CheckUpg says; FormShow clears it
    QVERIFY(registryText(m_profile->directory()).contains("\\Software\\Rovanel\\CheckUpg=dword:1\r\n"));
    main.show();
    QVERIFY(!main.UpgChecked);
}

void TestRvmain::keyWithoutValueShowsTheReadErrorAtStart()
{
    m_profile->directory().write("registry.ini", "[Software\\Rovanel\\CheckUpg]\r\n");
    TMain main({});
    QCOMPARE(m_messages->texts(), QStringList{QString::fromUtf8("A rendszer nem találja a megadott fájlt.")});
    QCOMPARE(m_messages->messages().front().icon, rovanel::MessageIcon::Stop);
    QVERIFY(main.UpgChecked);
}

void TestRvmain::missingPictureIsReportedAndStartGoesOn()
{
    m_data->remove("Rg0.jpg");
    TMain main({});
    QCOMPARE(m_messages->texts(), QStringList{QString::fromUtf8("A(z) \"Rg0.jpg\" kép nem tölthető be.")});
    main.show();
    QVERIFY(main.menuBar()->isVisible());
    QVERIFY(main.windowTitle().contains(QString::fromUtf8("Lezárva")));
}

void TestRvmain::helpKeyOpensTheMainWindowPage()
{
    QList<int> opened;
    const HelpOpener previous = setHelpOpener([&](int context) { opened.append(context); });
    TMain main({});
    main.show();
    QVERIFY(QTest::qWaitForWindowActive(&main));
    QTest::keyClick(&main, Qt::Key_F1);
    setHelpOpener(previous);
    QCOMPARE(opened, QList<int>{100});
    QVERIFY(helpPagePath(100).endsWith("help/100.html"));
    QVERIFY(QFile::exists(helpPagePath(100)));
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
}

void TestRvmain::closingReleasesTheTablesAndEndsTheProgram()
{
    TMain main({});
    QCOMPARE(main.state().tables.productNames.size(), std::size_t{5});
    QSignalSpy closed(&main, &TMain::closed);
    main.show();
    main.findChild<QAction*>("Vge1")->trigger();
    QCOMPARE(closed.count(), 1);
    QVERIFY(main.state().tables.productNames.empty());
    QVERIFY(main.state().tables.productCodes.empty());
}

// The data root: "--data DIR" or ROVANEL_DATA_DIR alone, else the working directory, then the user's data
// folder; without a database the start-up message names the places and the ways to get one.
void TestRvmain::startFindsTheDatabaseOrSaysWhereItLooked_data()
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

void TestRvmain::startFindsTheDatabaseOrSaysWhereItLooked()
{
    QFETCH(QString, given);
    QFETCH(bool, givenHoldsDatabase);
    QFETCH(bool, userFolderHoldsDatabase);
    const ScratchDirectory empty, xdg;
    const auto userFolder = QString::fromStdString((xdg.path() / "rovanel").string());
    if (userFolderHoldsDatabase) std::filesystem::copy(m_data->path(), xdg.path() / "rovanel");
    const QString named =
        QString::fromStdString((givenHoldsDatabase ? m_data->path() : empty.path()).string());
    QDir::setCurrent(QString::fromStdString(empty.path().string()));
    qputenv("XDG_DATA_HOME", xdg.path().c_str());
    if (given == "environment") qputenv("ROVANEL_DATA_DIR", named.toUtf8());
    QStringList arguments{"-gy"};
    if (given == "option") arguments = QStringList{"--data", named, "-gy"};

    const bool entered = enterDataRoot(arguments);
    qunsetenv("ROVANEL_DATA_DIR");
    QCOMPARE(arguments, QStringList{"-gy"});
    const QStringList searched =
        given.isEmpty() ? QStringList{QDir::currentPath(), userFolder} : QStringList{named};
    if (givenHoldsDatabase || (given.isEmpty() && userFolderHoldsDatabase)) {
        QVERIFY(entered);
        QCOMPARE(QDir::currentPath(), given.isEmpty() ? userFolder : named);
        QVERIFY(m_messages->texts().isEmpty());
        return;
    }
    QVERIFY(!entered);
    // The places looked at; the whole text is checked by DataRoot.MissingDatabaseOffersTheInstalledCopies.
    QCOMPARE(m_messages->texts().size(), 1);
    QCOMPARE(m_messages->texts().front().section("\n\n", 0, 0),
             QString::fromUtf8("Rovanel nem talált adatbázist (gy.ful). Itt kereste:\n    ") +
                 searched.join("\n    "));
}

namespace
{

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

void TestRvmain::secondStartRaisesTheRunningProgramAndEnds_data()
{
    QTest::addColumn<bool>("pictureMissing");
    QTest::newRow("main window shown") << false;
    // The first start stops at the missing title picture's box, before its main window is shown: the
    // instance is claimed already.
    QTest::newRow("during a start-up box") << true;
}

void TestRvmain::secondStartRaisesTheRunningProgramAndEnds()
{
    QFETCH(bool, pictureMissing);
    if (pictureMissing) m_data->remove("Rg0.jpg");
    QProcess first;
    startRvw32(first, *m_data, m_profile->directory());
    QTRY_VERIFY_WITH_TIMEOUT(answers(), 20000);
    // A second start ends at once with exit code 0, opening nothing, and the first one runs on.
    QProcess second;
    startRvw32(second, *m_data, m_profile->directory());
    QVERIFY(second.waitForFinished(20000));
    QCOMPARE(second.exitStatus(), QProcess::NormalExit);
    QCOMPARE(second.exitCode(), 0);
    QCOMPARE(first.state(), QProcess::Running);
    first.kill();
    first.waitForFinished();
}

QTEST_MAIN(TestRvmain)
#include "tst_Rvmain.moc"
