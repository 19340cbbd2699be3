// The detailed list window driven as a user drives it: by control name, offscreen.

#include "app/IniFile.h"
#include "app/RegistrySettings.h"
#include "app/UserPaths.h"
#include "db/DataFile.h"
#include "pricelist/forms/Rvref.h"
#include "tests/forms/support/Windows.h"

namespace
{

// The detailed list database, a fresh profile with the settings the program's start creates, and the
// window on them.
struct DetailedList {
    UserProfile profile;
    DatabaseState fixture{rovanel::testing::detailedListDatabase()};
    std::unique_ptr<rovanel::RegistryStore> registry =
        rovanel::openRegistryFile(profile.directory().path() / "registry.ini");
    bool defaultsMade = !rovanel::EnsureRegistryDefaults(*registry);
    MessageRecorder messages;
    std::unique_ptr<TRefForm> form;

    DetailedList() { reopen(); }
    // The window made anew, as at the next start.
    void reopen()
    {
        form.reset();
        form = std::make_unique<TRefForm>(fixture.state, *registry);
        form->show();
    }
    [[nodiscard]] QTableView* list() const { return control<QTableView>(*form, "RefLst"); }
    [[nodiscard]] QStringList names() const { return linesOf(*form, "RefLst"); }
    [[nodiscard]] QString header(int column) const
    {
        return list()->model()->headerData(column, Qt::Horizontal).toString();
    }
    void doubleClickNode(int node) const
    {
        auto* tree = control<QTreeWidget>(*form, "AtcTree");
        doubleClick(tree, tree->indexFromItem(chooseNode(tree, node)));
    }
    void selectRow(const QString& name) const { list()->selectRow(static_cast<int>(names().indexOf(name))); }
    void searchCode(const QString& code) const
    {
        typeInto(*form, "AtcKodEdt", code);
        click(*form, "AtcKodKeres");
    }
};

}  // namespace

class TestRvref : public QObject
{
    Q_OBJECT
private slots:
    // The order, captions and hidden columns are DetailedList_test's; here that they reach the controls.
    void opensWithEveryControlAndATreeDoubleClickListsTheGroupForEveryButton()
    {
        DetailedList window;
        QVERIFY(window.defaultsMade);
        QCOMPARE(window.form->windowTitle(), QString("Részletes lista"));
        QCOMPARE(window.list()->model()->columnCount(), 35);
        QCOMPARE((QStringList{window.header(0), window.header(26)}), (QStringList{"Név - kiszerelés", "Új"}));
        // The widths come from the settings (RefColWidth\0 = 229 by default).
        QCOMPARE(window.list()->horizontalHeader()->sectionSize(0), 229);
        QCOMPARE(control<QTreeWidget>(*window.form, "AtcTree")->topLevelItemCount(), 2);
        QCOMPARE(control<QComboBox>(*window.form, "Gylist")->count(), 8);
        QCOMPARE(control<QComboBox>(*window.form, "Gylist")->currentIndex(), 0);  // the first item current
        TRefForm& form = *window.form;
        std::vector<std::int32_t> opened;
        form.setDescriptionViewer([&](std::int32_t record, const QString&) { opened.push_back(record); });
        window.doubleClickNode(4);  // C08CA-01
        QCOMPARE(window.names(), (QStringList{"GAMMA 5 MG", "DELTA 5 MG", "ALFA 5 MG", "BETA 5 MG"}));
        QCOMPARE(window.header(4), QString("*NK alap*"));
        QVERIFY(control<QPushButton>(form, "TfxNorm")->isEnabled());
        QVERIFY(!control<QPushButton>(form, "TfxTerkot")->isEnabled());
        QVERIFY(window.list()->horizontalHeader()->isSectionHidden(7));  // no increased support here
        // The fixed-group and the certificate-list buttons need a selected row.
        click(form, "TfxNorm");
        click(form, "KgyAdd");
        QCOMPARE(window.messages.texts(), QStringList(2, "Jelöljön ki egy készítményt az alsó listából"));
        window.selectRow("ALFA 5 MG");
        click(form, "KgyAdd");
        click(form, "KgyAdd");
        QCOMPARE(window.messages.texts().size(), 2);
        // The ATC field comes from the record read last while the list was filled: kept on purpose.
        QCOMPARE(QString::fromStdString(
                     rovanel::readWholeFile(window.profile.directory().path() / "kgy.txt").value_or("")),
                 QString("C08CA-01;210751400;ALFA 5 MG;3;amlodipin \r\n"
                         "C08CA-01;210751400;ALFA 5 MG;3;amlodipin \r\n"));
        doubleClick(window.list(), window.list()->model()->index(2, 0));  // ALFA, record 0
        QCOMPARE(opened, std::vector<std::int32_t>{0});
        // The fixed-group button lists ALFA's group and disables itself.
        window.selectRow("ALFA 5 MG");
        click(form, "TfxNorm");
        QCOMPARE(window.names(), (QStringList{"ALFA 5 MG", "EPSZILON 5 MG", "BETA 5 MG"}));
        QVERIFY(!control<QPushButton>(form, "TfxNorm")->isEnabled());

        // Column widths are saved and restored.
        auto* headerView = window.list()->horizontalHeader();
        QVERIFY(headerView->isSectionHidden(32));  // Adagmod
        click(*window.form, "DefColWidth");
        QVERIFY(!headerView->isSectionHidden(32));
        headerView->resizeSection(3, 77);
        click(*window.form, "SaveColWidth");
        window.reopen();
        auto* restored = window.list()->horizontalHeader();
        QCOMPARE((QList<int>{restored->sectionSize(0), restored->sectionSize(3), restored->sectionSize(34)}),
                 (QList<int>{150, 77, 40}));
    }

