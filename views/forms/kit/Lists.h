// Lists and trees of the windows: trees filled from tab-indented files keeping each node's line
// number, result lists whose lines keep their whole text in a tooltip when the list is too narrow, and
// the hook through which a window shows a description.
#pragma once

#include <QString>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "db/ProductRecord.h"

class QListWidget;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;
class QWidget;

namespace rovanel::forms
{

// Shows product `record`'s description under `caption` in the shared description window.
using DescriptionViewer = std::function<void(rovanel::ProductRecord record, const QString& caption)>;

// A push button named `name`.
[[nodiscard]] QPushButton* button(const char* name, const QString& caption, QWidget* parent);

// A read-only tree without header named `name`, whose selection stays visible without the focus.
[[nodiscard]] QTreeWidget* readOnlyTree(const char* name, QWidget* parent);

// A list whose lines are names: too long a line is cut with "…" and shows whole in its tooltip.
[[nodiscard]] QListWidget* nameLines(const char* name, QWidget* parent);

// Fills `tree` from a tab-indented tree file; each item keeps its absolute node index (its line number).
// False (and an empty tree) when the file cannot be read.
bool loadTree(QTreeWidget* tree, const std::filesystem::path& path);
// The absolute node index of `item`, or -1 for none.
[[nodiscard]] int absoluteIndex(const QTreeWidgetItem* item);
// The absolute node index of the tree's selected node, or -1.
[[nodiscard]] int selectedNode(const QTreeWidget* tree);

// The selected line of a list, or -1 (a current row without selection counts as no selection).
[[nodiscard]] int selectedRow(const QListWidget* list);

// Replaces the lines of a list with Windows-1250 texts.
void setLines(QListWidget* list, const std::vector<std::string>& lines);
// Adds one line (its whole text also as tooltip).
void addElidedLine(QListWidget* list, const QString& line);

// Shows the lines of `list` in two aligned columns, split at their first tab (the name, then the rest);
// the texts stay as they are. Returns a header for the list whose two captions stand over the columns.
[[nodiscard]] QWidget* tabColumns(QListWidget* list, const QString& firstCaption,
                                  const QString& secondCaption);

// The prescription window's item-adding operation as the catalogue windows hand an item to it: name,
// text and product code, Windows-1250 ("999999999" marks a magistral item).
using PrescriptionHandover =
    std::function<void(const std::string& name, const std::string& text, const std::string& productCode)>;

// Calls `action` on every right-button press on `widget` (for a text box: its viewport).
void onRightButtonPress(QWidget* widget, std::function<void()> action);

}  // namespace rovanel::forms
