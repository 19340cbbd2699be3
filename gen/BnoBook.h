// The Hungarian BNO (ICD-10) codes and names the generator builds bno.tre from: NEAK's public BNO list
// (data/vendor/bno_hu.tsv), embedded so that the generator reads no file at run time.
#pragma once

#include <span>

namespace rovanel
{

struct BnoBookEntry {
    const char* code;  // 3, 4 or 5 characters ("I10", "I109", "I1090")
    const char* name;  // Hungarian name, UTF-8
};

// Every entry, sorted by code.
[[nodiscard]] std::span<const BnoBookEntry> bnoBook();

}  // namespace rovanel
