// The detailed list window driven as a user drives it: by control name, offscreen.
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTest>
#include <QTreeWidget>

#include "app/IniFile.h"
#include "app/RegistrySettings.h"
#include "app/UserPaths.h"
#include "db/DataFile.h"
#include "pricelist/forms/Rvref.h"
#include "tests/forms/support/Controls.h"
#include "tests/forms/support/EngineWindows.h"
#include "tests/forms/support/MessageRecorder.h"
#include "tests/support/DetailedListDatabase.h"

class TestRvref : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void opensWithEveryControlAndColumn();
    void treeDoubleClickListsTheGroupSortedByItsDailyCost();
    void codeSearch_data();
    void codeSearch();
    void textSearchWalksTheTree();
    void pickingAProductListsItsGroup();
    void ttPackagesHiddenOnlyForExactlyIgen_data();
    void ttPackagesHiddenOnlyForExactlyIgen();
    void columnWidthsAreSavedAndRestored();
    void kgyAddAppendsTheSelectedRowAndDoubleClickOpensItsDescription();

private:
    template <typename T>
    T* child(const char* name, const char* file = __builtin_FILE(), int line = __builtin_LINE())
    {
        return control<T>(*m_form, name, file, line);
    }
    void doubleClickNode(int node);
    static void doubleClick(QWidget* viewport, QPoint at);
    void selectRow(const QString& name);
    [[nodiscard]] QStringList names();
    [[nodiscard]] QString header(int column);

    std::unique_ptr<EngineWindowState> m_window;
    std::unique_ptr<rovanel::testing::ScratchDirectory> m_config;
    std::unique_ptr<rovanel::RegistryStore> m_registry;
    std::unique_ptr<TRefForm> m_form;
};

void TestRvref::init()
{
    m_window = std::make_unique<EngineWindowState>(rovanel::testing::detailedListDatabase());
    m_config = std::make_unique<rovanel::testing::ScratchDirectory>();
    qputenv("ROVANEL_CONFIG_DIR", QByteArray::fromStdString(m_config->path().string()));
    m_registry = rovanel::openRegistryFile(m_config->path() / "registry.ini");
    QVERIFY(!rovanel::EnsureRegistryDefaults(*m_registry));
    m_form = std::make_unique<TRefForm>(m_window->state, *m_registry);
    m_form->show();
}

void TestRvref::cleanup()
{
    m_form.reset();
    m_registry.reset();
    m_config.reset();
    m_window.reset();
}

void TestRvref::doubleClickNode(int node)
{
    auto* tree = child<QTreeWidget>("AtcTree");
    QTreeWidgetItem* item = nullptr;
    for (QTreeWidgetItemIterator it(tree); *it; ++it)
        if ((*it)->data(0, Qt::UserRole).toInt() == node) item = *it;
    QVERIFY(item);
    for (QTreeWidgetItem* parent = item->parent(); parent; parent = parent->parent())
        parent->setExpanded(true);
    tree->scrollToItem(item);
    tree->setCurrentItem(item);
    doubleClick(tree->viewport(), tree->visualItemRect(item).center());
}

// A double click is the press of a click followed by the second press.
void TestRvref::doubleClick(QWidget* viewport, QPoint at)
{
    QTest::mousePress(viewport, Qt::LeftButton, {}, at);
    QTest::mouseRelease(viewport, Qt::LeftButton, {}, at);
    QTest::mouseDClick(viewport, Qt::LeftButton, {}, at);
}

void TestRvref::selectRow(const QString& name)
{
    auto* list = child<QTableView>("RefLst");
    for (int row = 0; row < list->model()->rowCount(); ++row)
        if (list->model()->index(row, 0).data().toString() == name) {
            list->selectRow(row);
            return;
        }
    QFAIL("row not listed");
}

QStringList TestRvref::names()
{
    auto* model = child<QTableView>("RefLst")->model();
    QStringList result;
    for (int row = 0; row < model->rowCount(); ++row) result << model->index(row, 0).data().toString();
    return result;
}

QString TestRvref::header(int column)
{
    return child<QTableView>("RefLst")->model()->headerData(column, Qt::Horizontal).toString();
}

void TestRvref::opensWithEveryControlAndColumn()
{
    QCOMPARE(m_form->windowTitle(), QString("Részletes lista"));
    QCOMPARE(child<QTableView>("RefLst")->model()->columnCount(), 35);
    QCOMPARE(header(0), QString("Név - kiszerelés"));
    QCOMPARE(header(26), QString("Új"));
    // The widths come from the settings (RefColWidth\0 = 229 by default).
    QCOMPARE(child<QTableView>("RefLst")->horizontalHeader()->sectionSize(0), 229);
    QCOMPARE(child<QTreeWidget>("AtcTree")->topLevelItemCount(), 2);
    QCOMPARE(child<QComboBox>("Gylist")->count(), 8);
}

