// The own magistral list window driven by its controls' names.

#include "catalogues/forms/Rvmagi.h"
#include "tests/forms/support/Windows.h"

namespace
{

// A data folder whose RV.INI points PathToUpdate at its "upd" (with the trailing backslash).
struct MagiFolder : CatalogueWindowState {
    MagiFolder()
    {
        write("RV.INI",
              "[Rovanel Beallitasok]\r\nPathToUpdate=" + (directory.path() / "upd").string() + "\\\r\n");
    }
    [[nodiscard]] std::string read(const char* name) const
    {
        return directory.read(std::string("upd/magi/") + name);
    }
};

void typeRecipe(QWidget& form, const QString& name, const QString& text)
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
    void addedRecipesAreListedSavedReadBackAndHandedOn()
    {
        On<TMagiForm, MagiFolder> form;
        QCOMPARE(form.windowTitle(), QString("Saját Magi receptek"));
        // A name that cannot be a file is refused before anything is written.
        typeRecipe(form, "recept 1/2", "x");
        click(form, "MagiAdd");
        QCOMPARE(form.messages.texts(),
                 QStringList{
                     "A recept neve nem tartalmazhatja a következő karakterek egyikét: \\ / : * ? \" < > |"});
        QCOMPARE(form.messages.captions(), QStringList{"Saját Magi receptek"});
        form.messages.clear();
        QCOMPARE(control<QComboBox>(form, "MagiList")->count(), 0);
        QCOMPARE(form.read("MagiList.txt"), std::string());

        typeRecipe(form, "Kenőcs", "Rp.\nAcidi salicylici 5,0");
        click(form, "MagiAdd");
        typeRecipe(form, "Oldat", "Rp.\nAquae 100,0");
        click(form, "MagiAdd");
        QCOMPARE(form.read("MagiList.txt"),
                 "Ken\xF5"
                 "cs\r\nOldat\r\n");

        // Typing filters the names, accents and case folded; Enter picks the first match.
        auto* list = control<QComboBox>(form, "MagiList");
        pickByTyping(list, "KENO");
        QCOMPARE(textsOf(form, {"MagiList", "MagiTxt"}),
                 (QStringList{"Kenőcs", "Rp.\nAcidi salicylici 5,0"}));

        // A right click on the recipe hands it to the prescription window, when there is one.
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
        control<QPlainTextEdit>(form, "MagiTxt")->setPlainText("Rp.\nAcidi salicylici 10,0");
        click(form, "MagiMod");
        QCOMPARE(form.read("Kenőcs"), "Rp.\r\nAcidi salicylici 10,0");
        QCOMPARE(list->count(), 2);

        // Delete removes the shown name (the files: MagiStore_test); with nothing shown it does nothing.
        pickByTyping(list, "oldat");
        click(form, "MagiDel");
        QVERIFY(!std::filesystem::exists(form.directory.path() / "upd/magi/Oldat"));
        click(form, "MagiDel");
        QCOMPARE(list->count(), 1);
        QCOMPARE(form.messages.texts(), QStringList());
    }

    void anUnusableFolderSaysSoAtTheFirstShowing()
    {
        MagiFolder folder;
        folder.write("upd", "a file where the folder should be");
        Shown<TMagiForm> form(folder.state);
        QCOMPARE(form.messages.texts().size(), 1);
        QVERIFY(form.messages.texts().front().startsWith("A saját receptek mappája nem hozható létre: "));
        QCOMPARE(folder.directory.read("upd"), "a file where the folder should be");
    }
};

QTEST_MAIN(TestRvmagi)
#include "tst_Rvmagi.moc"
