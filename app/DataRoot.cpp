#include "app/DataRoot.h"

#include <cstdlib>
#include <string>
#include <system_error>

#include "db/Cp1250.h"
#include "db/DataFile.h"

namespace rovanel
{

std::filesystem::path userDataDirectory()
{
#if defined(_WIN32)
    if (const char* appData = std::getenv("APPDATA"); appData && *appData)
        return std::filesystem::path(appData) / "Rovanel";
#endif
    if (const char* xdg = std::getenv("XDG_DATA_HOME"); xdg && *xdg)
        return std::filesystem::path(xdg) / "rovanel";
    if (const char* home = std::getenv("HOME"); home && *home)
        return std::filesystem::path(home) / ".local" / "share" / "rovanel";
    return std::filesystem::path(".rovanel");
}

bool holdsDatabase(const std::filesystem::path& directory)
{
    std::error_code error;
    return std::filesystem::is_regular_file(dataFilePath(directory, "gy.ful"), error);
}

namespace
{

// A path as UTF-8 text, whatever the system's narrow encoding.
std::string utf8(const std::filesystem::path& path)
{
    const std::u8string text = path.u8string();
    return std::string(reinterpret_cast<const char*>(text.data()), text.size());
}

Message missingDatabase(const DataRootChoice& choice, const DataRootSearch& search)
{
    std::string text = "Rovanel nem talált adatbázist (gy.ful). Itt kereste:\n";
    for (const auto& place : choice.searched) text += "    " + utf8(place) + "\n";
    const std::string user = "\"" + utf8(search.userDataDirectory) + "\"";
    text += "\nAdatbázist így kaphat:\n";
    // The installed copies are read-only: the user's data folder gets a copy of one.
    const auto installed = [&](const char* name, const char* what) {
        const std::filesystem::path copy = search.installedData / name;
        if (holdsDatabase(copy))
            text += std::string("  - ") + what + ": másolja a(z) \"" + utf8(copy) +
                    "\" mappa tartalmát ide: " + user + "\n";
    };
    installed("demo-db", "a telepített bemutató adatbázis");
    installed("real-db", "a telepített NEAK adatbázis");
    text += "  - bemutató adatbázis készítése: rvcli gen " + user + "\n";
    text += "  - valódi adatok a NEAK tábláiból: rvcli import-neak FORRÁSMAPPA " + user + "\n";
    text += "  - meglévő adatbázis: rvw32 --data MAPPA, vagy a ROVANEL_DATA_DIR környezeti változó";
    return {utf8ToCp1250(text), "Rovanel", MessageIcon::Warning, false};
}

}  // namespace

DataRootChoice findDataRoot(const DataRootSearch& search)
{
    DataRootChoice choice;
    if (search.commandLine || search.environment)
        choice.searched = {search.commandLine ? *search.commandLine : *search.environment};
    else
        choice.searched = {search.workingDirectory, search.userDataDirectory};
    for (const auto& place : choice.searched)
        if (holdsDatabase(place)) {
            choice.directory = place;
            return choice;
        }
    choice.missing = missingDatabase(choice, search);
    return choice;
}

}  // namespace rovanel
