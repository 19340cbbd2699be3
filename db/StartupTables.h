// The start-up loader: message table, counts, code tables, pair and short-text tables and the product
// names, read once when the main window is created and kept for the whole run.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "db/MessageTable.h"
#include "db/ProductRecord.h"
#include "db/TextList.h"

namespace rovanel
{

// The thirteen counts of inf.dat, by their 1-based position.
struct DatabaseCounts {
    std::array<std::int32_t, 13> values{};
    [[nodiscard]] std::int32_t operator[](int position) const { return values[position - 1]; }
    [[nodiscard]] std::int32_t products() const { return values[0]; }           // N
    [[nodiscard]] std::int32_t atcGroups() const { return values[1]; }          // table 2
    [[nodiscard]] std::int32_t sideEffects() const { return values[2]; }        // table 4
    [[nodiscard]] std::int32_t contraindications() const { return values[3]; }  // table 3
    [[nodiscard]] std::int32_t nutrition() const { return values[10]; }         // K1
    [[nodiscard]] std::int32_t others() const { return values[11]; }            // K2
    [[nodiscard]] std::int32_t medicines() const { return values[0] - values[10] - values[11]; }
};

// How far the loader got; it stops at the first failing step and keeps what it read before.
enum class LoadStep {
    Started,     // nothing but the message table and the flag
    Counts,      // inf.dat read
    CodeTables,  // KOD.DAT read (a missing KOD.DAT gives empty texts)
    Pairs,       // xd.dat read
    ShortTexts,  // x.dat read
    Complete     // nevrend.dat read into the name list
};

struct StartupTables {
    std::filesystem::path dataDirectory;
    MessageTable messages;
    bool fullPriceDailyCost = false;  // "NapiKezTeljesArbol" contains "IGEN" in the user's RV.INI
    DatabaseCounts counts;
    TextList productCodes;                                     // KOD.DAT table 1, by record number
    TextList atcGroupCodes;                                    // table 2, by group (tree node) number
    TextList contraindicationCodes;                            // table 3
    TextList sideEffectCodes;                                  // table 4
    std::vector<std::pair<std::int32_t, std::int32_t>> pairs;  // xd.dat
    std::vector<std::string> shortTexts;                       // x.dat
    TextList productNames;                                     // nevrend.dat, by record number
    LoadStep reached = LoadStep::Started;

    // Name of product `record`, or the empty text for a number outside the list.
    [[nodiscard]] std::string_view productName(ProductRecord record) const;
    // Record number of the product whose code equals `code` exactly (first match), or kNoProduct.
    [[nodiscard]] ProductRecord recordOfCode(std::string_view code) const;
    // Number of the contraindication whose code equals `code` exactly (first match), or -1.
    [[nodiscard]] std::int32_t contraindicationOfCode(std::string_view code) const;
};

// Loads everything from `dataDirectory`; `userIni` is the user's own RV.INI (userIniPath), from which
// only "NapiKezTeljesArbol" is read.
[[nodiscard]] StartupTables loadStartupTables(const std::filesystem::path& dataDirectory,
                                              const std::filesystem::path& userIni);

// The files the loader reads, in its order (for benchmarks and corruption tests).
extern const std::array<std::string_view, 7> kStartupFileNames;

// Reads a file into `lines` the way the line-list loader does: each line cut after `columnLimit`
// characters (0 = no limit) and trimmed. False when the file cannot be opened.
[[nodiscard]] bool loadLineList(const std::filesystem::path& path, std::size_t columnLimit, TextList& lines);

}  // namespace rovanel
