#include "catalogues/Formulary.h"

#include <gtest/gtest.h>

#include "db/Cp1250.h"
#include "tests/support/ScratchDirectory.h"

namespace rovanel
{
namespace
{

std::string cp(std::string_view utf8) { return utf8ToCp1250(utf8); }

// "style|text" of each line, texts in UTF-8 with their line ends.
std::string styled(const FonoItem& item)
{
    std::string lines;
    for (const FonoLine& line : item.lines)
        lines += std::string(fonoStyleName(line.style)) + "|" + cp1250ToUtf8(line.text);
    return lines;
}

TEST(ParseFonoItem, StylesEachLineByTheFirstLabelItHolds)
{
    // What the text holds, the text after the "#2" line (UTF-8, LF), and its styled lines.
    using Case = std::tuple<const char*, std::string, std::string>;
    const Case cases[] = {
        {"first line is the title whatever it holds", "Javallat: elöl\nRp.\n",
         "title|Javallat: elöl\nrp|Rp.\n"},
        {"label on its own line, the rest on the next", "Cím\nJavallat: fejfájás\nHatóanyagok: mentol\n",
         "title|Cím\nlabel|Javallat:\ntext| fejfájás\nlabel|Hatóanyagok:\ntext| mentol\n"},
        {"Ellenjavallat: is not Javallat: (case-sensitive)", "Cím\nEllenjavallat: terhesség\n",
         "title|Cím\nlabel|Ellenjavallat:\ntext| terhesség\n"},
        {"a line with both labels is Javallat:, the rest cut after its length from the line's start",
         "Cím\nEllenjavallat: x, Javallat: y\n", "title|Cím\nlabel|Javallat:\ntext|llat: x, Javallat: y\n"},
        {"Javallat: is tested before Rp.", "Cím\nRp. Javallat: z\n",
         "title|Cím\nlabel|Javallat:\ntext|lat: z\n"},
        {"Rp. anywhere colours the whole line", "Cím\nLásd Rp. alatt\nM.f. unguentum\n",
         "title|Cím\nrp|Lásd Rp. alatt\ntext|M.f. unguentum\n"},
        {"a line of just its line end is kept", "Cím\n\nMegjegyzés:\n",
         "title|Cím\ntext|\nlabel|Megjegyzés:\ntext|\n"},
        {"label at the end of the file without line end",
         "Cím\nFigyelmeztetés:", "title|Cím\nlabel|Figyelmeztetés:\n"},
        {"the text ends at the next #1", "Cím\nszöveg\n#1\nMásik\n#2\nMásik szöveg\n",
         "title|Cím\ntext|szöveg\n"},
        {"a line longer than the read buffer comes in pieces",
         "Cím\n" + std::string(kFonoPieceLimit + 10, 'x') + "Rp.\n",
         "title|Cím\ntext|" + std::string(kFonoPieceLimit, 'x') + "rp|" + std::string(10, 'x') + "Rp.\n"},
    };
    for (const auto& [what, body, expected] : cases) {
        SCOPED_TRACE(what);
        const std::string file = cp("bevezető\r\n#1\r\nNév\r\nFoNo VII. 1.1\r\n#2\r\n" + body);
        const FonoItem item = parseFonoItem(file, 0);
        EXPECT_EQ(cp1250ToUtf8(item.name), "Név");
        EXPECT_EQ(styled(item), expected);
    }
}

TEST(ParseFonoItem, MissingMarkersAndLongLinesNeverBorrowTheNextItem)
{
    // What the file lacks, the file, the offset read from, and the item name and line count found.
    using Case = std::tuple<const char*, std::string, std::uint64_t, std::string, std::size_t>;
    const std::string longName(300, 'N');
    const Case cases[] = {
        {"no #1 at all", "szöveg\r\nmég\r\n", 0, "", 0},
        {"offset past the end", "#1\r\nA\r\n#2\r\nx\r\n", 100, "", 0},
        {"no #2: the next item is not read", "#1\r\nA\r\nközte\r\n#1\r\nB\r\n#2\r\nB szöveg\r\n", 0, "A", 0},
        {"name line is the next #1", "#1\r\n#1\r\n#2\r\nx\r\n", 0, "#1", 0},
        {"name cut to 254 characters", "#1\r\n" + longName + "\r\n#2\r\nx\r\n", 0, std::string(254, 'N'), 1},
        {"end of file after the name", "#1\r\nA", 0, "A", 0},
        {"offset inside an item finds the next #1", "#1\r\nA\r\n#2\r\na\r\n#1\r\nB\r\n#2\r\nb\r\n", 3, "B",
         1},
    };
    for (const auto& [what, file, offset, name, lines] : cases) {
        SCOPED_TRACE(what);
        const FonoItem item = parseFonoItem(cp(file), offset);
        EXPECT_EQ(item.name, name);
        EXPECT_EQ(item.lines.size(), lines);
    }
}

TEST(FonoDocument, TitleBlueLabelsGreenBothFourLarger)
{
    const FonoItem item = parseFonoItem(cp("#1\nN\n#2\nCím\nRp.\nJavallat: x\nszöveg\n"), 0);
    TextStyle base;
    base.font = "Courier New";
    base.height = 13;
    const StyledDocument document = fonoDocument(item, base);
    ASSERT_EQ(document.runs().size(), 3u);
    EXPECT_EQ(document.runs()[0].style.colour, kBlue);
    EXPECT_EQ(document.runs()[0].style.height, 17);
    EXPECT_EQ(document.runs()[1].text, "Rp.\nJavallat:\n") << "green runs join";
    EXPECT_EQ(document.runs()[1].style.colour, kFonoGreen);
    EXPECT_EQ(document.runs()[2].text, cp(" x\nszöveg\n"));
    EXPECT_EQ(document.runs()[2].style, base);
}

TEST(FonoCatalogue, ItemsByLineOfTheOffsetListAndNamesMatchedExactly)
{
    testing::ScratchDirectory directory;
    const std::string fono = "#1\r\nA\r\n#2\r\nA szöveg\r\n#1\r\nB\r\n#2\r\nB szöveg\r\n";
    directory.write("fono.dat", fono);
    directory.write("fononev.dat", "A\r\nB\r\nC\r\n");
    directory.write("fonoidx.dat", "0\r\n" + std::to_string(fono.find("#1\r\nB")) + "\r\nx\r\n");
    directory.write("fononr.txt", "Fejezet\r\n\tB\r\n\tA\r\n");
    const FonoCatalogue catalogue = loadFonoCatalogue(directory.path());
    ASSERT_EQ(catalogue.tree.size(), 3u);
    EXPECT_EQ(fonoItemNamed(catalogue, "B"), 1);
    EXPECT_EQ(fonoItemNamed(catalogue, "Fejezet"), -1) << "a chapter is no item";
    EXPECT_EQ(fonoItemNamed(catalogue, "b"), -1);
    EXPECT_EQ(readFonoItem(catalogue, 1)->name, "B");
    EXPECT_EQ(fonoText(*readFonoItem(catalogue, 1)), "B szöveg\n");
    EXPECT_EQ(readFonoItem(catalogue, 2), std::nullopt) << "offset not a number";
    EXPECT_EQ(readFonoItem(catalogue, 3), std::nullopt) << "fewer offset lines than names";
    EXPECT_EQ(readFonoItem(catalogue, -1), std::nullopt) << "a tree node not among the names";
    directory.remove("fono.dat");
    EXPECT_EQ(readFonoItem(catalogue, 0), std::nullopt);
}

}  // namespace
}  // namespace rovanel
