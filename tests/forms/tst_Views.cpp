// The views' windows driven by their control names: the drug list window and the shared description
// window on the six-product database; the interaction, side-effect, active-ingredient and regulations
// windows, each on a small database written for it.
#include <algorithm>
#include <numeric>

#include "app/IniFile.h"
#include "tests/forms/support/Windows.h"
#include "views/forms/Rvgykozos.h"
#include "views/forms/Rvha.h"
#include "views/forms/Rvkh.h"
#include "views/forms/Rvlist.h"
#include "views/forms/Rvmh.h"
#include "views/forms/Rvrend.h"

using rovanel::testing::EngineDatabase;

namespace
{

// The six-product database, and the drug list window on it in a fresh profile.
struct DrugList : SixProductState, WindowSurroundings {
    std::unique_ptr<TGylist> form;

    explicit DrugList(const char* ttValue = nullptr) { open(ttValue); }
    // Opens the window anew, the database's RV.INI holding `ttValue` for "TTNemKellLeirasba".
    void open(const char* ttValue = nullptr)
    {
        if (ttValue)
            QVERIFY(rovanel::writeProfileString(directory / "RV.INI", "Rovanel Beallitasok",
                                                "TTNemKellLeirasba", ttValue));
        form.reset();
        form = std::make_unique<TGylist>(state);
        form->show();
    }
    void choose(int index) const
    {
        auto* names = control<QComboBox>(*form, "Gylist");
        names->setCurrentIndex(index);
        emit names->activated(index);
    }
    [[nodiscard]] std::vector<std::int32_t> found() const
    {
        std::vector<std::int32_t> records;
        for (const auto& entry : state.found.entries()) records.push_back(entry.record);
        return records;
    }
    [[nodiscard]] bool describes(const QString& product) const
    {
        return textOf(*form, "Leiras1").startsWith("Készítmény: " + product);
    }
    [[nodiscard]] std::string ttSetting(const std::filesystem::path& ini) const
    {
        return rovanel::readProfileString(ini, "Rovanel Beallitasok", "TTNemKellLeirasba", "?");
    }
};

// The description window on the six-product database, showing `record`.
struct Description : On<TGyKozos, SixProductState> {
    QTextEdit* box = control<QTextEdit>(*this, "GyKozosLeiro");

