// The detailed list ("Részletes lista") without its window: the rows of one ATC group (bFillSameAtc),
// the sort by a column with the "*caption*" mark, the fixed-group listings and their buttons' state.
// The window and `rvcli detailed` drive the same object, so they show the same rows in the same order.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "db/Message.h"
#include "pricelist/DetailedRow.h"

namespace rovanel
{

struct StartupTables;

// The most entries a fill reads: after the row of the 601st it stops with the too-many-rows message.
inline constexpr int kDetailedListLimit = 601;

// Columns hidden after every fill whatever they hold: internal identifiers of no use to a physician.
inline constexpr std::array<int, 7> kAlwaysHiddenColumns = {21, 24, 28, 29, 30, 31, 32};

struct FillOutcome {
    bool changed = false;            // the rows were replaced
    std::vector<Message> messages;   // in the order shown (group empty, too many rows, sort error)
    std::vector<int> hiddenColumns;  // columns to give width 0, ascending
};

class DetailedList
{
public:
    explicit DetailedList(const StartupTables& tables);

    // "TTNemKellLeirasba" is "IGEN": packages deleted from the register (TT) are left out.
    void setHideDeleted(bool hide) { m_hideDeleted = hide; }
    [[nodiscard]] bool hideDeleted() const { return m_hideDeleted; }

    // Fills the list with the products of the ATC group `code` (the stored 8-character form), in listing
    // mode `mode`, then sorts by the column the fixed groups seen choose.
    FillOutcome bFillSameAtc(std::string_view code, ListingMode mode);

    // A header click: moves the "*" marks to `column` and sorts by it (always ascending).
    [[nodiscard]] std::optional<Message> RefLstColumnClick(int column);

    // TfxNormClick, TfxTerkotClick, TfxTermentClick: lists the products of the broader group (the
    // current code cut to 6) that share the fixed group of `selectedRow` (-1 = none selected).
    FillOutcome fixedGroupClick(SupportKind kind, int selectedRow);

    // Clears the seen flags and the stored ids and disables the three buttons.
    void ResetLastFixVars();

    [[nodiscard]] const std::vector<DetailedRow>& rows() const { return m_rows; }
    [[nodiscard]] int sortColumn() const { return m_sortColumn; }
    [[nodiscard]] const std::string& currentCode() const { return m_currentCode; }
    // The code line of the product record read last (trimmed): the public-care list's ATC field.
    [[nodiscard]] const std::string& lastReadCode() const { return m_lastReadCode; }
    [[nodiscard]] const FixedGroupState& fixedGroups() const { return m_groups; }
    // The caption of `column` as its header shows it ("*NK alap*" on the sorted column).
    [[nodiscard]] const std::string& columnCaption(int column) const;
    [[nodiscard]] bool fixedGroupButtonEnabled(SupportKind kind) const;
    [[nodiscard]] const std::string& fixedGroupButtonCaption(SupportKind kind) const;

private:
    const StartupTables& m_tables;
    bool m_hideDeleted = false;
    std::vector<DetailedRow> m_rows;
    int m_sortColumn = -1;
    std::string m_currentCode;
    std::string m_lastReadCode;
    FixedGroupState m_groups;
    std::array<std::string, kDetailedColumnCount> m_captions;
    std::array<bool, 3> m_buttonEnabled{};
    std::array<std::string, 3> m_buttonCaptions;
};

}  // namespace rovanel
