// rvcli aid-find DIR TEXT [--names]: the aids window's searches. Without --names, every group of the tree
// whose text holds TEXT ("node<TAB>text", as "Listában felsorolva" lists them); with --names, every aid
// whose name holds it ("name<TAB>code<TAB>node").
#include <cstdio>

#include "catalogues/MedicalAids.h"
#include "cli/Common.h"
#include "db/Cp1250.h"

namespace rovanel::cli
{

int runAidFind(const Invocation& call)
{
    const auto& args = call.args;
    if (args.size() < 2 || args.size() > 3 || (args.size() == 3 && args[2] != "--names"))
        return call.usageError();
    if (!isReadableDirectory(args[0])) return 2;
    const AidCatalogue catalogue = loadAidCatalogue(args[0]);
    const std::string text = utf8ToCp1250(args[1]);
    if (args.size() == 3) {
        for (const AidNameHit& hit : findAidNames(catalogue, text))
            std::printf("%s\t%s\t%d\n", toUtf8(hit.name).c_str(), hit.code.c_str(), hit.node);
        return 0;
    }
    for (int node = findInAidTree(catalogue, text, 0); node >= 0;
         node = findInAidTree(catalogue, text, node + 1))
        std::printf("%d\t%s\n", node, toUtf8(catalogue.tree[static_cast<std::size_t>(node)].text).c_str());
    return 0;
}

}  // namespace rovanel::cli
