#include "pricelist/forms/RefListModel.h"

#include <QColor>
#include <QPainter>
#include <QPixmap>

#include "pricelist/DetailedList.h"
#include "views/forms/kit/Lists.h"
#include "views/forms/kit/Text.h"

namespace
{

// The category icons are drawn here: a coloured disc with the digit, one colour per kind of support.
QIcon drawnIcon(char digit, const QColor& colour)
{
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(colour);
    painter.setPen(colour.darker(140));
    painter.drawEllipse(1, 1, 14, 14);
    painter.setPen(Qt::white);
    QFont font = painter.font();
    font.setPixelSize(11);
    font.setBold(true);
    painter.setFont(font);
    painter.drawText(QRect(0, 0, 16, 16), Qt::AlignCenter, QString(QChar(digit)));
    return QIcon(pixmap);
}

}  // namespace

RefListModel::RefListModel(const rovanel::DetailedList& list, QObject* parent)
    : QAbstractTableModel(parent), m_list(list)
{
    m_icons[1] = drawnIcon('1', QColor(0, 128, 0));
    m_icons[2] = drawnIcon('2', QColor(0, 90, 170));
    m_icons[3] = drawnIcon('3', QColor(170, 90, 0));
    m_icons[4] = drawnIcon('4', QColor(128, 0, 128));
    m_icons[6] = drawnIcon('6', QColor(110, 110, 110));
}

int RefListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_list.rows().size());
}

int RefListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : rovanel::kDetailedColumnCount;
}

QIcon RefListModel::categoryIcon(const std::string& category) const
{
    if (category.size() != 1 || category[0] < '0' || category[0] > '9') return {};
    return m_icons[static_cast<std::size_t>(category[0] - '0')];
}

QVariant RefListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount() || index.column() >= rovanel::kDetailedColumnCount)
        return {};
    const std::string& cell =
        m_list.rows()[static_cast<std::size_t>(index.row())].cells[static_cast<std::size_t>(index.column())];
    switch (role) {
        case Qt::DisplayRole:
            return rovanel::forms::fromCp1250(cell);
        case Qt::ToolTipRole:  // the whole cell where its column cuts it with "…"
            if (cell.empty()) return {};
            return rovanel::forms::fromCp1250(cell);
        case Qt::DecorationRole: {
            const int c = index.column();
            if (c == rovanel::column::kNormativeCategory || c == rovanel::column::kIncreasedCategory ||
                c == rovanel::column::kHighlightedCategory) {
                const QIcon icon = categoryIcon(cell);
                if (!icon.isNull()) return icon;
            }
            return {};
        }
        default:
            return {};
    }
}

QVariant RefListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    // A caption wider than its column is elided; the tooltip shows it whole.
    if (orientation != Qt::Horizontal || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) return {};
    return rovanel::forms::fromCp1250(m_list.columnCaption(section));
}

void RefListModel::endChange()
{
    endResetModel();
    emit headerDataChanged(Qt::Horizontal, 0, rovanel::kDetailedColumnCount - 1);
}
