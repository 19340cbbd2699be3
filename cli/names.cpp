// rvcli names DIR [--nutrition]: the name list as the drug list window fills it, one per line.
#include <cstdio>

#include "cli/Common.h"
#include "db/ProductIndex.h"

namespace rovanel::cli
{

int runNames(const std::vector<std::string>& args)
{
    constexpr const char* usage = "names DIR [--nutrition]";
    if (args.empty() || args.size() > 2) return usageError(usage);
    NameGroup group = NameGroup::Medicines;
    if (args.size() == 2) {
        if (args[1] != "--nutrition") return usageError(usage);
        group = NameGroup::Nutrition;
    }
    const auto tables = openDatabase(args[0]);
    if (!tables) return 2;
    for (const std::string& name : nameListFill(*tables, group)) std::printf("%s\n", toUtf8(name).c_str());
    return 0;
}

}  // namespace rovanel::cli
