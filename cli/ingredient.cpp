// rvcli ingredient DIR K: the drugs containing active ingredient K (line K of harend2.dat), at most 600;
// one name a line. Messages go to stderr.
#include <cstdio>

#include "cli/Common.h"
#include "cli/Selection.h"
#include "db/FoundDrugs.h"
#include "db/Searches.h"

namespace rovanel::cli
{

int runIngredient(const std::vector<std::string>& args)
{
    constexpr const char* usage = "ingredient DIR K";
    if (args.size() != 2) return usageError(usage);
    const auto ingredient = numberArgument(args[1]);
    if (!ingredient) return usageError(usage);
    const auto tables = openDatabase(args[0]);
    if (!tables) return 2;
    FoundDrugTable found;
    const SearchOutcome outcome = HaKeres(*tables, found, *ingredient);
    if (outcome.message) printMessages({*outcome.message});
    for (const std::string& name : foundDrugNames(*tables, found)) std::printf("%s\n", toUtf8(name).c_str());
    return 0;
}

}  // namespace rovanel::cli
