// rvcli refresh DATADIR UPDATEDIR [--dry-run]: installs the update directory's database into DATADIR when
// its ZARAS.INF carries a later second line, all files or none (app/DatabaseRefresh.h). Prints the two
// dates and every file, then "installed"; "not newer" when there is nothing to do. Exit 1 on a failure,
// which leaves DATADIR as it was.
#include <cstdio>
#include <filesystem>

#include "app/DatabaseRefresh.h"
#include "cli/Common.h"

namespace rovanel::cli
{

int runRefresh(const Invocation& call)
{
    const std::vector<std::string>& args = call.args;
    const bool dryRun = args.size() == 3 && args[2] == "--dry-run";
    if (args.size() != 2 && !dryRun) return call.usageError();
    for (const std::string& directory : {args[0], args[1]}) {
        std::error_code error;
        if (!std::filesystem::is_directory(directory, error)) {
            std::fprintf(stderr, "rvcli: %s: not a readable directory\n", directory.c_str());
            return 2;
        }
    }
    std::string update = args[1];
    if (!update.empty() && update.back() != '/' && update.back() != '\\') update += '/';
    const RefreshCheck check = checkRefresh(args[0], update);
    std::printf("update: %s\ncurrent: %s\n", toUtf8(check.updateDate).c_str(),
                toUtf8(check.currentDate).c_str());
    if (!check.newer) {
        std::printf("not newer\n");
        return 0;
    }
    for (const std::string& name : check.files) std::printf("copy: %s\n", toUtf8(name).c_str());
    if (dryRun) return 0;
    RefreshOptions options;
    options.programName = refreshProgramName();
    options.setProgramAsideAsOld = programIsSetAsideAsOld();
    const RefreshInstall installed = installRefresh(args[0], check, options);
    if (installed.failure) {
        std::fprintf(stderr, "rvcli: %s\n", toUtf8(installed.failure->text).c_str());
        return 1;
    }
    if (installed.programKept)
        std::printf("program kept: %s.old is in the way\n", options.programName.c_str());
    std::printf("installed\n");
    return 0;
}

}  // namespace rovanel::cli
