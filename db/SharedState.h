// Process-wide state that the windows share, owned by the main window and handed to each form by its
// constructor: the start-up tables, the found-drug table and the drug selection.
#pragma once

#include "db/FoundDrugs.h"
#include "db/StartupTables.h"

namespace rovanel
{

struct DrugSelection;  // db/DrugSelection.h (SzedettGy, EllSel, KhResult), added with the interaction engine

struct SharedState {
    StartupTables tables;
    FoundDrugTable found;
};

}  // namespace rovanel
