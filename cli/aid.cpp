// rvcli aid DIR CODE: the description of a medical aid as the aids window shows it, searched from the
// offset of the deepest group whose code begins the aid's code.
#include <cstdio>

#include "catalogues/MedicalAids.h"
#include "cli/Common.h"
#include "db/DataFile.h"
#include "db/MessageTable.h"

namespace rovanel::cli
{

int runAid(const std::vector<std::string>& args)
{
    if (args.size() != 2) return usageError("aid DIR CODE");
    const AidCatalogue catalogue = loadAidCatalogue(args[0]);
    const MessageTable messages =
        MessageTable::parse(readWholeFile(dataFilePath(args[0], "MSG.DAT")).value_or(std::string{}));
    const auto description = aidDescription(catalogue, messages, groupOfAid(catalogue, args[1]), args[1]);
    if (!description) {
        std::fprintf(stderr, "rvcli: no aid %s in %s\n", args[1].c_str(), args[0].c_str());
        return 1;
    }
    std::string text = *description;
    std::erase(text, '\r');
    std::printf("%s\n", toUtf8(text).c_str());
    return 0;
}

}  // namespace rovanel::cli
