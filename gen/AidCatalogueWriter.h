// Writes the medical aids catalogue (senrend2.dat, sekod2.dat, sepos.dat, seiso.dat, senev.dat,
// semegj.dat, se.dat) from the NEAK catalogue of gen/AidBook.h: every aid for 10,000 products and more,
// an even selection of a third of the product count (at least 60) below, so the group tree keeps its
// real shape. Quantities, wearing periods, the standard-note mark and the notes are the generator's own.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace rovanel
{

struct GeneratorOptions;
struct AidBookEntry;

// The files' names and bytes (Windows-1250, CR LF).
[[nodiscard]] std::vector<std::pair<std::string, std::string>> aidCatalogueFiles(
    const GeneratorOptions& options);

// The files for `aids` (sorted by code; every one kept). With `ownDetailsSeed` the generator's own
// quantities, wearing periods, standard-note marks (drawn from the seed) and notes; without it
// quantities and periods are "-", every aid carries the standard note and semegj.dat is empty.
[[nodiscard]] std::vector<std::pair<std::string, std::string>> aidCatalogueFiles(
    const std::vector<const AidBookEntry*>& aids, std::optional<std::uint64_t> ownDetailsSeed);

// Writes them into `directory`; false and a reason in `error` when one cannot be written.
[[nodiscard]] bool writeAidCatalogue(const std::filesystem::path& directory, const GeneratorOptions& options,
                                     std::string* error);

}  // namespace rovanel
