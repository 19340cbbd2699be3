// The regulations window driven by its controls' names.
#include <QRadioButton>
#include <QTest>
#include <QTextEdit>
#include <QTreeWidget>

#include "tests/forms/support/Controls.h"
#include "tests/forms/support/EngineWindows.h"
#include "views/forms/Rvrend.h"

class TestRvrend : public QObject
{
    Q_OBJECT
private slots:
    void treeOrTextAndReopeningKeepsTheView();
};

void TestRvrend::treeOrTextAndReopeningKeepsTheView()
{
    EngineWindowState fixture{rovanel::testing::EngineDatabase{}};
    const std::string saved = fixture.directory.read("rend2.ful");
    fixture.directory.remove("rend2.ful");
    TRend form(fixture.state);
    form.show();
    auto* tree = control<QTreeWidget>(form, "RendeletTree");
    auto* text = control<QTextEdit>(form, "RendLeiro");
    QCOMPARE(tree->topLevelItemCount(), 0);  // a missing file leaves the window empty...
    form.hide();
    fixture.directory.write("rend2.ful", saved);
    form.show();  // ...and is tried again at the next showing
    QCOMPARE(tree->topLevelItemCount(), 1);
    QCOMPARE(tree->topLevelItem(0)->child(0)->child(0)->text(0), QStringLiteral("a) alpont"));
    QVERIFY(control<QRadioButton>(form, "RendeletFa")->isChecked());
    QVERIFY(tree->isVisible() && !text->isVisible());
    QTest::mouseClick(control<QRadioButton>(form, "RendeletSzovegesen"), Qt::LeftButton);
    QVERIFY(!tree->isVisible() && text->isVisible());
    QCOMPARE(text->toPlainText(), QStringLiteral("Rendelet\n\t1. pont\n\t\ta) alpont\n\t2. pont\n"));
    form.hide();
    fixture.directory.remove("rend2.ful");
    form.show();  // once loaded, kept
    QVERIFY(text->isVisible());
    QCOMPARE(tree->topLevelItemCount(), 1);
}

QTEST_MAIN(TestRvrend)
#include "tst_Rvrend.moc"
