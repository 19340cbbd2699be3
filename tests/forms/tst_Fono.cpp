// The FoNo formulary window driven by its controls' names.
#include <QComboBox>
#include <QTest>
#include <QTextBlock>
#include <QTextEdit>
#include <QTreeWidget>

#include "catalogues/forms/Fono.h"
#include "tests/forms/support/CatalogueWindows.h"

namespace
{

void writeFormulary(const CatalogueWindowState& fixture)
{
    const std::string fono =
        "#1\r\nPasta zinci 10%\r\nFoNo VII. 1.1\r\n#2\r\nPasta zinci 10%\r\nRp.\r\nZinci oxydati   10,0\r\n"
        "Javallat: nedvedző bőr\r\n\r\n"
        "#1\r\nUnguentum acidi salicylici 5%\r\nFoNo VII. 1.2\r\n#2\r\nUnguentum acidi salicylici "
        "5%\r\nRp.\r\n"
        "Ellenjavallat: szalicilát-túlérzékenység, Javallat: hámlasztás\r\nMegjegyzés: 8 hét\r\n";
    fixture.write("fono.dat", fono);
    fixture.write("fononev.dat", "Pasta zinci 10%\r\nUnguentum acidi salicylici 5%\r\n");
    fixture.write("fonoidx.dat",
                  "0\r\n" + std::to_string(rovanel::utf8ToCp1250(fono).find("#1\r\nUnguentum")) + "\r\n");
    fixture.write(
        "fononr.txt",
        "I. Bőrgyógyászati készítmények\r\n\tUnguentum acidi salicylici 5%\r\n\tPasta zinci 10%\r\n");
}

QColor colourAt(const QTextEdit* box, int position)
{
    QTextCursor cursor(box->document());
    cursor.setPosition(position + 1);
    return cursor.charFormat().foreground().color();
}

}  // namespace

class TestFono : public QObject
{
    Q_OBJECT
private slots:
    void treeNodeShowsItsItemWithColouredTitleAndLabels();
    void aPickedNameShowsItsItemAndAChapterNodeNothing();
    void missingFilesLeaveTheWindowEmpty();
};

void TestFono::treeNodeShowsItsItemWithColouredTitleAndLabels()
{
    CatalogueWindowState fixture;
    writeFormulary(fixture);
    TFoNoForm form(fixture.state);
    form.show();
    QCOMPARE(form.windowTitle(), QStringLiteral("FoNo"));
    auto* tree = control<QTreeWidget>(form, "FoNoTree");
    tree->setCurrentItem(tree->topLevelItem(0)->child(0));
    QCOMPARE(control<QComboBox>(form, "FoNoLst")->currentIndex(), 1);
    auto* box = control<QTextEdit>(form, "FoNoRtf");
    const QString text = box->toPlainText();
    QCOMPARE(text,
             QStringLiteral("Unguentum acidi salicylici 5%\nRp.\nJavallat:\nllat: szalicilát-túlérzékenység, "
                            "Javallat: hámlasztás\nMegjegyzés:\n 8 hét\n"));
    QCOMPARE(colourAt(box, 0), QColor(0, 0, 255));
    QCOMPARE(colourAt(box, text.indexOf("Rp.")), QColor(0, 128, 0));
    QCOMPARE(colourAt(box, text.indexOf("Javallat:")), QColor(0, 128, 0));
    QCOMPARE(colourAt(box, text.indexOf("llat: sz")), QColor(0, 0, 0));
    QCOMPARE(QString::fromStdString(rovanel::cp1250ToUtf8(form.FoNoName())),
             QStringLiteral("Unguentum acidi salicylici 5%"));
}

// Typing filters the names (case and accents folded), Enter picks the item under its own number; a
// chapter node then shows nothing.
void TestFono::aPickedNameShowsItsItemAndAChapterNodeNothing()
{
    CatalogueWindowState fixture;
    writeFormulary(fixture);
    TFoNoForm form(fixture.state);
    form.show();
    auto* names = control<QComboBox>(form, "FoNoLst");
    pickByTyping(names, QStringLiteral("SALIC"));
    QCOMPARE(names->currentIndex(), 1);
    QVERIFY(control<QTextEdit>(form, "FoNoRtf")->toPlainText().startsWith(QStringLiteral("Unguentum")));
    pickByTyping(names, QStringLiteral("pasta"));
    QVERIFY(control<QTextEdit>(form, "FoNoRtf")
                ->toPlainText()
                .startsWith(QStringLiteral("Pasta zinci 10%\nRp.")));
    auto* tree = control<QTreeWidget>(form, "FoNoTree");
    tree->setCurrentItem(tree->topLevelItem(0)->child(0));  // the chapter is current from the start
    tree->setCurrentItem(tree->topLevelItem(0));
    QCOMPARE(control<QTextEdit>(form, "FoNoRtf")->toPlainText(), QString());
    QCOMPARE(names->currentIndex(), -1);
}

void TestFono::missingFilesLeaveTheWindowEmpty()
{
    CatalogueWindowState fixture;
    TFoNoForm form(fixture.state);
    form.show();
    QCOMPARE(control<QTreeWidget>(form, "FoNoTree")->topLevelItemCount(), 0);
    QCOMPARE(control<QComboBox>(form, "FoNoLst")->count(), 0);
}

QTEST_MAIN(TestFono)
#include "tst_Fono.moc"
