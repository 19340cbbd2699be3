#include "cli/Commands.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

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
        {"gen", "gen DIR [--products N] [--seed S]",
         "write a complete, self-consistent synthetic database into DIR and list its planted cases",
         "DIR\tthe database directory to write (made when missing)\n"
         "--products N\tnumber of products, 10000 when not given\n"
         "--seed S\tthe generator's seed, 1 when not given\n",
         runGen},
        {"info", "info DIR", "the database's counts and closing date", "DIR\tthe database directory\n",
         runInfo},
        {"names", "names DIR [--nutrition]", "the drug list's names, one a line",
         "DIR\tthe database directory\n--nutrition\tthe nutrition products instead of the medicines\n",
         runNames},
        {"locate", "locate DIR P", "code, name and gy.ful offset of a product",
         "DIR\tthe database directory\nP\tthe product's record number\n", runLocate},
        {"products-of", "products-of DIR atc|contra|ingredient|side-effect K", "the record numbers of a key",
         "DIR\tthe database directory\natc|contra|ingredient|side-effect\tthe index to read\n"
         "K\tthe key: tree node or line number\n",
         runProductsOf},
        {"check", "check DIR P... [--contra K...]", "the interaction check of drugs and contraindications",
         "DIR\tthe database directory\nP...\tthe drugs taken, by record number\n"
         "--contra K...\tthe contraindications, by tree node\n",
         runCheck},
        {"atc-group", "atc-group DIR NODE [--taking P...] [--contra K...]",
         "the drugs of an ATC group as the interaction window lists them",
         "DIR\tthe database directory\nNODE\tthe ATC group's tree node\n"
         "--taking P...\tthe drugs taken, by record number\n--contra K...\tthe contraindications, by tree "
         "node\n",
         runAtcGroup},
        {"side-effect", "side-effect DIR N [--taking P...]", "the drugs that can cause a side effect",
         "DIR\tthe database directory\nN\tthe side effect's tree node\n"
         "--taking P...\tonly among these drugs, by record number\n",
         runSideEffect},
        {"ingredient", "ingredient DIR K", "the drugs containing an active ingredient",
         "DIR\tthe database directory\nK\tthe ingredient's line in harend2.dat, from 0\n", runIngredient},
        {"describe", "describe DIR P", "a product's description as plain text",
         "DIR\tthe database directory\nP\tthe product's record number\n", runDescribe},
        {"same-atc", "same-atc DIR CODE [--by-name]", "the drug list's same-ATC lines of a product or group",
         "DIR\tthe database directory\nCODE\ta product or ATC group code\n--by-name\tsorted by name\n",
         runSameAtc},
        {"latin", "latin N", "a quantity in Latin words as the prescription writes it", "N\tthe quantity\n",
         runLatin},
        {"titles", "titles DIR P", "the legal-title captions for a product, \"-\" where it cannot be written",
         "DIR\tthe database directory\nP\tthe product's record number\n", runTitles},
        {"bno-check", "bno-check DIR FREEKEY FEEKEY CODE [--fee] [--source N]",
         "the BNO check of a drug: \"accepted\" or the refusal",
         "DIR\tthe database directory\nFREEKEY\tthe free regulation-point key, \"\" for none\n"
         "FEEKEY\tthe fee regulation-point key, \"\" for none\nCODE\tthe BNO code to check\n"
         "--fee\twith the fee key\n--source N\twhere the drug was chosen\n",
         runBnoCheck},
        {"bno-list", "bno-list DIR FREEKEY FEEKEY [--fee]",
         "the BNO codes that admit a drug, one rule a line",
         "DIR\tthe database directory\nFREEKEY\tthe free regulation-point key, \"\" for none\n"
         "FEEKEY\tthe fee regulation-point key, \"\" for none\n--fee\twith the fee key\n",
         runBnoList},
        {"bno-find", "bno-find DIR TEXT [--list] [--ignore-case]", "the BNO tree search",
         "DIR\tthe database directory\nTEXT\tthe text to find\n--list\tevery hit instead of the first\n"
         "--ignore-case\tcase-insensitive\n",
         runBnoFind},
        {"detailed", "detailed DIR CODE [--mode N [--row R]] [--sort COL]",
         "the detailed list of an ATC group, a row a line, cells separated by tabs",
         "DIR\tthe database directory\nCODE\tthe ATC group's code\n--mode N\tthe listing mode, 1 to 4\n"
         "--row R\twith --mode 2 to 4: the fixed group of row R\n--sort COL\tsorted by column COL\n",
         runDetailed},
        {"row", "row DIR P", "a product's detailed-list row, a cell a line",
         "DIR\tthe database directory\nP\tthe product's record number\n", runRow},
        {"print-rx",
         "print-rx INIFILE --format 0|1|2 [--left N --top N] [--record FILE | --drug TEXT ...] [--title N] "
         "[--pdf OUT]",
         "a prescription on the official form, listed or written as PDF",
         "INIFILE\tthe patient data file\n--format 0|1|2\tthe form: old, upright or sideways\n"
         "--left N\tleft margin\n--record FILE\ta saved drug record of the prescription window\n--top N\ttop "
         "margin\n--title N\tthe legal title, 0 to 9\n"
         "--drug TEXT\tthe drug's name\n--quantity TEXT\tthe quantity\n--latin TEXT\tthe quantity in Latin\n"
         "--package TEXT\tthe package word\n--ds TEXT\tthe dosage\n--date YYYYMMDD\tthe date, today when not "
         "given\n--copy\ta copy\n--not-substitutable\tnot to be substituted\n--pdf OUT\twrite PDF file OUT\n",
         runPrintRx},
        {"certificate", "certificate INIFILE LISTFILE [--date YYYYMMDD] [--pdf OUT]",
         "the public-care certificate, as text or PDF",
         "INIFILE\tthe patient data file\nLISTFILE\tthe list of drugs\n--date YYYYMMDD\tthe date, today when "
         "not given\n--pdf OUT\twrite PDF file OUT\n",
         runCertificate},
        {"recommendation",
         "recommendation DIR INIFILE --atc CODE [--bno B] [--title TEXT] [--date D] [--pdf OUT]",
         "the specialist recommendation, listed or written as PDF",
         "DIR\tthe database directory\nINIFILE\tthe patient data file\n--atc CODE\tthe drug's ATC code\n"
         "--bno B\tthe BNO code, the patient's when not given\n--title TEXT\tthe legal title\n"
         "--date D\tthe date, today when not given\n--pdf OUT\twrite PDF file OUT\n",
         runRecommendation},
        {"check-update", "check-update URL ZARAS_LINE1 [--proxy HOST:PORT]",
         "ask the update server whether a newer database is published",
         "URL\tthe update notice file\nZARAS_LINE1\tthe first line of the database's zaras.inf\n"
         "--proxy HOST:PORT\tthrough this HTTP proxy\n",
         runCheckUpdate},
        {"refresh", "refresh DATADIR UPDATEDIR [--dry-run]",
         "install a newer database from the update directory, all files or none",
         "DATADIR\tthe database directory\nUPDATEDIR\tthe update directory\n"
         "--dry-run\tonly show what would be copied\n",
         runRefresh},
        {"aid", "aid DIR CODE", "the description of a medical aid",
         "DIR\tthe database directory\nCODE\tthe aid's code\n", runAid},
        {"aid-find", "aid-find DIR TEXT [--names]", "the aids window's searches",
         "DIR\tthe database directory\nTEXT\tthe text to find\n--names\tin the aids' names, not the groups\n",
         runAidFind},
        {"fono", "fono DIR K", "a FoNo item as the formulary window shows it",
         "DIR\tthe database directory\nK\tthe item's line in fononev.dat, from 0\n", runFono},
        {"import-neak",
         "import-neak SOURCE_DIR OUT_DIR [--month YYYYMM] [--also YYYYMM] [--who-ddd FILE] [--eu-links FILE]",
         "write a database from the public NEAK tables and check it",
         "SOURCE_DIR\tthe NEAK tables\nOUT_DIR\tthe database directory to write\n"
         "--month YYYYMM\tthe month to import\n--also YYYYMM\tan older month for products no longer sold\n"
         "--who-ddd FILE\tWHO ATC/DDD table: missing group names and daily doses (not to be shipped)\n"
         "--eu-links FILE\tproduct to EU point links, \"TTT;EUPONT_ID\" a line\n",
         runImportNeak},
        {"verify", "verify DIR", "what is inconsistent in a database directory",
         "DIR\tthe database directory\n", runVerify},
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