    void codeSearchPickedProductAndTextSearchListTheGroup()
    {
        DetailedList window;
        window.searchCode("c08ca02");
        QCOMPARE(textOf(*window.form, "AtcKodEdt"), QString("C08CA02"));
        QCOMPARE(window.names(), (QStringList{"EPSZILON 5 MG", "ZETA 5 MG", "ETA 5 MG"}));
        window.searchCode("C08CA03");
        QCOMPARE(window.messages.texts(), QStringList{"Hibás ATC kód!"});
        // Picking a product by a piece of its name, in any case, lists its group.
        auto* gylist = control<QComboBox>(*window.form, "Gylist");
        pickByTyping(gylist, "lfa");
        QCOMPARE(gylist->currentText(), QString("ALFA 5 MG"));
        QCOMPARE(currentNode(*window.form, "AtcTree"), QString("amlodipin (C08CA-01)"));
        QCOMPARE(window.names(), (QStringList{"GAMMA 5 MG", "DELTA 5 MG", "ALFA 5 MG", "BETA 5 MG"}));

        // The text search walks the tree.
        window.messages.clear();
        TRefForm& form = *window.form;
        auto* next = control<QPushButton>(form, "AtcTxtNext");
        typeInto(form, "AtcTxtEdt", "DIPIN");
        QVERIFY(!next->isEnabled());
        click(form, "AtcTxtKeres");
        QCOMPARE(currentNode(form, "AtcTree"), QString("amlodipin (C08CA-01)"));
        QCOMPARE(window.names().size(), 4);
        QVERIFY(next->isEnabled());
        click(next);
        QCOMPARE(currentNode(form, "AtcTree"), QString("felodipin (C08CA-02)"));
        QCOMPARE(window.names().size(), 3);
        click(next);
        QCOMPARE(window.messages.texts(), QStringList{"Nincs több!"});
        typeInto(form, "AtcTxtEdt", "xyz");
        QVERIFY(!next->isEnabled());
        click(form, "AtcTxtKeres");
        QCOMPARE(window.messages.texts(), (QStringList{"Nincs több!", "Nem található!"}));
    }

    void ttPackagesHiddenOnlyForExactlyIgen_data()
    {
        QTest::addColumn<QString>("databaseValue");
        QTest::addColumn<QString>("userValue");
        QTest::addColumn<QStringList>("listed");
        const QStringList all{"EPSZILON 5 MG", "ZETA 5 MG", "ETA 5 MG"};
        const QStringList withoutTt{"EPSZILON 5 MG", "ETA 5 MG"};
        QTest::newRow("the user's IGEN") << QString("NEM") << QString("IGEN") << withoutTt;
        QTest::newRow("the database's IGEN, the user's unset") << QString("IGEN") << QString() << withoutTt;
        QTest::newRow("the user's NEM over the database's IGEN") << QString("IGEN") << QString("NEM") << all;
        QTest::newRow("a value that only holds IGEN") << QString() << QString("NEMIGEN") << all;
    }

    // The description window's check box writes the user's setting; the detailed list reads that one.
    void ttPackagesHiddenOnlyForExactlyIgen()
    {
        QFETCH(QString, databaseValue);
        QFETCH(QString, userValue);
        QFETCH(QStringList, listed);
        DetailedList window;
        const std::pair<std::filesystem::path, QString> settings[] = {
            {rovanel::settingsFilePath(window.fixture.directory.path()), databaseValue},
            {rovanel::userIniPath(), userValue}};
        for (const auto& [file, value] : settings)
            QVERIFY(value.isEmpty() || rovanel::writeProfileString(file, "Rovanel Beallitasok",
                                                                   "TTNemKellLeirasba", value.toStdString()));
        window.reopen();
        window.searchCode("C08CA02");
        QCOMPARE(window.names(), listed);
    }
};

QTEST_MAIN(TestRvref)
#include "tst_Rvref.moc"
