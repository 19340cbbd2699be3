#include "cli/Commands.h"

namespace rovanel::cli
{

// Subcommands, declared by their files.
int runGen(const std::vector<std::string>& args);
int runInfo(const std::vector<std::string>& args);
int runNames(const std::vector<std::string>& args);
int runLocate(const std::vector<std::string>& args);
int runProductsOf(const std::vector<std::string>& args);
int runCheck(const std::vector<std::string>& args);
int runAtcGroup(const std::vector<std::string>& args);
int runSideEffect(const std::vector<std::string>& args);
int runIngredient(const std::vector<std::string>& args);
int runDescribe(const std::vector<std::string>& args);
int runSameAtc(const std::vector<std::string>& args);
int runImportNeak(const std::vector<std::string>& args);
int runVerify(const std::vector<std::string>& args);

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
        {"import-neak", "import-neak SOURCE_DIR OUT_DIR [--month YYYYMM] [--also YYYYMM]", runImportNeak},
        {"verify", "verify DIR", runVerify},
    };
    return table;
}

std::string usageText()
{
    std::string text = "usage:\n";
    for (const Command& c : commands()) text += std::string("  rvcli ") + c.usage + "\n";
    return text;
}

}  // namespace rovanel::cli
