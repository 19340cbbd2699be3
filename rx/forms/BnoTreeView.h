// The BNO tree in a tree widget, shared by the BNO browser and the prescription window's lower panel: one
// item per node of bno.tre, each keeping its node index, and the selection of a node by index.
#pragma once

#include <cstddef>
#include <vector>

#include "db/TreeFile.h"

class QTreeWidget;
class QTreeWidgetItem;

namespace rovanel::forms
{

// Fills `tree` with `nodes` (Windows-1250 texts), all collapsed; items are addressed by node index.
void fillBnoTree(QTreeWidget* tree, const std::vector<TreeNode>& nodes);

// Selects node `index`, opening the tree down to it and scrolling it into view.
void selectBnoNode(QTreeWidget* tree, std::size_t index);

// The node index of the selected item, or -1.
[[nodiscard]] int selectedBnoNode(const QTreeWidget* tree);

}  // namespace rovanel::forms
