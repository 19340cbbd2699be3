// rvcli side-effect DIR N [--taking P...]: the drugs that can cause side effect N, among all drugs or,
// with --taking, among the drugs taken; one name a line. Messages go to stderr.
#include <cstdio>

#include "cli/Common.h"
#include "cli/Selection.h"
#include "db/FoundDrugs.h"
#include "db/Searches.h"

namespace rovanel::cli
{

int runSideEffect(const Invocation& call)
{
    const auto& args = call.args;
    if (args.size() < 2) return call.usageError();
    const auto sideEffect = numberArgument(args[1]);
    DrugSelection selection;
    if (!sideEffect || !readSelectionOptions(args, 2, selection, false)) return call.usageError();
    return withDatabase(args[0], [&](const StartupTables& tables) {
        FoundDrugTable found;
        const SearchOutcome outcome = selection.SzedettGyCount == 0
                                          ? FillMhIdxList(tables, found, *sideEffect)
                                          : FillMhSpecIdxList2(tables, selection, found, *sideEffect);
        if (outcome.message) printMessages({*outcome.message});
        for (const std::string& name : foundDrugNames(tables, found))
            std::printf("%s\n", toUtf8(name).c_str());
        return 0;
    });
}

}  // namespace rovanel::cli
