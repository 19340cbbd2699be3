// The drug list window driven by its control names on the six-product database.
#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTextEdit>
#include <QtTest>
#include <algorithm>

#include "app/IniFile.h"
#include "db/SharedState.h"
#include "tests/fixtures/SixProductDatabase.h"
#include "tests/forms/support/Controls.h"
#include "tests/forms/support/MessageRecorder.h"
#include "tests/forms/support/UserProfile.h"
#include "views/forms/Rvlist.h"

namespace
{

QStringList items(QListWidget* list)
{
    QStringList texts;
    for (int i = 0; i < list->count(); ++i) texts << list->item(i)->text();
    return texts;
}

std::vector<std::int32_t> foundRecords(const rovanel::SharedState& state)
{
    std::vector<std::int32_t> records;
    for (const auto& entry : state.found.entries()) records.push_back(entry.record);
    return records;
}

}  // namespace

class TestRvlist : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void firstShowListsTheMedicinesAndReadsTheTtSetting();
    void choosingAMedicineShowsItsDescriptionLevelsAndSameAtcProducts();
    void threeLevelsAndTheFirstLevelListsTheWholeLetter();
    void priceAndNameOrderKeepTheFoundTableInStep();
    void nutritionProductsMapPastTheMedicinesAndFillNoLevels();
    void ttBoxIsTheUsersSettingOverTheDatabaseFoldersDefault();
    void jumpButtonsAndRightClickWorkOnTheDescription();
    void c08PictureShowsOnlyWhilePictureDisplayIsOn();
    void windowFitsA1366By768Screen_data();
    void windowFitsA1366By768Screen();

private:
    void open(const char* ttValue = nullptr);
    void choose(int index);
    template <typename T>
    T* control(const char* name)
    {
        return ::control<T>(*m_form, name);
    }

    UserProfile m_profile;
    std::unique_ptr<rovanel::testing::SixProductDatabase> m_database;
    std::unique_ptr<rovanel::SharedState> m_state;
    std::unique_ptr<TGylist> m_form;
    std::filesystem::path m_directory;
};

void TestRvlist::init()
{
    m_database = std::make_unique<rovanel::testing::SixProductDatabase>();
    m_directory = m_database->write();
    m_state = std::make_unique<rovanel::SharedState>();
    m_state->tables = rovanel::loadStartupTables(m_directory, m_directory / "no-user.ini");
}

void TestRvlist::cleanup()
{
    m_form.reset();
    m_state.reset();
    m_database.reset();
}

void TestRvlist::open(const char* ttValue)
{
    if (ttValue)
        QVERIFY(rovanel::writeProfileString(m_directory / "RV.INI", "Rovanel Beallitasok",
                                            "TTNemKellLeirasba", ttValue));
    m_form = std::make_unique<TGylist>(*m_state);
    m_form->show();
}

void TestRvlist::choose(int index)
{
    auto* names = control<QComboBox>("Gylist");
    names->setCurrentIndex(index);
    emit names->activated(index);
}

void TestRvlist::firstShowListsTheMedicinesAndReadsTheTtSetting()
{
    open("XIGENX");  // "contains IGEN" is enough here
    QVERIFY(control<QRadioButton>("RBGyogyszer")->isChecked());
    auto* names = control<QComboBox>("Gylist");
    QCOMPARE(names->count(), 4);
    QCOMPARE(names->itemText(0), QString("ALFA 5 MG TABLETTA 30X"));
    // No product is named before one is chosen: never a name over an empty box.
    QCOMPARE(names->currentIndex(), -1);
    QCOMPARE(names->currentText(), QString());
    QVERIFY(control<QCheckBox>("TTNemKell")->isChecked());
    QVERIFY(m_state->hideDeleted);
    const std::pair<const char*, const char*> captions[] = {
        {"TTNemKell", "Törzskönyvből törölt kiszerlés nem kell"},
        {"PriceOrder", "Ár szerint"},
        {"NameOrder", "Név szerint rendezve"},
        {"JumpHa", "&Hatóa."},
        {"JumpEll", "&Ellenjav."}};
    for (const auto& [name, caption] : captions)
        QCOMPARE(control<QWidget>(name)->property("text").toString(), QString::fromUtf8(caption));
    // Nothing chosen yet: no description, no levels.
    QCOMPARE(control<QTextEdit>("Leiras1")->toPlainText(), QString());
    QCOMPARE(control<QListWidget>("AzonAtc")->count(), 0);
}

