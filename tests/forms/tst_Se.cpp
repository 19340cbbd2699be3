// The medical aids window driven by its controls' names.
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTreeWidget>

#include "catalogues/forms/Se.h"
#include "tests/forms/support/CatalogueWindows.h"

namespace
{

const char* kSe =
    "010101\tTérdortézis\tdarab\t100\t80\t20\t0\t0\t0\t0\tI\t1\t-\t-\t12\t-\t-\r\n"
    "010102\tBokaortézis\tpár\t200\t0\t200\t0\t0\t0\t0\tN\t2\t-\t-\t6\t-\t-\r\n"
    "010201\tJárókeret\tdarab\t300\t250\t50\t20\t280\t0\t0\tN\t1\t1\t-\t60\t60\t-\r\n";

void writeCatalogue(const CatalogueWindowState& fixture)
{
    fixture.write("se.dat", kSe);
    const std::string se = rovanel::utf8ToCp1250(kSe);
    const std::string group2 = std::to_string(se.find("010201"));
    fixture.write("senrend2.dat", "01 Ortézisek\r\n\t01 01 Alsó végtag\r\n\t01 02 Járást segítők\r\n");
    fixture.write("sekod2.dat", "01\r\n0101\r\n0102\r\n");
    fixture.write("sepos.dat", "0\r\n0\r\n" + group2 + "\r\n");
    fixture.write("seiso.dat", "01\r\n01 01\r\n01 02\r\n");
    fixture.write("senev.dat",
                  "Térdortézis darab\t010101\r\nBokaortézis pár\t010102\r\nJárókeret darab\t010201\r\n");
    fixture.write("semegj.dat", "01\t1\tszakorvosi javaslatra~~rendelhető\r\n0102\t5\tkölcsönözhető is\r\n");
}

QStringList texts(const QListWidget* list)
{
    QStringList result;
    for (int row = 0; row < list->count(); ++row) result << list->item(row)->text();
    return result;
}

}  // namespace

class TestSe : public QObject
{
    Q_OBJECT
private slots:
    void treeSearchListsHitsAndAGroupsAidShowsItsDescription();
    void oneByOneSelectsEachHitInTurn();
    void nameSearchFindsTheAidInItsGroup();
    void missingFilesLeaveTheWindowEmpty();
};

void TestSe::treeSearchListsHitsAndAGroupsAidShowsItsDescription()
{
    CatalogueWindowState fixture;
    writeCatalogue(fixture);
    TSegedeszk form(fixture.state);
    form.show();
    QCOMPARE(form.windowTitle(), QStringLiteral("Gyógyászati segédeszközök"));
    QVERIFY(control<QRadioButton>(form, "FabaListaba1")->isChecked());
    auto* tree = control<QTreeWidget>(form, "SeTree");
    QCOMPARE(tree->topLevelItemCount(), 1);
    QCOMPARE(tree->topLevelItem(0)->child(1)->toolTip(0), QStringLiteral("01 02"));

    QTest::keyClicks(control<QLineEdit>(form, "SeEdt"), QStringLiteral("JÁRÁST"));
    QTest::mouseClick(control<QPushButton>(form, "SeKeres"), Qt::LeftButton);
    auto* found = control<QListWidget>(form, "FoundSeLst");
    QCOMPARE(texts(found), QStringList{QStringLiteral("01 02 Járást segítők")});
    QVERIFY(!control<QPushButton>(form, "SeNext")->isEnabled());

    const QPoint hit = found->visualItemRect(found->item(0)).center();
    QTest::mouseClick(found->viewport(), Qt::LeftButton, {}, hit);
    QTest::mouseDClick(found->viewport(), Qt::LeftButton, {}, hit);
    QCOMPARE(tree->currentItem()->text(0), QStringLiteral("01 02 Járást segítők"));
    auto* list = control<QTreeWidget>(form, "SeList");
    QCOMPARE(list->topLevelItemCount(), 1);
    QCOMPARE(list->topLevelItem(0)->text(0), QStringLiteral("Járókeret darab"));
    list->setCurrentItem(list->topLevelItem(0));
    QCOMPARE(control<QPlainTextEdit>(form, "SeDesc")->toPlainText(),
             QStringLiteral("Járókeret darab\nBruttó ár: 300Ft\tTámogatás: 250Ft\tTérítési díj: 50Ft"
                            "\nFizetendő emelt indikációra: 20 Támogatás emelt indikációra: 280"
                            "\n---Felírható mennyiség: Normativ=1 ,emelt=1,kiemelt=-"
                            "\n---Kihordási idő: Normativ=60, emelt= 60,kiemelt=-  hónap"
                            "\n---Normatív---\n szakorvosi javaslatra\nrendelhető"
                            "\n---Kölcsönözhető---\n kölcsönözhető is"));
}

