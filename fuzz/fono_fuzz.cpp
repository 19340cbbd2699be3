// The FoNo formulary on a data directory made from the input: an item by its line of fonoidx.dat and
// by its tree node's name, and its styled document. Parameters: item.
#include <algorithm>
#include <cstdint>

#include "catalogues/Formulary.h"
#include "fuzz/FuzzSupport.h"

using namespace rovanel;
using namespace rovanel::fuzzing;

namespace
{

void check(const FonoItem& item)
{
    ROVANEL_FUZZ_CHECK(item.name.size() <= kFonoNameLimit);
    ROVANEL_FUZZ_CHECK(item.name.find_first_of("\r\n") == std::string::npos);
    for (const FonoLine& line : item.lines) {
        ROVANEL_FUZZ_CHECK(!line.text.empty() && line.text.size() <= kFonoPieceLimit + 1);
        ROVANEL_FUZZ_CHECK(line.text.find("#1") == std::string::npos);
    }
    ROVANEL_FUZZ_CHECK(item.lines.empty() || item.lines.front().style == FonoStyle::Title);
    const StyledDocument document = fonoDocument(item, TextStyle{});
    ROVANEL_FUZZ_CHECK(document.plainText() == fonoText(item));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const Parameters parameters = populateFromInput(data, size, "fono_fuzz");
    const FuzzDirectory& directory = fuzzDirectory();
    const FonoCatalogue catalogue = loadFonoCatalogue(directory.path());
    const int item = static_cast<int>(std::clamp<std::int64_t>(parameters.at(0), -2, 1'000'000));
    if (const auto found = readFonoItem(catalogue, item)) check(*found);
    // The first nodes only: each item read is a file read, and the tree may be long.
    for (std::size_t i = 0; i < std::min<std::size_t>(catalogue.tree.size(), 8); ++i) {
        const TreeNode& node = catalogue.tree[i];
        const int named = fonoItemNamed(catalogue, node.text);
        ROVANEL_FUZZ_CHECK(named >= -1 && named < static_cast<int>(catalogue.names.size()));
        if (const auto found = readFonoItem(catalogue, named)) check(*found);
    }
    return 0;
}
