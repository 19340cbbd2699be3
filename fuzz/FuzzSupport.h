// Shared pieces of the fuzz targets: how one fuzz input becomes a small data directory, and how a target
// states an invariant. An input is a parameter line followed by the files of the target's layout, each
// segment separated by kSegmentSeparator; files the input does not reach are missing from the directory.
#pragma once

#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "db/StartupTables.h"
#include "fuzz/FuzzLayouts.h"
#include "tests/support/ScratchDirectory.h"

namespace rovanel::fuzzing
{

// Stops the run with the broken invariant; libFuzzer saves the input that caused it.
#define ROVANEL_FUZZ_CHECK(condition)                                                               \
    do {                                                                                            \
        if (!(condition)) {                                                                         \
            std::fprintf(stderr, "invariant broken: %s (%s:%d)\n", #condition, __FILE__, __LINE__); \
            std::abort();                                                                           \
        }                                                                                           \
    } while (false)

// The input cut at every separator.
inline std::vector<std::string_view> splitSegments(std::string_view input)
{
    std::vector<std::string_view> segments;
    std::size_t start = 0;
    while (true) {
        const std::size_t at = input.find(kSegmentSeparator, start);
        if (at == std::string_view::npos) {
            segments.push_back(input.substr(start));
            return segments;
        }
        segments.push_back(input.substr(start, at - start));
        start = at + kSegmentSeparator.size();
    }
}

// The whole numbers of the parameter line, in order; text between them is skipped, and a parameter the
// line does not hold reads as `fallback`.
class Parameters
{
public:
    explicit Parameters(std::string_view line)
    {
        const char* position = line.data();
        const char* end = line.data() + line.size();
        while (position < end && m_values.size() < 64) {
            std::int64_t value = 0;
            const auto [next, error] = std::from_chars(position, end, value);
            if (error == std::errc{}) {
                m_values.push_back(value);
                position = next;
            } else {
                ++position;
            }
        }
    }
    [[nodiscard]] std::int64_t at(std::size_t index, std::int64_t fallback = 0) const
    {
        return index < m_values.size() ? m_values[index] : fallback;
    }

private:
    std::vector<std::int64_t> m_values;
};

// A data directory of this process, created once under the temporary folder (scripts/fuzz points
// TMPDIR at a folder it removes afterwards) and rewritten for every input.
class FuzzDirectory : public testing::ScratchDirectory
{
public:
    // Writes segment i + 1 of `segments` as file `names[i]`; removes the files without a segment.
    void populate(const std::vector<std::string_view>& segments, const std::vector<std::string_view>& names)
    {
        for (std::size_t i = 0; i < names.size(); ++i) {
            if (i + 1 < segments.size())
                write(names[i], segments[i + 1]);
            else
                remove(names[i]);
        }
    }
};

// One directory for the whole run of a fuzz target.
inline FuzzDirectory& fuzzDirectory()
{
    static FuzzDirectory directory;
    return directory;
}

// Writes `target`'s files from the input into the fuzz directory; gives the input's parameter line.
inline Parameters populateFromInput(const std::uint8_t* data, std::size_t size, std::string_view target)
{
    const auto segments = splitSegments(std::string_view(reinterpret_cast<const char*>(data), size));
    fuzzDirectory().populate(segments, layoutFiles(target));
    return Parameters(segments.front());
}

// The start-up tables of the fuzz directory, its RV.INI read as the user's own.
inline StartupTables loadFuzzTables()
{
    return loadStartupTables(fuzzDirectory().path(), fuzzDirectory().path() / "RV.INI");
}

}  // namespace rovanel::fuzzing
