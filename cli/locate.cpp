// rvcli locate DIR P: code, name and gy.ful offset of product record P.
#include <cstdio>

#include "cli/Common.h"
#include "db/ProductIndex.h"

namespace rovanel::cli
{

int runLocate(const std::vector<std::string>& args)
{
    if (args.size() != 2) return usageError("locate DIR P");
    const auto record = numberArgument(args[1]);
    if (!record) return usageError("locate DIR P");
    const auto tables = openDatabase(args[0]);
    if (!tables) return 2;
    const auto location = locateProduct(*tables, *record);
    if (!location) {
        std::fprintf(stderr, "rvcli: no product record %lld in %s\n", *record, args[0].c_str());
        return 1;
    }
    std::printf("code: %s\n", toUtf8(location->code).c_str());
    std::printf("name: %s\n", toUtf8(location->name).c_str());
    std::printf("offset: %llu\n", static_cast<unsigned long long>(location->offset));
    return 0;
}

}  // namespace rovanel::cli
