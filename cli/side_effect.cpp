// rvcli side-effect DIR N [--taking P...]: the drugs that can cause side effect N, among all drugs or,
// with --taking, among the drugs taken; one name a line. Messages go to stderr.
#include <cstdio>

#include "cli/Common.h"
#include "cli/Selection.h"
#include "db/Searches.h"
#include "db/SharedState.h"

namespace rovanel::cli
{

int runSideEffect(const std::vector<std::string>& args)
{
    constexpr const char* usage = "side-effect DIR N [--taking P...]";
    if (args.size() < 2) return usageError(usage);
    const auto sideEffect = numberArgument(args[1]);
    SharedState state;
    if (!sideEffect || !readSelectionOptions(args, 2, state.selection, false)) return usageError(usage);
    auto tables = openDatabase(args[0]);
    if (!tables) return 2;
    state.tables = std::move(*tables);
    const SearchOutcome outcome =
        state.selection.SzedettGyCount == 0
            ? FillMhIdxList(state.tables, state.found, *sideEffect)
            : FillMhSpecIdxList2(state.tables, state.selection, state.found, *sideEffect);
    if (outcome.message) printMessages({*outcome.message});
    for (const std::string& name : foundDrugNames(state.tables, state.found))
        std::printf("%s\n", toUtf8(name).c_str());
    return 0;
}

}  // namespace rovanel::cli
