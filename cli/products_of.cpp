// rvcli products-of DIR atc|contra|ingredient|side-effect K: the record numbers of key K.
#include <cstdio>

#include "cli/Common.h"
#include "db/ProductIndex.h"

namespace rovanel::cli
{

int runProductsOf(const Invocation& call)
{
    const auto& args = call.args;
    if (args.size() != 3) return call.usageError();
    IndexPair pair{};
    if (args[1] == "atc")
        pair = IndexPair::Atc;
    else if (args[1] == "contra")
        pair = IndexPair::Contraindication;
    else if (args[1] == "ingredient")
        pair = IndexPair::Ingredient;
    else if (args[1] == "side-effect")
        pair = IndexPair::SideEffect;
    else
        return call.usageError();
    const auto key = numberArgument(args[2]);
    if (!key) return call.usageError();
    // The index pairs alone: no start-up table is needed.
    if (!isReadableDirectory(args[0])) return 2;
    for (const ProductRecord record : productsOfKey(args[0], pair, *key)) std::printf("%d\n", record);
    return 0;
}

}  // namespace rovanel::cli
