// The database refresh from a practice's shared update directory ("PathToUpdate" in the data directory's
// RV.INI). When the update directory's ZARAS.INF carries a later second line than the data directory's,
// every ordinary file of the update directory replaces its namesake in the data directory, the program
// file included, and the program restarts with "-r".
//
// A refresh never leaves a mixed database: the files are first copied to a staging directory beside the
// data directory and their sizes checked; only then are they moved into place by renames, each old file
// set aside in a second directory beside it, and a failure at any step moves every old file back. Texts
// are Windows-1250.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "db/Message.h"

namespace rovanel
{

// "PathToUpdate" of section "Rovanel Beallitasok" of the data directory's RV.INI; "" when unset.
[[nodiscard]] std::string pathToUpdate(const std::filesystem::path& dataDirectory);

// The second line (index 1) of a ZARAS.INF, split as a string list splits (CR LF, LF or CR); nothing
// when the file is missing or has fewer than two lines.
[[nodiscard]] std::optional<std::string> refreshDateLine(std::string_view content);

struct RefreshCheck {
    bool newer = false;               // the update directory holds a later edition
    std::filesystem::path directory;  // the update directory
    std::string updateDate;           // second line of its ZARAS.INF
    std::string currentDate;          // second line of the data directory's
    std::vector<std::string> files;   // its ordinary files (no directories, hidden files or links), by name
};

// Compares the two closing dates byte by byte. `updatePath` is joined to file names as written (it
// carries its trailing separator) and is taken from the data directory when relative.
[[nodiscard]] RefreshCheck checkRefresh(const std::filesystem::path& dataDirectory,
                                        std::string_view updatePath);

// The file operations a refresh uses, replaceable by tests to fail at a chosen step.
struct RefreshFileOperations {
    std::function<bool(const std::filesystem::path& from, const std::filesystem::path& to)> copy;
    std::function<bool(const std::filesystem::path& from, const std::filesystem::path& to)> rename;
};
[[nodiscard]] RefreshFileOperations systemFileOperations();

struct RefreshOptions {
    std::string programName;  // the program file among the database's files ("rvw32.exe", "rvw32")
    // Windows: a running program file cannot be replaced, only renamed. It is first renamed to
    // "<name>.old"; when that fails (a ".old" left by an earlier refresh) the old program file stays and
    // the data files are replaced all the same.
    bool setProgramAsideAsOld = false;
    RefreshFileOperations operations = systemFileOperations();
};

struct RefreshInstall {
    bool installed = false;
    std::vector<std::string> placed;  // names now in the data directory, from the update directory
    bool programKept = false;         // the old program file stayed (left-over ".old")
    std::optional<Message> failure;   // why nothing was changed
};

// Installs the files of `check` into `dataDirectory`. On failure the data directory is as it was.
[[nodiscard]] RefreshInstall installRefresh(const std::filesystem::path& dataDirectory,
                                            const RefreshCheck& check, const RefreshOptions& options);

// The program's own file name: "rvw32.exe" on Windows, "rvw32" elsewhere.
[[nodiscard]] std::string refreshProgramName();
[[nodiscard]] bool programIsSetAsideAsOld();

// The messages of a refresh.
[[nodiscard]] Message refreshStartingMessage();    // "Az adatbázis változott, indul a frissítés."
[[nodiscard]] Message refreshDoneMessage();        // "Sikeres frissítés, a program újra indul."
[[nodiscard]] Message refreshNothingNewMessage();  // the menu command with nothing newer
[[nodiscard]] Message refreshFailedMessage(std::string_view why);

}  // namespace rovanel
