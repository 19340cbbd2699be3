// rvcli describe DIR P: product P's description as plain text, headings included.
#include <cstdio>

#include "cli/Common.h"
#include "db/DescriptionBuilder.h"
#include "db/StyledDocument.h"

namespace rovanel::cli
{

int runDescribe(const std::vector<std::string>& args)
{
    const char* usage = "describe DIR P";
    if (args.size() != 2) return usageError(usage);
    const auto record = numberArgument(args[1]);
    if (!record || *record < -1 || *record > INT32_MAX) return usageError(usage);
    const auto tables = openDatabase(args[0]);
    if (!tables) return 2;
    StyledDocument document;
    const int result = buildDescription(*tables, static_cast<std::int32_t>(*record), document);
    std::fputs(toUtf8(document.plainText()).c_str(), stdout);
    return result == 0 ? 0 : 1;
}

}  // namespace rovanel::cli
