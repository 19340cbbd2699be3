// Small helpers the interaction, side-effect, ingredient and regulation windows share: trees filled from
// tab-indented files keeping each node's line number, Windows-1250 text at the edge, the index a
// simple-style drug combo stands on, and the hook through which a window shows a description.
#pragma once

#include <QString>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "db/ProductRecord.h"

class QComboBox;
class QTreeWidget;
class QTreeWidgetItem;
class QListWidget;

namespace rovanel
{
struct StartupTables;
}

namespace rovanel::forms
{

// Shows product `record`'s description under `caption` in the shared description window.
using DescriptionViewer = std::function<void(rovanel::ProductRecord record, const QString& caption)>;

[[nodiscard]] QString fromCp1250(const std::string& text);

// Fills `tree` from a tab-indented tree file; each item keeps its absolute node index (its line number).
// False (and an empty tree) when the file cannot be read.
bool loadTree(QTreeWidget* tree, const std::filesystem::path& path);
// The absolute node index of `item`, or -1 for none.
[[nodiscard]] int absoluteIndex(const QTreeWidgetItem* item);
// The absolute node index of the tree's selected node, or -1.
[[nodiscard]] int selectedNode(const QTreeWidget* tree);

// The item index of a simple-style combo: the item whose text the edit line holds (first, case-blind),
// else the first item that begins with it; -1 when none does or the text is empty.
[[nodiscard]] int comboItemIndex(const QComboBox* combo);

// The selected line of a list, or -1 (a current row without selection counts as no selection).
[[nodiscard]] int selectedRow(const QListWidget* list);

// Replaces the lines of a list with Windows-1250 texts.
void setLines(QListWidget* list, const std::vector<std::string>& lines);

// Replaces the items of a drug combo with the medicines' names in record order (item index = record).
void fillMedicineNames(QComboBox* combo, const rovanel::StartupTables& tables);

}  // namespace rovanel::forms
