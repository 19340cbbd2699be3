// KhRun in both modes on a data directory made from the input, with the drug selection from the
// parameter line. Whatever the files hold, the run ends, and what it lists belongs to the data.
#include <algorithm>
#include <cstdint>

#include "db/DrugSelection.h"
#include "db/Interaction.h"
#include "db/StartupTables.h"
#include "fuzz/FuzzSupport.h"

using namespace rovanel;
using namespace rovanel::fuzzing;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const Parameters parameters = populateFromInput(data, size, "khrun_fuzz");
    const StartupTables tables = loadFuzzTables();

    const KhMode mode = parameters.at(0) % 2 != 0 ? KhMode::Check : KhMode::AtcGroup;
    DrugSelection selection;
    selection.SzedettGy.fill(-1);
    selection.EllSel.fill(-1);
    const auto clampToInt = [](std::int64_t value) {
        return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, INT32_MIN, INT32_MAX));
    };
    selection.SzedettGyCount = clampToInt(parameters.at(2));
    selection.EllSelCount = clampToInt(parameters.at(3));
    std::size_t next = 4;
    for (std::size_t i = 0; i < selection.SzedettGy.size() - 1; ++i)
        selection.SzedettGy[i] = clampToInt(parameters.at(next++, -1));
    for (std::size_t i = 0; i < selection.EllSel.size() - 1; ++i)
        selection.EllSel[i] = clampToInt(parameters.at(next++, -1));

    const KhRunResult result = KhRun(tables, selection, mode, parameters.at(1));
    ROVANEL_FUZZ_CHECK(result.listLines.size() == result.found.size() || !result.completed);
    ROVANEL_FUZZ_CHECK(result.found.size() <= kKhFoundLimit);
    if (!result.filesOpened) ROVANEL_FUZZ_CHECK(result.found.empty() && result.listLines.empty());
    for (const FoundDrug& entry : result.found) {
        // Every listed drug is a product of the database ...
        ROVANEL_FUZZ_CHECK(entry.record >= 0 &&
                           static_cast<std::size_t>(entry.record) < tables.productCodes.size());
        ROVANEL_FUZZ_CHECK(entry.flag == 0 || entry.flag == 1);
        // ... and in a check, one of the drugs taken.
        if (mode == KhMode::Check)
            ROVANEL_FUZZ_CHECK(std::find(selection.SzedettGy.begin(), selection.SzedettGy.end(),
                                         entry.record) != selection.SzedettGy.end());
    }
    // A stop shows one message; a completed check at most the "nothing found" one.
    if (!result.completed) ROVANEL_FUZZ_CHECK(result.messages.size() <= 2);
    return 0;
}
