// Every window fits a 1366×768 screen at 150 % (QT_SCALE_FACTOR=1.5): what its layout needs at the least
// is at most 910×492 logical pixels, the screen less a task bar, so nothing is clipped when it opens there.
// The windows that once ran off it: the prescription window (1275 wide), the drug list (915), the aids
// window (479 high).
#include <functional>
#include <memory>

#include "app/forms/Msgdlg.h"
#include "app/forms/Rvmain.h"
#include "app/forms/Settingsform.h"
#include "catalogues/forms/Fono.h"
#include "catalogues/forms/Rvmagi.h"
#include "catalogues/forms/Se.h"
#include "certs/forms/Kgy.h"
#include "certs/forms/Szakjav.h"
#include "pricelist/forms/Rvref.h"
#include "rx/forms/Rvbno.h"
#include "rx/forms/Rvrp.h"
#include "tests/forms/support/Windows.h"
#include "views/forms/Rvgykozos.h"
#include "views/forms/Rvha.h"
#include "views/forms/Rvkh.h"
#include "views/forms/Rvlist.h"
#include "views/forms/Rvmh.h"
#include "views/forms/Rvrend.h"

namespace
{

const QSize kScreenAt150(910, 492);

// The program's start on the tiny database and every window made on its state.
struct Program : TinyDatabaseStart {
    TMain main{QStringList{"-gy"}};
    rovanel::SharedState& state = main.state();
    rovanel::RegistryStore& registry = main.registry();
};

using Make = std::function<std::unique_ptr<QWidget>(Program&)>;

template <class Form>
Make onState()
{
    return [](Program& program) { return std::make_unique<Form>(program.state); };
}

}  // namespace

Q_DECLARE_METATYPE(Make)

class TestScreenFit : public QObject
{
    Q_OBJECT
private slots:
    void leastSizeFitsTheScreenAt150Percent_data()
    {
        QTest::addColumn<Make>("make");
        QTest::newRow("TGylist") << onState<TGylist>();
        QTest::newRow("TGyKozos") << onState<TGyKozos>();
        QTest::newRow("TKh") << onState<TKh>();
        QTest::newRow("TMh") << onState<TMh>();
        QTest::newRow("THaForm") << onState<THaForm>();
        QTest::newRow("TRend") << onState<TRend>();
        QTest::newRow("TSegedeszk") << onState<TSegedeszk>();
        QTest::newRow("TFoNoForm") << onState<TFoNoForm>();
        QTest::newRow("TMagiForm") << onState<TMagiForm>();
        QTest::newRow("TKgyForm") << onState<TKgyForm>();
        QTest::newRow("Tszj") << onState<Tszj>();
        QTest::newRow("TRp") << Make(
            [](Program& p) { return std::make_unique<TRp>(p.state, p.state.tables.dataDirectory); });
        QTest::newRow("TBnoForm") << Make(
            [](Program& p) { return std::make_unique<TBnoForm>(p.state.tables.dataDirectory); });
        QTest::newRow("TRefForm") << Make(
            [](Program& p) { return std::make_unique<TRefForm>(p.state, p.registry); });
        QTest::newRow("TMsgDlg") << Make([](Program& p) { return std::make_unique<TMsgDlg>(p.registry); });
        QTest::newRow("TRvSettings") << Make(
            [](Program& p) { return std::make_unique<TRvSettings>(p.main, p.registry); });
        QTest::newRow("TMain") << Make([](Program&) { return std::unique_ptr<QWidget>(); });
    }

    void leastSizeFitsTheScreenAt150Percent()
    {
        QFETCH(Make, make);
        Program program;
        std::unique_ptr<QWidget> made = make(program);
        QWidget& window = made ? *made : static_cast<QWidget&>(program.main);
        window.show();
        const QSize least = window.minimumSizeHint().expandedTo(window.minimumSize());
        QVERIFY2(least.width() <= kScreenAt150.width() && least.height() <= kScreenAt150.height(),
                 qPrintable(QString("%1x%2").arg(least.width()).arg(least.height())));
        // Made as large as the screen, every window takes it whole, and no button is narrower than its
        // caption needs (the jump buttons set their least width below the style's default).
        window.resize(kScreenAt150);
        if (made) QCOMPARE(window.size(), kScreenAt150);  // the main window keeps its fixed size
        for (const QAbstractButton* button : window.findChildren<QAbstractButton*>()) {
            const int needed =
                button->minimumWidth() > 0 ? button->minimumWidth() : button->sizeHint().width();
            QVERIFY2(!button->isVisible() || button->width() >= needed, qPrintable(button->objectName()));
        }
    }
};

QTEST_MAIN(TestScreenFit)
#include "tst_ScreenFit.moc"
