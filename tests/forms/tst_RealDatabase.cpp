// The windows on the real database imported from the NEAK tables (build/real-db), as a user meets them:
// real names, prices and groups, the BNO code G4090, the real aids catalogue, and no all-clear from an
// interaction check that has no data. With ROVANEL_SCREENSHOTS=DIR each window is also saved there.
#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextEdit>
#include <QTreeWidget>
#include <QtTest>

#include "app/forms/Rvmain.h"
#include "catalogues/forms/Se.h"
#include "db/SharedState.h"
#include "rx/forms/Rvbno.h"
#include "tests/forms/support/Controls.h"
#include "tests/forms/support/MessageRecorder.h"
#include "tests/forms/support/UserProfile.h"
#include "views/forms/Rvkh.h"
#include "views/forms/Rvlist.h"

namespace
{

void keep(QWidget& window, const char* name)
{
    const QByteArray directory = qgetenv("ROVANEL_SCREENSHOTS");
    if (!directory.isEmpty()) window.grab().save(QDir(QString::fromLocal8Bit(directory)).filePath(name));
}

QStringList texts(QListWidget* list)
{
    QStringList all;
    for (int i = 0; i < list->count(); ++i) all << list->item(i)->text();
    return all;
}

}  // namespace

class TestRealDatabase : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void drugListShowsRealNamesPricesAndGroups();
    void bnoBrowserFindsG4090();
    void aidsAreTheRealCatalogue();
    void interactionCheckSaysTheDatabaseHasNoData();

private:
    UserProfile m_profile;
    rovanel::SharedState m_state;
};

void TestRealDatabase::initTestCase()
{
    m_state.tables =
        rovanel::loadStartupTables(ROVANEL_REAL_DB, std::filesystem::path(ROVANEL_REAL_DB) / "no");
    QCOMPARE(m_state.tables.counts.products(), 3677);
    const QString previous = QDir::currentPath();
    QDir::setCurrent(ROVANEL_REAL_DB);
    TMain main({});
    main.show();
    QVERIFY(main.windowTitle().startsWith(QString::fromUtf8("Rovanel - 20250131 Lezárva:2025.01.31")));
    keep(main, "main.png");
    QDir::setCurrent(previous);
}

void TestRealDatabase::drugListShowsRealNamesPricesAndGroups()
{
    TGylist form(m_state);
    form.show();
    auto* names = control<QComboBox>(form, "Gylist");
    const int index = names->findText(QStringLiteral("AMLODIPIN SANDOZ 5 MG TABLETTA 30X"));
    QVERIFY(index >= 0);
    names->setCurrentIndex(index);
    emit names->activated(index);
    const QString description = control<QTextEdit>(form, "Leiras1")->toPlainText();
    for (const char* line :
         {"Fogyasztói ár:295.0 Ft  Normatív támogatás: 74 %  Térítési díj: 76.0 Ft",
          "Napi költség: 3 Ft (térítési díj alapján)", "Törzskönyvi szám: OGYI-T-20304/03"})
        QVERIFY2(description.contains(QString::fromUtf8(line)), line);
    QCOMPARE(texts(control<QListWidget>(form, "AzonAtc")),
             QStringList({"C  kardiovaszkuláris rendszer", "C08  kalcium-csatorna blokkolók",
                          "C08C  szelektív kalcium-csatorna blokkolók főként érhatásokkal",
                          "C08CA  dihydropiridin származékok", "C08CA01  amlodipin"}));
    QCOMPARE(texts(control<QListWidget>(form, "AzonAtcNev")).first(),
             QStringLiteral("AMLODIPIN-TEVA 10 MG TABLETTA 30X  1.6 Ft/nap"));
    keep(form, "drug-list.png");
}

void TestRealDatabase::bnoBrowserFindsG4090()
{
    TBnoForm form(ROVANEL_REAL_DB);
    form.show();
    auto* tree = control<QTreeWidget>(form, "BnoTree");
    QCOMPARE(tree->topLevelItemCount(), 22);
    control<QLineEdit>(form, "BnoEdt")->setText("G4090");
    QTest::mouseClick(control<QPushButton>(form, "BnoKeres"), Qt::LeftButton);
    QVERIFY(!tree->selectedItems().isEmpty());
    const QTreeWidgetItem* hit = tree->selectedItems().first();
    QVERIFY(hit->text(0).startsWith("G4090 "));
    QVERIFY(hit->parent()->text(0).startsWith("G409 "));
    QVERIFY(hit->parent()->parent()->parent()->text(0).startsWith("VI. fejezet"));
    keep(form, "bno.png");
}

void TestRealDatabase::aidsAreTheRealCatalogue()
{
    TSegedeszk form(m_state);
    form.show();
    QCOMPARE(control<QTreeWidget>(form, "SeTree")->topLevelItemCount(), 9);
    control<QLineEdit>(form, "SeEdt")->setText("Suprasorb F 5");
    QTest::mouseClick(control<QPushButton>(form, "SeNevKeres"), Qt::LeftButton);
    auto* found = control<QListWidget>(form, "FoundSeLst");
    QVERIFY(found->count() > 0);
    const QPoint hit = found->visualItemRect(found->item(0)).center();
    QTest::mouseClick(found->viewport(), Qt::LeftButton, {}, hit);
    QTest::mouseDClick(found->viewport(), Qt::LeftButton, {}, hit);
    auto* list = control<QTreeWidget>(form, "SeList");
    QCOMPARE(list->topLevelItemCount(), 1);
    QCOMPARE(
        control<QPlainTextEdit>(form, "SeDesc")->toPlainText(),
        QStringLiteral("Suprasorb F 5 x 7 cm darab\nBruttó ár: 114Ft\tTámogatás: 91Ft\tTérítési díj: 23Ft\n"
                       "Rendelhető a gyógyászati segédeszközök rendelési szabályai szerint, a jogosultság "
                       "igazolásával.\n---Felírható mennyiség: Normativ=- ,emelt=-,kiemelt=-\n"
                       "---Kihordási idő: Normativ=-, emelt= -,kiemelt=-  hónap"));
    keep(form, "aids.png");
}

void TestRealDatabase::interactionCheckSaysTheDatabaseHasNoData()
{
    TKh form(m_state);
    form.show();
    MessageRecorder messages;
    for (const int index : {0, 1}) {
        control<QComboBox>(form, "Gylist")->setCurrentIndex(index);
        QTest::mouseClick(control<QPushButton>(form, "GyToList"), Qt::LeftButton);
    }
    QTest::mouseClick(control<QPushButton>(form, "Ellenoriz"), Qt::LeftButton);
    QCOMPARE(messages.texts(),
             QStringList{
                 QStringLiteral("Ebben az adatbázisban nincsenek kölcsönhatási és ellenjavallati adatok: a "
                                "vizsgálat nem talált semmit, de ez nem jelenti, hogy a gyógyszerek együtt "
                                "adhatók.")});
    keep(form, "interactions.png");
}

QTEST_MAIN(TestRealDatabase)
#include "tst_RealDatabase.moc"