void TestRvlist::choosingAMedicineShowsItsDescriptionLevelsAndSameAtcProducts()
{
    open();
    QVERIFY(!control<QCheckBox>("TTNemKell")->isChecked());
    choose(0);
    QVERIFY(
        control<QTextEdit>("Leiras1")->toPlainText().startsWith(QString::fromUtf8("Készítmény: ALFA 5 MG")));
    QCOMPARE(items(control<QListWidget>("AzonAtc")),
             (QStringList{QString::fromUtf8("C  Szív- és érrendszer"),
                          QString::fromUtf8("C08  Kalciumcsatorna-blokkolók"),
                          QString::fromUtf8("C08C  Szelektív kalciumcsatorna-blokkolók"),
                          QString::fromUtf8("C08CA  Dihidropiridin-származékok"),
                          QString::fromUtf8("C08CA01  amlodipin")}));
    QCOMPARE(
        items(control<QListWidget>("AzonAtcNev")),
        (QStringList{"ALFA 5 MG TABLETTA 30X  13.3 Ft/nap", QString::fromUtf8("GAMMA KAPSZULA 20X  N.á.")}));
    QCOMPARE(foundRecords(*m_state), (std::vector<std::int32_t>{0, 2}));
    // A line of the same-ATC list shows its product and names it above; the list stays as it was.
    control<QListWidget>("AzonAtcNev")->setCurrentRow(1);
    QVERIFY(control<QTextEdit>("Leiras1")->toPlainText().startsWith(
        QString::fromUtf8("Készítmény: GAMMA KAPSZULA 20X")));
    QCOMPARE(control<QComboBox>("Gylist")->currentText(), QString("GAMMA KAPSZULA 20X"));
    QCOMPARE(control<QListWidget>("AzonAtcNev")->currentRow(), 1);
    QCOMPARE(control<QListWidget>("AzonAtcNev")->count(), 2);
}

void TestRvlist::threeLevelsAndTheFirstLevelListsTheWholeLetter()
{
    open();
    choose(3);  // DELTA: A01A and A01AA- are no groups
    QCOMPARE(control<QListWidget>("AzonAtc")->count(), 3);
    choose(1);
    control<QListWidget>("AzonAtc")->setCurrentRow(0);
    QCOMPARE(foundRecords(*m_state), (std::vector<std::int32_t>{1, 0, 2}));  // every product of "C"
    QCOMPARE(control<QListWidget>("AzonAtcNev")->count(), 3);
}

void TestRvlist::priceAndNameOrderKeepTheFoundTableInStep()
{
    open();
    choose(0);
    control<QListWidget>("AzonAtc")->setCurrentRow(1);  // C08
    QCOMPARE(items(control<QListWidget>("AzonAtcNev")),
             (QStringList{"BETA 10 MG TABLETTA 30X  6.7 Ft/nap", "ALFA 5 MG TABLETTA 30X  13.3 Ft/nap",
                          QString::fromUtf8("GAMMA KAPSZULA 20X  N.á.")}));
    QTest::mouseClick(control<QRadioButton>("NameOrder"), Qt::LeftButton);
    QCOMPARE(items(control<QListWidget>("AzonAtcNev")),
             (QStringList{"ALFA 5 MG TABLETTA 30X  13.3 Ft/nap", "BETA 10 MG TABLETTA 30X  6.7 Ft/nap",
                          QString::fromUtf8("GAMMA KAPSZULA 20X  N.á.")}));
    QCOMPARE(foundRecords(*m_state), (std::vector<std::int32_t>{0, 1, 2}));
    control<QListWidget>("AzonAtcNev")->setCurrentRow(1);
    QVERIFY(control<QTextEdit>("Leiras1")->toPlainText().startsWith(QString::fromUtf8("Készítmény: BETA")));
    QTest::mouseClick(control<QRadioButton>("PriceOrder"), Qt::LeftButton);
    QCOMPARE(foundRecords(*m_state), (std::vector<std::int32_t>{1, 0, 2}));
}

void TestRvlist::nutritionProductsMapPastTheMedicinesAndFillNoLevels()
{
    open();
    choose(0);
    QTest::mouseClick(control<QRadioButton>("RBTapszer"), Qt::LeftButton);
    QCOMPARE(control<QTextEdit>("Leiras1")->toPlainText(), QString());
    auto* names = control<QComboBox>("Gylist");
    QCOMPARE(names->count(), 1);
    choose(0);  // record 4 = 0 + N - K1 - K2
    QVERIFY(control<QTextEdit>("Leiras1")->toPlainText().startsWith("Készítmény: TAPSZER POR 400 G"));
    QCOMPARE(control<QListWidget>("AzonAtc")->count(), 0);
    QCOMPARE(control<QListWidget>("AzonAtcNev")->count(), 0);
    QTest::mouseClick(control<QRadioButton>("RBGyogyszer"), Qt::LeftButton);
    QCOMPARE(names->count(), 4);
}

