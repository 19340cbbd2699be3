#include "cli/Commands.h"

#include <cstdio>

namespace rovanel::cli
{

// Subcommands, declared by their files.
int runGen(const Invocation& call);
int runInfo(const Invocation& call);
int runNames(const Invocation& call);
int runLocate(const Invocation& call);
int runProductsOf(const Invocation& call);
int runCheck(const Invocation& call);
int runAtcGroup(const Invocation& call);
int runSideEffect(const Invocation& call);
int runIngredient(const Invocation& call);
int runDescribe(const Invocation& call);
int runSameAtc(const Invocation& call);

const std::vector<Command>& commands()
{
    static const std::vector<Command> table = {
        {"gen", "gen DIR [--products N] [--seed S]", runGen},
        {"info", "info DIR", runInfo},
        {"names", "names DIR [--nutrition]", runNames},
        {"locate", "locate DIR P", runLocate},
        {"products-of", "products-of DIR atc|contra|ingredient|side-effect K", runProductsOf},
        {"check", "check DIR P... [--contra K...]", runCheck},
        {"atc-group", "atc-group DIR NODE [--taking P...] [--contra K...]", runAtcGroup},
        {"side-effect", "side-effect DIR N [--taking P...]", runSideEffect},
        {"ingredient", "ingredient DIR K", runIngredient},
        {"describe", "describe DIR P", runDescribe},
        {"same-atc", "same-atc DIR CODE [--by-name]", runSameAtc},
    };
    return table;
}

int Invocation::usageError() const
{
    std::fprintf(stderr, "rvcli: usage: rvcli %s\n", command.usage);
    return 2;
}

std::string usageText()
{
    std::string text = "usage:\n";
    for (const Command& c : commands()) text += std::string("  rvcli ") + c.usage + "\n";
    return text;
}

}  // namespace rovanel::cli
