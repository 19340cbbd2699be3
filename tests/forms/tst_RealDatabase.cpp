// The windows on the real database imported from the NEAK tables (build/real-db), as a user meets them:
// real names, prices and groups, the BNO code G4090, the real aids catalogue, and no all-clear from an
// interaction check that has no data. With ROVANEL_SCREENSHOTS=DIR each window is also saved there.

#include "app/forms/Rvmain.h"
#include "catalogues/forms/Se.h"
#include "rx/forms/Rvbno.h"
#include "tests/forms/support/Windows.h"
#include "views/forms/Rvkh.h"
#include "views/forms/Rvlist.h"

namespace
{

void keep(QWidget& window, const char* name)
{
    const QByteArray directory = qgetenv("ROVANEL_SCREENSHOTS");
    if (!directory.isEmpty()) window.grab().save(QDir(QString::fromLocal8Bit(directory)).filePath(name));
}

}  // namespace

class TestRealDatabase : public QObject
{
    Q_OBJECT
    DatabaseState m_real{ROVANEL_REAL_DB};

private slots:
    void mainWindowNamesTheClosingDate()
    {
        QCOMPARE(m_real.state.tables.counts.products(), 3677);
        const QString previous = QDir::currentPath();
        QDir::setCurrent(ROVANEL_REAL_DB);
        Shown<TMain> main(QStringList{});
        QVERIFY(main.windowTitle().startsWith("Rovanel - 20250131 Lezárva:2025.01.31"));
        keep(main, "main.png");
        QDir::setCurrent(previous);
    }

    void drugListShowsRealNamesPricesAndGroupsAndTheInteractionCheckNoAllClear()
    {
        Shown<TGylist> form(m_real.state);
        auto* names = control<QComboBox>(form, "Gylist");
        const int index = names->findText("AMLODIPIN SANDOZ 5 MG TABLETTA 30X");
        QVERIFY(index >= 0);
        names->setCurrentIndex(index);
        emit names->activated(index);
        // The description's lines are DescriptionBuilder_test's; here the real price reaches it.
        QVERIFY(textOf(form, "Leiras1")
                    .contains("Fogyasztói ár:295.0 Ft  Normatív támogatás: 74 %  Térítési díj: 76.0 Ft"));
        QCOMPARE(linesOf(form, "AzonAtc").value(2),
                 QString("C08C  szelektív kalcium-csatorna blokkolók főként érhatásokkal"));
        QCOMPARE(linesOf(form, "AzonAtcNev").first(),
                 QString("AMLODIPIN-TEVA 10 MG TABLETTA 30X  1.6 Ft/nap"));
        keep(form, "drug-list.png");

        // The interaction check gives no all-clear from a database without interaction data.
        Shown<TKh> interactions(m_real.state);
        for (const int line : {0, 1}) {
            control<QComboBox>(interactions, "Gylist")->setCurrentIndex(line);
            click(interactions, "GyToList");
        }
        click(interactions, "Ellenoriz");
        QCOMPARE(
            interactions.messages.texts(),
            QStringList{"Ebben az adatbázisban nincsenek kölcsönhatási és ellenjavallati adatok: a vizsgálat "
                        "nem talált semmit, de ez nem jelenti, hogy a gyógyszerek együtt adhatók."});
        keep(interactions, "interactions.png");
    }

    void bnoBrowserFindsG4090()
    {
        Shown<TBnoForm> form(ROVANEL_REAL_DB);
        auto* tree = control<QTreeWidget>(form, "BnoTree");
        QCOMPARE(tree->topLevelItemCount(), 22);
        control<QLineEdit>(form, "BnoEdt")->setText("G4090");
        click(form, "BnoKeres");
        const QTreeWidgetItem* hit = tree->currentItem();
        QVERIFY(hit && hit->text(0).startsWith("G4090 "));
        QVERIFY(hit->parent()->parent()->parent()->text(0).startsWith("VI. fejezet"));
        keep(form, "bno.png");
    }

    void aidsAreTheRealCatalogue()
    {
        Shown<TSegedeszk> form(m_real.state);
        QCOMPARE(linesOf(form, "SeTree").size(), 9);
        control<QLineEdit>(form, "SeEdt")->setText("Suprasorb F 5");
        click(form, "SeNevKeres");
        auto* found = control<QListWidget>(form, "FoundSeLst");
        doubleClick(found, found->model()->index(0, 0));
        QCOMPARE(linesOf(form, "SeList").size(), 1);
        QCOMPARE(
            textOf(form, "SeDesc").section('\n', 0, 1),
            QString("Suprasorb F 5 x 7 cm darab\nBruttó ár: 114Ft\tTámogatás: 91Ft\tTérítési díj: 23Ft"));
        keep(form, "aids.png");
    }
};

QTEST_MAIN(TestRealDatabase)
#include "tst_RealDatabase.moc"
