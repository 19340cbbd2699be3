// The start-up loader and the two name-list fills on a data directory made from the input.
#include <cstdint>

#include "db/ProductIndex.h"
#include "db/StartupTables.h"
#include "fuzz/FuzzSupport.h"

using namespace rovanel;
using namespace rovanel::fuzzing;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    FuzzDirectory& directory = fuzzDirectory();
    directory.populate(splitSegments(input), layoutFiles("startup_fuzz"));

    const StartupTables tables = loadStartupTables(directory.path(), directory.path() / "RV.INI");
    const DatabaseCounts& counts = tables.counts;

    // Every message is a trimmed line: no line end, no '~'.
    for (std::size_t line = 0; line < tables.messages.slotCount(); ++line) {
        const std::string_view text = tables.messages.at(line);
        ROVANEL_FUZZ_CHECK(text.find('\n') == std::string_view::npos);
        ROVANEL_FUZZ_CHECK(text.find('~') == std::string_view::npos);
    }
    if (tables.reached >= LoadStep::CodeTables) {
        // Each table has exactly the slots its count gives, each field at most its width.
        ROVANEL_FUZZ_CHECK(tables.productCodes.size() == static_cast<std::size_t>(counts[1]));
        ROVANEL_FUZZ_CHECK(tables.atcGroupCodes.size() == static_cast<std::size_t>(counts[2]));
        ROVANEL_FUZZ_CHECK(tables.contraindicationCodes.size() == static_cast<std::size_t>(counts[4]));
        ROVANEL_FUZZ_CHECK(tables.sideEffectCodes.size() == static_cast<std::size_t>(counts[3]));
        for (const auto& code : tables.productCodes) ROVANEL_FUZZ_CHECK(code.size() <= 10);
        for (const auto& code : tables.atcGroupCodes) ROVANEL_FUZZ_CHECK(code.size() <= 10);
        for (const auto& code : tables.contraindicationCodes) ROVANEL_FUZZ_CHECK(code.size() <= 6);
        for (const auto& code : tables.sideEffectCodes) ROVANEL_FUZZ_CHECK(code.size() <= 6);
    } else {
        ROVANEL_FUZZ_CHECK(tables.productCodes.empty() && tables.productNames.empty());
    }
    if (tables.reached >= LoadStep::Pairs)
        ROVANEL_FUZZ_CHECK(tables.pairs.size() == static_cast<std::size_t>(counts[8]));
    if (tables.reached >= LoadStep::ShortTexts) {
        ROVANEL_FUZZ_CHECK(tables.shortTexts.size() == static_cast<std::size_t>(counts[9]));
        for (const auto& text : tables.shortTexts) ROVANEL_FUZZ_CHECK(text.size() <= 11);
    }
    if (tables.reached == LoadStep::Complete) {
        ROVANEL_FUZZ_CHECK(tables.productNames.size() <= static_cast<std::size_t>(counts[1]));
        for (const auto& name : tables.productNames) ROVANEL_FUZZ_CHECK(name.size() <= 50);
    } else {
        ROVANEL_FUZZ_CHECK(tables.productNames.empty());
    }
    // Names outside the list read as empty; a code lookup gives a slot of the table or -1.
    ROVANEL_FUZZ_CHECK(tables.productName(-1).empty());
    ROVANEL_FUZZ_CHECK(tables.productName(static_cast<std::int64_t>(tables.productNames.size())).empty());
    if (!tables.productCodes.empty()) {
        const std::int32_t found = tables.recordOfCode(tables.productCodes[tables.productCodes.size() - 1]);
        ROVANEL_FUZZ_CHECK(found >= 0 && static_cast<std::size_t>(found) < tables.productCodes.size());
    }

    // The name-list fills: never more names than the group holds, each a trimmed 80-byte read.
    for (const NameGroup group : {NameGroup::Medicines, NameGroup::Nutrition}) {
        const auto names = nameListFill(tables, group);
        const std::int64_t groupSize =
            group == NameGroup::Medicines ? counts.medicines() : counts.nutrition();
        ROVANEL_FUZZ_CHECK(static_cast<std::int64_t>(names.size()) <= std::max<std::int64_t>(groupSize, 0));
        for (const auto& name : names) ROVANEL_FUZZ_CHECK(name.size() <= 79);
        if (!names.empty()) {
            const std::int32_t last =
                recordOfListPosition(tables, group, static_cast<std::int32_t>(names.size() - 1));
            ROVANEL_FUZZ_CHECK(last >= 0 && last < counts.products());
        }
    }
    return 0;
}
