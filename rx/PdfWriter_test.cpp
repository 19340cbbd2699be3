#include "rx/PdfWriter.h"

#include <gtest/gtest.h>

#include "db/Cp1250.h"
#include "tests/support/PdfWords.h"
#include "tests/support/ScratchDirectory.h"

namespace rovanel
{
namespace
{

using testing::pdfWords;
using testing::textAt;

TEST(PdfWriter, SidewaysPagesAreLandscapeA4AndEveryPageIsWrittenUnlessTheFileIsRefused)
{
    testing::ScratchDirectory directory;
    directory.write("file", "");
    const auto unwritable = directory.path() / "file" / "rx.pdf";
    const auto refused = writePdf(unwritable, PrintLayout{});
    ASSERT_TRUE(refused);
    EXPECT_EQ(cp1250ToUtf8(*refused), "A PDF fájl nem írható: " + unwritable.string());

    PrintLayout layout;
    layout.orientation = PageOrientation::Sideways;
    layout.pages.resize(3);
    layout.pages[2].items.push_back({"x", 100, 100, "(zárójel) \\ vége", 10, true});
    for (PrintItem& item : layout.pages[2].items) item.text = utf8ToCp1250(item.text);
    const std::string pdf = pdfDocument(layout);
    EXPECT_NE(pdf.find("/MediaBox [0 0 841.89 595.28]"), std::string::npos);
    EXPECT_NE(pdf.find("/Count 3"), std::string::npos);
    ROVANEL_SKIP_READING_PDF();
    ASSERT_FALSE(writePdf(directory.path() / "p.pdf", layout));
    const auto words = pdfWords(directory.path() / "p.pdf");
    EXPECT_EQ(textAt(words, 100 * kMillimetresPerLayoutUnit, 100 * kMillimetresPerLayoutUnit, 3),
              "(zárójel) \\ vége");
    EXPECT_EQ(pdfDocument(layout), pdf);  // the same bytes each time
}

}  // namespace
}  // namespace rovanel
