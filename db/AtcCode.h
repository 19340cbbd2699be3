// Rovanel's 8-character ATC codes (levels of 1, 3, 4, 6 and 8 characters) and the international form.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace rovanel
{

// Lengths of the five levels.
inline constexpr std::array<std::size_t, 5> kAtcLevelLengths = {1, 3, 4, 6, 8};

// The filler after the fifth character of a carried code.
inline constexpr char kAtcFiller = '-';

// A code as a physician types it ("c08ca01", "C08CA", "C08"), upper-cased, in the carried form
// ("C08CA-01", "C08CA-", "C08"). A code already carried, or of another length, is only upper-cased.
[[nodiscard]] std::string atcFromInternational(std::string_view code);

// The international form of a carried code ("C08CA-01" -> "C08CA01", "C08CA-" -> "C08CA").
[[nodiscard]] std::string internationalFromAtc(std::string_view code);

}  // namespace rovanel
