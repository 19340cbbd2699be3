// Process-wide state that the windows share, owned by the main window and handed to each form by its
// constructor: the start-up tables, the found-drug table and the drug selection.
#pragma once

#include <filesystem>

#include "db/DrugSelection.h"
#include "db/FoundDrugs.h"
#include "db/StartupTables.h"

namespace rovanel
{

struct SharedState {
    StartupTables tables;
    FoundDrugTable found;
    DrugSelection selection;
    // "Törzskönyvből törölt kiszerlés nem kell": leave packages deleted from the register (TT flag) out of
    // the same-ATC lists; set by whichever window read or wrote "TTNemKellLeirasba" last.
    bool hideDeleted = false;

    // Loads the start-up tables of `dataDirectory` (see loadStartupTables); the rest is left as it is.
    void openDatabase(const std::filesystem::path& dataDirectory, const std::filesystem::path& userIni)
    {
        tables = loadStartupTables(dataDirectory, userIni);
    }
    // Lets the tables go when the main window closes.
    void closeDatabase() { tables = StartupTables{}; }
};

}  // namespace rovanel
