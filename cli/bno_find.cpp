// rvcli bno-find DIR TEXT [--list] [--ignore-case]: the BNO tree search. Tree mode prints the first hit,
// list mode every hit, each as "node index<TAB>node text".
#include <cstdio>

#include "cli/Common.h"
#include "db/Cp1250.h"
#include "rx/BnoTree.h"

namespace rovanel::cli
{

int runBnoFind(const Invocation& call)
{
    const auto& args = call.args;
    if (args.size() < 2) return call.usageError();
    bool list = false, ignoreCase = false;
    for (std::size_t i = 2; i < args.size(); ++i) {
        if (args[i] == "--list") {
            list = true;
        } else if (args[i] == "--ignore-case") {
            ignoreCase = true;
        } else {
            return call.usageError();
        }
    }
    const auto nodes = loadBnoTree(args[0]);
    if (!nodes) {
        std::fprintf(stderr, "rvcli: %s has no readable bno.tre\n", args[0].c_str());
        return 2;
    }
    const std::string text = utf8ToCp1250(args[1]);
    std::vector<std::size_t> hits;
    if (list) {
        hits = bnoSearchAll(*nodes, text, ignoreCase);
    } else {
        BnoSearchPosition position;
        if (const auto hit = bnoSearchFirst(*nodes, text, ignoreCase, position)) hits.push_back(*hit);
    }
    for (const std::size_t hit : hits) std::printf("%zu\t%s\n", hit, toUtf8((*nodes)[hit].text).c_str());
    return 0;
}

}  // namespace rovanel::cli
