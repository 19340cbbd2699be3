// Where the program finds its database at start. A directory named on the command line ("--data DIR")
// or in ROVANEL_DATA_DIR is the only place looked at; otherwise the working directory, then the user's
// data folder (userDataDirectory), whichever holds gy.ful first. When none does, the start-up message
// says where Rovanel looked and how to get a database, and the program ends instead of showing an empty
// window.
#pragma once

#include <filesystem>
#include <optional>
#include <vector>

#include "db/Message.h"

namespace rovanel
{

// The user's data folder: %APPDATA%\Rovanel on Windows; elsewhere $XDG_DATA_HOME/rovanel, else
// $HOME/.local/share/rovanel.
[[nodiscard]] std::filesystem::path userDataDirectory();

struct DataRootSearch {
    std::optional<std::filesystem::path> commandLine;  // "--data DIR"
    std::optional<std::filesystem::path> environment;  // ROVANEL_DATA_DIR, when set and not empty
    std::filesystem::path workingDirectory;
    std::filesystem::path userDataDirectory;
    std::filesystem::path installedData;  // the program's read-only files (share/rovanel beside bin/)
};

struct DataRootChoice {
    std::optional<std::filesystem::path> directory;  // the data root, when one holds a database
    std::vector<std::filesystem::path> searched;     // the places looked at, in order
    std::optional<Message> missing;                  // the start-up message when none did
};

// True when `directory` holds gy.ful (in any case).
[[nodiscard]] bool holdsDatabase(const std::filesystem::path& directory);

[[nodiscard]] DataRootChoice findDataRoot(const DataRootSearch& search);

}  // namespace rovanel
