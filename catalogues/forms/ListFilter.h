// Filtering a list as one types, until the shared forms kit brings its own name-list widget: rows whose
// text does not hold the typed text (Hungarian case and accents folded: "kenocs" finds "Kenőcs") are
// hidden, never removed, so a row's index stays the item's index.
#pragma once

#include <QString>
#include <string>

class QListWidget;

[[nodiscard]] QString foldedForSearch(const QString& text);

// Hides the rows of `list` that do not hold `text`; the empty text shows every row.
void filterRows(QListWidget* list, const QString& text);

// Text between the core (Windows-1250, CR LF) and a plain text box (Unicode, LF).
[[nodiscard]] QString boxText(const std::string& cp1250);
[[nodiscard]] std::string fileText(const QString& box);
