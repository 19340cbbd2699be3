// rvcli check DIR P... [--contra K...]: the interaction check of the drugs P (record numbers) and the
// contraindications K (tree nodes): the report, then the drugs concerned as "record<TAB>name".
// Messages go to stderr; exit code 1 when a limit stopped the run.
#include <cstdio>

#include "cli/Common.h"
#include "cli/Selection.h"
#include "db/Interaction.h"
#include "db/SharedState.h"

namespace rovanel::cli
{

int runCheck(const std::vector<std::string>& args)
{
    constexpr const char* usage = "check DIR P... [--contra K...]";
    if (args.size() < 2) return usageError(usage);
    std::vector<std::string> options = {"--taking"};
    options.insert(options.end(), args.begin() + 1, args.end());
    SharedState state;
    if (!readSelectionOptions(options, 0, state.selection, true)) return usageError(usage);
    auto tables = openDatabase(args[0]);
    if (!tables) return 2;
    state.tables = std::move(*tables);
    const KhRunResult result = KhRun(state, KhMode::Check, -1);
    printMessages(result.messages);
    std::fputs(toUtf8(result.report).c_str(), stdout);
    if (!result.report.empty() && result.report.back() != '\n') std::fputc('\n', stdout);
    for (std::size_t i = 0; i < result.found.size(); ++i)
        std::printf("%d\t%s\n", result.found[i].record, toUtf8(result.listLines[i]).c_str());
    return result.completed ? 0 : 1;
}

}  // namespace rovanel::cli
