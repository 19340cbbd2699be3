// rvcli ingredient DIR K: the drugs containing active ingredient K (line K of harend2.dat), at most 600;
// one name a line. Messages go to stderr.
#include <cstdio>

#include "cli/Common.h"
#include "cli/Selection.h"
#include "db/FoundDrugs.h"
#include "db/Searches.h"

namespace rovanel::cli
{

int runIngredient(const Invocation& call)
{
    const auto& args = call.args;
    if (args.size() != 2) return call.usageError();
    const auto ingredient = numberArgument(args[1]);
    if (!ingredient) return call.usageError();
    return withDatabase(args[0], [&](const StartupTables& tables) {
        FoundDrugTable found;
        const SearchOutcome outcome = HaKeres(tables, found, *ingredient);
        if (outcome.message) printMessages({*outcome.message});
        for (const std::string& name : foundDrugNames(tables, found))
            std::printf("%s\n", toUtf8(name).c_str());
        return 0;
    });
}

}  // namespace rovanel::cli
