// rvcli atc-group DIR NODE [--taking P...] [--contra K...]: the drugs of ATC group NODE as the interaction
// window lists them (mode 2), one list line each. Messages go to stderr; exit code 1 when a limit stopped
// the run (the lines listed so far are still printed).
#include <cstdio>

#include "cli/Common.h"
#include "cli/Selection.h"
#include "db/Interaction.h"

namespace rovanel::cli
{

int runAtcGroup(const Invocation& call)
{
    const auto& args = call.args;
    if (args.size() < 2) return call.usageError();
    const auto node = numberArgument(args[1]);
    DrugSelection selection;
    if (!node || !readSelectionOptions(args, 2, selection, true)) return call.usageError();
    return withDatabase(args[0], [&](const StartupTables& tables) {
        const KhRunResult result = KhRun(tables, selection, KhMode::AtcGroup, *node);
        printMessages(result.messages);
        for (const std::string& line : result.listLines) std::printf("%s\n", toUtf8(line).c_str());
        return result.completed ? 0 : 1;
    });
}

}  // namespace rovanel::cli
