// The interaction check window driven by its controls' names.
#include <QComboBox>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTextEdit>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

#include "tests/forms/support/Controls.h"
#include "tests/forms/support/EngineWindows.h"
#include "tests/forms/support/MessageRecorder.h"
#include "views/forms/Rvkh.h"
#include "views/forms/Rvmh.h"

using rovanel::testing::EngineDatabase;

namespace
{

EngineDatabase database()
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

QTreeWidgetItem* node(QTreeWidget* tree, int index)
{
    for (QTreeWidgetItemIterator it(tree); *it; ++it)
        if ((*it)->data(0, Qt::UserRole).toInt() == index) return *it;
    return nullptr;
}

void addDrug(QWidget& form, int index)
{
    control<QComboBox>(form, "Gylist")->setCurrentIndex(index);
    QTest::mouseClick(control<QPushButton>(form, "GyToList"), Qt::LeftButton);
}

}  // namespace

class TestRvkh : public QObject
{
    Q_OBJECT
private slots:
    void init()
    {
        m_fixture = std::make_unique<EngineWindowState>(database());
        m_form = std::make_unique<TKh>(m_fixture->state);
        m_form->show();
        m_messages = std::make_unique<MessageRecorder>();
    }
    void cleanup()
    {
        m_messages.reset();
        m_form.reset();
        m_fixture.reset();
    }
    void captionsAndControlsAreTheProgramsOwn();
    void twentyDrugsAndThe21stIsRefusedSameDrugTwiceIsSilent();
    void nineteenContraindicationsAndNodeZeroOnlyAfterClearing();
    void checkShowsTheReportAndTheDrugsConcerned();
    void atcSearchListsTheGroupAndMegnezOpensTheLinesDrug();
    void deletingWithoutASelectedLineAsksForOne();
    void sideEffectWindowSharesTheSelectionAndResetsTheSlots();

private:
    std::unique_ptr<EngineWindowState> m_fixture;
    std::unique_ptr<TKh> m_form;
    std::unique_ptr<MessageRecorder> m_messages;
};

void TestRvkh::captionsAndControlsAreTheProgramsOwn()
{
    TKh& form = *m_form;
    QCOMPARE(form.windowTitle().left(18), QStringLiteral("Kölcsönhatás - ATC"));
    QVERIFY(form.windowTitle().endsWith(QStringLiteral("Help=F1")));
    QCOMPARE(control<QPushButton>(form, "Ellenoriz")->text(),
             QStringLiteral("Szedett gyógszereket - ellenjavallatokat ellenőriz"));
    QCOMPARE(control<QPushButton>(form, "GyToList")->text(), QStringLiteral("Listá&hoz ad >>"));
    QCOMPARE(control<QPushButton>(form, "EllToList")->text(), QStringLiteral("Listához a&d >>"));
    QCOMPARE(control<QTreeWidget>(form, "ATCTree")->topLevelItemCount(), 2);
}

