// The fields of one se.dat line (docs/data-format.md "Medical aids"), numbered from 0; the reader and
// the generator both take the positions from here.
#pragma once

#include <cstddef>

namespace rovanel::aid
{

inline constexpr std::size_t kCode = 0;
inline constexpr std::size_t kName = 1;
inline constexpr std::size_t kPackaging = 2;
inline constexpr std::size_t kFullPrice = 3;
inline constexpr std::size_t kSupport = 4;
inline constexpr std::size_t kPayable = 5;
inline constexpr std::size_t kIncreasedPayable = 6;
inline constexpr std::size_t kIncreasedSupport = 7;
inline constexpr std::size_t kHighlightedPayable = 8;
inline constexpr std::size_t kHighlightedSupport = 9;
inline constexpr std::size_t kStandardNoteMark = 10;  // "I": the standard note applies
inline constexpr std::size_t kQuantityNormative = 11;
inline constexpr std::size_t kQuantityIncreased = 12;
inline constexpr std::size_t kQuantityHighlighted = 13;
inline constexpr std::size_t kWearNormative = 14;
inline constexpr std::size_t kWearIncreased = 15;
inline constexpr std::size_t kWearHighlighted = 16;
inline constexpr std::size_t kProductCode = 17;  // the nine-digit TTT code
inline constexpr std::size_t kManufacturer = 18;
inline constexpr std::size_t kDistributor = 19;
inline constexpr std::size_t kSupportPercent = 20;
inline constexpr std::size_t kSupportKind = 21;  // NOMIN, FIX, NEMKIV or empty
inline constexpr std::size_t kIncreasedPercent = 22;
inline constexpr std::size_t kIsoCode = 23;  // spaced ISO 9999 notation
inline constexpr std::size_t kReserved = 24;
inline constexpr std::size_t kFieldCount = 25;

// A se.dat line's longest length and a semegj.dat line's, line end included.
inline constexpr std::size_t kLineLimit = 85'999;
inline constexpr std::size_t kNoteLineLimit = 63'999;
// A note's code is kept in an 11-byte slot.
inline constexpr std::size_t kNoteCodeLength = 10;

}  // namespace rovanel::aid
