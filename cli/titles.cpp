// rvcli titles DIR P: the ten legal-title captions after relabelling by product P's title flags, one a
// line, "-" for a title the product cannot be written on.
#include "rx/Titles.h"

#include <cstdio>

#include "cli/Common.h"
#include "rx/PackageData.h"

namespace rovanel::cli
{

int runTitles(const Invocation& call)
{
    const auto& args = call.args;
    if (args.size() != 2) return call.usageError();
    const auto record = numberArgument(args[1]);
    if (!record) return call.usageError();
    return withDatabase(args[0], [&](const StartupTables& tables) {
        const auto package = packageData(tables, args[0], static_cast<std::int32_t>(*record));
        if (!package || *record < 0 || *record >= tables.counts.products()) {
            std::fprintf(stderr, "rvcli: product %lld has no package data\n", *record);
            return 1;
        }
        TitleCaptions captions = defaultTitleCaptions();
        relabelLayoutA(captions, std::string_view(package->titleFlags));
        for (const std::string& caption : captions) std::printf("%s\n", toUtf8(caption).c_str());
        return 0;
    });
}

}  // namespace rovanel::cli
