// The table model of the detailed list: a view of the core's rows, converted to Unicode only for the
// cells on screen, so a 600-row group shows at once.
#pragma once

#include <QAbstractTableModel>
#include <QIcon>
#include <array>

namespace rovanel
{
class DetailedList;
}

class RefListModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    explicit RefListModel(const rovanel::DetailedList& list, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    // Around a change of the list's rows (a fill or a sort).
    void beginChange() { beginResetModel(); }
    void endChange();

    // The icon of a support category digit ("1", "2", "3", "4", "6"); a null icon for any other text.
    [[nodiscard]] QIcon categoryIcon(const std::string& category) const;

private:
    const rovanel::DetailedList& m_list;
    std::array<QIcon, 10> m_icons;
};
