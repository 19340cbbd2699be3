// rvcli atc-group DIR NODE [--taking P...] [--contra K...]: the drugs of ATC group NODE as the interaction
// window lists them (mode 2), one list line each. Messages go to stderr; exit code 1 when a limit stopped
// the run (the lines listed so far are still printed).
#include <cstdio>

#include "cli/Common.h"
#include "cli/Selection.h"
#include "db/Interaction.h"
#include "db/SharedState.h"

namespace rovanel::cli
{

int runAtcGroup(const std::vector<std::string>& args)
{
    constexpr const char* usage = "atc-group DIR NODE [--taking P...] [--contra K...]";
    if (args.size() < 2) return usageError(usage);
    const auto node = numberArgument(args[1]);
    SharedState state;
    if (!node || !readSelectionOptions(args, 2, state.selection, true)) return usageError(usage);
    auto tables = openDatabase(args[0]);
    if (!tables) return 2;
    state.tables = std::move(*tables);
    const KhRunResult result = KhRun(state, KhMode::AtcGroup, *node);
    printMessages(result.messages);
    for (const std::string& line : result.listLines) std::printf("%s\n", toUtf8(line).c_str());
    return result.completed ? 0 : 1;
}

}  // namespace rovanel::cli
