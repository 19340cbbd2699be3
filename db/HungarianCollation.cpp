#include "db/HungarianCollation.h"

#include <array>
#include <cstdint>

namespace rovanel
{
namespace
{

unsigned char upperByte(unsigned char c)
{
    if (c >= 'a' && c <= 'z') return static_cast<unsigned char>(c - 0x20);
    if (c >= 0xE0 && c != 0xF7 && c != 0xFF) return static_cast<unsigned char>(c - 0x20);
    switch (c) {
        case 0x9A:
            return 0x8A;  // š
        case 0x9C:
            return 0x8C;  // ś
        case 0x9D:
            return 0x8D;  // ť
        case 0x9E:
            return 0x8E;  // ž
        case 0x9F:
            return 0x8F;  // ź
        case 0xB3:
            return 0xA3;  // ł
        case 0xB9:
            return 0xA5;  // ą
        case 0xBE:
            return 0xBC;  // ľ
        case 0xBF:
            return 0xAF;  // ż
        default:
            return c;
    }
}

// First-level letter of an upper-case byte: the ASCII letter it sorts with, and whether it is accented.
struct Letter {
    char base = 0;
    std::uint8_t accent = 0;
};

Letter letterOf(unsigned char c)
{
    if (c >= 'A' && c <= 'Z') return {static_cast<char>(c), 0};
    switch (c) {
        case 0xC1:
            return {'A', 1};  // Á
        case 0xC4:
            return {'A', 2};  // Ä
        case 0xC9:
            return {'E', 1};  // É
        case 0xCB:
            return {'E', 2};  // Ë
        case 0xCD:
            return {'I', 1};  // Í
        case 0xD3:
            return {'O', 1};  // Ó
        case 0xD6:
            return {'[', 0};  // Ö, a letter of its own after O
        case 0xD5:
            return {'[', 1};  // Ő
        case 0xDA:
            return {'U', 1};  // Ú
        case 0xDC:
            return {'\\', 0};  // Ü, a letter of its own after U
        case 0xDB:
            return {'\\', 1};  // Ű
        case 0xC8:
            return {'C', 3};  // Č
        case 0x8A:
            return {'S', 3};  // Š
        case 0x8E:
            return {'Z', 3};  // Ž
        default:
            return {};
    }
}

// Rank of a first-level letter; digraphs take the rank after their first letter.
std::uint8_t rankOf(char base, int digraph)
{
    // Ö and Ü ('[' and '\\') sort right after O and U.
    static constexpr std::string_view kOrder = "ABCDEFGHIJKLMNO[PQRSTU\\VWXYZ";
    const std::size_t at = kOrder.find(base);
    if (at == std::string_view::npos) return 0xF0;
    return static_cast<std::uint8_t>(0x40 + at * 4 + digraph);
}

}  // namespace

std::string upperCaseCp1250(std::string_view text)
{
    std::string upper(text);
    for (char& c : upper) c = static_cast<char>(upperByte(static_cast<unsigned char>(c)));
    return upper;
}

std::string hungarianSortKey(std::string_view text)
{
    const std::string upper = upperCaseCp1250(text);
    std::string primary;
    std::string secondary;
    const auto baseAt = [&](std::size_t i) -> char {
        return i < upper.size() ? letterOf(static_cast<unsigned char>(upper[i])).base : 0;
    };
    for (std::size_t i = 0; i < upper.size();) {
        const auto c = static_cast<unsigned char>(upper[i]);
        const Letter letter = letterOf(c);
        if (letter.base == 0) {
            if (c == ' ')
                primary += '\x02';
            else if (c >= '0' && c <= '9')
                primary += static_cast<char>(0x20 + (c - '0'));
            else
                primary += '\x03';
            secondary += '\x01';
            ++i;
            continue;
        }
        const char next = baseAt(i + 1);
        int digraph = 0;
        std::size_t length = 1;
        if (letter.accent == 0) {
            if (letter.base == 'D' && next == 'Z' && baseAt(i + 2) == 'S') {
                digraph = 2, length = 3;
            } else if ((letter.base == 'C' && next == 'S') || (letter.base == 'D' && next == 'Z') ||
                       (letter.base == 'G' && next == 'Y') || (letter.base == 'L' && next == 'Y') ||
                       (letter.base == 'N' && next == 'Y') || (letter.base == 'S' && next == 'Z') ||
                       (letter.base == 'T' && next == 'Y') || (letter.base == 'Z' && next == 'S')) {
                digraph = 1, length = 2;
            }
        }
        primary += static_cast<char>(rankOf(letter.base, digraph));
        secondary += static_cast<char>(0x01 + letter.accent);
        i += length;
    }
    return primary + '\x01' + secondary + '\x01' + upper + '\x01' + std::string(text);
}

}  // namespace rovanel
