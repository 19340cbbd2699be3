// rvcli latin N: the quantity N in Latin words as the prescription writes it.
#include "rx/Latin.h"

#include <cstdio>

#include "cli/Common.h"
#include "db/Cp1250.h"

namespace rovanel::cli
{

int runLatin(const Invocation& call)
{
    const auto& args = call.args;
    if (args.size() != 1) return call.usageError();
    const QuantityChange change = quantityChanged(utf8ToCp1250(args[0]), 0);
    if (change.error) {
        std::fprintf(stderr, "rvcli: %s\n", toUtf8(change.error->text).c_str());
        return 1;
    }
    if (!change.latin) return call.usageError();
    std::printf("%s\n", toUtf8(*change.latin).c_str());
    return 0;
}

}  // namespace rovanel::cli
