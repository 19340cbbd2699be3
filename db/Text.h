// Text helpers shared by every reader of the data directory. All text is Windows-1250 bytes.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

namespace rovanel
{

// Cuts the text at its first '~' and removes trailing blanks, tabs, CRs and LFs, but never the first
// character: "\r\n" trims to "\r" and "   " to " ".
[[nodiscard]] std::string_view trim(std::string_view text);

// The same without the cut at '~', for a text known to hold none (a loader that found no '~' in the
// whole file trims each of its lines this way and saves a search per line).
// Inline: the start-up loader calls it for every name and code.
[[nodiscard]] inline std::string_view trimEnd(std::string_view text)
{
    constexpr std::uint64_t kEightBlanks = 0x2020202020202020ULL;
    std::size_t length = text.size();
    // The first character is never removed: a lone "\r" line stays "\r".
    while (length > 1) {
        // Fixed-width files pad with blanks: take the blanks at the end of the last eight bytes at once.
        if (length > 9) {
            std::uint64_t word = 0;
            std::memcpy(&word, text.data() + length - 8, sizeof word);
            const std::uint64_t differences = word ^ kEightBlanks;  // zero bytes where there is a blank
            const std::size_t blanks =
                differences == 0 ? 8 : static_cast<std::size_t>(std::countl_zero(differences)) / 8;
            if constexpr (std::endian::native == std::endian::little) {
                if (blanks > 0) {
                    length -= blanks;
                    continue;
                }
            } else if (differences == 0) {
                length -= 8;
                continue;
            }
        }
        const char c = text[length - 1];
        if (c != ' ' && c != '\t' && c != '\r' && c != '\n') break;
        --length;
    }
    return text.substr(0, length);
}

// Removes leading blanks (only blanks: a tab stays).
[[nodiscard]] std::string_view stripLeadingBlanks(std::string_view text);

// Removes blanks, tabs, CRs and LFs at both ends (INI and registry lines, support-line entries).
[[nodiscard]] std::string_view stripBlanks(std::string_view text);

// ASCII letters in upper case; every other byte, Windows-1250 letters included, as it is.
[[nodiscard]] std::string upperAscii(std::string_view text);

// Equal but for the case of ASCII letters (INI sections and keys, registry names, file names).
[[nodiscard]] bool equalsIgnoringAsciiCase(std::string_view a, std::string_view b);

// Pads with blanks to width - 1 characters, cutting a longer text there (the last byte of a
// width-byte buffer is its terminator).
[[nodiscard]] std::string padTo(std::string_view text, std::size_t width);

// Record `index` of equal-length records; a record cut short by the end of the data is no record.
[[nodiscard]] std::optional<std::string_view> fixedRecord(std::string_view data, std::size_t length,
                                                          std::size_t index);

// A whole signed decimal number, optionally surrounded by blanks; anything else gives nothing.
[[nodiscard]] std::optional<std::int64_t> parseInteger(std::string_view text);

// The leading number of a text as scanf's "%ld" reads it: leading white space, an optional sign,
// digits; stops at the first non-digit. No digits, or overflow of 32 bits, gives nothing.
[[nodiscard]] std::optional<std::int32_t> scanInteger(std::string_view text, std::size_t* consumed = nullptr);

// Splits data into lines at LF, dropping the LF (a CR before it stays; use trim to remove it). A last line
// without LF counts; an empty tail does not. Calls `visit(line)` for each; stops early when visit returns
// false.
template <typename Visit>
void forEachLine(std::string_view data, Visit&& visit)
{
    std::size_t start = 0;
    while (start < data.size()) {
        std::size_t end = data.find('\n', start);
        if (end == std::string_view::npos) end = data.size();
        if (!visit(data.substr(start, end - start))) return;
        start = end + 1;
    }
}

// True when `text` contains `part`.
[[nodiscard]] inline bool contains(std::string_view text, std::string_view part)
{
    return text.find(part) != std::string_view::npos;
}

}  // namespace rovanel
