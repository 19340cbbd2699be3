// rvcli aid DIR CODE: the description of a medical aid as the aids window shows it, searched from the
// offset of the deepest group whose code begins the aid's code.
#include <cstdio>

#include "catalogues/MedicalAids.h"
#include "cli/Common.h"

namespace rovanel::cli
{

int runAid(const Invocation& call)
{
    const auto& args = call.args;
    if (args.size() != 2) return call.usageError();
    return withDatabase(args[0], [&](const StartupTables& tables) {
        const AidCatalogue catalogue = loadAidCatalogue(args[0]);
        const auto description =
            aidDescription(catalogue, tables.messages, groupOfAid(catalogue, args[1]), args[1]);
        if (!description) {
            std::fprintf(stderr, "rvcli: no aid %s in %s\n", args[1].c_str(), args[0].c_str());
            return 1;
        }
        std::string text = *description;
        std::erase(text, '\r');
        std::printf("%s\n", toUtf8(text).c_str());
        return 0;
    });
}

}  // namespace rovanel::cli
