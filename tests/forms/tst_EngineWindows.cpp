// The interaction, side-effect, active-ingredient and regulations windows driven by their controls'
// names, each on a small database written for it.
#include <numeric>

#include "tests/forms/support/Windows.h"
#include "views/forms/Rvha.h"
#include "views/forms/Rvkh.h"
#include "views/forms/Rvmh.h"
#include "views/forms/Rvrend.h"

using rovanel::testing::EngineDatabase;

namespace
{

EngineDatabase interactionDatabase()
{
    EngineDatabase db;
    db.atcGroups = {{"C", "Szív"}, {"C08", "Kalciumcsatorna-blokkolók"}, {"N", "Idegrendszer"}};
    db.contraindications = {{"E01", "Terhesség"}, {"E0101", "Első trimeszter"}, {"E02", "Szoptatás"}};
    for (int i = 0; i < 19; ++i)
        db.contraindications.push_back({"E9" + std::to_string(10 + i), "Egyéb " + std::to_string(i)});
    db.products = {{"C08CA-0101", "ALFA", {"C08CA-01"}, {"N05"}},
                   {"C08CA-0102", "BÉTA", {"C08CA-01"}, {}, {}, {"E01"}},
                   {"N05BA-0101", "GAMMA", {"N05BA-01"}}};
    for (int i = 0; i < 20; ++i)
        db.products.push_back({"N06AB-01" + std::to_string(10 + i), "ZETA " + std::to_string(10 + i)});
    db.sideEffects = {{"Fejfájás", {0}}};
    return db;
}

// 650 products P100, P101, ...; side effects and active ingredients over 2, 600 and 601 of them.
EngineDatabase manyProducts()
{
    EngineDatabase db;
    for (int i = 0; i < 650; ++i)
        db.products.push_back({"A01AA-0" + std::to_string(100 + i), "P" + std::to_string(100 + i)});
    std::vector<int> first601(601);
    std::iota(first601.begin(), first601.end(), 0);
    const std::vector<int> first600(first601.begin(), first601.end() - 1);
    db.sideEffects = {{"Fejfájás", {3, 7}}, {"Hányás", first601}, {"Szédülés", first600}};
    db.ingredients = {{"amlodipin", first600}, {"bizoprolol", first601}, {"coffein", {}}};
    return db;
}

// Chooses the name list's line `index` and adds it to the drugs taken.
void addDrug(QWidget& form, int index, const char* list = "Gylist")
{
    control<QComboBox>(form, list)->setCurrentIndex(index);
    click(form, "GyToList");
}

const QString kNoFinding = "A vizsgálat nem talált kölcsönhatást és ellenjavallatot.";

}  // namespace

