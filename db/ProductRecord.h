// A product's record number: its line in nevrend.dat, its record in nevpos.dat and its entry in KOD.DAT
// table 1. One type carries it from a name list position or a result list row through the found-drug
// table and the drug selection to the description builder and the interaction engine.
#pragma once

#include <cstdint>
#include <optional>

namespace rovanel
{

using ProductRecord = std::int32_t;

// "No product chosen": what an empty list selection or a missing table entry gives. The builders and
// the selection take it and do nothing.
inline constexpr ProductRecord kNoProduct = -1;

// A whole number as a record number (kNoProduct included); nothing when it lies outside the type.
[[nodiscard]] constexpr std::optional<ProductRecord> productRecordOf(long long number)
{
    if (number < kNoProduct || number > INT32_MAX) return std::nullopt;
    return static_cast<ProductRecord>(number);
}

}  // namespace rovanel
