// The INI reader and writer. Segments: the file's content, a section, a key, a value. Whatever the file
// holds, setting a value must make it readable and must not change any other value the file holds.
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "app/IniFile.h"
#include "db/Text.h"
#include "fuzz/FuzzSupport.h"

using namespace rovanel;
using namespace rovanel::fuzzing;

namespace
{

// A name or value the file format can carry: one line, no blanks at its ends, no '=' in a key, no
// section bracket or quote at the start.
bool writable(std::string_view text, bool isKey)
{
    if (text.empty() || text.size() > 200 || stripBlanks(text) != text) return false;
    if (text.find_first_of("\r\n") != std::string_view::npos) return false;
    if (text.front() == '[' || text.front() == '"' || text.front() == '\'') return false;
    if (isKey && text.find('=') != std::string_view::npos) return false;
    return true;
}

// Every (section, key) pair of the content, as a reader walking it line by line sees them.
std::vector<std::pair<std::string, std::string>> keysOf(std::string_view content)
{
    std::vector<std::pair<std::string, std::string>> keys;
    std::string section;
    std::size_t start = 0;
    while (start < content.size() && keys.size() < 64) {
        std::size_t end = content.find('\n', start);
        if (end == std::string_view::npos) end = content.size();
        const std::string_view line = stripBlanks(content.substr(start, end - start));
        start = end + 1;
        if (line.size() >= 2 && line.front() == '[' && line.find(']') != std::string_view::npos) {
            section = std::string(stripBlanks(line.substr(1, line.find(']') - 1)));
            continue;
        }
        const std::size_t equals = line.find('=');
        if (equals != std::string_view::npos)
            keys.emplace_back(section, std::string(stripBlanks(line.substr(0, equals))));
    }
    return keys;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto segments = splitSegments(std::string_view(reinterpret_cast<const char*>(data), size));
    const std::string_view content = segments[0];
    const std::string_view section = segments.size() > 1 ? segments[1] : "Rovanel Beallitasok";
    const std::string_view key = segments.size() > 2 ? segments[2] : "Kulcs";
    const std::string_view value = segments.size() > 3 ? segments[3] : "Ertek";

    (void)findProfileValue(content, section, key);
    const std::string written = setProfileValue(content, section, key, value);
    if (!writable(section, true) || section.find(']') != std::string_view::npos || !writable(key, true) ||
        !writable(value, false))
        return 0;
    // The value reads back exactly.
    const auto readBack = findProfileValue(written, section, key);
    ROVANEL_FUZZ_CHECK(readBack && *readBack == value);
    // What the user wrote before stays: every other key reads as it did.
    for (const auto& [otherSection, otherKey] : keysOf(content)) {
        if (equalsIgnoringAsciiCase(otherSection, section) && equalsIgnoringAsciiCase(otherKey, key))
            continue;
        ROVANEL_FUZZ_CHECK(findProfileValue(content, otherSection, otherKey) ==
                           findProfileValue(written, otherSection, otherKey));
    }
    // Writing the same value again changes nothing.
    ROVANEL_FUZZ_CHECK(setProfileValue(written, section, key, value) == written);
    return 0;
}