void TestRvkh::twentyDrugsAndThe21stIsRefusedSameDrugTwiceIsSilent()
{
    TKh& form = *m_form;
    MessageRecorder& messages = *m_messages;
    addDrug(form, 0);
    addDrug(form, 0);
    auto* taken = control<QListWidget>(form, "KhSzedettGyList");
    QCOMPARE(taken->count(), 1);
    QVERIFY(messages.texts().isEmpty());
    // A long name is cut with "…" in its line and shown whole in the line's tooltip.
    QCOMPARE(taken->textElideMode(), Qt::ElideRight);
    QCOMPARE(taken->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QCOMPARE(taken->item(0)->toolTip(), taken->item(0)->text());
    for (int i = 1; i < 21; ++i) addDrug(form, i);
    QCOMPARE(control<QListWidget>(form, "KhSzedettGyList")->count(), 20);
    QCOMPARE(messages.texts(), QStringList{QStringLiteral("Legföljebb 20 gyógyszer adható")});
    QCOMPARE(messages.captions(), QStringList{QStringLiteral("Kölcsönhatás vizsgálat")});
}

void TestRvkh::nineteenContraindicationsAndNodeZeroOnlyAfterClearing()
{
    TKh& form = *m_form;
    MessageRecorder& messages = *m_messages;
    auto* tree = control<QTreeWidget>(form, "EllTree");
    auto* add = control<QPushButton>(form, "EllToList");
    auto* list = control<QListWidget>(form, "EllList");
    tree->setCurrentItem(node(tree, 0));
    QTest::mouseClick(add, Qt::LeftButton);
    QCOMPARE(list->count(), 0);  // untouched slots hold 0
    QTest::mouseClick(control<QPushButton>(form, "EllListTorol"), Qt::LeftButton);
    QTest::mouseClick(add, Qt::LeftButton);
    QCOMPARE(list->count(), 1);
    QCOMPARE(list->item(0)->text(), QStringLiteral("Terhesség"));
    for (int index = 1; index < 21; ++index) {
        tree->setCurrentItem(node(tree, index));
        QTest::mouseClick(add, Qt::LeftButton);
    }
    QCOMPARE(list->count(), 19);
    QCOMPARE(messages.texts(), (QStringList{QStringLiteral("Legföljebb 20 ellenjavallat adható meg"),
                                            QStringLiteral("Legföljebb 20 ellenjavallat adható meg")}));
}

void TestRvkh::checkShowsTheReportAndTheDrugsConcerned()
{
    TKh& form = *m_form;
    MessageRecorder& messages = *m_messages;
    addDrug(form, 0);
    addDrug(form, 2);
    QTest::mouseClick(control<QPushButton>(form, "Ellenoriz"), Qt::LeftButton);
    QVERIFY(messages.texts().isEmpty());
    QCOMPARE(
        control<QTextEdit>(form, "EredmenyRtf")->toPlainText(),
        QStringLiteral("Kölcsönhatások és ellenjavallatok vizsgálatának eredménye:\n\nALFA és GAMMA : \n\n "
                       "Óvatosan adhatók együtt!\n\n"));
    auto* found = control<QListWidget>(form, "KhGyList");
    QCOMPARE(found->count(), 2);
    QCOMPARE(found->item(1)->text(), QStringLiteral("GAMMA"));

    // Deleting a contraindication keeps the report; deleting a drug empties it.
    QTest::mouseClick(control<QPushButton>(form, "KhSzGyListTorol"), Qt::LeftButton);
    QVERIFY(control<QTextEdit>(form, "EredmenyRtf")->toPlainText().isEmpty());
    addDrug(form, 1);
    QTest::mouseClick(control<QPushButton>(form, "Ellenoriz"), Qt::LeftButton);
    QCOMPARE(messages.texts(),
             QStringList{QStringLiteral("A vizsgálat nem talált kölcsönhatást és ellenjavallatot.")});
}

void TestRvkh::atcSearchListsTheGroupAndMegnezOpensTheLinesDrug()
{
    TKh& form = *m_form;
    std::vector<std::pair<int, QString>> shown;
    form.setDescriptionViewer(
        [&](std::int32_t record, const QString& caption) { shown.emplace_back(record, caption); });
    addDrug(form, 2);  // GAMMA taken: ALFA's careful code names it
    auto* tree = control<QTreeWidget>(form, "ATCTree");
    tree->setCurrentItem(node(tree, 1));
    QTest::mouseClick(control<QPushButton>(form, "ATCKeres"), Qt::LeftButton);
    auto* found = control<QListWidget>(form, "KhGyList");
    QCOMPARE(found->count(), 2);
    QCOMPARE(found->item(0)->text(), QStringLiteral("ALFA\t999999 !"));
    QCOMPARE(found->item(1)->text(), QStringLiteral("BÉTA\t999999"));
    found->setCurrentRow(1);
    QTest::mouseClick(control<QPushButton>(form, "KhGyMegnez"), Qt::LeftButton);
    QCOMPARE(shown.size(), std::size_t{1});
    QCOMPARE(shown[0].first, 1);
    QCOMPARE(shown[0].second, QStringLiteral("BÉTA\t999999"));
    // Choosing another node empties the list.
    tree->setCurrentItem(node(tree, 2));
    QCOMPARE(found->count(), 0);
}

void TestRvkh::deletingWithoutASelectedLineAsksForOne()
{
    TKh& form = *m_form;
    MessageRecorder& messages = *m_messages;
    QTest::mouseClick(control<QPushButton>(form, "KhSzGyTorol"), Qt::LeftButton);  // empty list: nothing
    addDrug(form, 0);
    QTest::mouseClick(control<QPushButton>(form, "KhSzGyTorol"), Qt::LeftButton);
    QCOMPARE(messages.texts(), QStringList{QStringLiteral("Jelölje ki a listáról törlendő gyógyszert!")});
    QVERIFY(messages.messages()[0].taskModal);
    control<QListWidget>(form, "KhSzedettGyList")->setCurrentRow(0);
    QTest::mouseClick(control<QPushButton>(form, "KhSzGyTorol"), Qt::LeftButton);
    QCOMPARE(m_fixture->state.selection.SzedettGyCount, 0);
    QCOMPARE(m_fixture->state.selection.SzedettGy[0], -1);
}

void TestRvkh::sideEffectWindowSharesTheSelectionAndResetsTheSlots()
{
    TKh& kh = *m_form;
    TMh mh(m_fixture->state);
    addDrug(kh, 0);
    addDrug(kh, 1);
    mh.show();  // resets the slots but keeps the count
    QCOMPARE(m_fixture->state.selection.SzedettGyCount, 2);
    QCOMPARE(m_fixture->state.selection.SzedettGy[0], -1);
    QCOMPARE(control<QListWidget>(mh, "MhSzedettGyList")->count(), 0);
    // A drug added in the side-effect window counts in the interaction window too.
    control<QComboBox>(mh, "GyList")->setCurrentIndex(2);
    QTest::mouseClick(control<QPushButton>(mh, "GyToList"), Qt::LeftButton);
    QCOMPARE(m_fixture->state.selection.SzedettGy[2], 2);
    QTest::mouseClick(control<QPushButton>(kh, "Ellenoriz"), Qt::LeftButton);
    QCOMPARE(m_messages->texts(),
             QStringList{QStringLiteral("A vizsgálat nem talált kölcsönhatást és ellenjavallatot.")});
}

QTEST_MAIN(TestRvkh)
#include "tst_Rvkh.moc"
