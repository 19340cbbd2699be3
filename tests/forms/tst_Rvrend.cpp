// The regulations window driven by its controls' names.
#include <QRadioButton>
#include <QTest>
#include <QTextEdit>
#include <QTreeWidget>

#include "tests/forms/support/EngineWindows.h"
#include "views/forms/Rvrend.h"

class TestRvrend : public QObject
{
    Q_OBJECT
private slots:
    void treeOrTextAndReopeningKeepsTheView();
    void missingFileLeavesTheWindowEmptyAndTriesAgain();
};

void TestRvrend::treeOrTextAndReopeningKeepsTheView()
{
    EngineWindowState fixture{rovanel::testing::EngineDatabase{}};
    TRend form(fixture.state);
    form.show();
    auto* tree = form.findChild<QTreeWidget*>("RendeletTree");
    auto* text = form.findChild<QTextEdit*>("RendLeiro");
    auto* asText = form.findChild<QRadioButton*>("RendeletSzovegesen");
    QVERIFY(tree && text && asText && form.findChild<QRadioButton*>("RendeletFa")->isChecked());
    QCOMPARE(tree->topLevelItemCount(), 1);
    QCOMPARE(tree->topLevelItem(0)->child(0)->child(0)->text(0), QStringLiteral("a) alpont"));
    QVERIFY(tree->isVisible() && !text->isVisible());
    QTest::mouseClick(asText, Qt::LeftButton);
    QVERIFY(!tree->isVisible() && text->isVisible());
    QCOMPARE(text->toPlainText(), QStringLiteral("Rendelet\n\t1. pont\n\t\ta) alpont\n\t2. pont\n"));
    form.hide();
    fixture.directory.remove("rend2.ful");
    form.show();
    QVERIFY(text->isVisible());
    QCOMPARE(tree->topLevelItemCount(), 1);
}

void TestRvrend::missingFileLeavesTheWindowEmptyAndTriesAgain()
{
    EngineWindowState fixture{rovanel::testing::EngineDatabase{}};
    const std::string saved = fixture.directory.read("rend2.ful");
    fixture.directory.remove("rend2.ful");
    TRend form(fixture.state);
    form.show();
    auto* tree = form.findChild<QTreeWidget*>("RendeletTree");
    QCOMPARE(tree->topLevelItemCount(), 0);
    form.hide();
    fixture.directory.write("rend2.ful", saved);
    form.show();
    QCOMPARE(tree->topLevelItemCount(), 1);
}

QTEST_MAIN(TestRvrend)
#include "tst_Rvrend.moc"
