// The tree-file parser: every line is a node, depths step down freely but up by one at most.
#include <algorithm>
#include <cstdint>
#include <string_view>

#include "db/Text.h"
#include "db/TreeFile.h"
#include "fuzz/FuzzSupport.h"

using namespace rovanel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto nodes = parseTreeText(text);
    std::size_t lines = 0;
    rovanel::forEachLine(text, [&](std::string_view) { return ++lines, true; });
    ROVANEL_FUZZ_CHECK(nodes.size() == lines);
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        ROVANEL_FUZZ_CHECK(nodes[i].depth >= 0);
        ROVANEL_FUZZ_CHECK(i == 0 ? nodes[i].depth == 0 : nodes[i].depth <= nodes[i - 1].depth + 1);
        const std::string& node = nodes[i].text;
        ROVANEL_FUZZ_CHECK(node.find('\n') == std::string::npos);
        ROVANEL_FUZZ_CHECK(node.empty() || (node.front() != '\t' && node.back() != ' ' &&
                                            node.back() != '\t' && node.back() != '\r'));
    }
    return 0;
}
