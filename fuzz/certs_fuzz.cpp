// The certificates on a data directory made from the input: the public-care list read and its
// certificate built and laid out, and the specialist recommendation filled (its active ingredient looked
// up in atcnrend.dat) and laid out. Parameters: ATC group of the drug, fills in a row.
#include <algorithm>
#include <cstdint>

#include "certs/PublicCareCertificate.h"
#include "certs/SpecialistRecommendation.h"
#include "fuzz/FuzzSupport.h"

using namespace rovanel;
using namespace rovanel::fuzzing;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const Parameters parameters = populateFromInput(data, size, "certs_fuzz");
    const std::filesystem::path directory = fuzzDirectory().path();
    const StartupTables tables = loadFuzzTables();

    const auto entries = readPublicCareList(directory / "kgy.txt");
    if (entries) {
        for (const PublicCareEntry& entry : *entries)
            ROVANEL_FUZZ_CHECK(entry.atcCode.size() + entry.ttt.size() + entry.name.size() +
                                   entry.form.size() + entry.ingredient.size() <=
                               511);
    }
    const PublicCareCertificate certificate =
        buildPublicCareCertificate(entries, directory / "beteg.ini", "20261123");
    ROVANEL_FUZZ_CHECK(certificate.message.has_value() != entries.has_value());
    for (const PrintPage& page : certificateLayout(certificate.paragraphs).pages)
        for (const PrintItem& item : page.items) ROVANEL_FUZZ_CHECK(item.text.size() <= kCertificateColumns);

    const std::int64_t group = parameters.at(0);
    RecommendationHandover handover;
    handover.bno = "I10H0";
    handover.titleText = "90%  EU13/b";
    if (group >= 0 && static_cast<std::size_t>(group) < tables.atcGroupCodes.size())
        handover.atcCode = std::string(tables.atcGroupCodes[static_cast<std::size_t>(group)]);
    RecommendationGrids grids;
    const auto fills = std::clamp<std::int64_t>(parameters.at(1, 1), 0, 12);
    for (std::int64_t fill = 0; fill < fills; ++fill) {
        const auto message =
            fillRecommendation(grids, handover, directory, tables.atcGroupCodes, directory / "beteg.ini");
        // A drug line is added exactly when atcnrend.dat opens and a line is free; its name is one
        // read of 254 bytes at most.
        const auto filled = std::count_if(grids.gg.begin() + 1, grids.gg.end(),
                                          [](const auto& row) { return !row[0].empty(); });
        ROVANEL_FUZZ_CHECK(filled == (message ? 0 : std::min<std::int64_t>(fill + 1, 9)));
        ROVANEL_FUZZ_CHECK(grids.gg[1][1].size() <= 254);
    }
    const PrintLayout page = recommendationLayout(grids, "2026.11.23.");
    ROVANEL_FUZZ_CHECK(!page.pages.empty() && page.pages.size() <= 3);
    return 0;
}
