// rvcli locate DIR P: code, name and gy.ful offset of product record P.
#include <cstdio>

#include "cli/Common.h"
#include "db/ProductIndex.h"

namespace rovanel::cli
{

int runLocate(const Invocation& call)
{
    const auto& args = call.args;
    if (args.size() != 2) return call.usageError();
    const auto number = numberArgument(args[1]);
    const auto record = number ? productRecordOf(*number) : std::nullopt;
    if (!record) return call.usageError();
    return withDatabase(args[0], [&](const StartupTables& tables) {
        const auto location = locateProduct(tables, *record);
        if (!location) {
            std::fprintf(stderr, "rvcli: no product record %d in %s\n", *record, args[0].c_str());
            return 1;
        }
        std::printf("code: %s\n", toUtf8(location->code).c_str());
        std::printf("name: %s\n", toUtf8(location->name).c_str());
        std::printf("offset: %llu\n", static_cast<unsigned long long>(location->offset));
        return 0;
    });
}

}  // namespace rovanel::cli
