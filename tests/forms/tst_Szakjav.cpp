// The specialist recommendation window driven by its controls' names; the printed page is caught as
// PDF and read back with each value at its place.
#include <QPrinter>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>

#include "app/forms/Help.h"
#include "certs/forms/Szakjav.h"
#include "db/Cp1250.h"
#include "rx/forms/PrintRenderer.h"
#include "tests/forms/support/EngineWindows.h"
#include "tests/forms/support/MessageRecorder.h"
#include "tests/support/PdfWords.h"

namespace
{

rovanel::testing::EngineDatabase recommendationDatabase()
{
    rovanel::testing::EngineDatabase database;
    database.atcGroups = {{"C", "Szív"}, {"C08", "Kalciumcsatorna-blokkolók"}, {"C08CA-01", "amlodipin"}};
    return database;
}

struct RecommendationFixture : EngineWindowState {
    RecommendationFixture() : EngineWindowState(recommendationDatabase())
    {
        directory.write("RV.INI", "[Rovanel Beallitasok]\nBetegAdatokIniPath=" + directory.path().string() +
                                      "/beteg.ini\n");
        directory.write("beteg.ini", "[BetegAdatok]\nOrvosNeve=Dr. Szabo\nOrvosMhTel=1-234\n");
    }
};

rovanel::RecommendationHandover handover(const char* title)
{
    rovanel::RecommendationHandover given;
    given.bno = "I1000";
    given.titleText = title;
    given.atcCode = "C08CA01";
    given.patientName = rovanel::utf8ToCp1250("Kiss Éva");
    given.taj = "123456789";
    return given;
}

QString cell(QTableWidget* grid, int row, int column)
{
    const QTableWidgetItem* item = grid->item(row, column);
    return item ? item->text() : QString();
}

}  // namespace

class TestSzakjav : public QObject
{
    Q_OBJECT
private slots:
    void fillAddsTheDrugLineAndTheRowButtonsDeleteLines();
    void missingAtcNameFileGivesItsMessage();
    void printedPageHoldsTheGridsAsEditedAtTheirPlaces();
};

void TestSzakjav::fillAddsTheDrugLineAndTheRowButtonsDeleteLines()
{
    RecommendationFixture fixture;
    MessageRecorder messages;
    Tszj form(fixture.state);
    form.show();
    QCOMPARE(form.windowTitle(), QStringLiteral("Szakorvosi javaslat készítése"));
    auto* bg = form.findChild<QTableWidget*>("bg");
    auto* og = form.findChild<QTableWidget*>("og");
    auto* gg = form.findChild<QTableWidget*>("gg");
    QVERIFY(bg && og && gg);
    QCOMPARE(gg->columnCount(), 9);
    QCOMPARE(gg->rowCount(), 10);
    QCOMPARE(cell(gg, 0, 0), QStringLiteral("Üres BNO"));
    form.fill(handover("90%  EU1"));
    form.fill(handover("100% K2"));
    form.fill(handover("50%  EU3"));
    QVERIFY(messages.texts().isEmpty());
    QCOMPARE(cell(gg, 0, 0), QStringLiteral("I1000"));
    QCOMPARE(cell(bg, 0, 1), QStringLiteral("Kiss Éva"));
    QCOMPARE(cell(og, 0, 1), QStringLiteral("Dr. Szabo"));
    QCOMPARE(cell(og, 2, 1), QStringLiteral("KITÖLTENDŐ"));
    QCOMPARE(cell(gg, 1, 1), QStringLiteral("amlodipin"));
    QCOMPARE(cell(gg, 1, 5), QStringLiteral("90%"));
    QCOMPARE(cell(gg, 2, 7), QStringLiteral("K2"));
    QCOMPARE(cell(gg, 3, 6), QStringLiteral("EU3"));

    QTest::mouseClick(form.findChild<QPushButton*>("DelLine"), Qt::LeftButton);
    QCOMPARE(cell(gg, 1, 7), QStringLiteral("K2"));
    QCOMPARE(cell(gg, 2, 6), QStringLiteral("EU3"));
    QCOMPARE(cell(gg, 3, 0), QString());
    QTest::mouseClick(form.findChild<QPushButton*>("DelLastLine"), Qt::LeftButton);
    QCOMPARE(cell(gg, 1, 7), QStringLiteral("K2"));
    QCOMPARE(cell(gg, 2, 6), QString());
    QList<int> opened;
    const HelpOpener previous = setHelpOpener([&](int context) { opened.append(context); });
    QTest::keyClick(gg, Qt::Key_F1);
    setHelpOpener(previous);
    QCOMPARE(opened, QList<int>{620});
    QVERIFY(helpPagePath(620).endsWith("help/620.html"));
    QTest::mouseClick(form.findChild<QPushButton*>("SzjKilep"), Qt::LeftButton);
    QVERIFY(!form.isVisible());
}

void TestSzakjav::missingAtcNameFileGivesItsMessage()
{
    RecommendationFixture fixture;
    fixture.directory.remove("atcnrend.dat");
    MessageRecorder messages;
    Tszj form(fixture.state);
    form.show();
    form.fill(handover("90%  EU1"));
    QCOMPARE(messages.texts(), QStringList{QStringLiteral("ATC file nyitás hiba.")});
    QCOMPARE(cell(form.findChild<QTableWidget*>("gg"), 1, 0), QString());
}

void TestSzakjav::printedPageHoldsTheGridsAsEditedAtTheirPlaces()
{
    RecommendationFixture fixture;
    MessageRecorder messages;
    const auto file = fixture.directory.path() / "javaslat.pdf";
    const auto previous = rovanel::forms::setDirectPrintTarget([&file](QPrinter& printer, const auto& paint) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(QString::fromStdString(file.string()));
        paint(printer);
    });
    Tszj form(fixture.state);
    form.show();
    form.fill(handover("90%  EU1"));
    form.findChild<QTableWidget*>("gg")->item(1, 2)->setText(QStringLiteral("5 mg"));
    QTest::mouseClick(form.findChild<QPushButton*>("PrintSzakjav"), Qt::LeftButton);
    rovanel::forms::setDirectPrintTarget(previous);
    const auto words = rovanel::testing::pdfWords(file);
    QVERIFY2(!words.empty(), "pdftotext (poppler-utils) is needed");
    const auto at = [&words](int left, int top) {
        return QString::fromStdString(rovanel::testing::textAt(
            words, left * rovanel::kMillimetresPerLayoutUnit, top * rovanel::kMillimetresPerLayoutUnit));
    };
    QCOMPARE(at(280, 125), QStringLiteral("Kiss Éva"));
    QCOMPARE(at(280, 270), QStringLiteral("Dr. Szabo"));
    QCOMPARE(at(80, 455), QStringLiteral("amlodipin"));
    QCOMPARE(at(200, 455), QStringLiteral("5 mg"));
    QCOMPARE(at(480, 455), QStringLiteral("90%"));
    QCOMPARE(at(60, 40), QStringLiteral("Szakorvosi javaslat támogatással történő gyógyszerrendeléshez"));
}

QTEST_MAIN(TestSzakjav)
#include "tst_Szakjav.moc"
