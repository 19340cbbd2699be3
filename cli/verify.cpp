// rvcli verify DIR: what is inconsistent in a database directory, file and line first, one problem a
// line (at most a few of each kind). Exit 0 when consistent, 1 otherwise.
#include <cstdio>

#include "cli/Commands.h"
#include "cli/Common.h"
#include "gen/DatabaseCheck.h"

namespace rovanel::cli
{

int runVerify(const Invocation& call)
{
    if (call.args.size() != 1) return call.usageError();
    const std::vector<std::string> problems = checkDatabase(call.args[0], CheckMode::AnyDatabase);
    for (const std::string& problem : problems) std::printf("%s\n", toUtf8(problem).c_str());
    if (problems.empty()) std::printf("consistent\n");
    return problems.empty() ? 0 : 1;
}

}  // namespace rovanel::cli
