// The description builder, and the ATC levels and same-ATC listing of the drug list window, on a data
// directory made from the input.
#include <algorithm>
#include <cstdint>

#include "db/DescriptionBuilder.h"
#include "db/SameAtc.h"
#include "db/StartupTables.h"
#include "db/StyledDocument.h"
#include "fuzz/FuzzSupport.h"

using namespace rovanel;
using namespace rovanel::fuzzing;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto segments = splitSegments(std::string_view(reinterpret_cast<const char*>(data), size));
    const Parameters parameters(segments.front());
    FuzzDirectory& directory = fuzzDirectory();
    directory.populate(segments, layoutFiles("description_fuzz"));
    const StartupTables tables = loadStartupTables(directory.path(), directory.path() / "RV.INI");
    const auto record =
        static_cast<std::int32_t>(std::clamp<std::int64_t>(parameters.at(0), INT32_MIN, INT32_MAX));

    const Description description = buildDescription(tables, record);
    const StyledDocument& document = description.document;
    ROVANEL_FUZZ_CHECK(description.built || document.empty());
    if (record == kNoProduct) ROVANEL_FUZZ_CHECK(description.built && document.empty());
    // A description comes from one block of at most 64000 bytes with headings and names around it.
    ROVANEL_FUZZ_CHECK(document.plainText().size() < 1'000'000);

    const std::string code = record >= 0 && static_cast<std::size_t>(record) < tables.productCodes.size()
                                 ? std::string(tables.productCodes[static_cast<std::size_t>(record)])
                                 : std::string("C08CA01");
    const AtcLevels levels = atcLevels(tables, code);
    ROVANEL_FUZZ_CHECK(levels.lines.size() <= 5);
    const auto levelLength = static_cast<std::size_t>(std::clamp<std::int64_t>(parameters.at(1, 8), 0, 64));
    const SameAtcList same = sameAtcProducts(
        tables, code, levelLength, parameters.at(2) % 2 == 0 ? SameAtcOrder::Price : SameAtcOrder::Name,
        parameters.at(3) % 2 != 0);
    ROVANEL_FUZZ_CHECK(same.lines.size() == same.found.size());
    for (const FoundDrug& entry : same.found)
        ROVANEL_FUZZ_CHECK(entry.record >= 0 &&
                           static_cast<std::size_t>(entry.record) < tables.productCodes.size());
    return 0;
}