void TestRvref::treeDoubleClickListsTheGroupSortedByItsDailyCost()
{
    MessageRecorder messages;
    doubleClickNode(4);  // C08CA-01
    QCOMPARE(names(), (QStringList{"GAMMA 5 MG", "DELTA 5 MG", "ALFA 5 MG", "BETA 5 MG"}));
    QCOMPARE(header(4), QString("*NK alap*"));
    auto* norm = child<QPushButton>("TfxNorm");
    QVERIFY(norm->isEnabled());
    QCOMPARE(norm->text(), QString("Normatív TFX azonosak listázása"));
    QVERIFY(!child<QPushButton>("TfxTerkot")->isEnabled());
    auto* headerView = child<QTableView>("RefLst")->horizontalHeader();
    QVERIFY(headerView->isSectionHidden(21));  // gyidx
    QVERIFY(headerView->isSectionHidden(7));   // no increased support in this group
    QVERIFY(!headerView->isSectionHidden(4));
    QCOMPARE(child<QTableView>("RefLst")->model()->index(2, 4).data().toString(), QString("20.0"));
    QVERIFY(messages.texts().isEmpty());
    // The fixed-group button needs a selected row, then lists ALFA's group and disables itself.
    QTest::mouseClick(norm, Qt::LeftButton);
    QCOMPARE(messages.texts(), QStringList{"Jelöljön ki egy készítményt az alsó listából"});
    selectRow("ALFA 5 MG");
    QTest::mouseClick(norm, Qt::LeftButton);
    QCOMPARE(names(), (QStringList{"ALFA 5 MG", "EPSZILON 5 MG", "BETA 5 MG"}));
    QVERIFY(!norm->isEnabled());
}

void TestRvref::codeSearch_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QStringList>("listed");
    QTest::addColumn<QStringList>("messages");
    QTest::newRow("international code in lower case")
        << "c08ca02" << QStringList{"EPSZILON 5 MG", "ZETA 5 MG", "ETA 5 MG"} << QStringList{};
    QTest::newRow("unknown code") << "C08CA03" << QStringList{} << QStringList{"Hibás ATC kód!"};
    QTest::newRow("empty group") << "N" << QStringList{} << QStringList{"Nincs ilyen,vagy minden kiszer. TT"};
}

void TestRvref::codeSearch()
{
    QFETCH(QString, typed);
    QFETCH(QStringList, listed);
    QFETCH(QStringList, messages);
    MessageRecorder recorder;
    QTest::keyClicks(child<QLineEdit>("AtcKodEdt"), typed);
    QCOMPARE(child<QLineEdit>("AtcKodEdt")->text(), typed.toUpper());
    QTest::mouseClick(child<QPushButton>("AtcKodKeres"), Qt::LeftButton);
    QCOMPARE(names(), listed);
    QCOMPARE(recorder.texts(), messages);
}

void TestRvref::textSearchWalksTheTree()
{
    MessageRecorder messages;
    auto* next = child<QPushButton>("AtcTxtNext");
    QTest::keyClicks(child<QLineEdit>("AtcTxtEdt"), "DIPIN");
    QVERIFY(!next->isEnabled());
    QTest::mouseClick(child<QPushButton>("AtcTxtKeres"), Qt::LeftButton);
    QCOMPARE(child<QTreeWidget>("AtcTree")->currentItem()->text(0), QString("amlodipin (C08CA-01)"));
    QCOMPARE(names().size(), 4);
    QVERIFY(next->isEnabled());
    QTest::mouseClick(next, Qt::LeftButton);
    QCOMPARE(child<QTreeWidget>("AtcTree")->currentItem()->text(0), QString("felodipin (C08CA-02)"));
    QCOMPARE(names().size(), 3);
    QTest::mouseClick(next, Qt::LeftButton);
    QCOMPARE(messages.texts(), QStringList{"Nincs több!"});
    QTest::keyClicks(child<QLineEdit>("AtcTxtEdt"), "xyz");
    QVERIFY(!next->isEnabled());
    QTest::mouseClick(child<QPushButton>("AtcTxtKeres"), Qt::LeftButton);
    QCOMPARE(messages.texts(), (QStringList{"Nincs több!", "Nem található!"}));
}

void TestRvref::pickingAProductListsItsGroup()
{
    auto* gylist = child<QComboBox>("Gylist");
    pickByTyping(gylist, "szilon");  // any part of the name, any case
    QCOMPARE(gylist->currentText(), QString("EPSZILON 5 MG"));
    QCOMPARE(child<QTreeWidget>("AtcTree")->currentItem()->text(0), QString("felodipin (C08CA-02)"));
    QCOMPARE(names(), (QStringList{"EPSZILON 5 MG", "ZETA 5 MG", "ETA 5 MG"}));
}

