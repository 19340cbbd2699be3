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
int runLatin(const Invocation& call);
int runTitles(const Invocation& call);
int runBnoCheck(const Invocation& call);
int runBnoList(const Invocation& call);
int runBnoFind(const Invocation& call);
int runDetailed(const Invocation& call);
int runRow(const Invocation& call);
int runPrintRx(const Invocation& call);
int runCertificate(const Invocation& call);
int runRecommendation(const Invocation& call);
int runCheckUpdate(const Invocation& call);
int runRefresh(const Invocation& call);
int runAid(const Invocation& call);
int runAidFind(const Invocation& call);
int runFono(const Invocation& call);
int runImportNeak(const Invocation& call);
int runVerify(const Invocation& call);

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
        {"latin", "latin N", runLatin},
        {"titles", "titles DIR P", runTitles},
        {"bno-check", "bno-check DIR FREEKEY FEEKEY CODE [--fee] [--source N]", runBnoCheck},
        {"bno-list", "bno-list DIR FREEKEY FEEKEY [--fee]", runBnoList},
        {"bno-find", "bno-find DIR TEXT [--list] [--ignore-case]", runBnoFind},
        {"detailed", "detailed DIR CODE [--mode N [--row R]] [--sort COL]", runDetailed},
        {"row", "row DIR P", runRow},
        {"print-rx",
         "print-rx INIFILE --format 0|1|2 [--left N --top N] [--record FILE | --drug TEXT ...] [--title N] "
         "[--pdf OUT]",
         runPrintRx},
        {"certificate", "certificate INIFILE LISTFILE [--date YYYYMMDD] [--pdf OUT]", runCertificate},
        {"recommendation", "recommendation DIR INIFILE --atc CODE [--bno B] [--title TEXT] [--pdf OUT]",
         runRecommendation},
        {"check-update", "check-update URL ZARAS_LINE1 [--proxy HOST:PORT]", runCheckUpdate},
        {"refresh", "refresh DATADIR UPDATEDIR [--dry-run]", runRefresh},
        {"aid", "aid DIR CODE", runAid},
        {"aid-find", "aid-find DIR TEXT [--names]", runAidFind},
        {"fono", "fono DIR K", runFono},
        {"import-neak", "import-neak SOURCE_DIR OUT_DIR [--month YYYYMM] [--also YYYYMM]", runImportNeak},
        {"verify", "verify DIR", runVerify},
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
