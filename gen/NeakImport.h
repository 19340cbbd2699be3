// The importer behind `rvcli import-neak`: reads the public NEAK tables in their published layouts
// (monthly turnover, the PUPHAX ATC book, the EU points with their texts, BNO links and prescriber
// rights, the BNO list, the medical-aids catalogue) and writes a
// complete data directory of docs/data-format.md. Same input, byte-identical output. The choices it
// makes are explained in docs/decisions/real-data.md.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace rovanel
{

struct NeakImportOptions {
    std::string month = "202501";   // YYYYMM of the turnover file the products come from
    std::string also;               // an older month: adds its products missing from `month`, and marks
                                    // the products it lacks as new
    std::filesystem::path whoDdd;   // the user's WHO ATC/DDD table: names of unnamed groups, daily doses
                                    // of simple oral solids without them (the output must not be shipped)
    std::filesystem::path euLinks;  // the user's product-to-point links ("TTT;EUPONT_ID"): real points
                                    // in place of the placeholders
};

// What the import did (texts in Windows-1250).
struct NeakImportReport {
    int turnoverRows = 0, excluded = 0;  // turnover rows read; products left out by their TTT kind
    int products = 0, medicines = 0, nutrition = 0, others = 0, olderOnly = 0, newProducts = 0;
    int atcGroups = 0, pseudoGroups = 0, ingredients = 0, forms = 0, regulations = 0, placeholders = 0;
    int namesCut = 0, nameClashes = 0, withoutPrice = 0, withoutDailyDoses = 0, groupsWithoutName = 0;
    int withPlaceholder = 0;  // products whose indication-bound supports use a placeholder point
    int bnoCodes = 0, bnoNodes = 0, bnoRules = 0, qualifications = 0, unrestrictedPoints = 0, titleLines = 0;
    int aids = 0, aidGroups = 0;
    int linkedProducts = 0, whoNames = 0, whoDoses = 0;  // from --eu-links and --who-ddd
    std::vector<std::string> warnings;                   // a few examples of each kind, "kind: detail"
    std::vector<std::string> problems;  // what the database check found in the output (empty when none)
};

// The files the importer reads, relative to the source directory (the month replaces YYYYMM).
inline constexpr std::string_view kTurnoverFile =
    "neak_forgalmi_adatok/gyogyszer_orszagos_forgalom_YYYYMM.csv";
inline constexpr std::string_view kAtcBookFile = "neak_puphax/ATCKONYV.csv";
inline constexpr std::string_view kEuPointsFile = "neak_pupha_2024-03/EUPONTOK.csv";
inline constexpr std::string_view kEuTextsFile = "neak_pupha_2024-03/EUINDIKACIOK.csv";
inline constexpr std::string_view kBnoCodesFile = "neak_pupha_2024-03/BNOKODOK.csv";
inline constexpr std::string_view kBnoLinksFile = "neak_pupha_2024-03/BNOHOZZAR.csv";
inline constexpr std::string_view kRightsFile = "neak_pupha_2024-03/EUJOGHOZZAR.csv";
inline constexpr std::string_view kSpecialtiesFile = "neak_pupha_2024-03/SZAKVKODOK.csv";
inline constexpr std::string_view kAidsFile = "neak_pupha_2025-12_hdd/gyse-database.json";

// Called once per stage with a short English description ("reading the turnover of 202501").
using ImportProgress = std::function<void(std::string_view stage)>;

// Nothing and the reason in `error` when an input is missing or malformed (the file and the line or
// column named) or the output cannot be written.
[[nodiscard]] std::optional<NeakImportReport> importNeak(const std::filesystem::path& source,
                                                         const std::filesystem::path& output,
                                                         const NeakImportOptions& options, std::string* error,
                                                         const ImportProgress& progress = {});

// The 48-byte display name of a product: `name` (cut and its form words shortened when needed) and
// the compact pack of `pack` ("30x buborékcsomagolásban" -> "30X"). Windows-1250. `cut` tells whether
// the name lost bytes.
[[nodiscard]] std::string displayName(std::string_view name, std::string_view pack, bool* cut = nullptr);

}  // namespace rovanel
