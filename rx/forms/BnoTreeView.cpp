#include "rx/forms/BnoTreeView.h"

#include <QTreeWidget>

#include "views/forms/kit/Lists.h"
#include "views/forms/kit/Text.h"

namespace rovanel::forms
{

namespace
{
constexpr int kIndexRole = Qt::UserRole;
}

void fillBnoTree(QTreeWidget* tree, const std::vector<TreeNode>& nodes)
{
    tree->setUpdatesEnabled(false);
    tree->clear();
    // Items are made top-down and handed to their parents in one call per parent, which keeps a tree of
    // 24,000 nodes quick to build.
    std::vector<QTreeWidgetItem*> parents;
    QList<QTreeWidgetItem*> topLevel;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        const auto depth = static_cast<std::size_t>(nodes[i].depth);
        const QString text = fromCp1250(nodes[i].text);
        auto* item = new QTreeWidgetItem(QStringList(text));
        item->setToolTip(0, text);  // the whole line where the tree's width cuts it with "…"
        item->setData(0, kIndexRole, static_cast<int>(i));
        if (depth == 0 || parents.size() < depth) {  // parseTreeText never deepens by more than one
            topLevel.append(item);
            parents.assign(1, item);
        } else {
            parents[depth - 1]->addChild(item);
            parents.resize(depth + 1);
            parents[depth] = item;
        }
    }
    tree->addTopLevelItems(topLevel);
    tree->setUpdatesEnabled(true);
}

void selectBnoNode(QTreeWidget* tree, std::size_t index)
{
    // Walk down from the top level: an item's children hold increasing node indexes.
    QTreeWidgetItem* found = nullptr;
    for (int i = tree->topLevelItemCount() - 1; i >= 0 && !found; --i) {
        QTreeWidgetItem* item = tree->topLevelItem(i);
        while (item) {
            const int here = item->data(0, kIndexRole).toInt();
            if (static_cast<std::size_t>(here) == index) {
                found = item;
                break;
            }
            if (static_cast<std::size_t>(here) > index) break;
            QTreeWidgetItem* next = nullptr;
            for (int c = item->childCount() - 1; c >= 0; --c) {
                if (static_cast<std::size_t>(item->child(c)->data(0, kIndexRole).toInt()) <= index) {
                    next = item->child(c);
                    break;
                }
            }
            item = next;
        }
    }
    if (!found) return;
    for (QTreeWidgetItem* parent = found->parent(); parent; parent = parent->parent())
        parent->setExpanded(true);
    tree->setCurrentItem(found);
    found->setSelected(true);
    tree->scrollToItem(found);
}

int selectedBnoNode(const QTreeWidget* tree)
{
    const QList<QTreeWidgetItem*> selected = tree->selectedItems();
    return selected.isEmpty() ? -1 : selected.first()->data(0, kIndexRole).toInt();
}

}  // namespace rovanel::forms