void TestSe::oneByOneSelectsEachHitInTurn()
{
    CatalogueWindowState fixture;
    writeCatalogue(fixture);
    TSegedeszk form(fixture.state);
    form.show();
    auto* tree = control<QTreeWidget>(form, "SeTree");
    auto* oneByOne = control<QRadioButton>(form, "FabaListaba0");
    QTest::mouseClick(oneByOne, Qt::LeftButton, {}, QPoint(6, oneByOne->height() / 2));  // on its circle
    QVERIFY(oneByOne->isChecked());
    QTest::keyClicks(control<QLineEdit>(form, "SeEdt"), QStringLiteral("01"));
    QTest::mouseClick(control<QPushButton>(form, "SeKeres"), Qt::LeftButton);
    QVERIFY(control<QPushButton>(form, "SeNext")->isEnabled());
    QCOMPARE(control<QListWidget>(form, "FoundSeLst")->count(), 0);
    QCOMPARE(tree->currentItem()->text(0), QStringLiteral("01 Ortézisek"));
    QTest::mouseClick(control<QPushButton>(form, "SeNext"), Qt::LeftButton);
    QCOMPARE(tree->currentItem()->text(0), QStringLiteral("01 01 Alsó végtag"));
    QTest::mouseClick(control<QPushButton>(form, "SeNext"), Qt::LeftButton);
    QTest::mouseClick(control<QPushButton>(form, "SeNext"), Qt::LeftButton);
    QCOMPARE(tree->currentItem()->text(0), QStringLiteral("01 02 Járást segítők"));  // the last hit stays

    QTest::mouseClick(control<QPushButton>(form, "SeTreeExpand"), Qt::LeftButton);
    QVERIFY(tree->topLevelItem(0)->isExpanded());
    QTest::mouseClick(control<QPushButton>(form, "SeTreeCollapse"), Qt::LeftButton);
    QVERIFY(!tree->topLevelItem(0)->isExpanded());
}

void TestSe::nameSearchFindsTheAidInItsGroup()
{
    CatalogueWindowState fixture;
    writeCatalogue(fixture);
    TSegedeszk form(fixture.state);
    form.show();
    QTest::keyClicks(control<QLineEdit>(form, "SeEdt"), QStringLiteral("bokaORT"));
    QTest::mouseClick(control<QPushButton>(form, "SeNevKeres"), Qt::LeftButton);
    auto* found = control<QListWidget>(form, "FoundSeLst");
    QCOMPARE(texts(found), QStringList{QStringLiteral("Bokaortézis pár")});
    found->setCurrentRow(0);
    QTest::mouseClick(found->viewport(), Qt::LeftButton, {}, found->visualItemRect(found->item(0)).center());
    QCOMPARE(control<QTreeWidget>(form, "SeTree")->currentItem()->text(0),
             QStringLiteral("01 01 Alsó végtag"));
    QTest::mouseClick(control<QPushButton>(form, "SeListaz"), Qt::LeftButton);
    QCOMPARE(control<QTreeWidget>(form, "SeList")->topLevelItemCount(), 2);
    QCOMPARE(control<QPlainTextEdit>(form, "SeDesc")->toPlainText(),
             QStringLiteral("Bokaortézis pár\n - Nem támogatott termék, nincs árinformáció - "
                            "\n---Felírható mennyiség: Normativ=2 ,emelt=-,kiemelt=-"
                            "\n---Kihordási idő: Normativ=6, emelt= -,kiemelt=-  hónap"
                            "\n---Normatív---\n szakorvosi javaslatra\nrendelhető"));
}

void TestSe::missingFilesLeaveTheWindowEmpty()
{
    CatalogueWindowState fixture;
    TSegedeszk form(fixture.state);
    form.show();
    QCOMPARE(control<QTreeWidget>(form, "SeTree")->topLevelItemCount(), 0);
    QTest::mouseClick(control<QPushButton>(form, "SeKeres"), Qt::LeftButton);
    QTest::mouseClick(control<QPushButton>(form, "SeNevKeres"), Qt::LeftButton);
    QTest::mouseClick(control<QPushButton>(form, "SeListaz"), Qt::LeftButton);
    QCOMPARE(control<QTreeWidget>(form, "SeList")->topLevelItemCount(), 0);
    form.hide();
    writeCatalogue(fixture);
    form.show();
    QCOMPARE(control<QTreeWidget>(form, "SeTree")->topLevelItemCount(),
             1);  // tried again at the next showing
}

QTEST_MAIN(TestSe)
#include "tst_Se.moc"
