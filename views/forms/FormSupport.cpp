#include "views/forms/FormSupport.h"

#include <QComboBox>
#include <QListWidget>
#include <QStringList>
#include <QTreeWidget>

#include "db/Cp1250.h"
#include "db/ProductIndex.h"
#include "db/StartupTables.h"
#include "db/TreeFile.h"

namespace rovanel::forms
{

QString fromCp1250(const std::string& text) { return QString::fromUtf8(cp1250ToUtf8(text)); }

bool loadTree(QTreeWidget* tree, const std::filesystem::path& path)
{
    tree->clear();
    const auto nodes = loadTreeFile(path);
    if (!nodes) return false;
    std::vector<QTreeWidgetItem*> parents;  // parents[d] = the last item of depth d
    for (std::size_t line = 0; line < nodes->size(); ++line) {
        const TreeNode& node = (*nodes)[line];
        const auto depth = static_cast<std::size_t>(node.depth);
        QTreeWidgetItem* item =
            depth == 0 ? new QTreeWidgetItem(tree) : new QTreeWidgetItem(parents[depth - 1]);
        item->setText(0, fromCp1250(node.text));
        item->setData(0, Qt::UserRole, static_cast<int>(line));
        parents.resize(depth + 1);
        parents[depth] = item;
    }
    return true;
}

int absoluteIndex(const QTreeWidgetItem* item)
{
    if (!item) return -1;
    bool ok = false;
    const int index = item->data(0, Qt::UserRole).toInt(&ok);
    return ok ? index : -1;
}

int selectedNode(const QTreeWidget* tree)
{
    const QList<QTreeWidgetItem*> selected = tree->selectedItems();
    return selected.isEmpty() ? -1 : absoluteIndex(selected.first());
}

int comboItemIndex(const QComboBox* combo)
{
    const QString text = combo->currentText();
    if (text.isEmpty()) return -1;
    if (combo->currentIndex() >= 0 && combo->itemText(combo->currentIndex()) == text)
        return combo->currentIndex();
    const int exact = combo->findText(text, Qt::MatchFixedString);
    if (exact >= 0) return exact;
    return combo->findText(text, Qt::MatchStartsWith);
}

int selectedRow(const QListWidget* list)
{
    const QList<QListWidgetItem*> selected = list->selectedItems();
    return selected.isEmpty() ? -1 : list->row(selected.first());
}

void setLines(QListWidget* list, const std::vector<std::string>& lines)
{
    list->clear();
    for (const std::string& line : lines) list->addItem(fromCp1250(line));
}

void fillMedicineNames(QComboBox* combo, const rovanel::StartupTables& tables)
{
    QStringList names;
    for (const std::string& name : rovanel::nameListFill(tables, rovanel::NameGroup::Medicines))
        names << fromCp1250(name);
    combo->clear();
    combo->addItems(names);
}

}  // namespace rovanel::forms
