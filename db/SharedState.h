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
    // "Törzskönyvből törölt kiszerlés nem kell": leave packages deleted from the register (TT flag) out of
    // the same-ATC lists; set by whichever window read or wrote "TTNemKellLeirasba" last.
    bool hideDeleted = false;
};

}  // namespace rovanel
