// rvcli latin N: the quantity N in Latin words as the prescription writes it.
#include "rx/Latin.h"

#include <cstdio>

#include "cli/Common.h"
#include "db/Cp1250.h"

namespace rovanel::cli
{

int runLatin(const std::vector<std::string>& args)
{
    if (args.size() != 1) return usageError("latin N");
    const QuantityChange change = quantityChanged(utf8ToCp1250(args[0]), 0);
    if (change.error) {
        std::fprintf(stderr, "rvcli: %s\n", toUtf8(change.error->text).c_str());
        return 1;
    }
    if (!change.latin) return usageError("latin N");
    std::printf("%s\n", toUtf8(*change.latin).c_str());
    return 0;
}

}  // namespace rovanel::cli
