// The medical aids, the FoNo formulary and the own magistral list windows driven by their controls' names,
// on catalogue files written into a scratch data folder.

#include "catalogues/forms/Fono.h"
#include "catalogues/forms/Rvmagi.h"
#include "catalogues/forms/Se.h"
#include "tests/forms/support/Windows.h"

namespace
{

// The aids catalogue (three aids in two groups of one chapter), written at once or later by writeAll().
struct Aids : CatalogueWindowState {
    explicit Aids(bool written = true)
    {
        if (written) writeAll();
    }
    void writeAll() const
    {
        const char* se =
            "010101\tTérdortézis\tdarab\t100\t80\t20\t0\t0\t0\t0\tI\t1\t-\t-\t12\t-\t-\r\n"
            "010102\tBokaortézis\tpár\t200\t0\t200\t0\t0\t0\t0\tN\t2\t-\t-\t6\t-\t-\r\n"
            "010201\tJárókeret\tdarab\t300\t250\t50\t20\t280\t0\t0\tN\t1\t1\t-\t60\t60\t-\r\n";
        write("se.dat", se);
        write("senrend2.dat", "01 Ortézisek\r\n\t01 01 Alsó végtag\r\n\t01 02 Járást segítők\r\n");
        write("sekod2.dat", "01\r\n0101\r\n0102\r\n");
        write("sepos.dat", "0\r\n0\r\n" + std::to_string(rovanel::utf8ToCp1250(se).find("010201")) + "\r\n");
        write("seiso.dat", "01\r\n01 01\r\n01 02\r\n");
        write("senev.dat",
              "Térdortézis darab\t010101\r\nBokaortézis pár\t010102\r\nJárókeret darab\t010201\r\n");
        write("semegj.dat", "01\t1\tszakorvosi javaslatra~~rendelhető\r\n0102\t5\tkölcsönözhető is\r\n");
    }
};

// The FoNo files: two items, their names, index and chapter tree.
struct Formulary : CatalogueWindowState {
    Formulary()
    {
        const std::string fono =
            "#1\r\nPasta zinci 10%\r\nFoNo VII. 1.1\r\n#2\r\nPasta zinci 10%\r\nRp.\r\n"
            "Zinci oxydati   10,0\r\nJavallat: nedvedző bőr\r\n\r\n#1\r\nUnguentum acidi salicylici 5%\r\n"
            "FoNo VII. 1.2\r\n#2\r\nUnguentum acidi salicylici 5%\r\nRp.\r\nEllenjavallat: szalicilát-"
            "túlérzékenység, Javallat: hámlasztás\r\nMegjegyzés: 8 hét\r\n";
        write("fono.dat", fono);
        write("fononev.dat", "Pasta zinci 10%\r\nUnguentum acidi salicylici 5%\r\n");
        write("fonoidx.dat",
              "0\r\n" + std::to_string(rovanel::utf8ToCp1250(fono).find("#1\r\nUnguentum")) + "\r\n");
        write("fononr.txt",
              "I. Bőrgyógyászati készítmények\r\n\tUnguentum acidi salicylici 5%\r\n\tPasta zinci 10%\r\n");
    }
};

QColor colourAt(const QTextEdit* box, int position)
{
    QTextCursor cursor(box->document());
    cursor.setPosition(position + 1);
    return cursor.charFormat().foreground().color();
}

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

class TestCatalogues : public QObject
{
    Q_OBJECT
private slots:
    void aidsSearchesListOrSelectHitsAndAGroupsAidShowsItsDescription()
    {
        On<TSegedeszk, Aids> form;
        QCOMPARE(form.windowTitle(), QString("Gyógyászati segédeszközök"));
        QVERIFY(control<QRadioButton>(form, "FabaListaba1")->isChecked());
        auto* tree = control<QTreeWidget>(form, "SeTree");
        QCOMPARE(tree->topLevelItemCount(), 1);
        QCOMPARE(tree->topLevelItem(0)->child(1)->toolTip(0), QString("01 02"));

        typeInto(form, "SeEdt", "JÁRÁST");
        click(form, "SeKeres");
        QCOMPARE(linesOf(form, "FoundSeLst"), QStringList{"01 02 Járást segítők"});
        QVERIFY(!control<QPushButton>(form, "SeNext")->isEnabled());
        auto* found = control<QListWidget>(form, "FoundSeLst");
        doubleClick(found, found->model()->index(0, 0));
        QCOMPARE(currentNode(form, "SeTree"), QString("01 02 Járást segítők"));
        QCOMPARE(linesOf(form, "SeList"), QStringList{"Járókeret darab"});
        auto* list = control<QTreeWidget>(form, "SeList");
        list->setCurrentItem(list->topLevelItem(0));
        // The description's lines are MedicalAids_test's; here the chosen aid's, with its group's notes.
        QVERIFY(textOf(form, "SeDesc").startsWith("Járókeret darab\nBruttó ár: 300Ft"));
        QVERIFY(textOf(form, "SeDesc").endsWith("\n---Kölcsönözhető---\n kölcsönözhető is"));

        // The name search finds the aid in its group.
        control<QLineEdit>(form, "SeEdt")->clear();
        typeInto(form, "SeEdt", "bokaORT");
        click(form, "SeNevKeres");
        QCOMPARE(linesOf(form, "FoundSeLst"), QStringList{"Bokaortézis pár"});
        found->setCurrentRow(0);
        QTest::mouseClick(found->viewport(), Qt::LeftButton, {},
                          found->visualItemRect(found->item(0)).center());
        QCOMPARE(currentNode(form, "SeTree"), QString("01 01 Alsó végtag"));
        click(form, "SeListaz");
        QCOMPARE(linesOf(form, "SeList").size(), 2);
        QVERIFY(textOf(form, "SeDesc").startsWith("Bokaortézis pár\n"));

        // One by one: each hit is selected in turn.
        control<QLineEdit>(form, "SeEdt")->clear();
        click(form, "FabaListaba0");
        QVERIFY(control<QRadioButton>(form, "FabaListaba0")->isChecked());
        typeInto(form, "SeEdt", "01");
        click(form, "SeKeres");
        QVERIFY(control<QPushButton>(form, "SeNext")->isEnabled());
        QCOMPARE(linesOf(form, "FoundSeLst"), QStringList{});
        QStringList visited{currentNode(form, "SeTree")};
        for (int press = 0; press < 3; ++press) {
            click(form, "SeNext");
            visited << currentNode(form, "SeTree");
        }
        QCOMPARE(visited, (QStringList{"01 Ortézisek", "01 01 Alsó végtag", "01 02 Járást segítők",
                                       "01 02 Járást segítők"}));  // the last hit stays
        auto* top = control<QTreeWidget>(form, "SeTree")->topLevelItem(0);
        click(form, "SeTreeExpand");
        QVERIFY(top->isExpanded());
        click(form, "SeTreeCollapse");
        QVERIFY(!top->isExpanded());
    }

