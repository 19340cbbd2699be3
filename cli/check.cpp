// rvcli check DIR P... [--contra K...]: the interaction check of the drugs P (record numbers) and the
// contraindications K (tree nodes): the report, then the drugs concerned as "record<TAB>name".
// Messages go to stderr; exit code 1 when a limit stopped the run.
#include <cstdio>

#include "cli/Common.h"
#include "cli/Selection.h"
#include "db/Interaction.h"

namespace rovanel::cli
{

int runCheck(const Invocation& call)
{
    const auto& args = call.args;
    if (args.size() < 2) return call.usageError();
    std::vector<std::string> options = {"--taking"};
    options.insert(options.end(), args.begin() + 1, args.end());
    DrugSelection selection;
    if (!readSelectionOptions(options, 0, selection, true)) return call.usageError();
    return withDatabase(args[0], [&](const StartupTables& tables) {
        const KhRunResult result = KhRun(tables, selection, KhMode::Check, -1);
        printMessages(result.messages);
        std::fputs(toUtf8(result.report).c_str(), stdout);
        if (!result.report.empty() && result.report.back() != '\n') std::fputc('\n', stdout);
        for (std::size_t i = 0; i < result.found.size(); ++i)
            std::printf("%d\t%s\n", result.found[i].record, toUtf8(result.listLines[i]).c_str());
        return result.completed ? 0 : 1;
    });
}

}  // namespace rovanel::cli
