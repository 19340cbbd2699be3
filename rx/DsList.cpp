#include "rx/DsList.h"

#include "app/IniFile.h"
#include "app/UserPaths.h"
#include "db/Cp1250.h"
#include "db/DataFile.h"
#include "db/Text.h"

namespace rovanel
{

namespace
{
constexpr std::size_t kItemLimit = 255;
}

std::filesystem::path userDosageListPath() { return userConfigDirectory() / "DsList.txt"; }

std::vector<std::string> prepareDosageList(const std::filesystem::path& dataDirectory,
                                           const std::filesystem::path& userList)
{
    std::error_code error;
    if (!std::filesystem::exists(userList, error)) {
        if (const auto temp = readWholeFile(dataFilePath(dataDirectory, "DsListT.txt")))
            (void)writeFileAtomically(userList, *temp);
    }
    std::vector<std::string> items;
    const std::string content = readWholeFile(userList).value_or(std::string());
    forEachLine(content, [&](std::string_view line) {
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        if (!line.empty()) items.emplace_back(line.substr(0, kItemLimit));
        return true;
    });
    return items;
}

std::optional<Message> saveDosageList(const std::filesystem::path& userList,
                                      const std::vector<std::string>& items)
{
    std::string content;
    for (std::string item : items) {
        for (char& c : item)
            if (c == '\r' || c == '\n') c = ' ';
        content += item + "\r\n";
    }
    if (writeFileAtomically(userList, content)) return std::nullopt;
    return Message{utf8ToCp1250("Az adagolási lista nem menthető: a(z) ") + userList.string() +
                       utf8ToCp1250(" fájl nem írható (a korábbi tartalma megmaradt)."),
                   "", MessageIcon::Stop};
}

std::string dosageText(const std::string& item) { return "D.S.:\n" + item; }

}  // namespace rovanel
