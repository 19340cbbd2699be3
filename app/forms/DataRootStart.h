// The program's start in its data root (app/DataRoot.h): the data directory becomes the working
// directory, which every window reads from.
#pragma once

#include <QString>
#include <QStringList>

// The program's read-only installed files: share/rovanel beside the program's bin folder.
[[nodiscard]] QString installedDataFolder();

// Takes "--data DIR" out of `arguments` (the command line without the program name), finds the data root
// and makes it the working directory. When no place holds a database: shows the start-up message saying
// where Rovanel looked and how to get one, and gives false.
[[nodiscard]] bool enterDataRoot(QStringList& arguments);
