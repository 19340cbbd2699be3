// The NEAK medical-aids catalogue the generator draws its aids from (data/vendor/aids_hu.tsv, embedded at
// build time by gen/tools/embed_data.cpp). Texts are UTF-8; amounts whole forints.
#pragma once

#include <span>

namespace rovanel
{

struct AidBookEntry {
    const char* isoCode;  // 13 or 15 digits; the first 2, 4, ... 12 are the groups
    const char* name;
    const char* packaging;
    long grossPrice;
    long patientFee;
    int supportPercent;
    const char* supportKind;  // NOMIN, FIX, NEMKIV or empty
    int increasedPercent;     // the EU support percent, 0 for none
    long increasedPatientFee;
    const char* productCode;  // TTT
    const char* manufacturer;
    const char* distributor;
};

// Sorted by ISO code.
[[nodiscard]] std::span<const AidBookEntry> aidBook();

}  // namespace rovanel
