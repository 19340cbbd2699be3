// rvcli info DIR: the database's counts and closing date.
#include <cstdio>

#include "cli/Common.h"
#include "db/StartupTables.h"

namespace rovanel::cli
{

int runInfo(const std::vector<std::string>& args)
{
    if (args.size() != 1) return usageError("info DIR");
    const auto tables = openDatabase(args[0]);
    if (!tables) return 2;
    std::printf("products: %d\n", tables->counts.products());
    std::printf("medicines: %d\n", tables->counts.medicines());
    std::printf("nutrition: %d\n", tables->counts.nutrition());
    std::printf("others: %d\n", tables->counts.others());
    std::printf("closing: %s\n", toUtf8(closingDateLine(args[0])).c_str());
    return 0;
}

}  // namespace rovanel::cli
