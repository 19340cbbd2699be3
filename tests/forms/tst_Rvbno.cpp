// The BNO browser driven by its controls' names on the demo database's bno.tre.
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTreeWidget>

#include "rx/forms/Rvbno.h"
#include "tests/forms/support/Controls.h"

namespace
{

QString selected(QTreeWidget* tree)
{
    const auto items = tree->selectedItems();
    return items.isEmpty() ? QString() : items.first()->text(0);
}

}  // namespace

class TestRvbno : public QObject
{
    Q_OBJECT
private slots:
    void treeModeStepsFromHitToHitAndEndsSilently();
    void listModeListsEveryHitAndCopiesThem();
};

void TestRvbno::treeModeStepsFromHitToHitAndEndsSilently()
{
    TBnoForm form(ROVANEL_DEMO_DB);
    QCOMPARE(form.windowTitle(), QString::fromUtf8("Bno kereső"));
    form.show();
    form.hide();
    form.show();
    QCOMPARE(form.treeLoads(), 1);  // once per run
    auto* tree = control<QTreeWidget>(form, "BnoTree");
    QCOMPARE(tree->topLevelItemCount(), 22);
    auto* edit = control<QLineEdit>(form, "BnoEdt");
    auto* next = control<QPushButton>(form, "BnoNext");

    edit->setText(QString::fromUtf8("nincs ilyen betegség"));
    QTest::mouseClick(control<QPushButton>(form, "BnoKeres"), Qt::LeftButton);
    QVERIFY2(selected(tree).isEmpty(), "no hit selects nothing");

    // Exact case: "COVID" is written so in the U chapter only; lower case finds it only when folded.
    edit->setText("covid-19");
    QTest::mouseClick(control<QPushButton>(form, "BnoKeres"), Qt::LeftButton);
    QVERIFY(selected(tree).isEmpty());
    control<QCheckBox>(form, "aAChb")->setChecked(true);
    QTest::mouseClick(control<QPushButton>(form, "BnoKeres"), Qt::LeftButton);
    QVERIFY(next->isEnabled());
    QStringList hits{selected(tree)};
    for (int i = 0; i < 50 && hits.size() == i + 1; ++i) {
        QTest::mouseClick(next, Qt::LeftButton);
        if (selected(tree) != hits.last()) hits << selected(tree);
    }
    QVERIFY(hits.size() > 1);
    QVERIFY(hits.first().startsWith("U"));
    // After the last hit the selection stays where it was.
    QTest::mouseClick(next, Qt::LeftButton);
    QCOMPARE(selected(tree), hits.last());
    edit->setText("x");
    QVERIFY(!next->isEnabled());
}

void TestRvbno::listModeListsEveryHitAndCopiesThem()
{
    TBnoForm form(ROVANEL_DEMO_DB);
    form.show();
    control<QRadioButton>(form, "FabaListaba1")->setChecked(true);
    control<QLineEdit>(form, "BnoEdt")->setText("I10H0");
    QTest::mouseClick(control<QPushButton>(form, "BnoKeres"), Qt::LeftButton);
    QVERIFY(!control<QPushButton>(form, "BnoNext")->isEnabled());
    auto* found = control<QListWidget>(form, "FoundBnoLst");
    QCOMPARE(found->count(), 1);
    QCOMPARE(found->item(0)->text(), QString::fromUtf8("I10H0 Magasvérnyomás-betegség (elsődleges)"));

    form.FoundBnoLstDblClick(0);
    QCOMPARE(selected(control<QTreeWidget>(form, "BnoTree")), found->item(0)->text());
    QTest::mouseClick(control<QPushButton>(form, "CopyToClipboard"), Qt::LeftButton);
    QCOMPARE(QApplication::clipboard()->text(), found->item(0)->text() + "\n");
}

QTEST_MAIN(TestRvbno)
#include "tst_Rvbno.moc"
