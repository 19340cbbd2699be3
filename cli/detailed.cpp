// rvcli detailed DIR CODE [--mode N [--row R]] [--sort COL]: the detailed list of an ATC group as the
// window shows it, one row per line, its 35 cells separated by tabs (column 0 first), in the window's
// order: after the sort the fixed groups choose, or by column COL. With --mode 2, 3 or 4 and --row R,
// the fixed-group listing of row R of the plain listing (the window's TfxNorm, TfxTerkot, TfxTerment);
// with --mode alone, a fill in that mode. Messages go to standard error. TT packages are left out when
// the data directory's RV.INI says "TTNemKellLeirasba=IGEN", as in the window.
#include <cstdio>

#include "app/IniFile.h"
#include "app/UserPaths.h"
#include "cli/Common.h"
#include "db/AtcCode.h"
#include "pricelist/DetailedList.h"

namespace rovanel::cli
{

namespace
{

void printMessages(const std::vector<Message>& messages)
{
    for (const Message& message : messages) std::fprintf(stderr, "%s\n", toUtf8(message.text).c_str());
}

}  // namespace

int runDetailed(const Invocation& call)
{
    const auto& args = call.args;
    if (args.size() < 2) return call.usageError();
    long long mode = 1, row = -1, sortColumn = -1;
    for (std::size_t i = 2; i < args.size(); i += 2) {
        if (i + 1 >= args.size()) return call.usageError();
        const auto value = numberArgument(args[i + 1]);
        if (!value) return call.usageError();
        if (args[i] == "--mode" && *value >= 1 && *value <= 4)
            mode = *value;
        else if (args[i] == "--row" && *value >= 0)
            row = *value;
        else if (args[i] == "--sort" && *value >= 0 && *value < kDetailedColumnCount)
            sortColumn = *value;
        else
            return call.usageError();
    }
    if (row >= 0 && mode == 1) return call.usageError();
    return withDatabase(args[0], [&](const StartupTables& tables) {
        DetailedList list(tables);
        list.setHideDeleted(readProfileString(settingsFilePath(tables.dataDirectory), kSettingsSection,
                                              "TTNemKellLeirasba", "NEM", 80) == "IGEN");
        const std::string code = atcFromInternational(args[1]);
        if (row >= 0) {
            printMessages(list.bFillSameAtc(code, ListingMode::Plain).messages);
            printMessages(
                list.fixedGroupClick(static_cast<SupportKind>(mode - 2), static_cast<int>(row)).messages);
        } else {
            printMessages(list.bFillSameAtc(code, static_cast<ListingMode>(mode)).messages);
        }
        if (sortColumn >= 0) {
            if (auto error = list.RefLstColumnClick(static_cast<int>(sortColumn))) printMessages({*error});
        }
        for (const DetailedRow& detailedRow : list.rows()) {
            std::string line;
            for (int c = 0; c < kDetailedColumnCount; ++c) {
                if (c > 0) line += '\t';
                line += detailedRow.cells[static_cast<std::size_t>(c)];
            }
            std::printf("%s\n", toUtf8(line).c_str());
        }
        return 0;
    });
}

}  // namespace rovanel::cli
