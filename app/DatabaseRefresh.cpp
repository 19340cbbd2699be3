#include "app/DatabaseRefresh.h"

#include <algorithm>

#include "app/IniFile.h"
#include "app/UserPaths.h"
#include "db/Cp1250.h"
#include "db/DataFile.h"

namespace rovanel
{
namespace fs = std::filesystem;

namespace
{

// ZARAS.INF holds two short lines; more than this is not a closing-date file, and only its start is read.
constexpr std::size_t kZarasReadLimit = 64 * 1024;

std::optional<std::string> readRefreshDate(const fs::path& directory)
{
    DataFile file(dataFilePath(directory, "ZARAS.INF"));
    if (!file.isOpen()) return std::nullopt;
    return refreshDateLine(file.read(0, kZarasReadLimit));
}

bool equalsIgnoringAsciiCase(std::string_view a, std::string_view b)
{
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), [&](char x, char y) { return lower(x) == lower(y); });
}

bool isOrdinaryFile(const fs::directory_entry& entry)
{
    std::error_code error;
    const std::string name = entry.path().filename().string();
    return !name.empty() && name.front() != '.' && entry.is_regular_file(error) && !entry.is_symlink(error);
}

// The name the file takes in the data directory: that of a file already there under another case, so
// that "GY.FUL" replaces "gy.ful" instead of standing beside it.
std::string targetName(const fs::path& dataDirectory, const std::string& name)
{
    return dataFilePath(dataDirectory, name).filename().string();
}

bool sameSize(const fs::path& a, const fs::path& b)
{
    std::error_code errorA;
    std::error_code errorB;
    const auto sizeA = fs::file_size(a, errorA);
    const auto sizeB = fs::file_size(b, errorB);
    return !errorA && !errorB && sizeA == sizeB;
}

void removeQuietly(const fs::path& path)
{
    std::error_code ignored;
    fs::remove_all(path, ignored);
}

// One file moved into place: where the old one went, if there was one.
struct PlacedFile {
    fs::path target;
    std::optional<fs::path> setAside;
};

// Puts every old file back and takes the new ones away, newest first.
void rollBack(const std::vector<PlacedFile>& placed, const RefreshFileOperations& operations)
{
    for (auto it = placed.rbegin(); it != placed.rend(); ++it) {
        std::error_code ignored;
        fs::remove(it->target, ignored);
        if (it->setAside) (void)operations.rename(*it->setAside, it->target);
    }
}

std::string nameText(const fs::path& path) { return path.filename().string(); }

}  // namespace

std::string pathToUpdate(const fs::path& dataDirectory)
{
    return readProfileString(settingsFilePath(dataDirectory), kSettingsSection, "PathToUpdate", "");
}

std::optional<std::string> refreshDateLine(std::string_view content)
{
    // Line 0, then line 1; a string list ends a line at CR LF, LF or a lone CR.
    std::size_t start = 0;
    for (int line = 0; line < 2; ++line) {
        if (start >= content.size()) return std::nullopt;
        const std::size_t end = content.find_first_of("\r\n", start);
        if (line == 1)
            return std::string(content.substr(start, end == std::string_view::npos ? end : end - start));
        if (end == std::string_view::npos) return std::nullopt;
        start = end + (content[end] == '\r' && end + 1 < content.size() && content[end + 1] == '\n' ? 2 : 1);
    }
    return std::nullopt;
}

RefreshCheck checkRefresh(const fs::path& dataDirectory, std::string_view updatePath)
{
    RefreshCheck check;
    // The path is joined to "ZARAS.INF" as text: "PathToUpdate" is written with its trailing separator.
    // Without it ("/srv/upd" gives "/srv/updZARAS.INF") there is no such file, and nothing to do.
    const fs::path joined = fs::path(std::string(updatePath) + "ZARAS.INF");
    check.directory = joined.is_relative() ? dataDirectory / joined.parent_path() : joined.parent_path();
    if (joined.filename() != "ZARAS.INF") return check;

    const auto updateDate = readRefreshDate(check.directory);
    if (!updateDate) return check;
    const auto currentDate = readRefreshDate(dataDirectory);
    if (!currentDate) return check;
    check.updateDate = *updateDate;
    check.currentDate = *currentDate;
    check.newer = check.updateDate > check.currentDate;
    if (!check.newer) return check;

    std::error_code error;
    for (fs::directory_iterator it(check.directory, error), end; !error && it != end; it.increment(error))
        if (isOrdinaryFile(*it)) check.files.push_back(it->path().filename().string());
    std::sort(check.files.begin(), check.files.end());
    return check;
}

