// rvcli bno-check DIR FREEKEY FEEKEY CODE [--fee] [--source N]: the BNO check of a drug with these
// regulation-point keys ("" for none); prints "accepted" or the refusal.
#include <cstdio>

#include "cli/Common.h"
#include "db/Cp1250.h"
#include "rx/BnoRules.h"

namespace rovanel::cli
{

int runBnoCheck(const Invocation& call)
{
    const auto& args = call.args;
    if (args.size() < 4) return call.usageError();
    bool feePaying = false;
    long long source = 3;
    for (std::size_t i = 4; i < args.size(); ++i) {
        if (args[i] == "--fee") {
            feePaying = true;
        } else if (args[i] == "--source" && i + 1 < args.size()) {
            const auto number = numberArgument(args[++i]);
            if (!number || *number < 0 || *number > 3) return call.usageError();
            source = *number;
        } else {
            return call.usageError();
        }
    }
    const RegulationKeys keys{utf8ToCp1250(args[1]), utf8ToCp1250(args[2])};
    const BnoCheckResult result =
        checkBno(args[0], keys, utf8ToCp1250(args[3]), feePaying, static_cast<int>(source));
    std::printf("%s\n",
                result.accepted ? "accepted" : toUtf8(result.message ? result.message->text : "").c_str());
    return 0;
}

}  // namespace rovanel::cli
