// rvcli describe DIR P: product P's description as plain text, headings included.
#include <cstdio>

#include "cli/Common.h"
#include "db/DescriptionBuilder.h"

namespace rovanel::cli
{

int runDescribe(const Invocation& call)
{
    const auto& args = call.args;
    if (args.size() != 2) return call.usageError();
    const auto number = numberArgument(args[1]);
    const auto record = number ? productRecordOf(*number) : std::nullopt;
    if (!record) return call.usageError();
    return withDatabase(args[0], [&](const StartupTables& tables) {
        const Description description = buildDescription(tables, *record);
        std::fputs(toUtf8(description.document.plainText()).c_str(), stdout);
        return description.built ? 0 : 1;
    });
}

}  // namespace rovanel::cli