    explicit Description(std::int32_t record, const char* caption)
    {
        showProduct(record, caption);
        QVERIFY(QTest::qWaitForWindowExposed(this));
    }
};

const QString kAlfa = "ALFA 5 MG TABLETTA 30X  13.3 Ft/nap";
const QString kBeta = "BETA 10 MG TABLETTA 30X  6.7 Ft/nap";
const QString kGamma = "GAMMA KAPSZULA 20X  N.á.";

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

class TestViews : public QObject
{
    Q_OBJECT
private slots:
    // What the levels and the lists hold, and in which order, is DescriptionBuilder_test's; here each lands
    // in its list with the found table in step.
    void choosingAProductShowsItsDescriptionLevelsAndSameAtcProducts()
    {
        DrugList list;
        QImage picture(40, 30, QImage::Format_RGB32);
        picture.fill(Qt::red);
        QVERIFY(picture.save(QString::fromStdString((list.directory / "r1.jpg").string())));
        list.open();  // again, with the picture there
        QVERIFY(!control<QCheckBox>(*list.form, "TTNemKell")->isChecked());
        list.choose(0);
        QVERIFY(list.describes("ALFA 5 MG"));
        QCOMPARE(linesOf(*list.form, "AzonAtc").last(), QString("C08CA01  amlodipin"));
        QCOMPARE(linesOf(*list.form, "AzonAtcNev"), (QStringList{kAlfa, kGamma}));
        QCOMPARE(list.found(), (std::vector<std::int32_t>{0, 2}));
        // A line of the same-ATC list shows its product and names it above; the list stays as it was.
        auto* same = control<QListWidget>(*list.form, "AzonAtcNev");
        same->setCurrentRow(1);
        QVERIFY(list.describes("GAMMA KAPSZULA 20X"));
        QCOMPARE(textOf(*list.form, "Gylist"), QString("GAMMA KAPSZULA 20X"));
        QCOMPARE(same->currentRow(), 1);
        QCOMPARE(linesOf(*list.form, "AzonAtcNev"), (QStringList{kAlfa, kGamma}));
        // A level lists its group; the order buttons sort the list and the found table together.
        control<QListWidget>(*list.form, "AzonAtc")->setCurrentRow(1);  // C08
        QCOMPARE(list.found(), (std::vector<std::int32_t>{1, 0, 2}));
        click(*list.form, "NameOrder");
        QCOMPARE(linesOf(*list.form, "AzonAtcNev"), (QStringList{kAlfa, kBeta, kGamma}));
        QCOMPARE(list.found(), (std::vector<std::int32_t>{0, 1, 2}));
        same->setCurrentRow(1);
        QVERIFY(list.describes("BETA"));
        click(*list.form, "PriceOrder");
        QCOMPARE(list.found(), (std::vector<std::int32_t>{1, 0, 2}));

        // The nutrition products map past the medicines and fill no levels.
        click(*list.form, "RBTapszer");
        QCOMPARE(textOf(*list.form, "Leiras1"), QString());
        QCOMPARE(linesOf(*list.form, "Gylist"), QStringList{"TAPSZER POR 400 G"});
        list.choose(0);  // record 4 = 0 + N - K1 - K2
        QVERIFY(list.describes("TAPSZER POR 400 G"));
        QCOMPARE(linesOf(*list.form, "AzonAtc") + linesOf(*list.form, "AzonAtcNev"), QStringList{});
        click(*list.form, "RBGyogyszer");
        QCOMPARE(linesOf(*list.form, "Gylist").size(), 4);

        // The C08 picture shows only while the picture display is on.
        auto* box = control<QTextEdit>(*list.form, "Leiras1");
        auto* image = control<QLabel>(*list.form, "RgImage1");
        const int fullHeight = box->height();
        list.choose(0);  // C08, but the display is off after the first showing
        QVERIFY(!image->isVisible());
        list.form->setPictureDisplay(true);
        list.choose(0);
        QVERIFY(image->isVisible());
        QTRY_COMPARE(box->height(), fullHeight - (30 + 10));
        list.choose(3);  // A01
        QVERIFY(!image->isVisible());
        QTRY_COMPARE(box->height(), fullHeight);
    }

