#include "rx/PdfWriter.h"

#include <gtest/gtest.h>

#include "db/Cp1250.h"
#include "rx/RxPrintLayout.h"
#include "tests/support/PdfWords.h"
#include "tests/support/ScratchDirectory.h"

namespace rovanel
{
namespace
{

using testing::pdfWords;
using testing::textAt;

// Every item of a prescription printed as PDF stands, read back by poppler, within 1 mm of its place.
TEST(PdfWriter, PrescriptionValuesStandInTheirBoxesOfEveryFormat)
{
    RxPrintInput input;
    input.patientName = utf8ToCp1250("Kovács Dezső");
    input.taj = "987654321";
    input.bno = "J4500";
    input.date = "20261123";
    input.title = 4;
    input.notSubstitutable = true;
    input.copy = true;
    input.drugName = "Algopyrin 500 mg";
    input.specialistStamp = "12345";
    input.serialNumber = "AB1234567";
    const RxMargins margins{-12, 20, 100, -5, 655, 8};
    testing::ScratchDirectory directory;
    for (const RxFormat format : {RxFormat::Old, RxFormat::NewUpright, RxFormat::NewSideways}) {
        SCOPED_TRACE(static_cast<int>(format));
        const PrintLayout layout = printedPrescription(format, input, margins);
        const auto file = directory.path() / "rx.pdf";
        ASSERT_FALSE(writePdf(file, layout));
        const auto words = pdfWords(file);
        ASSERT_FALSE(words.empty()) << "pdftotext (poppler-utils) is needed";
        int checked = 0;
        for (const PrintItem& item : layout.pages[0].items) {
            const std::string first(itemLines(item.text)[0]);
            if (first.find_first_not_of(' ') == std::string::npos) continue;
            SCOPED_TRACE(item.name);
            const std::string expected = cp1250ToUtf8(first.substr(first.find_first_not_of(' ')));
            const double left = (item.left + (first.find_first_not_of(' ') * item.fontPoints * 0.6 / 0.75)) *
                                kMillimetresPerLayoutUnit;
            const std::string found = textAt(words, left, item.top * kMillimetresPerLayoutUnit);
            EXPECT_EQ(found.substr(0, expected.size()), expected);
            ++checked;
        }
        EXPECT_GE(checked, 8);
    }
}

TEST(PdfWriter, SidewaysPagesAreLandscapeA4AndEveryPageIsWritten)
{
    PrintLayout layout;
    layout.orientation = PageOrientation::Sideways;
    layout.pages.resize(3);
    layout.pages[2].items.push_back({"x", 100, 100, "(zárójel) \\ vége", 10, true});
    for (PrintItem& item : layout.pages[2].items) item.text = utf8ToCp1250(item.text);
    const std::string pdf = pdfDocument(layout);
    EXPECT_NE(pdf.find("/MediaBox [0 0 841.89 595.28]"), std::string::npos);
    EXPECT_NE(pdf.find("/Count 3"), std::string::npos);
    testing::ScratchDirectory directory;
    ASSERT_FALSE(writePdf(directory.path() / "p.pdf", layout));
    const auto words = pdfWords(directory.path() / "p.pdf");
    EXPECT_EQ(textAt(words, 100 * kMillimetresPerLayoutUnit, 100 * kMillimetresPerLayoutUnit, 3),
              "(zárójel) \\ vége");
    EXPECT_EQ(pdfDocument(layout), pdf);  // the same bytes each time
}

TEST(PdfWriter, AnUnwritableFileIsRefusedWithTheReason)
{
    testing::ScratchDirectory directory;
    directory.write("file", "");
    const auto file = directory.path() / "file" / "rx.pdf";
    const auto refused = writePdf(file, PrintLayout{});
    ASSERT_TRUE(refused);
    EXPECT_EQ(cp1250ToUtf8(*refused), "A PDF fájl nem írható: " + file.string());
}

}  // namespace
}  // namespace rovanel