class TestEngineWindows : public QObject
{
    Q_OBJECT
private slots:
    // Twenty drugs and nineteen contraindications are taken; the same drug twice is silent.
    void interactionsTakeTwentyDrugsAndNineteenContraindications()
    {
        On<TKh> form(interactionDatabase());
        QCOMPARE(form.windowTitle().left(18), QString("Kölcsönhatás - ATC"));
        QVERIFY(form.windowTitle().endsWith("Help=F1"));
        QCOMPARE(textsOf(form, {"Ellenoriz", "GyToList", "EllToList"}),
                 (QStringList{"Szedett gyógszereket - ellenjavallatokat ellenőriz", "Listá&hoz ad >>",
                              "Listához a&d >>"}));
        QCOMPARE(control<QTreeWidget>(form, "ATCTree")->topLevelItemCount(), 2);
        addDrug(form, 0);
        addDrug(form, 0);
        auto* taken = control<QListWidget>(form, "KhSzedettGyList");
        QCOMPARE(taken->count(), 1);
        // A long name is cut with "…" in its line and shown whole in the line's tooltip.
        QCOMPARE(taken->textElideMode(), Qt::ElideRight);
        QCOMPARE(taken->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QCOMPARE(taken->item(0)->toolTip(), taken->item(0)->text());
        for (int i = 1; i < 21; ++i) addDrug(form, i);
        QCOMPARE(taken->count(), 20);
        QCOMPARE(form.messages.texts(), QStringList{"Legföljebb 20 gyógyszer adható"});
        QCOMPARE(form.messages.captions(), QStringList{"Kölcsönhatás vizsgálat"});
        form.messages.clear();
        auto* tree = control<QTreeWidget>(form, "EllTree");
        for (int index = 1; index < 22; ++index) {
            chooseNode(tree, index);
            click(form, "EllToList");
        }
        QCOMPARE(linesOf(form, "EllList").first(), QString("Első trimeszter"));
        QCOMPARE(linesOf(form, "EllList").size(), 19);
        QCOMPARE(form.messages.texts(), QStringList(2, "Legföljebb 20 ellenjavallat adható meg"));
        click(form, "EllListTorol");
        QCOMPARE(linesOf(form, "EllList"), QStringList{});
    }

    void interactionCheckShowsTheReportAndTheDrugsConcernedAlsoFromTheSideEffectWindow()
    {
        On<TKh> form(interactionDatabase());
        addDrug(form, 0);
        addDrug(form, 2);
        click(form, "Ellenoriz");
        QVERIFY(form.messages.texts().isEmpty());
        QCOMPARE(textOf(form, "EredmenyRtf"),
                 QString("Kölcsönhatások és ellenjavallatok vizsgálatának eredménye:\n\nALFA és GAMMA : \n\n "
                         "Óvatosan adhatók együtt!\n\n"));
        QCOMPARE(linesOf(form, "KhGyList"), (QStringList{"ALFA", "GAMMA"}));
        // Deleting a contraindication keeps the report; deleting a drug empties it.
        click(form, "KhSzGyListTorol");
        QCOMPARE(textOf(form, "EredmenyRtf"), QString());
        click(form, "KhSzGyTorol");  // empty list: nothing
        addDrug(form, 1);
        click(form, "Ellenoriz");
        QCOMPARE(form.messages.take(), QStringList{kNoFinding});
        // Deleting a drug needs a selected line.
        click(form, "KhSzGyTorol");
        QCOMPARE(form.messages.texts(), QStringList{"Jelölje ki a listáról törlendő gyógyszert!"});
        QVERIFY(form.messages.messages()[0].taskModal);
        control<QListWidget>(form, "KhSzedettGyList")->setCurrentRow(0);
        click(form, "KhSzGyTorol");
        QCOMPARE(form.state.selection.SzedettGyCount, 0);
        QCOMPARE(form.state.selection.SzedettGy[0], -1);
        form.messages.clear();

        // The side-effect window shares the selection: its showing resets the slots but keeps the count
        // (DrugSelection_test), and a drug added there counts in the interaction window too.
        TMh mh(form.state);
        addDrug(form, 0);
        addDrug(form, 1);
        mh.show();
        QCOMPARE(linesOf(mh, "MhSzedettGyList"), QStringList{});
        addDrug(mh, 2, "GyList");
        QCOMPARE(form.state.selection.SzedettGy[2], 2);
        click(form, "Ellenoriz");
        QCOMPARE(form.messages.texts(), QStringList{kNoFinding});
    }

    void interactionsAtcSearchListsTheGroupAndMegnezOpensTheLinesDrug()
    {
        On<TKh> form(interactionDatabase());
        std::vector<std::pair<int, QString>> shown;
        form.setDescriptionViewer(
            [&](std::int32_t record, const QString& caption) { shown.emplace_back(record, caption); });
        addDrug(form, 2);  // GAMMA taken: ALFA's careful code names it
        auto* tree = control<QTreeWidget>(form, "ATCTree");
        chooseNode(tree, 1);
        click(form, "ATCKeres");
        QCOMPARE(linesOf(form, "KhGyList"), (QStringList{"ALFA\t999999 !", "BÉTA\t999999"}));
        control<QListWidget>(form, "KhGyList")->setCurrentRow(1);
        click(form, "KhGyMegnez");
        QCOMPARE(shown, (std::vector<std::pair<int, QString>>{{1, "BÉTA\t999999"}}));
        chooseNode(tree, 2);  // another node empties the list
        QCOMPARE(linesOf(form, "KhGyList"), QStringList{});
    }

    void sideEffectSearchAmongAllOver600AndAmongTheDrugsTaken()
    {
        On<TMh> form(manyProducts());
        QCOMPARE(form.windowTitle().left(13), QString("Mellékhatások"));
        const auto search = [&form](int node) {
            auto* tree = control<QTreeWidget>(form, "MhTree");
            tree->setCurrentItem(tree->topLevelItem(node));
            click(form, "MhKeres");
            return linesOf(form, "MhGyList");
        };
        QCOMPARE(search(2).size(), 600);
        QVERIFY(form.messages.texts().isEmpty());
        QCOMPARE(search(0), (QStringList{"P103", "P107"}));
        // 601: a message, and the table still holds the previous search's result.
        QCOMPARE(search(1), (QStringList{"P103", "P107"}));
        QCOMPARE(form.messages.captions(), QStringList{"Mellékhatás keresés"});
        form.messages.clear();
        addDrug(form, 5, "GyList");
        QCOMPARE(linesOf(form, "MhGyList"), QStringList{});
        QCOMPARE(search(0), QStringList{});
        QCOMPARE(form.messages.texts(),
                 QStringList{"A szedett gyógyszerek közül egyik sem okozhatja ezt a mellékhatást."});
    }

    void ingredientsExactly600WithoutMessageAnd601WithItAndAClickedDrugIsDescribed()
    {
        On<THaForm> form(manyProducts());
        auto* list = control<QComboBox>(form, "HaList");
        const auto search = [&](int ingredient) {
            list->setCurrentIndex(ingredient);
            click(form, "HaKeres");
            return linesOf(form, "HaGyList");
        };
        QCOMPARE(list->count(), 3);
        QCOMPARE(search(0).size(), 600);
        QVERIFY(form.messages.texts().isEmpty());
        // A clicked line writes its drug's description.
        auto* found = control<QListWidget>(form, "HaGyList");
        QTest::mouseClick(found->viewport(), Qt::LeftButton, {},
                          found->visualItemRect(found->item(3)).center());
        QVERIFY2(textOf(form, "GyLeiro").startsWith("Készítmény: " + found->item(3)->text()),
                 qPrintable(textOf(form, "GyLeiro")));
        list->setCurrentIndex(1);
        QCOMPARE(found->count(), 0);  // choosing another ingredient empties the list
        QCOMPARE(search(1).size(), 600);
        QCOMPARE(form.messages.texts(),
                 QStringList{"Túl sok gyógyszer tartozik ide, csak a lista eleje látszik!"});
        QCOMPARE(form.messages.captions(), QStringList{QString()});
    }

    void regulationsTreeOrTextAndReopeningKeepsTheView()
    {
        DatabaseState fixture{EngineDatabase{}};
        const std::string saved = fixture.directory.read("rend2.ful");
        fixture.directory.remove("rend2.ful");
        Shown<TRend> form(fixture.state);
        auto* tree = control<QTreeWidget>(form, "RendeletTree");
        auto* text = control<QTextEdit>(form, "RendLeiro");
        QCOMPARE(tree->topLevelItemCount(), 0);  // a missing file leaves the window empty...
        form.hide();
        fixture.directory.write("rend2.ful", saved);
        form.show();  // ...and is tried again at the next showing
        QCOMPARE(linesOf(form, "RendeletTree"), QStringList{"Rendelet"});
        QCOMPARE(tree->topLevelItem(0)->child(0)->child(0)->text(0), QString("a) alpont"));
        QVERIFY(control<QRadioButton>(form, "RendeletFa")->isChecked());
        QVERIFY(tree->isVisible() && !text->isVisible());
        click(form, "RendeletSzovegesen");
        QVERIFY(!tree->isVisible() && text->isVisible());
        QCOMPARE(text->toPlainText(), QString("Rendelet\n\t1. pont\n\t\ta) alpont\n\t2. pont\n"));
        form.hide();
        fixture.directory.remove("rend2.ful");
        form.show();  // once loaded, kept
        QVERIFY(text->isVisible());
        QCOMPARE(tree->topLevelItemCount(), 1);
    }
};

QTEST_MAIN(TestEngineWindows)
#include "tst_EngineWindows.moc"