// The database folder is read-only in an installation and replaced by a refresh: the box writes the
// user's RV.INI, and the folder's RV.INI only gives the value the user has not set.
void TestRvlist::ttBoxIsTheUsersSettingOverTheDatabaseFoldersDefault()
{
    const auto userIni = m_profile.directory().path() / "RV.INI";
    const auto databaseIni = m_directory / "RV.INI";
    open("IGEN");
    QVERIFY(control<QCheckBox>("TTNemKell")->isChecked());
    const auto writable = std::filesystem::status(m_directory).permissions();
    std::filesystem::permissions(m_directory,
                                 std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
    MessageRecorder messages;
    QTest::mouseClick(control<QCheckBox>("TTNemKell"), Qt::LeftButton);
    std::filesystem::permissions(m_directory, writable);
    QCOMPARE(messages.texts(), QStringList{});
    QVERIFY(!m_state->hideDeleted);
    QCOMPARE(rovanel::readProfileString(userIni, "Rovanel Beallitasok", "TTNemKellLeirasba", "?"),
             std::string("NEM"));
    QCOMPARE(rovanel::readProfileString(databaseIni, "Rovanel Beallitasok", "TTNemKellLeirasba", "?"),
             std::string("IGEN"));
    choose(0);
    QVERIFY(std::ranges::count(foundRecords(*m_state), 2) == 1);
    QTest::mouseClick(control<QCheckBox>("TTNemKell"), Qt::LeftButton);
    QCOMPARE(rovanel::readProfileString(userIni, "Rovanel Beallitasok", "TTNemKellLeirasba", "?"),
             std::string("IGEN"));
    choose(0);
    QCOMPARE(foundRecords(*m_state), (std::vector<std::int32_t>{0}));  // GAMMA is deleted

    // The user's value wins over the folder's at the next start.
    QVERIFY(rovanel::writeProfileString(userIni, "Rovanel Beallitasok", "TTNemKellLeirasba", "NEM"));
    open("IGEN");
    QVERIFY(!control<QCheckBox>("TTNemKell")->isChecked());
}

void TestRvlist::jumpButtonsAndRightClickWorkOnTheDescription()
{
    open();
    QVERIFY(QTest::qWaitForWindowExposed(m_form.get()));
    choose(0);
    auto* box = control<QTextEdit>("Leiras1");
    QTest::mouseClick(control<QPushButton>("JumpOv"), Qt::LeftButton);
    QCOMPARE(box->textCursor().position(),
             box->toPlainText().indexOf(QString::fromUtf8("Óvatosan együttadható:")));
    choose(1);  // BETA has no poisoning section
    QTest::mouseClick(control<QPushButton>("JumpMer"), Qt::LeftButton);
    QCOMPARE(box->textCursor().position(), 0);
    MessageRecorder messages;
    QTest::mousePress(box->viewport(), Qt::RightButton);
    QCOMPARE(messages.texts(),
             QStringList{QString::fromUtf8("Változás: Receptnyomtatás a -Részletes lista- menüpont alatt.")});
}

void TestRvlist::c08PictureShowsOnlyWhilePictureDisplayIsOn()
{
    QImage picture(40, 30, QImage::Format_RGB32);
    picture.fill(Qt::red);
    QVERIFY(picture.save(QString::fromStdString((m_directory / "r1.jpg").string())));
    open();
    auto* box = control<QTextEdit>("Leiras1");
    auto* image = control<QLabel>("RgImage1");
    const int fullHeight = box->height();
    choose(0);  // C08, but the display is off after the first showing
    QVERIFY(!image->isVisible());
    m_form->setPictureDisplay(true);
    choose(0);
    QVERIFY(image->isVisible());
    QTRY_COMPARE(box->height(), fullHeight - (30 + 10));
    choose(3);  // A01
    QVERIFY(!image->isVisible());
    QTRY_COMPARE(box->height(), fullHeight);
}

// A 1366×768 screen less its task bar, at 100 % and at 150 % (QT_SCALE_FACTOR=1.5: 910 logical pixels
// across): the window takes the whole screen and no caption is cut.
void TestRvlist::windowFitsA1366By768Screen_data()
{
    QTest::addColumn<QSize>("screen");
    QTest::newRow("100 %") << QSize(1366, 738);
    QTest::newRow("150 %") << QSize(910, 492);
}

void TestRvlist::windowFitsA1366By768Screen()
{
    QFETCH(QSize, screen);
    open();
    choose(0);
    m_form->resize(screen);
    QCOMPARE(m_form->size(), screen);
    // A button's least width is its caption's (the jump buttons set theirs below the style's default).
    for (const QAbstractButton* button : m_form->findChildren<QAbstractButton*>()) {
        const int least = button->minimumWidth() > 0 ? button->minimumWidth() : button->sizeHint().width();
        QVERIFY2(button->width() >= least, qPrintable(button->objectName()));
    }
}

QTEST_MAIN(TestRvlist)
#include "tst_Rvlist.moc"
