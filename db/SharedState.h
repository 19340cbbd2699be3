// Process-wide state that the windows share, owned by the main window and handed to each form by its
// constructor: the start-up tables, the found-drug table and the drug selection.
#pragma once

#include "db/DrugSelection.h"
#include "db/FoundDrugs.h"
#include "db/StartupTables.h"

namespace rovanel
{

struct SharedState {
    StartupTables tables;
    FoundDrugTable found;
    DrugSelection selection;
};

}  // namespace rovanel
