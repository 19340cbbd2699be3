// The side-effect search window driven by its controls' names.
#include <QComboBox>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

#include "tests/forms/support/Controls.h"
#include "tests/forms/support/EngineWindows.h"
#include "tests/forms/support/MessageRecorder.h"
#include "views/forms/Rvmh.h"

using rovanel::testing::EngineDatabase;

namespace
{

std::vector<int> range(int count)
{
    std::vector<int> records;
    for (int i = 0; i < count; ++i) records.push_back(i);
    return records;
}

EngineDatabase database()
{
    EngineDatabase db;
    for (int i = 0; i < 650; ++i)
        db.products.push_back({"A01AA-0" + std::to_string(100 + i), "P" + std::to_string(100 + i)});
    db.sideEffects = {{"Fejfájás", {3, 7}}, {"Hányás", range(601)}, {"Szédülés", range(600)}};
    return db;
}

void search(TMh& form, int node)
{
    auto* tree = control<QTreeWidget>(form, "MhTree");
    tree->setCurrentItem(tree->topLevelItem(node));
    QTest::mouseClick(control<QPushButton>(form, "MhKeres"), Qt::LeftButton);
}

}  // namespace

class TestRvmh : public QObject
{
    Q_OBJECT
private slots:
    void searchAmongAllOver600AndAmongTheDrugsTaken();
};

void TestRvmh::searchAmongAllOver600AndAmongTheDrugsTaken()
{
    EngineWindowState fixture(database());
    TMh form(fixture.state);
    form.show();
    QCOMPARE(form.windowTitle().left(13), QStringLiteral("Mellékhatások"));
    MessageRecorder messages;
    auto* found = control<QListWidget>(form, "MhGyList");
    search(form, 2);
    QCOMPARE(found->count(), 600);
    QVERIFY(messages.texts().isEmpty());
    search(form, 0);
    QCOMPARE(found->count(), 2);
    QCOMPARE(found->item(1)->text(), QStringLiteral("P107"));
    search(form, 1);  // 601: a message, and the table still holds the previous search's result
    QCOMPARE(messages.captions(), QStringList{QStringLiteral("Mellékhatás keresés")});
    QCOMPARE(found->count(), 2);
    messages.clear();

    control<QComboBox>(form, "GyList")->setCurrentIndex(5);
    QTest::mouseClick(control<QPushButton>(form, "GyToList"), Qt::LeftButton);
    QCOMPARE(found->count(), 0);
    search(form, 0);
    QCOMPARE(found->count(), 0);
    QCOMPARE(
        messages.texts(),
        QStringList{QStringLiteral("A szedett gyógyszerek közül egyik sem okozhatja ezt a mellékhatást.")});
    control<QComboBox>(form, "GyList")->setCurrentIndex(7);
    QTest::mouseClick(control<QPushButton>(form, "GyToList"), Qt::LeftButton);
    search(form, 0);
    QCOMPARE(found->count(), 1);
    QCOMPARE(found->item(0)->text(), QStringLiteral("P107"));
}

QTEST_MAIN(TestRvmh)
#include "tst_Rvmh.moc"
