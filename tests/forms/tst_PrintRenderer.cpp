// The Qt renderer of the printed forms: the prescription in each format saved as PDF through QPrinter,
// read back with poppler, each value within 1 mm of its box; the preview paints the same pages.
#include <QPrinter>
#include <QTest>

#include "db/Cp1250.h"
#include "rx/RxPrintLayout.h"
#include "rx/forms/PrintRenderer.h"
#include "tests/support/PdfWords.h"
#include "tests/support/ScratchDirectory.h"

class TestPrintRenderer : public QObject
{
    Q_OBJECT
private slots:
    void prescriptionValuesStandInTheirBoxes_data();
    void prescriptionValuesStandInTheirBoxes();
    void previewPaintsTheLayoutSideways();
    void unwritablePdfIsRefusedWithTheReason();
};

void TestPrintRenderer::prescriptionValuesStandInTheirBoxes_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<int>("left");
    QTest::addColumn<int>("top");
    QTest::newRow("old form, negative left") << 0 << -12 << 20;
    QTest::newRow("new upright, default margins") << 1 << 160 << 8;
    QTest::newRow("new sideways, default margins") << 2 << 655 << 8;
}

void TestPrintRenderer::prescriptionValuesStandInTheirBoxes()
{
    QFETCH(int, format);
    QFETCH(int, left);
    QFETCH(int, top);
    rovanel::RxPrintInput input;
    input.patientName = rovanel::utf8ToCp1250("Kovács Dezső");
    input.taj = "987654321";
    input.bno = "J4500";
    input.date = "20261123";
    input.title = 8;
    input.notSubstitutable = true;
    input.drugName = "Algopyrin 500 mg";
    input.serialNumber = "AB1234567";
    rovanel::RxMargins margins{left, top, left, top, left, top};
    const rovanel::PrintLayout layout =
        rovanel::printedPrescription(static_cast<rovanel::RxFormat>(format), input, margins);
    rovanel::testing::ScratchDirectory directory;
    const auto file = directory.path() / "rx.pdf";
    QVERIFY(!rovanel::forms::saveLayoutPdf(QString::fromStdString(file.string()), layout));
    const auto words = rovanel::testing::pdfWords(file);
    QVERIFY2(!words.empty(), "pdftotext (poppler-utils) is needed");
    int checked = 0;
    for (const rovanel::PrintItem& item : layout.pages[0].items) {
        const std::string first(rovanel::itemLines(item.text)[0]);
        if (first.empty()) continue;
        const std::string found =
            rovanel::testing::textAt(words, item.left * rovanel::kMillimetresPerLayoutUnit,
                                     item.top * rovanel::kMillimetresPerLayoutUnit);
        const std::string expected = rovanel::cp1250ToUtf8(first);
        QVERIFY2(found.substr(0, expected.size()) == expected, (item.name + ": " + found).c_str());
        ++checked;
    }
    QVERIFY(checked >= 8);
}

void TestPrintRenderer::previewPaintsTheLayoutSideways()
{
    rovanel::PrintLayout layout;
    layout.orientation = rovanel::PageOrientation::Sideways;
    layout.pages.push_back({{{"a", 100, 100, rovanel::utf8ToCp1250("Előkép"), 10, false}}});
    layout.pages.push_back({{{"b", 100, 100, rovanel::utf8ToCp1250("második"), 10, false}}});
    rovanel::testing::ScratchDirectory directory;
    const auto file = directory.path() / "preview.pdf";
    QPageLayout::Orientation shown = QPageLayout::Portrait;
    const auto previous = rovanel::forms::setPreviewTarget([&](QPrinter& printer, const auto& paint) {
        shown = printer.pageLayout().orientation();
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(QString::fromStdString(file.string()));
        paint(printer);
    });
    rovanel::forms::previewLayout(nullptr, layout);
    rovanel::forms::setPreviewTarget(previous);
    QCOMPARE(shown, QPageLayout::Landscape);
    const auto words = rovanel::testing::pdfWords(file);
    const double at = 100 * rovanel::kMillimetresPerLayoutUnit;
    QCOMPARE(rovanel::testing::textAt(words, at, at, 1), std::string("Előkép"));
    QCOMPARE(rovanel::testing::textAt(words, at, at, 2), std::string("második"));
}

void TestPrintRenderer::unwritablePdfIsRefusedWithTheReason()
{
    rovanel::testing::ScratchDirectory directory;
    directory.write("file", "");
    const QString path = QString::fromStdString((directory.path() / "file" / "rx.pdf").string());
    const auto refused = rovanel::forms::saveLayoutPdf(path, rovanel::PrintLayout{});
    QVERIFY(refused);
    QCOMPARE(*refused, QStringLiteral("A PDF fájl nem írható: ") + path);
}

QTEST_MAIN(TestPrintRenderer)
#include "tst_PrintRenderer.moc"
