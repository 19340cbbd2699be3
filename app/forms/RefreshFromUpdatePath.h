// RefreshFromUpdatePath: installs a newer database from the update directory named by "PathToUpdate"
// (app/DatabaseRefresh.h) and restarts the program with "-r", which opens the detailed list. Runs at
// every start before the main window exists, silently when there is nothing newer, and from the main
// menu's "Frissítés", which says so.
#pragma once

#include <functional>

class QWidget;

// Returns when nothing was installed (nothing newer, or a failure that left the old database whole and
// was shown). After an installed refresh the restarter runs and does not return.
void RefreshFromUpdatePath(QWidget* owner, bool manual);

// What happens after an installed refresh: by default the program is started again with "-r" from its
// own directory and this process ends at once, closing no window and saving nothing. Tests replace it.
using Restarter = std::function<void()>;
Restarter setRestarter(Restarter restarter);
