// The own magistral list window driven by its controls' names.
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include "catalogues/forms/Rvmagi.h"
#include "tests/forms/support/CatalogueWindows.h"
#include "tests/forms/support/MessageRecorder.h"

namespace
{

// RV.INI points PathToUpdate at the scratch folder's "upd" (with its trailing backslash).
void pointUpdateAtScratch(const CatalogueWindowState& fixture)
{
    fixture.write("RV.INI", "[Rovanel Beallitasok]\r\nPathToUpdate=" +
                                (fixture.directory.path() / "upd").string() + "\\\r\n");
}

void typeRecipe(TMagiForm& form, const QString& name, const QString& text)
{
    QLineEdit* edit = control<QComboBox>(form, "MagiList")->lineEdit();
    edit->clear();
    typeText(edit, name);
    control<QPlainTextEdit>(form, "MagiTxt")->setPlainText(text);
}

}  // namespace

class TestRvmagi : public QObject
{
    Q_OBJECT
private slots:
    void addedRecipesAreListedSavedAndReadBack();
    void deleteRemovesTheLineAndTheFileOfTheShownName();
    void aNameThatCannotBeAFileIsRefusedBeforeAnythingIsWritten();
    void anUnusableFolderSaysSoAtTheFirstShowing();
    void aRightClickOnTheRecipeHandsItToThePrescription();
};

void TestRvmagi::addedRecipesAreListedSavedAndReadBack()
{
    CatalogueWindowState fixture;
    pointUpdateAtScratch(fixture);
    MessageRecorder messages;
    TMagiForm form(fixture.state);
    form.show();
    QCOMPARE(form.windowTitle(), QStringLiteral("Saját Magi receptek"));
    QCOMPARE(fixture.directory.read("upd/magi/MagiList.txt"), std::string());
    typeRecipe(form, QStringLiteral("Kenőcs"), QStringLiteral("Rp.\nAcidi salicylici 5,0"));
    QTest::mouseClick(control<QPushButton>(form, "MagiAdd"), Qt::LeftButton);
    typeRecipe(form, QStringLiteral("Oldat"), QStringLiteral("Rp.\nAquae 100,0"));
    QTest::mouseClick(control<QPushButton>(form, "MagiAdd"), Qt::LeftButton);
    QCOMPARE(messages.texts(), QStringList());
    QCOMPARE(fixture.directory.read("upd/magi/MagiList.txt"),
             "Ken\xF5"
             "cs\r\nOldat\r\n");
    QCOMPARE(fixture.directory.read("upd/magi/Kenőcs"), "Rp.\r\nAcidi salicylici 5,0");

    // Typing filters the names, accents and case folded; Enter picks the first match.
    auto* list = control<QComboBox>(form, "MagiList");
    QCOMPARE(list->count(), 2);
    pickByTyping(list, QStringLiteral("KENO"));
    QCOMPARE(list->currentText(), QStringLiteral("Kenőcs"));
    QCOMPARE(control<QPlainTextEdit>(form, "MagiTxt")->toPlainText(),
             QStringLiteral("Rp.\nAcidi salicylici 5,0"));
    control<QPlainTextEdit>(form, "MagiTxt")->setPlainText(QStringLiteral("Rp.\nAcidi salicylici 10,0"));
    QTest::mouseClick(control<QPushButton>(form, "MagiMod"), Qt::LeftButton);
    QCOMPARE(fixture.directory.read("upd/magi/Kenőcs"), "Rp.\r\nAcidi salicylici 10,0");
    QCOMPARE(list->count(), 2);
}

