#include "cli/Common.h"

#include <cstdio>
#include <system_error>

#include "app/UserPaths.h"
#include "db/Cp1250.h"
#include "db/DataFile.h"
#include "db/Text.h"

namespace rovanel::cli
{

bool isReadableDirectory(const std::string& directory)
{
    std::error_code error;
    if (std::filesystem::is_directory(directory, error)) return true;
    std::fprintf(stderr, "rvcli: %s: not a readable directory\n", directory.c_str());
    return false;
}

int withDatabase(const std::string& directory, const std::function<int(StartupTables&)>& body)
{
    if (!isReadableDirectory(directory)) return 2;
    StartupTables tables = loadStartupTables(directory, userIniPath());
    if (tables.reached < LoadStep::Counts) {
        std::fprintf(stderr, "rvcli: %s: inf.dat is missing or unreadable\n", directory.c_str());
        return 2;
    }
    return body(tables);
}

std::string closingDateLine(const std::string& directory)
{
    const auto content = readWholeFile(dataFilePath(directory, "zaras.inf"));
    if (!content) return {};
    std::string_view line = *content;
    line = line.substr(0, line.find('\n'));
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    return std::string(line.substr(0, 79));
}

std::optional<long long> numberArgument(std::string_view text)
{
    if (text.empty() || text.front() == ' ') return std::nullopt;
    const auto value = parseInteger(text);
    if (!value) return std::nullopt;
    return *value;
}

std::string toUtf8(std::string_view cp1250) { return cp1250ToUtf8(cp1250); }

}  // namespace rovanel::cli
