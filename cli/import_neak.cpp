// rvcli import-neak SOURCE_DIR OUT_DIR [--month YYYYMM] [--also YYYYMM] [--who-ddd FILE] [--eu-links FILE]:
// writes a database from the
// public NEAK tables, checks it, and prints the counts and warnings. Exit 1 when an input is missing or
// malformed, or the check finds the output inconsistent; 2 on a usage error.
#if defined(_WIN32)
#include <io.h>
#else
#include <unistd.h>
#endif

#include <cstdio>
#include <string>

#include "cli/Commands.h"
#include "cli/Common.h"
#include "gen/NeakImport.h"

namespace rovanel::cli
{

namespace
{

}  // namespace

int runImportNeak(const Invocation& call)
{
    NeakImportOptions options;
    std::vector<std::string> directories;
    for (std::size_t i = 0; i < call.args.size(); ++i) {
        const std::string& arg = call.args[i];
        if (arg == "--month" || arg == "--also") {
            if (i + 1 >= call.args.size()) return call.usageError();
            (arg == "--month" ? options.month : options.also) = call.args[++i];
        } else if (arg == "--who-ddd" || arg == "--eu-links") {
            if (i + 1 >= call.args.size()) return call.usageError();
            (arg == "--who-ddd" ? options.whoDdd : options.euLinks) = call.args[++i];
        } else if (arg.starts_with("--")) {
            return call.usageError();
        } else {
            directories.push_back(arg);
        }
    }
    if (directories.size() != 2) return call.usageError();

#if defined(_WIN32)
    const bool terminal = ::_isatty(::_fileno(stderr)) != 0;
#else
    const bool terminal = ::isatty(::fileno(stderr)) != 0;
#endif
    std::string error;
    const auto report =
        importNeak(directories[0], directories[1], options, &error, [&](std::string_view stage) {
            if (terminal)
                std::fprintf(stderr, "import-neak: %.*s\n", static_cast<int>(stage.size()), stage.data());
        });
    if (!report) {
        std::fprintf(stderr, "rvcli: %s\n", error.c_str());
        return 1;
    }
    const NeakImportReport& r = *report;
    std::printf("turnover rows: %d, products left out by kind: %d\n", r.turnoverRows, r.excluded);
    std::printf("products: %d (medicines %d, nutrition %d, others %d; only in the older month %d, new %d)\n",
                r.products, r.medicines, r.nutrition, r.others, r.olderOnly, r.newProducts);
    std::printf(
        "ATC groups: %d (filled levels %d), ingredients: %d, forms: %d, regulations: %d (placeholders %d)\n",
        r.atcGroups, r.pseudoGroups, r.ingredients, r.forms, r.regulations, r.placeholders);
    std::printf("names cut: %d, name clashes resolved: %d, without price: %d, without daily doses: %d\n",
                r.namesCut, r.nameClashes, r.withoutPrice, r.withoutDailyDoses);
    std::printf("ATC codes without a name: %d, products with placeholder points: %d\n", r.groupsWithoutName,
                r.withPlaceholder);
    std::printf(
        "BNO codes: %d (tree nodes %d), BNO rules: %d, prescriber pairs: %d (unrestricted points %d)\n",
        r.bnoCodes, r.bnoNodes, r.bnoRules, r.qualifications, r.unrestrictedPoints);
    std::printf("title lines: %d, medical aids: %d (groups %d)\n", r.titleLines, r.aids, r.aidGroups);
    if (!options.euLinks.empty()) std::printf("products linked to EU points: %d\n", r.linkedProducts);
    if (!options.whoDdd.empty())
        std::printf("from the WHO table: %d group names, %d daily doses (do not ship this database)\n",
                    r.whoNames, r.whoDoses);
    std::printf("interaction, contraindication and side-effect data: none in the source\n");
    for (const std::string& warning : r.warnings) std::printf("warning: %s\n", toUtf8(warning).c_str());
    for (const std::string& problem : r.problems) std::printf("check: %s\n", toUtf8(problem).c_str());
    std::printf(r.problems.empty() ? "database check: consistent\n" : "database check: INCONSISTENT\n");
    return r.problems.empty() ? 0 : 1;
}

}  // namespace rovanel::cli