RefreshFileOperations systemFileOperations()
{
    return {
        [](const fs::path& from, const fs::path& to) {
            std::error_code error;
            return fs::copy_file(from, to, fs::copy_options::overwrite_existing, error) && !error;
        },
        [](const fs::path& from, const fs::path& to) {
            std::error_code error;
            fs::rename(from, to, error);
            return !error;
        },
    };
}

RefreshInstall installRefresh(const fs::path& dataDirectory, const RefreshCheck& check,
                              const RefreshOptions& options)
{
    RefreshInstall result;
    const RefreshFileOperations& operations = options.operations;
    const fs::path data = dataDirectory.has_filename() ? dataDirectory : dataDirectory.parent_path();
    const fs::path staging = data.parent_path() / (data.filename().string() + ".frissites");
    const fs::path setAside = data.parent_path() / (data.filename().string() + ".elozo");
    const auto fail = [&](const std::string& why) {
        removeQuietly(staging);
        removeQuietly(setAside);
        result.failure = refreshFailedMessage(why);
        return result;
    };

    // Left by a refresh that was cut off (power failure); the database itself was never touched by them.
    removeQuietly(staging);
    removeQuietly(setAside);
    std::error_code error;
    if (!fs::create_directory(staging, error) || !fs::create_directory(setAside, error))
        return fail(utf8ToCp1250("nem hozható létre: ") + nameText(staging));

    // 1. Every file copied beside the database, and each copy checked against its source.
    for (const std::string& name : check.files) {
        const fs::path from = check.directory / name;
        const fs::path copy = staging / name;
        if (!operations.copy(from, copy)) return fail(utf8ToCp1250("nem másolható: ") + name);
        if (!sameSize(from, copy)) return fail(utf8ToCp1250("hiányos másolat: ") + name);
    }

    // 2. The running program file, on a system that cannot replace it, is first renamed to ".old".
    struct SetAsOld {
        fs::path program;
        fs::path old;
    };
    std::optional<SetAsOld> programSetAsOld;
    const bool bringsProgram = std::any_of(
        check.files.begin(), check.files.end(),
        [&](const std::string& name) { return equalsIgnoringAsciiCase(name, options.programName); });
    if (options.setProgramAsideAsOld && bringsProgram) {
        const fs::path program = dataFilePath(data, options.programName);
        const fs::path old = data / (program.stem().string() + ".old");
        std::error_code ignored;
        if (fs::exists(program, ignored)) {
            if (operations.rename(program, old))
                programSetAsOld = SetAsOld{program, old};
            else
                result.programKept = true;  // a ".old" left by an earlier refresh: kept on purpose
        }
    }

    // 3. Into place by renames; every old file set aside, so that a failure can put them all back.
    std::vector<PlacedFile> placed;
    const auto undo = [&](const std::string& why) {
        rollBack(placed, operations);
        if (programSetAsOld) (void)operations.rename(programSetAsOld->old, programSetAsOld->program);
        return fail(why);
    };
    for (const std::string& name : check.files) {
        const std::string target = targetName(data, name);
        if (result.programKept && equalsIgnoringAsciiCase(target, options.programName)) continue;
        PlacedFile file{data / target, std::nullopt};
        std::error_code ignored;
        if (fs::exists(file.target, ignored)) {
            if (!operations.rename(file.target, setAside / target))
                return undo(utf8ToCp1250("nem tehető félre: ") + target);
            file.setAside = setAside / target;
        }
        if (!operations.rename(staging / name, file.target)) {
            if (file.setAside) (void)operations.rename(*file.setAside, file.target);
            return undo(utf8ToCp1250("nem tehető a helyére: ") + target);
        }
        placed.push_back(file);
        result.placed.push_back(target);
    }

    removeQuietly(staging);
    removeQuietly(setAside);
    result.installed = true;
    return result;
}

std::string refreshProgramName()
{
#if defined(_WIN32)
    return "rvw32.exe";
#else
    return "rvw32";
#endif
}

bool programIsSetAsideAsOld()
{
#if defined(_WIN32)
    return true;
#else
    return false;
#endif
}

Message refreshStartingMessage()
{
    return {utf8ToCp1250("Az adatbázis változott, indul a frissítés."), "", MessageIcon::None, false};
}

Message refreshDoneMessage()
{
    return {utf8ToCp1250("Sikeres frissítés, a program újra indul."), "", MessageIcon::None, false};
}

Message refreshNothingNewMessage()
{
    return {utf8ToCp1250("Nincs újabb adatbázis a frissítési könyvtárban."), "", MessageIcon::None, false};
}

Message refreshFailedMessage(std::string_view why)
{
    return {
        utf8ToCp1250("A frissítés nem sikerült, a régi adatbázis változatlan maradt: ") + std::string(why),
        "", MessageIcon::Stop, false};
}

}  // namespace rovanel