void TestRvmagi::deleteRemovesTheLineAndTheFileOfTheShownName()
{
    CatalogueWindowState fixture;
    pointUpdateAtScratch(fixture);
    MessageRecorder messages;
    TMagiForm form(fixture.state);
    form.show();
    for (const char* name : {"A", "B"}) {
        typeRecipe(form, QString::fromLatin1(name), QStringLiteral("szöveg"));
        QTest::mouseClick(control<QPushButton>(form, "MagiAdd"), Qt::LeftButton);
    }
    auto* list = control<QComboBox>(form, "MagiList");
    pickByTyping(list, QStringLiteral("b"));
    QTest::mouseClick(control<QPushButton>(form, "MagiDel"), Qt::LeftButton);
    QCOMPARE(list->count(), 1);
    QCOMPARE(fixture.directory.read("upd/magi/MagiList.txt"), "A\r\n");
    QVERIFY(!std::filesystem::exists(fixture.directory.path() / "upd/magi/B"));
    QVERIFY(std::filesystem::exists(fixture.directory.path() / "upd/magi/A"));
    QTest::mouseClick(control<QPushButton>(form, "MagiDel"), Qt::LeftButton);  // nothing selected
    QCOMPARE(list->count(), 1);
    QCOMPARE(messages.texts(), QStringList());
}

void TestRvmagi::aNameThatCannotBeAFileIsRefusedBeforeAnythingIsWritten()
{
    CatalogueWindowState fixture;
    pointUpdateAtScratch(fixture);
    MessageRecorder messages;
    TMagiForm form(fixture.state);
    form.show();
    typeRecipe(form, QStringLiteral("recept 1/2"), QStringLiteral("x"));
    QTest::mouseClick(control<QPushButton>(form, "MagiAdd"), Qt::LeftButton);
    QCOMPARE(messages.texts(),
             QStringList{QStringLiteral(
                 "A recept neve nem tartalmazhatja a következő karakterek egyikét: \\ / : * ? \" < > |")});
    QCOMPARE(messages.captions(), QStringList{QStringLiteral("Saját Magi receptek")});
    QCOMPARE(control<QComboBox>(form, "MagiList")->count(), 0);
    QCOMPARE(fixture.directory.read("upd/magi/MagiList.txt"), std::string());
}

void TestRvmagi::anUnusableFolderSaysSoAtTheFirstShowing()
{
    CatalogueWindowState fixture;
    pointUpdateAtScratch(fixture);
    fixture.write("upd", "a file where the folder should be");
    MessageRecorder messages;
    TMagiForm form(fixture.state);
    form.show();
    QCOMPARE(messages.texts().size(), 1);
    QVERIFY(
        messages.texts().front().startsWith(QStringLiteral("A saját receptek mappája nem hozható létre: ")));
    typeRecipe(form, QStringLiteral("A"), QStringLiteral("x"));
    QTest::mouseClick(control<QPushButton>(form, "MagiAdd"), Qt::LeftButton);
    QCOMPARE(messages.texts().size(), 2);
    QVERIFY(messages.texts().back().startsWith(QStringLiteral("A saját receptek listája nem menthető: ")));
    QCOMPARE(fixture.directory.read("upd"), "a file where the folder should be");
}

void TestRvmagi::aRightClickOnTheRecipeHandsItToThePrescription()
{
    CatalogueWindowState fixture;
    pointUpdateAtScratch(fixture);
    TMagiForm form(fixture.state);
    form.show();
    typeRecipe(form, QStringLiteral("Kenőcs"), QStringLiteral("Rp.\nAcidi salicylici 5,0"));
    auto* text = control<QPlainTextEdit>(form, "MagiTxt")->viewport();
    QTest::mouseClick(text, Qt::RightButton);  // no prescription window: nothing happens
    std::vector<std::string> handed;
    form.setPrescriptionHandover(
        [&](const std::string& name, const std::string& recipe, const std::string& code) {
            handed = {name, recipe, code};
        });
    QTest::mouseClick(text, Qt::LeftButton);
    QVERIFY(handed.empty());
    QTest::mouseClick(text, Qt::RightButton);
    QCOMPARE(handed, (std::vector<std::string>{"Ken\xF5"
                                               "cs",
                                               "Rp.\nAcidi salicylici 5,0", "999999999"}));
}

QTEST_MAIN(TestRvmagi)
#include "tst_Rvmagi.moc"