    // The first showing lists the medicines, names none, and reads the TT setting. The database folder is
    // read-only in an installation and replaced by a refresh: the box writes the user's RV.INI, and the
    // folder's RV.INI only gives the value the user has not set.
    void firstShowReadsTheTtSettingAndTheBoxWritesTheUsersOverTheFoldersDefault()
    {
        DrugList list("XIGENX");  // "contains IGEN" is enough here
        QVERIFY(control<QRadioButton>(*list.form, "RBGyogyszer")->isChecked());
        auto* names = control<QComboBox>(*list.form, "Gylist");
        QCOMPARE(linesOf(*names->model()), (QStringList{"ALFA 5 MG TABLETTA 30X", "BETA 10 MG TABLETTA 30X",
                                                        "GAMMA KAPSZULA 20X", "DELTA OLDAT 100 ML"}));
        // No product is named before one is chosen: never a name over an empty box.
        QCOMPARE(names->currentIndex(), -1);
        QCOMPARE(names->currentText(), QString());
        QVERIFY(control<QCheckBox>(*list.form, "TTNemKell")->isChecked());
        QVERIFY(list.state.hideDeleted);
        QCOMPARE(textsOf(*list.form, {"TTNemKell", "PriceOrder", "NameOrder", "JumpHa", "JumpEll"}),
                 (QStringList{"Törzskönyvből törölt kiszerlés nem kell", "Ár szerint", "Név szerint rendezve",
                              "&Hatóa.", "&Ellenjav."}));
        // Nothing chosen yet: no description, no levels.
        QCOMPARE(textOf(*list.form, "Leiras1"), QString());
        QCOMPARE(linesOf(*list.form, "AzonAtc"), QStringList{});
        const auto userIni = list.profile.directory().path() / "RV.INI";
        const auto writable = std::filesystem::status(list.directory).permissions();
        std::filesystem::permissions(list.directory,
                                     std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
        click(*list.form, "TTNemKell");
        std::filesystem::permissions(list.directory, writable);
        QCOMPARE(list.messages.texts(), QStringList{});
        QVERIFY(!list.state.hideDeleted);
        QCOMPARE(list.ttSetting(userIni), std::string("NEM"));
        QCOMPARE(list.ttSetting(list.directory / "RV.INI"), std::string("XIGENX"));
        list.choose(0);
        QVERIFY(std::ranges::count(list.found(), 2) == 1);
        click(*list.form, "TTNemKell");
        QCOMPARE(list.ttSetting(userIni), std::string("IGEN"));
        list.choose(0);
        QCOMPARE(list.found(), (std::vector<std::int32_t>{0}));  // GAMMA is deleted
        // The user's value wins over the folder's at the next start.
        QVERIFY(rovanel::writeProfileString(userIni, "Rovanel Beallitasok", "TTNemKellLeirasba", "NEM"));
        list.open("IGEN");
        QVERIFY(!control<QCheckBox>(*list.form, "TTNemKell")->isChecked());
    }

    void descriptionWindowShowsTheProductUnderItsButtonsAndSearchesCaseSensitively()
    {
        Description shown(0, "ALFA 5 MG TABLETTA 30X");
        QCOMPARE(shown.size(), QSize(721, 572));
        // The buttons sit in one row under the box, with whole captions.
        const auto buttons = {"JumpAtc", "JumpHa", "JumpJav", "JumpAdag", "JumpBetegnek",
                              "JumpEll", "JumpMh", "JumpOv",  "JumpTil",  "JumpMer"};
        QCOMPARE(textsOf(shown, buttons),
                 (QStringList{"&Atc", "&Hatóanyag", "&Javallatok", "A&dagolás", "&Betegnek", "&Ellenjavallat",
                              "&Mellékhatás", "Ó&vatosan", "&Tilos", "&Mérgezés"}));
        const int boxBottom = shown.box->mapTo(&shown, QPoint(0, 0)).y() + shown.box->height() - 1;
        int right = -1;
        for (const char* name : buttons) {
            const auto* button = control<QPushButton>(shown, name);
            const QRect place(button->mapTo(&shown, QPoint(0, 0)), button->size());
            const QString caption = button->text().remove('&');
            QVERIFY2(place.left() > right && place.top() > boxBottom &&
                         button->width() > button->fontMetrics().horizontalAdvance(caption),
                     name);
            right = place.right();
        }
        QVERIFY(right < shown.width());
        QCOMPARE(shown.windowTitle(), QString("ALFA 5 MG TABLETTA 30X"));
        QVERIFY(shown.box->toPlainText().startsWith("Készítmény: ALFA 5 MG TABLETTA 30X\n"));
        QCOMPARE(shown.box->textCursor().position(), 0);
        shown.hide();
        shown.showProduct(3, "DELTA");
        QVERIFY(shown.isVisible());
        QVERIFY(shown.box->toPlainText().startsWith("Készítmény: DELTA OLDAT 100 ML\n"));
        QVERIFY(!shown.box->toPlainText().contains("ALFA"));
        shown.showProduct(-1, "semmi");
        QCOMPARE(shown.box->toPlainText(), QString());

        // The search is case sensitive and the cut headings stay cut; the description boxes of the drug
        // list and the active-ingredient window are this same kit box, with the same right-click notice.
        shown.showProduct(0, "ALFA");
        shown.SearchRtf("atc");
        QCOMPARE(shown.box->textCursor().position(), 0);
        QTest::mouseClick(shown.box->viewport(), Qt::LeftButton);
        QCOMPARE(shown.messages.texts(), QStringList());
        QTest::mousePress(shown.box->viewport(), Qt::RightButton);
        QCOMPARE(shown.messages.texts(),
                 QStringList{"Változás: Receptnyomtatás a -Részletes lista- menüpont alatt."});
        QCOMPARE(shown.messages.captions(), QStringList{QString()});
        shown.box->setPlainText("Együttadása kerülend\nMérgezés esetén teend");
        click(shown, "JumpMer");
        QCOMPARE(shown.box->textCursor().position(), 21);
    }

    // A jump button puts its heading at the top of the box; one whose heading is not there changes
    // nothing.
    void descriptionJumpFindsItsHeadingOrChangesNothing_data()
    {
        QTest::addColumn<int>("record");
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("heading");  // empty: none
        QTest::newRow("JumpJav") << 0 << "JumpJav" << QString("Javallatok:");
        // The avoid heading is found by its beginning, which stops before the "ő".
        QTest::newRow("JumpTil") << 0 << "JumpTil" << QString("Együttadása kerülendő:");
        for (const char* button : {"JumpOv", "JumpTil", "JumpMer", "JumpEll", "JumpMh"})  // BETA has none
            QTest::addRow("BETA %s", button) << 1 << QString(button) << QString();
    }

    void descriptionJumpFindsItsHeadingOrChangesNothing()
    {
        QFETCH(int, record);
        QFETCH(QString, button);
        QFETCH(QString, heading);
        const Description shown(record, "ALFA");
        QTextCursor cursor = shown.box->textCursor();
        cursor.setPosition(20);
        shown.box->setTextCursor(cursor);
        const int scroll = shown.box->verticalScrollBar()->value();
        click(shown, qPrintable(button));
        if (heading.isEmpty()) {
            QCOMPARE(shown.box->textCursor().position(), 20);
            QCOMPARE(shown.box->verticalScrollBar()->value(), scroll);
            return;
        }
        QVERIFY(shown.box->toPlainText().indexOf(heading) > 0);
        QCOMPARE(shown.box->textCursor().position(), shown.box->toPlainText().indexOf(heading));
        QVERIFY(shown.box->hasFocus());
        if (button != "JumpJav") return;
        // Scrolled to the end first, then back up: the heading stands at the top of the box, not at its
        // bottom.
        QVERIFY(shown.box->verticalScrollBar()->value() > 0);
        QVERIFY2(shown.box->cursorRect().top() < 30,
                 qPrintable(QString::number(shown.box->cursorRect().top())));
    }

    // Twenty drugs and nineteen contraindications are taken; the same drug twice is silent.
    void interactionsTakeTwentyDrugsAndNineteenContraindicationsAndSearchByAtc()
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

        // The ATC search lists the group (GAMMA is taken: ALFA's careful code names it); "Megnéz" opens the
        // line's drug.
        std::vector<std::pair<int, QString>> shown;
        form.setDescriptionViewer(
            [&](std::int32_t record, const QString& caption) { shown.emplace_back(record, caption); });
        auto* atc = control<QTreeWidget>(form, "ATCTree");
        chooseNode(atc, 1);
        click(form, "ATCKeres");
        QCOMPARE(linesOf(form, "KhGyList"), (QStringList{"ALFA\t999999 !", "BÉTA\t999999"}));
        control<QListWidget>(form, "KhGyList")->setCurrentRow(1);
        click(form, "KhGyMegnez");
        QCOMPARE(shown, (std::vector<std::pair<int, QString>>{{1, "BÉTA\t999999"}}));
        chooseNode(atc, 2);  // another node empties the list
        QCOMPARE(linesOf(form, "KhGyList"), QStringList{});
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
        // (Interaction_test), and a drug added there counts in the interaction window too.
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

    void sideEffectAndIngredientSearchesShowAtMost600AndSideEffectsAmongTheDrugsTaken()
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

        // The active ingredients: exactly 600 without a message, 601 with it; a clicked drug is described.
        Shown<THaForm> ingredients(form.state);
        auto* list = control<QComboBox>(ingredients, "HaList");
        const auto searchIngredient = [&ingredients, list](int ingredient) {
            list->setCurrentIndex(ingredient);
            click(ingredients, "HaKeres");
            return linesOf(ingredients, "HaGyList");
        };
        QCOMPARE(list->count(), 3);
        QCOMPARE(searchIngredient(0).size(), 600);
        QVERIFY(ingredients.messages.texts().isEmpty());
        // A clicked line writes its drug's description.
        auto* found = control<QListWidget>(ingredients, "HaGyList");
        QTest::mouseClick(found->viewport(), Qt::LeftButton, {},
                          found->visualItemRect(found->item(3)).center());
        QVERIFY2(textOf(ingredients, "GyLeiro").startsWith("Készítmény: " + found->item(3)->text()),
                 qPrintable(textOf(ingredients, "GyLeiro")));
        list->setCurrentIndex(1);
        QCOMPARE(found->count(), 0);  // choosing another ingredient empties the list
        QCOMPARE(searchIngredient(1).size(), 600);
        QCOMPARE(ingredients.messages.texts(),
                 QStringList{"Túl sok gyógyszer tartozik ide, csak a lista eleje látszik!"});
        QCOMPARE(ingredients.messages.captions(), QStringList{QString()});
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

QTEST_MAIN(TestViews)
#include "tst_Views.moc"
