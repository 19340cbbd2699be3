// The active-ingredient window driven by its controls' names.
#include <QComboBox>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTextEdit>

#include "db/Cp1250.h"
#include "tests/forms/support/Controls.h"
#include "tests/forms/support/EngineWindows.h"
#include "tests/forms/support/MessageRecorder.h"
#include "views/forms/Rvha.h"

using rovanel::testing::EngineDatabase;

namespace
{

EngineDatabase database()
{
    EngineDatabase db;
    std::vector<int> all;
    for (int i = 0; i < 601; ++i) {
        db.products.push_back({"A01AA-0" + std::to_string(100 + i), "P" + std::to_string(100 + i)});
        all.push_back(i);
    }
    db.ingredients = {
        {"amlodipin", std::vector<int>(all.begin(), all.end() - 1)}, {"bizoprolol", all}, {"coffein", {}}};
    return db;
}

}  // namespace

class TestRvha : public QObject
{
    Q_OBJECT
private slots:
    void exactly600WithoutMessageAnd601WithItAndAPickedDrugIsDescribed();
};

void TestRvha::exactly600WithoutMessageAnd601WithItAndAPickedDrugIsDescribed()
{
    EngineWindowState fixture(database());
    THaForm form(fixture.state);
    form.show();
    MessageRecorder messages;
    auto* list = control<QComboBox>(form, "HaList");
    auto* found = control<QListWidget>(form, "HaGyList");
    QCOMPARE(list->count(), 3);
    list->setCurrentIndex(0);
    QTest::mouseClick(control<QPushButton>(form, "HaKeres"), Qt::LeftButton);
    QCOMPARE(found->count(), 600);
    QVERIFY(messages.texts().isEmpty());
    // A clicked line writes its drug's description; a right click there shows the notice.
    QTest::mouseClick(found->viewport(), Qt::LeftButton, {}, found->visualItemRect(found->item(3)).center());
    auto* leiro = control<QTextEdit>(form, "GyLeiro");
    const QString name = QString::fromUtf8(
        rovanel::cp1250ToUtf8(fixture.state.tables.productName(fixture.state.found.recordAt(3))));
    QVERIFY(!name.isEmpty());
    QVERIFY2(leiro->toPlainText().contains(name), qPrintable(leiro->toPlainText()));
    QTest::mouseClick(leiro->viewport(), Qt::LeftButton);
    QVERIFY(messages.texts().isEmpty());
    QTest::mouseClick(leiro->viewport(), Qt::RightButton);
    QCOMPARE(messages.texts(),
             QStringList{QStringLiteral("Változás: Receptnyomtatás a -Részletes lista- menüpont alatt.")});
    messages.clear();
    list->setCurrentIndex(1);
    QCOMPARE(found->count(), 0);  // choosing another ingredient empties the list
    QTest::mouseClick(control<QPushButton>(form, "HaKeres"), Qt::LeftButton);
    QCOMPARE(found->count(), 600);
    QCOMPARE(messages.texts(),
             QStringList{QStringLiteral("Túl sok gyógyszer tartozik ide, csak a lista eleje látszik!")});
    QCOMPARE(messages.captions(), QStringList{QString()});
    list->setCurrentIndex(2);
    QTest::mouseClick(control<QPushButton>(form, "HaKeres"), Qt::LeftButton);
    QCOMPARE(found->count(), 0);
    QCOMPARE(messages.texts().size(), 1);
}

QTEST_MAIN(TestRvha)
#include "tst_Rvha.moc"
