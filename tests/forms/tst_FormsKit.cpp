// The forms kit's parts that every window relies on: the name list's filter, where a window opens, and that
// every window fits the screen.
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
#include "views/forms/kit/NameList.h"
#include "views/forms/kit/Text.h"
#include "views/forms/kit/WindowGeometry.h"

namespace
{

const std::vector<std::string> kNames = {
    rovanel::forms::toCp1250(QStringLiteral("ACENOKUMAROL 4 MG TABLETTA")),
    rovanel::forms::toCp1250(QStringLiteral("AMLODIPIN 5 MG TABLETTA")),
    rovanel::forms::toCp1250(QStringLiteral("Szédülés")),
    rovanel::forms::toCp1250(QStringLiteral("NORVASC (AMLODIPIN) 10 MG")),
    rovanel::forms::toCp1250(QStringLiteral("ŐSZIRÓZSA KIVONAT")),
};

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

class TestFormsKit : public QObject
{
    Q_OBJECT
private slots:
    // Typing filters by contained text without case or accents; arrows and Enter pick the item under its
    // own index in the whole list.
    void typingFiltersAndEnterPicksTheItemUnderItsOwnIndex_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QStringList>("expected");
        QTest::addColumn<int>("downs");
        QTest::addColumn<int>("picked");
        const QStringList amlo{"AMLODIPIN 5 MG TABLETTA", "NORVASC (AMLODIPIN) 10 MG"};
        QTest::newRow("beginning, lower case; Enter: the first match") << "amlo" << amlo << 0 << 1;
        QTest::newRow("Down, Enter") << "amlo" << amlo << 1 << 1;
        QTest::newRow("Down, Down, Enter") << "amlo" << amlo << 2 << 3;
        QTest::newRow("accents left out") << "szedules" << QStringList{"Szédülés"} << 0 << 2;
        QTest::newRow("accents typed on capitals") << "SZÉDÜ" << QStringList{"Szédülés"} << 0 << 2;
        QTest::newRow("double acute") << "oszi" << QStringList{"ŐSZIRÓZSA KIVONAT"} << 0 << 4;
        QTest::newRow("inside a word, list order kept")
            << "tabl" << QStringList{"ACENOKUMAROL 4 MG TABLETTA", "AMLODIPIN 5 MG TABLETTA"} << 2 << 1;
        QTest::newRow("nothing matches") << "xyz" << QStringList{} << 0 << -1;
    }

    void typingFiltersAndEnterPicksTheItemUnderItsOwnIndex()
    {
        QFETCH(QString, typed);
        QFETCH(QStringList, expected);
        QFETCH(int, downs);
        QFETCH(int, picked);
        rovanel::forms::NameList list("Gylist");
        list.setNames(kNames);
        QSignalSpy activated(&list, &QComboBox::activated);
        list.show();
        QVERIFY(QTest::qWaitForWindowExposed(&list));
        QCOMPARE(list.currentIndex(), -1);
        QTest::keyClicks(list.lineEdit(), typed);
        QCOMPARE(linesOf(*list.completer()->completionModel()), expected);
        QCOMPARE(list.count(), 5);  // the list itself keeps every item and its index
        if (picked < 0) return;
        QAbstractItemView* popup = list.completer()->popup();
        QTRY_VERIFY(popup->isVisible());
        for (int press = 0; press < downs; ++press) QTest::keyClick(popup, Qt::Key_Down);
        QTest::keyClick(popup, Qt::Key_Return);
        QCOMPARE(list.currentIndex(), picked);
        QCOMPARE(list.currentText(), rovanel::forms::fromCp1250(kNames[static_cast<std::size_t>(picked)]));
        QCOMPARE(activated.count(), 1);
        QCOMPARE(activated.first().first().toInt(), picked);
        QCOMPARE(list.chosenIndex(), picked);
    }

    void windowIsFittedOntoTheScreen_data()
    {
        QTest::addColumn<QRect>("wanted");
        QTest::addColumn<QSize>("minimum");
        QTest::addColumn<QRect>("expected");
        QTest::newRow("fits") << QRect(3, 44, 721, 572) << QSize(300, 200) << QRect(3, 44, 721, 572);
        QTest::newRow("too tall at 150 %")
            << QRect(0, 0, 1500, 849) << QSize(600, 400) << QRect(0, 0, 1366, 738);
        QTest::newRow("off the right edge")
            << QRect(1200, 100, 641, 561) << QSize(300, 200) << QRect(725, 100, 641, 561);
        QTest::newRow("above and left of the screen")
            << QRect(-500, -40, 692, 508) << QSize(300, 200) << QRect(0, 0, 692, 508);
        QTest::newRow("kept smaller than the layout")
            << QRect(10, 10, 100, 80) << QSize(400, 300) << QRect(10, 10, 400, 300);
        QTest::newRow("layout larger than the screen")
            << QRect(10, 10, 100, 80) << QSize(2000, 1000) << QRect(0, 0, 1366, 738);
    }

    void windowIsFittedOntoTheScreen()
    {
        QFETCH(QRect, wanted);
        QFETCH(QSize, minimum);
        QFETCH(QRect, expected);
        QCOMPARE(rovanel::forms::fitOnScreen(wanted, minimum, QRect(0, 0, 1366, 738)), expected);
    }

    void keptGeometryTextIsCheckedBeforeUse()
    {
        QCOMPARE(rovanel::forms::geometryFromText("3 44 721 572"), QRect(3, 44, 721, 572));
        QCOMPARE(rovanel::forms::geometryFromText("-20 -5 600 400"), QRect(-20, -5, 600, 400));
        // Empty, three numbers, zero width, text after, letters, too large: none is used.
        for (const char* refused :
             {"", "1 2 3", "1 2 0 400", "1 2 300 400 x", "a b c d", "0 0 99999999999 400"})
            QVERIFY2(rovanel::forms::geometryFromText(refused) == QRect(), refused);
    }

    void windowReopensWhereTheUserLeftIt()
    {
        for (const QSize expected : {QSize(400, 300), QSize(350, 250)}) {  // the default, then as left
            QWidget window;
            window.setObjectName("Proba");
            rovanel::forms::rememberGeometry(&window, QSize(400, 300), QPoint(20, 30));
            window.show();
            QVERIFY(QTest::qWaitForWindowExposed(&window));
            QCOMPARE(window.size(), expected);
            window.setGeometry(50, 60, 350, 250);
            window.hide();
        }
        QVERIFY(m_profile.directory().read("windows.ini").find("Proba=") != std::string::npos);
    }

    // Every window fits a 1366×768 screen at 150 % (QT_SCALE_FACTOR=1.5): what its layout needs at the least
    // is at most 910×492 logical pixels, the screen less a task bar, so nothing is clipped when it opens
    // there. The windows that once ran off it: the prescription window (1275 wide), the drug list (915), the
    // aids window (479 high).
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

private:
    UserProfile m_profile;
};

QTEST_MAIN(TestFormsKit)
#include "tst_FormsKit.moc"
