// rvcli fono DIR K: FoNo item K (line K of fononev.dat, from 0) as the formulary window shows it, one
// line each, prefixed with its style: title, label, rp or text.
#include <cstdio>

#include "catalogues/Formulary.h"
#include "cli/Common.h"

namespace rovanel::cli
{

int runFono(const Invocation& call)
{
    const auto& args = call.args;
    if (args.size() != 2) return call.usageError();
    const auto item = numberArgument(args[1]);
    if (!item) return call.usageError();
    if (!isReadableDirectory(args[0])) return 2;
    const FonoCatalogue catalogue = loadFonoCatalogue(args[0]);
    const auto found =
        *item < 0 || *item > 1'000'000'000 ? std::nullopt : readFonoItem(catalogue, static_cast<int>(*item));
    if (!found) {
        std::fprintf(stderr, "rvcli: no FoNo item %s in %s\n", args[1].c_str(), args[0].c_str());
        return 1;
    }
    for (const FonoLine& line : found->lines) {
        std::string text = line.text;
        if (!text.empty() && text.back() == '\n') text.pop_back();
        std::printf("%s\t%s\n", std::string(fonoStyleName(line.style)).c_str(), toUtf8(text).c_str());
    }
    return 0;
}

}  // namespace rovanel::cli