namespace
{

constexpr const char* kSummary = "Rovanel's drug database and prescriptions from the command line";
constexpr const char* kExitCodes[][2] = {
    {"0", "done"},
    {"1", "not found, refused or inconsistent"},
    {"2", "usage error, or an input that cannot be read"},
};

struct OptionLine {
    std::string name, meaning;
};

std::vector<OptionLine> optionLines(const Command& command)
{
    std::vector<OptionLine> lines;
    std::string_view rest = command.options;
    while (!rest.empty()) {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        rest.remove_prefix(std::min(rest.size(), line.size() + 1));
        const std::size_t tab = line.find('\t');
        lines.push_back({std::string(line.substr(0, tab)),
                         tab == std::string_view::npos ? std::string() : std::string(line.substr(tab + 1))});
    }
    return lines;
}

std::string padded(const std::string& text, std::size_t width)
{
    return text + std::string(width > text.size() ? width - text.size() : 0, ' ');
}

// Roff text: a leading dot or quote is escaped, and so are backslashes and hyphens.
std::string roff(std::string_view text)
{
    std::string out;
    for (char c : text) {
        if (c == '\\')
            out += "\\e";
        else if (c == '-')
            out += "\\-";
        else
            out += c;
    }
    if (!out.empty() && (out[0] == '.' || out[0] == '\'')) out.insert(0, "\\&");
    return out;
}

}  // namespace