    // A missing file leaves the window empty, and is tried again at the next showing.
    void missingFilesLeaveTheWindowsEmptyAndAnUnusableFolderIsReported()
    {
        Aids fixture(false);
        Shown<TSegedeszk> aids(fixture.state);
        Shown<TFoNoForm> formulary(fixture.state);
        for (const char* button : {"SeKeres", "SeNevKeres", "SeListaz"}) click(aids, button);
        const QStringList none;
        QCOMPARE(linesOf(aids, "SeTree") + linesOf(aids, "SeList"), none);
        QCOMPARE(linesOf(formulary, "FoNoTree") + linesOf(formulary, "FoNoLst"), none);
        aids.hide();
        fixture.writeAll();
        aids.show();
        QCOMPARE(linesOf(aids, "SeTree"), QStringList{"01 Ortézisek"});
        // A magistral folder that cannot be made is reported at the first showing.
        MagiFolder folder;
        folder.write("upd", "a file where the folder should be");
        Shown<TMagiForm> form(folder.state);
        QCOMPARE(form.messages.texts().size(), 1);
        QVERIFY(form.messages.texts().front().startsWith("A saját receptek mappája nem hozható létre: "));
        QCOMPARE(folder.directory.read("upd"), "a file where the folder should be");
    }

    void formularyNodeOrPickedNameShowsItsItemWithColouredTitleAndLabels()
    {
        On<TFoNoForm, Formulary> form;
        QCOMPARE(form.windowTitle(), QString("FoNo"));
        auto* tree = control<QTreeWidget>(form, "FoNoTree");
        tree->setCurrentItem(tree->topLevelItem(0)->child(0));  // the chapter is current from the start
        QCOMPARE(control<QComboBox>(form, "FoNoLst")->currentIndex(), 1);
        auto* box = control<QTextEdit>(form, "FoNoRtf");
        // Which line takes which style is Formulary_test's; here the styles' colours land in the box.
        const QString text = box->toPlainText();
        QVERIFY(text.startsWith("Unguentum acidi salicylici 5%\nRp.\nJavallat:\n"));
        const QList<QColor> colours{colourAt(box, 0), colourAt(box, text.indexOf("Rp.")),
                                    colourAt(box, text.indexOf("llat: sz"))};
        QCOMPARE(colours, (QList<QColor>{QColor(0, 0, 255), QColor(0, 128, 0), QColor(0, 0, 0)}));
        QCOMPARE(QString::fromStdString(rovanel::cp1250ToUtf8(form.FoNoName())),
                 QString("Unguentum acidi salicylici 5%"));

        // Typing filters the names (case and accents folded), Enter picks the item under its own number;
        // a chapter node then shows nothing.
        auto* names = control<QComboBox>(form, "FoNoLst");
        pickByTyping(names, "pasta");
        QCOMPARE(names->currentIndex(), 0);
        QVERIFY(textOf(form, "FoNoRtf").startsWith("Pasta zinci 10%\nRp."));
        pickByTyping(names, "SALIC");
        QCOMPARE(names->currentIndex(), 1);
        QVERIFY(textOf(form, "FoNoRtf").startsWith("Unguentum"));
        tree->setCurrentItem(tree->topLevelItem(0));
        QCOMPARE(textOf(form, "FoNoRtf"), QString());
        QCOMPARE(names->currentIndex(), -1);
    }

    void magistralRecipesAreListedSavedReadBackAndHandedOn()
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
};

QTEST_MAIN(TestCatalogues)
#include "tst_Catalogues.moc"
