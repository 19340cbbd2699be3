// rvcli names DIR [--nutrition]: the name list as the drug list window fills it, one per line.
#include <cstdio>

#include "cli/Common.h"
#include "db/ProductIndex.h"

namespace rovanel::cli
{

int runNames(const Invocation& call)
{
    const auto& args = call.args;
    if (args.empty() || args.size() > 2) return call.usageError();
    NameGroup group = NameGroup::Medicines;
    if (args.size() == 2) {
        if (args[1] != "--nutrition") return call.usageError();
        group = NameGroup::Nutrition;
    }
    return withDatabase(args[0], [&](const StartupTables& tables) {
        for (const std::string& name : nameListFill(tables, group)) std::printf("%s\n", toUtf8(name).c_str());
        return 0;
    });
}

}  // namespace rovanel::cli
