#include "db/Cp1250.h"

#include <array>
#include <unordered_map>

namespace rovanel
{
namespace
{

// Unicode code points of the bytes 0x80..0xFF; 0 marks the five bytes Windows-1250 leaves undefined,
// which are carried through as U+FFFD.
constexpr std::array<char16_t, 128> kHighHalf = {
    0x20AC, 0x0000, 0x201A, 0x0000, 0x201E, 0x2026, 0x2020, 0x2021, 0x0000, 0x2030, 0x0160, 0x2039, 0x015A,
    0x0164, 0x017D, 0x0179, 0x0000, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, 0x0000, 0x2122,
    0x0161, 0x203A, 0x015B, 0x0165, 0x017E, 0x017A, 0x00A0, 0x02C7, 0x02D8, 0x0141, 0x00A4, 0x0104, 0x00A6,
    0x00A7, 0x00A8, 0x00A9, 0x015E, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x017B, 0x00B0, 0x00B1, 0x02DB, 0x0142,
    0x00B4, 0x00B5, 0x00B6, 0x00B7, 0x00B8, 0x0105, 0x015F, 0x00BB, 0x013D, 0x02DD, 0x013E, 0x017C, 0x0154,
    0x00C1, 0x00C2, 0x0102, 0x00C4, 0x0139, 0x0106, 0x00C7, 0x010C, 0x00C9, 0x0118, 0x00CB, 0x011A, 0x00CD,
    0x00CE, 0x010E, 0x0110, 0x0143, 0x0147, 0x00D3, 0x00D4, 0x0150, 0x00D6, 0x00D7, 0x0158, 0x016E, 0x00DA,
    0x0170, 0x00DC, 0x00DD, 0x0162, 0x00DF, 0x0155, 0x00E1, 0x00E2, 0x0103, 0x00E4, 0x013A, 0x0107, 0x00E7,
    0x010D, 0x00E9, 0x0119, 0x00EB, 0x011B, 0x00ED, 0x00EE, 0x010F, 0x0111, 0x0144, 0x0148, 0x00F3, 0x00F4,
    0x0151, 0x00F6, 0x00F7, 0x0159, 0x016F, 0x00FA, 0x0171, 0x00FC, 0x00FD, 0x0163, 0x02D9,
};

void appendUtf8(std::string& out, char32_t codePoint)
{
    if (codePoint < 0x80) {
        out.push_back(static_cast<char>(codePoint));
    } else if (codePoint < 0x800) {
        out.push_back(static_cast<char>(0xC0 | (codePoint >> 6)));
        out.push_back(static_cast<char>(0x80 | (codePoint & 0x3F)));
    } else {
        out.push_back(static_cast<char>(0xE0 | (codePoint >> 12)));
        out.push_back(static_cast<char>(0x80 | ((codePoint >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (codePoint & 0x3F)));
    }
}

constexpr char16_t kReplacement = 0xFFFD;

// One UTF-8 character: its code point and byte count. A malformed byte counts 1 and is not valid; a
// character cut off by the end of the text counts 0.
struct Utf8Character {
    char32_t codePoint = 0;
    std::size_t length = 1;
    bool valid = true;
};

Utf8Character decodeUtf8(std::string_view text, std::size_t at)
{
    const auto lead = static_cast<unsigned char>(text[at]);
    Utf8Character c;
    if (lead < 0x80) {
        c.codePoint = lead;
        return c;
    }
    if ((lead & 0xE0) == 0xC0) {
        c = {static_cast<char32_t>(lead & 0x1Fu), 2, true};
    } else if ((lead & 0xF0) == 0xE0) {
        c = {static_cast<char32_t>(lead & 0x0Fu), 3, true};
    } else if ((lead & 0xF8) == 0xF0) {
        c = {static_cast<char32_t>(lead & 0x07u), 4, true};
    } else {
        return {0, 1, false};
    }
    if (at + c.length > text.size()) return {0, 0, false};
    for (std::size_t k = 1; k < c.length; ++k) {
        const auto next = static_cast<unsigned char>(text[at + k]);
        if ((next & 0xC0) != 0x80) return {0, 1, false};
        c.codePoint = (c.codePoint << 6) | (next & 0x3Fu);
    }
    return c;
}

const std::unordered_map<char32_t, char>& reverseTable()
{
    static const std::unordered_map<char32_t, char> table = [] {
        std::unordered_map<char32_t, char> built;
        for (std::size_t i = 0; i < kHighHalf.size(); ++i)
            if (kHighHalf[i] != 0) built.emplace(kHighHalf[i], static_cast<char>(0x80 + i));
        return built;
    }();
    return table;
}

}  // namespace

std::string cp1250ToUtf8(std::string_view text)
{
    std::string out;
    out.reserve(text.size() + text.size() / 8);
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80) {
            out.push_back(c);
        } else {
            const char16_t codePoint = kHighHalf[byte - 0x80];
            appendUtf8(out, codePoint != 0 ? codePoint : char32_t{0xFFFD});
        }
    }
    return out;
}

std::string utf8ToCp1250(std::string_view text)
{
    std::string out;
    out.reserve(text.size());
    const auto& table = reverseTable();
    std::size_t i = 0;
    while (i < text.size()) {
        const Utf8Character c = decodeUtf8(text, i);
        if (c.length == 0) {
            out.push_back('?');
            break;
        }
        i += c.length;
        if (!c.valid) {
            out.push_back('?');
        } else if (c.codePoint < 0x80) {
            out.push_back(static_cast<char>(c.codePoint));
        } else {
            const auto found = table.find(c.codePoint);
            out.push_back(found != table.end() ? found->second : '?');
        }
    }
    return out;
}

std::u16string utf8ToUtf16(std::string_view text)
{
    std::u16string out;
    out.reserve(text.size());
    std::size_t i = 0;
    while (i < text.size()) {
        const Utf8Character c = decodeUtf8(text, i);
        if (c.length == 0) {
            out.push_back(kReplacement);
            break;
        }
        i += c.length;
        if (!c.valid || c.codePoint > 0x10FFFF || (c.codePoint >= 0xD800 && c.codePoint <= 0xDFFF)) {
            out.push_back(kReplacement);
        } else if (c.codePoint >= 0x10000) {
            const char32_t above = c.codePoint - 0x10000;
            out.push_back(static_cast<char16_t>(0xD800 + (above >> 10)));
            out.push_back(static_cast<char16_t>(0xDC00 + (above & 0x3FF)));
        } else {
            out.push_back(static_cast<char16_t>(c.codePoint));
        }
    }
    return out;
}

std::size_t completeUtf8Length(std::string_view text)
{
    // The last lead byte is at most three continuation bytes from the end.
    std::size_t start = text.size();
    for (int back = 0; back < 4 && start > 0; ++back) {
        --start;
        if ((static_cast<unsigned char>(text[start]) & 0xC0) != 0x80)
            return decodeUtf8(text, start).length == 0 ? start : text.size();
    }
    return text.size();
}

}  // namespace rovanel