void TestRvref::ttPackagesHiddenOnlyForExactlyIgen_data()
{
    QTest::addColumn<QString>("databaseValue");
    QTest::addColumn<QString>("userValue");
    QTest::addColumn<QStringList>("listed");
    const QStringList all{"EPSZILON 5 MG", "ZETA 5 MG", "ETA 5 MG"};
    const QStringList withoutTt{"EPSZILON 5 MG", "ETA 5 MG"};
    QTest::newRow("the user's IGEN") << "NEM"
                                     << "IGEN" << withoutTt;
    QTest::newRow("the database's IGEN, the user's unset") << "IGEN"
                                                           << "" << withoutTt;
    QTest::newRow("the user's NEM over the database's IGEN") << "IGEN"
                                                             << "NEM" << all;
    QTest::newRow("a value that only holds IGEN") << ""
                                                  << "NEMIGEN" << all;
}

// The description window's check box writes the user's setting; the detailed list reads that one.
void TestRvref::ttPackagesHiddenOnlyForExactlyIgen()
{
    QFETCH(QString, databaseValue);
    QFETCH(QString, userValue);
    QFETCH(QStringList, listed);
    const auto write = [](const std::filesystem::path& file, const QString& value) {
        if (!value.isEmpty())
            QVERIFY(rovanel::writeProfileString(file, "Rovanel Beallitasok", "TTNemKellLeirasba",
                                                value.toStdString()));
    };
    write(rovanel::settingsFilePath(m_window->state.tables.dataDirectory), databaseValue);
    write(rovanel::userIniPath(), userValue);
    m_form = std::make_unique<TRefForm>(m_window->state, *m_registry);
    m_form->show();
    QTest::keyClicks(child<QLineEdit>("AtcKodEdt"), "C08CA02");
    QTest::mouseClick(child<QPushButton>("AtcKodKeres"), Qt::LeftButton);
    QCOMPARE(names(), listed);
}

void TestRvref::columnWidthsAreSavedAndRestored()
{
    auto* headerView = child<QTableView>("RefLst")->horizontalHeader();
    QVERIFY(headerView->isSectionHidden(32));  // Adagmod
    QTest::mouseClick(child<QPushButton>("DefColWidth"), Qt::LeftButton);
    QVERIFY(!headerView->isSectionHidden(32));
    QCOMPARE(headerView->sectionSize(0), 150);
    QCOMPARE(headerView->sectionSize(32), 40);
    headerView->resizeSection(3, 77);
    QTest::mouseClick(child<QPushButton>("SaveColWidth"), Qt::LeftButton);
    m_form = std::make_unique<TRefForm>(m_window->state, *m_registry);
    m_form->show();
    auto* restored = child<QTableView>("RefLst")->horizontalHeader();
    QCOMPARE(restored->sectionSize(0), 150);
    QCOMPARE(restored->sectionSize(3), 77);
    QCOMPARE(restored->sectionSize(34), 40);
}

void TestRvref::kgyAddAppendsTheSelectedRowAndDoubleClickOpensItsDescription()
{
    MessageRecorder messages;
    std::vector<std::int32_t> opened;
    m_form->setDescriptionViewer([&](std::int32_t record, const QString&) { opened.push_back(record); });
    QTest::mouseClick(child<QPushButton>("KgyAdd"), Qt::LeftButton);
    QCOMPARE(messages.texts(), QStringList{"Jelöljön ki egy készítményt az alsó listából"});
    doubleClickNode(4);
    selectRow("ALFA 5 MG");
    QTest::mouseClick(child<QPushButton>("KgyAdd"), Qt::LeftButton);
    QTest::mouseClick(child<QPushButton>("KgyAdd"), Qt::LeftButton);
    QCOMPARE(messages.texts().size(), 1);
    QCOMPARE(QString::fromStdString(rovanel::readWholeFile(m_config->path() / "kgy.txt").value_or("")),
             QString("C08CA-01;210751400;ALFA 5 MG;3;amlodipin \r\n"
                     "C08CA-01;210751400;ALFA 5 MG;3;amlodipin \r\n"));
    auto* list = child<QTableView>("RefLst");
    doubleClick(list->viewport(), list->visualRect(list->model()->index(2, 0)).center());  // ALFA, record 0
    QCOMPARE(opened, std::vector<std::int32_t>{0});
}

QTEST_MAIN(TestRvref)
#include "tst_Rvref.moc"
