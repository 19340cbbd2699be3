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

}  // namespace

class TestRvmagi : public QObject
{
    Q_OBJECT
private slots:
    void init()
    {
        m_fixture = std::make_unique<CatalogueWindowState>();
        pointUpdateAtScratch(*m_fixture);
        m_messages = std::make_unique<MessageRecorder>();
        m_form = std::make_unique<TMagiForm>(m_fixture->state);
    }
    void cleanup()
    {
        m_form.reset();
        m_messages.reset();
        m_fixture.reset();
    }
    void addedRecipesAreListedSavedAndReadBack();
    void aNameThatCannotBeAFileIsRefusedBeforeAnythingIsWritten();
    void anUnusableFolderSaysSoAtTheFirstShowing();
    void aRightClickOnTheRecipeHandsItToThePrescription();

private:
    void typeRecipe(const QString& name, const QString& text)
    {
        QLineEdit* edit = control<QComboBox>(*m_form, "MagiList")->lineEdit();
        edit->clear();
        typeText(edit, name);
        control<QPlainTextEdit>(*m_form, "MagiTxt")->setPlainText(text);
    }
    void click(const char* button)
    {
        QTest::mouseClick(control<QPushButton>(*m_form, button), Qt::LeftButton);
    }

    std::unique_ptr<CatalogueWindowState> m_fixture;
    std::unique_ptr<MessageRecorder> m_messages;
    std::unique_ptr<TMagiForm> m_form;
};

void TestRvmagi::addedRecipesAreListedSavedAndReadBack()
{
    const auto& directory = m_fixture->directory;
    m_form->show();
    QCOMPARE(m_form->windowTitle(), QStringLiteral("Saját Magi receptek"));
    QCOMPARE(directory.read("upd/magi/MagiList.txt"), std::string());
    typeRecipe(QStringLiteral("Kenőcs"), QStringLiteral("Rp.\nAcidi salicylici 5,0"));
    click("MagiAdd");
    typeRecipe(QStringLiteral("Oldat"), QStringLiteral("Rp.\nAquae 100,0"));
    click("MagiAdd");
    QCOMPARE(directory.read("upd/magi/MagiList.txt"),
             "Ken\xF5"
             "cs\r\nOldat\r\n");
    QCOMPARE(directory.read("upd/magi/Kenőcs"), "Rp.\r\nAcidi salicylici 5,0");

    // Typing filters the names, accents and case folded; Enter picks the first match.
    auto* list = control<QComboBox>(*m_form, "MagiList");
    auto* text = control<QPlainTextEdit>(*m_form, "MagiTxt");
    pickByTyping(list, QStringLiteral("KENO"));
    QCOMPARE(list->currentText(), QStringLiteral("Kenőcs"));
    QCOMPARE(text->toPlainText(), QStringLiteral("Rp.\nAcidi salicylici 5,0"));
    text->setPlainText(QStringLiteral("Rp.\nAcidi salicylici 10,0"));
    click("MagiMod");
    QCOMPARE(directory.read("upd/magi/Kenőcs"), "Rp.\r\nAcidi salicylici 10,0");
    QCOMPARE(list->count(), 2);

    // Delete removes the line and the file of the shown name; with nothing shown it does nothing.
    pickByTyping(list, QStringLiteral("oldat"));
    click("MagiDel");
    QCOMPARE(directory.read("upd/magi/MagiList.txt"),
             "Ken\xF5"
             "cs\r\n");
    QVERIFY(!std::filesystem::exists(directory.path() / "upd/magi/Oldat"));
    QVERIFY(std::filesystem::exists(directory.path() / "upd/magi/Kenőcs"));
    click("MagiDel");
    QCOMPARE(list->count(), 1);
    QCOMPARE(m_messages->texts(), QStringList());
}

void TestRvmagi::aNameThatCannotBeAFileIsRefusedBeforeAnythingIsWritten()
{
    m_form->show();
    typeRecipe(QStringLiteral("recept 1/2"), QStringLiteral("x"));
    click("MagiAdd");
    QCOMPARE(m_messages->texts(),
             QStringList{QStringLiteral(
                 "A recept neve nem tartalmazhatja a következő karakterek egyikét: \\ / : * ? \" < > |")});
    QCOMPARE(m_messages->captions(), QStringList{QStringLiteral("Saját Magi receptek")});
    QCOMPARE(control<QComboBox>(*m_form, "MagiList")->count(), 0);
    QCOMPARE(m_fixture->directory.read("upd/magi/MagiList.txt"), std::string());
}

void TestRvmagi::anUnusableFolderSaysSoAtTheFirstShowing()
{
    m_form.reset();  // the form made by init() made the folder
    std::filesystem::remove_all(m_fixture->directory.path() / "upd");
    m_fixture->write("upd", "a file where the folder should be");
    m_form = std::make_unique<TMagiForm>(m_fixture->state);
    m_form->show();
    QCOMPARE(m_messages->texts().size(), 1);
    QVERIFY(m_messages->texts().front().startsWith(
        QStringLiteral("A saját receptek mappája nem hozható létre: ")));
    typeRecipe(QStringLiteral("A"), QStringLiteral("x"));
    click("MagiAdd");
    QCOMPARE(m_messages->texts().size(), 2);
    QVERIFY(m_messages->texts().back().startsWith(QStringLiteral("A saját receptek listája nem menthető: ")));
    QCOMPARE(m_fixture->directory.read("upd"), "a file where the folder should be");
}

void TestRvmagi::aRightClickOnTheRecipeHandsItToThePrescription()
{
    TMagiForm& form = *m_form;
    form.show();
    typeRecipe(QStringLiteral("Kenőcs"), QStringLiteral("Rp.\nAcidi salicylici 5,0"));
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