std::string helpText()
{
    std::string text = std::string(
                           "usage: rvcli COMMAND ARGUMENTS...\n"
                           "       rvcli COMMAND --help | --help | --version | --man\n") +
                       kSummary + "; output is UTF-8.\n\ncommands:\n";
    std::size_t width = 0;
    for (const Command& c : commands()) width = std::max(width, std::string_view(c.name).size());
    for (const Command& c : commands()) text += "  " + padded(c.name, width + 2) + c.summary + "\n";
    text += "\nexit codes:\n";
    for (const auto& [code, meaning] : kExitCodes) text += std::string("  ") + code + "  " + meaning + "\n";
    return text;
}

std::string commandHelpText(const Command& command)
{
    std::string text = std::string("usage: rvcli ") + command.usage + "\n" + command.summary + "\n\n";
    const auto lines = optionLines(command);
    std::size_t width = 0;
    for (const OptionLine& line : lines) width = std::max(width, line.name.size());
    for (const OptionLine& line : lines) text += "  " + padded(line.name, width + 2) + line.meaning + "\n";
    return text;
}

std::string manualPage(const std::string& version)
{
    std::string page = ".TH RVCLI 1 \"\" \"Rovanel " + version + "\" \"User Commands\"\n";
    page += ".SH NAME\nrvcli \\- " + roff(kSummary) + "\n";
    page +=
        ".SH SYNOPSIS\n.B rvcli\n.I COMMAND ARGUMENTS...\n.br\n.B rvcli\n.I COMMAND\n.B \\-\\-help\n"
        ".br\n.B rvcli \\-\\-help\n.br\n.B rvcli \\-\\-version\n";
    page +=
        ".SH DESCRIPTION\n.B rvcli\nreads a Rovanel database directory and prints what the program's "
        "windows show, one item a line, in UTF\\-8.\n.SH COMMANDS\n";
    for (const Command& c : commands()) {
        page += ".TP\n.B rvcli " + roff(c.usage) + "\n" + roff(c.summary) + ".\n";
        for (const OptionLine& line : optionLines(c))
            page += ".RS\n.TP\n.B " + roff(line.name) + "\n" + roff(line.meaning) + "\n.RE\n";
    }
    page += ".SH EXIT STATUS\n";
    for (const auto& [code, meaning] : kExitCodes)
        page += ".TP\n.B " + std::string(code) + "\n" + roff(meaning) + "\n";
    page += ".SH SEE ALSO\n.BR rvw32 (1)\n";
    return page;
}

}  // namespace rovanel::cli
