// The Hungarian ATC book the database generator draws its groups and substances from: a subset of the
// NEAK ATC book (data/vendor/atc_hu.tsv), embedded so that the generator reads no file at run time.
#pragma once

#include <span>

namespace rovanel
{

struct AtcBookEntry {
    const char* code;  // international form: 1, 3, 4, 5 or 7 characters ("C08CA01")
    const char* name;  // Hungarian name, UTF-8
};

// Every entry sorted by code; each substance (7 characters) has all four ancestor groups.
[[nodiscard]] std::span<const AtcBookEntry> atcBook();

}  // namespace rovanel
