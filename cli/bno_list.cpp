// rvcli bno-list DIR FREEKEY FEEKEY [--fee]: the "Kódtábla" list of a drug with these keys, one line per
// admitting rule, or the message that refuses the list.
#include <cstdio>

#include "cli/Common.h"
#include "db/Cp1250.h"
#include "rx/BnoRules.h"

namespace rovanel::cli
{

int runBnoList(const Invocation& call)
{
    const auto& args = call.args;
    if (args.size() < 3 || args.size() > 4 || (args.size() == 4 && args[3] != "--fee"))
        return call.usageError();
    const BnoCodeList list =
        bnoCodeList(args[0], RegulationKeys{utf8ToCp1250(args[1]), utf8ToCp1250(args[2])}, args.size() == 4);
    if (list.message) std::printf("%s\n", toUtf8(list.message->text).c_str());
    for (const std::string& line : list.lines) std::printf("%s\n", toUtf8(line).c_str());
    return 0;
}

}  // namespace rovanel::cli
