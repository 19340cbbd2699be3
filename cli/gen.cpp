// rvcli gen DIR [--products N] [--seed S]: writes a synthetic database and lists its planted cases.
#include <cstdio>
#include <string>

#include "cli/Common.h"
#include "gen/DatabaseGenerator.h"

namespace rovanel::cli
{

namespace
{

void printCase(const char* what, long long value, const std::string& detail = {})
{
    if (value < 0)
        std::printf("%s: none\n", what);
    else if (detail.empty())
        std::printf("%s: %lld\n", what, value);
    else
        std::printf("%s: %lld (%s)\n", what, value, toUtf8(detail).c_str());
}

}  // namespace

int runGen(const Invocation& call)
{
    const auto& args = call.args;
    GeneratorOptions options;
    std::string directory;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        if (arg == "--products" || arg == "--seed") {
            if (i + 1 >= args.size()) return call.usageError();
            const auto value = numberArgument(args[++i]);
            if (!value || *value < 0) return call.usageError();
            if (arg == "--products") {
                if (*value < kMinimumProducts || *value > kMaximumProducts) {
                    std::fprintf(stderr, "rvcli: --products must be between %d and %d\n", kMinimumProducts,
                                 kMaximumProducts);
                    return 2;
                }
                options.products = static_cast<int>(*value);
            } else {
                options.seed = static_cast<std::uint64_t>(*value);
            }
        } else if (arg.starts_with("--") || !directory.empty()) {
            return call.usageError();
        } else {
            directory = arg;
        }
    }
    if (directory.empty()) return call.usageError();

    std::string error;
    const auto planted = generateDatabase(directory, options, &error);
    if (!planted) {
        std::fprintf(stderr, "rvcli: %s\n", error.c_str());
        return 2;
    }
    const PlantedCases& p = *planted;
    std::printf("products: %d (medicines %d, nutrition %d, others %d)\n", p.products, p.medicines,
                p.nutrition, p.others);
    std::printf("ATC groups: %d, contraindications: %d, side effects: %d, ingredients: %d, regulations: %d\n",
                p.atcGroups, p.contraindications, p.sideEffects, p.ingredients, p.regulations);
    printCase("avoid pair, first", p.avoidFirst, "#til " + p.avoidFirstCode);
    printCase("avoid pair, second", p.avoidSecond, "#til " + p.avoidSecondCode);
    printCase("careful pair, first", p.carefulFirst, "#ov " + p.carefulCode);
    printCase("careful pair, second", p.carefulSecond);
    printCase("contraindicated", p.contraindicated,
              p.contraindicationCode + " = entry " + std::to_string(p.contraindicationIndex) +
                  ", group node " + std::to_string(p.contraindicatedGroupNode));
    printCase("over-long careful line", p.longCodeLineDrug, p.longCodeLine);
    printCase("level-1 group over 600", p.largeLevel1Node,
              p.largeLevel1Code + ", " + std::to_string(p.largeLevel1Products) + " products");
    printCase("level-2 group over 600", p.largeLevel2Node,
              p.largeLevel2Code + ", " + std::to_string(p.largeLevel2Products) + " products");
    printCase("side effect over 600", p.commonSideEffect,
              p.commonSideEffectCode + ", " + std::to_string(p.commonSideEffectProducts) + " products");
    printCase("ingredient of 600 products", p.ingredient600, p.ingredient600Name);
    printCase("ingredient of 601 products", p.ingredient601, p.ingredient601Name);
    return 0;
}

}  // namespace rovanel::cli
