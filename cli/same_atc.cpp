// rvcli same-atc DIR CODE [--by-name]: the drug list window's same-ATC lines for a product or group
// code (the code's ATC levels are found first; the listing is that of the deepest level).
#include <cstdio>

#include "cli/Common.h"
#include "db/AtcCode.h"
#include "db/SameAtc.h"

namespace rovanel::cli
{

int runSameAtc(const Invocation& call)
{
    const auto& args = call.args;
    if (args.size() < 2 || args.size() > 3) return call.usageError();
    if (args.size() == 3 && args[2] != "--by-name") return call.usageError();
    return withDatabase(args[0], [&](const StartupTables& tables) {
        const std::string code = atcFromInternational(args[1]);
        const AtcLevels levels = atcLevels(tables, code);
        const SameAtcOrder order = args.size() == 3 ? SameAtcOrder::Name : SameAtcOrder::Price;
        const SameAtcList list = sameAtcProducts(tables, code, levels.levelLength, order, false);
        for (const std::string& line : list.lines) std::printf("%s\n", toUtf8(line).c_str());
        return 0;
    });
}

}  // namespace rovanel::cli
