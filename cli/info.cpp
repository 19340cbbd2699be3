// rvcli info DIR: the database's counts and closing date.
#include <cstdio>

#include "cli/Common.h"

namespace rovanel::cli
{

int runInfo(const Invocation& call)
{
    if (call.args.size() != 1) return call.usageError();
    const std::string& directory = call.args[0];
    return withDatabase(directory, [&](const StartupTables& tables) {
        std::printf("products: %d\n", tables.counts.products());
        std::printf("medicines: %d\n", tables.counts.medicines());
        std::printf("nutrition: %d\n", tables.counts.nutrition());
        std::printf("others: %d\n", tables.counts.others());
        std::printf("closing: %s\n", toUtf8(closingDateLine(directory)).c_str());
        return 0;
    });
}

}  // namespace rovanel::cli
