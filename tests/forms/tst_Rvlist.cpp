// The drug list window and the shared description window driven by their control names on the
// six-product database.
#include <algorithm>

#include "app/IniFile.h"
#include "tests/forms/support/Windows.h"
#include "views/forms/Rvgykozos.h"
#include "views/forms/Rvlist.h"

namespace
{

// The six-product database, and the drug list window on it in a fresh profile.
struct DrugList : SixProductState {
    UserProfile profile;
    MessageRecorder messages;
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

}  // namespace

class TestRvlist : public QObject
{
    Q_OBJECT
private slots:
    void firstShowListsTheMedicinesAndReadsTheTtSetting()
    {
        DrugList list("XIGENX");  // "contains IGEN" is enough here
        QVERIFY(control<QRadioButton>(*list.form, "RBGyogyszer")->isChecked());
        auto* names = control<QComboBox>(*list.form, "Gylist");
        QCOMPARE(names->count(), 4);
        QCOMPARE(names->itemText(0), QString("ALFA 5 MG TABLETTA 30X"));
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
    }

    // What the levels and the lists hold, and in which order, is SameAtc_test's; here each lands in its
    // list with the found table in step.
    void choosingAProductShowsItsDescriptionLevelsAndSameAtcProducts()
    {
        DrugList list;
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
    }

    // The database folder is read-only in an installation and replaced by a refresh: the box writes the
    // user's RV.INI, and the folder's RV.INI only gives the value the user has not set.
    void ttBoxIsTheUsersSettingOverTheDatabaseFoldersDefault()
    {
        DrugList list("IGEN");
        const auto userIni = list.profile.directory().path() / "RV.INI";
        QVERIFY(control<QCheckBox>(*list.form, "TTNemKell")->isChecked());
        const auto writable = std::filesystem::status(list.directory).permissions();
        std::filesystem::permissions(list.directory,
                                     std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
        click(*list.form, "TTNemKell");
        std::filesystem::permissions(list.directory, writable);
        QCOMPARE(list.messages.texts(), QStringList{});
        QVERIFY(!list.state.hideDeleted);
        QCOMPARE(list.ttSetting(userIni), std::string("NEM"));
        QCOMPARE(list.ttSetting(list.directory / "RV.INI"), std::string("IGEN"));
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

    void c08PictureShowsOnlyWhilePictureDisplayIsOn()
    {
        DrugList list;
        QImage picture(40, 30, QImage::Format_RGB32);
        picture.fill(Qt::red);
        QVERIFY(picture.save(QString::fromStdString((list.directory / "r1.jpg").string())));
        list.open();  // again, with the picture there
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
};

QTEST_MAIN(TestRvlist)
#include "tst_Rvlist.moc"
