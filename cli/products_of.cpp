// rvcli products-of DIR atc|contra|ingredient|side-effect K: the record numbers of key K.
#include <cstdio>
#include <system_error>

#include "cli/Common.h"
#include "db/ProductIndex.h"

namespace rovanel::cli
{

int runProductsOf(const std::vector<std::string>& args)
{
    constexpr const char* usage = "products-of DIR atc|contra|ingredient|side-effect K";
    if (args.size() != 3) return usageError(usage);
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
        return usageError(usage);
    const auto key = numberArgument(args[2]);
    if (!key) return usageError(usage);
    std::error_code error;
    if (!std::filesystem::is_directory(args[0], error)) {
        std::fprintf(stderr, "rvcli: %s: not a readable directory\n", args[0].c_str());
        return 2;
    }
    for (const std::int32_t record : productsOfKey(args[0], pair, *key)) std::printf("%d\n", record);
    return 0;
}

}  // namespace rovanel::cli
