#include "views/forms/kit/Lists.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTreeWidget>

#include "db/TreeFile.h"
#include "views/forms/kit/Text.h"

namespace rovanel::forms
{

namespace
{

// The second column's width: room for the widest identifier part a line can have.
int secondColumnWidth(const QFontMetrics& metrics)
{
    return metrics.horizontalAdvance(QStringLiteral("999999 -K 99999 !")) + 12;
}

class TabColumnsDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const QString text = index.data().toString();
        const qsizetype tab = text.indexOf('\t');
        if (tab < 0) {
            QStyledItemDelegate::paint(painter, option, index);
            return;
        }
        QStyleOptionViewItem background = option;
        initStyleOption(&background, index);
        background.text.clear();
        const QWidget* widget = option.widget;
        QStyle* style = widget ? widget->style() : nullptr;
        if (style) style->drawControl(QStyle::CE_ItemViewItem, &background, painter, widget);

        const int second = secondColumnWidth(option.fontMetrics);
        const QRect area = option.rect.adjusted(3, 0, -3, 0);
        const QRect nameArea(area.left(), area.top(), std::max(0, area.width() - second), area.height());
        const QRect restArea(nameArea.right() + 1, area.top(), area.width() - nameArea.width(),
                             area.height());
        painter->save();
        painter->setPen(option.palette.color(option.state & QStyle::State_Selected ? QPalette::HighlightedText
                                                                                   : QPalette::Text));
        const QString name =
            option.fontMetrics.elidedText(text.left(tab), Qt::ElideRight, nameArea.width() - 6);
        painter->drawText(nameArea, Qt::AlignVCenter | Qt::AlignLeft, name);
        painter->drawText(restArea, Qt::AlignVCenter | Qt::AlignLeft, text.mid(tab + 1));
        painter->restore();
    }
};

}  // namespace

QPushButton* button(const char* name, const QString& caption, QWidget* parent)
{
    auto* result = new QPushButton(caption, parent);
    result->setObjectName(name);
    result->setAutoDefault(false);
    return result;
}

QTreeWidget* readOnlyTree(const char* name, QWidget* parent)
{
    auto* tree = new QTreeWidget(parent);
    tree->setObjectName(name);
    tree->setHeaderHidden(true);
    tree->setEditTriggers(QAbstractItemView::NoEditTriggers);
    return tree;
}

QListWidget* nameLines(const char* name, QWidget* parent)
{
    auto* list = new QListWidget(parent);
    list->setObjectName(name);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setTextElideMode(Qt::ElideRight);
    list->setResizeMode(QListView::Adjust);
    return list;
}

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

int selectedRow(const QListWidget* list)
{
    const QList<QListWidgetItem*> selected = list->selectedItems();
    return selected.isEmpty() ? -1 : list->row(selected.first());
}

void setLines(QListWidget* list, const std::vector<std::string>& lines)
{
    list->clear();
    for (const std::string& line : lines) addElidedLine(list, fromCp1250(line));
}

void addElidedLine(QListWidget* list, const QString& line)
{
    auto* item = new QListWidgetItem(line, list);
    item->setToolTip(line);
}

QWidget* tabColumns(QListWidget* list, const QString& firstCaption, const QString& secondCaption)
{
    list->setItemDelegate(new TabColumnsDelegate(list));
    auto* header = new QWidget(list->parentWidget());
    auto* first = new QLabel(firstCaption, header);
    auto* second = new QLabel(secondCaption, header);
    second->setFixedWidth(secondColumnWidth(list->fontMetrics()));
    auto* layout = new QHBoxLayout(header);
    // The list's frame and the delegate's margin: the captions stand over the texts.
    layout->setContentsMargins(list->frameWidth() + 3, 0, list->frameWidth() + 3, 0);
    layout->addWidget(first, 1);
    layout->addWidget(second);
    return header;
}

namespace
{

class RightButtonFilter : public QObject
{
public:
    RightButtonFilter(QObject* parent, std::function<void()> action)
        : QObject(parent), m_action(std::move(action))
    {
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::MouseButtonPress &&
            static_cast<QMouseEvent*>(event)->button() == Qt::RightButton)
            m_action();
        return QObject::eventFilter(watched, event);
    }

private:
    std::function<void()> m_action;
};

}  // namespace

void onRightButtonPress(QWidget* widget, std::function<void()> action)
{
    widget->installEventFilter(new RightButtonFilter(widget, std::move(action)));
}

}  // namespace rovanel::forms
