// The own magistral list: MagiList.txt read back, and a typed name checked before it becomes a file
// name. Segments: the list's content, then a name.
#include <cstdint>

#include "catalogues/MagiStore.h"
#include "fuzz/FuzzSupport.h"

using namespace rovanel;
using namespace rovanel::fuzzing;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto segments = splitSegments(std::string_view(reinterpret_cast<const char*>(data), size));
    const std::string_view list = segments.size() > 1 ? segments[1] : std::string_view{};
    std::size_t lineEnds = 0;
    for (const char c : list) lineEnds += c == '\n';
    const auto names = parseRecipeList(list);
    ROVANEL_FUZZ_CHECK(names.size() == lineEnds + (list.empty() || list.back() == '\n' ? 0 : 1));
    for (const std::string& name : names) ROVANEL_FUZZ_CHECK(name.find('\n') == std::string::npos);

    const std::string_view name = segments.size() > 2 ? segments[2] : segments.front();
    if (!checkRecipeName(name)) {
        // A name taken can neither leave the folder nor be refused by Windows.
        ROVANEL_FUZZ_CHECK(!name.empty() && name.size() <= kRecipeNameLimit);
        ROVANEL_FUZZ_CHECK(name.find_first_of("\\/:*?\"<>|") == std::string_view::npos);
        ROVANEL_FUZZ_CHECK(name.back() != '.' && name.back() != ' ');
        for (const char c : name) ROVANEL_FUZZ_CHECK(static_cast<unsigned char>(c) >= 0x20);
    }
    return 0;
}
