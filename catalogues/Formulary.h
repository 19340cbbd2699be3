// The FoNo magistral formulary (fononr.txt, fononev.dat, fonoidx.dat, fono.dat; docs/data-format.md
// "FoNo formulary"): the chapter tree, the item names, and one item's text with the style of each line.
// All text is Windows-1250.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "db/StyledDocument.h"
#include "db/TreeFile.h"

namespace rovanel
{

inline constexpr std::uint32_t kFonoGreen = 0x008000;
inline constexpr std::size_t kFonoNameLimit = 254;
// fono.dat is read in pieces of at most this many bytes (a longer line comes in several pieces).
inline constexpr std::size_t kFonoPieceLimit = 1023;

struct FonoCatalogue {
    std::filesystem::path directory;
    std::vector<TreeNode> tree;        // fononr.txt
    std::vector<std::string> names;    // fononev.dat, line k = item k
    std::vector<std::string> offsets;  // fonoidx.dat, line k = where the search for item k starts
};

// Reads the three list files; a missing file leaves its part empty.
[[nodiscard]] FonoCatalogue loadFonoCatalogue(const std::filesystem::path& directory);

enum class FonoStyle { Title, Label, Rp, Text };

// One line as the text box receives it; `text` keeps its line end ("\n") when it had one.
struct FonoLine {
    FonoStyle style = FonoStyle::Text;
    std::string text;
    friend bool operator==(const FonoLine&, const FonoLine&) = default;
};

struct FonoItem {
    std::string name;  // the line after "#1", without CR and LF, at most kFonoNameLimit characters
    std::vector<FonoLine> lines;
};

// Item `item` of the catalogue: fono.dat searched from line `item` of fonoidx.dat. Nothing for an item
// outside the list, an offset that is no number or lies past the end, or a missing fono.dat.
[[nodiscard]] std::optional<FonoItem> readFonoItem(const FonoCatalogue& catalogue, int item);

// The item whose "#1" line is the first at or after `offset` in fono.dat's bytes.
[[nodiscard]] FonoItem parseFonoItem(std::string_view fonoDat, std::uint64_t offset);

// The item's lines in the rich-text box's styles: the title blue and the labels and "Rp." lines green,
// both four larger than `base`.
[[nodiscard]] StyledDocument fonoDocument(const FonoItem& item, const TextStyle& base);

// The item's text as the box shows it (the text handed to a prescription).
[[nodiscard]] std::string fonoText(const FonoItem& item);

// The item whose name is exactly `name` (the first one); -1 when none is.
[[nodiscard]] int fonoItemNamed(const FonoCatalogue& catalogue, std::string_view name);

// The style's name as rvcli prints it: title, label, rp or text.
[[nodiscard]] std::string_view fonoStyleName(FonoStyle style);

}  // namespace rovanel
