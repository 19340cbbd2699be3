#include "pricelist/DetailedList.h"

#include <algorithm>

#include "db/Cp1250.h"
#include "db/DataFile.h"
#include "db/MessageCatalog.h"
#include "db/ProductIndex.h"
#include "db/StartupTables.h"
#include "db/Text.h"
#include "pricelist/RefSort.h"

namespace rovanel
{

namespace
{

constexpr std::size_t kCurrentCodeLength = 8;
constexpr std::size_t kBroaderGroupLength = 6;

// Per kind of fixed group: the id column, the daily-cost column a fill sorts by, the captions.
struct FixedGroupKind {
    int idColumn;
    int sortColumn;
    const char* designedCaption;
    const char* seenCaption;  // UTF-8
};
constexpr FixedGroupKind kKinds[3] = {
    {column::kNormativeGroup, column::kNormativeDailyCost, "Tfx Norm", "Normatív TFX azonosak listázása"},
    {column::kIncreasedGroup, column::kIncreasedDailyCost, "TfxTerkot", "Eü. emelt TFX azonosak listázása"},
    {column::kHighlightedGroup, column::kHighlightedDailyCost, "TfxTerment",
     "Eü. kiemelt TFX azonosak listázása"},
};

Message plainMessage(const char* utf8) { return Message{utf8ToCp1250(utf8), "", MessageIcon::None, false}; }

}  // namespace

DetailedList::DetailedList(const StartupTables& tables) : m_tables(tables)
{
    for (int i = 0; i < kDetailedColumnCount; ++i) m_captions[i] = detailedColumns()[i].caption;
    for (std::size_t kind = 0; kind < 3; ++kind) m_buttonCaptions[kind] = kKinds[kind].designedCaption;
}

const std::string& DetailedList::columnCaption(int column) const
{
    static const std::string none;
    return column >= 0 && column < kDetailedColumnCount ? m_captions[static_cast<std::size_t>(column)] : none;
}

bool DetailedList::fixedGroupButtonEnabled(SupportKind kind) const
{
    return m_buttonEnabled[static_cast<std::size_t>(kind)];
}

const std::string& DetailedList::fixedGroupButtonCaption(SupportKind kind) const
{
    return m_buttonCaptions[static_cast<std::size_t>(kind)];
}

FillOutcome DetailedList::bFillSameAtc(std::string_view code, ListingMode mode)
{
    FillOutcome outcome;
    m_currentCode = std::string(code.substr(0, std::min(code.size(), kCurrentCodeLength)));

    // A code that is no group reads the sentinel record after the last group: no products.
    const auto& groups = m_tables.atcGroupCodes;
    std::size_t slot = 0;
    while (slot < groups.size() && groups[slot] != m_currentCode) ++slot;

    const auto& directory = m_tables.dataDirectory;
    DataFile atcindin(dataFilePath(directory, "atcindin.dat"));
    DataFile atcind(dataFilePath(directory, "atcind.dat"));
    DataFile gyful(dataFilePath(directory, "gy.ful"));
    DataFile nevpos(dataFilePath(directory, "nevpos.dat"));
    if (!atcindin.isOpen() || !atcind.isOpen() || !gyful.isOpen() || !nevpos.isOpen()) return outcome;

    const Message noProduct = plainMessage("Nincs ilyen,vagy minden kiszer. TT");
    const std::optional<KeyRecord> key = keyRecord(atcindin, static_cast<std::int64_t>(slot));
    if (!key || key->count <= 0) {
        outcome.messages.push_back(noProduct);  // the list keeps its rows
        return outcome;
    }
    const std::vector<std::int32_t> records =
        readRecordList(atcind, key->offset, std::min<std::int64_t>(key->count, kDetailedListLimit), false);
    m_rows.clear();
    outcome.changed = true;
    const std::int32_t products = m_tables.counts.products();
    for (const std::int32_t record : records) {
        if (record < 0 || record >= products) continue;
        const auto lines = rowBlockLines(gyful, nevpos, record);
        if (!lines) continue;
        if (!lines->empty()) m_lastReadCode = std::string(trim((*lines)[0]));
        auto row = GetDailyPrice(*lines, record, m_tables.productName(record), mode, m_hideDeleted, m_groups);
        if (row) m_rows.push_back(std::move(*row));
    }
    if (records.size() >= static_cast<std::size_t>(kDetailedListLimit)) {
        outcome.messages.push_back(Message{std::string(m_tables.messages.at(msg::kRefTooManyRows)),
                                           std::string(m_tables.messages.at(msg::kRefTooManyRowsCaption)),
                                           MessageIcon::Information, true});
    }
    // A group whose every package was left out (hide-TT) says so as an empty group does.
    if (m_rows.empty()) outcome.messages.push_back(noProduct);

    for (int c = 1; c < kDetailedColumnCount; ++c) {
        const auto index = static_cast<std::size_t>(c);
        const bool empty = std::all_of(m_rows.begin(), m_rows.end(),
                                       [&](const DetailedRow& row) { return row.cells[index].empty(); });
        const bool always = std::find(kAlwaysHiddenColumns.begin(), kAlwaysHiddenColumns.end(), c) !=
                            kAlwaysHiddenColumns.end();
        if (empty || always) outcome.hiddenColumns.push_back(c);
    }

    // Later kinds win: highlighted beats increased beats normative.
    int sortColumn = -1;
    for (std::size_t kind = 0; kind < 3; ++kind) {
        if (!m_groups.seen[kind]) continue;
        m_buttonCaptions[kind] = utf8ToCp1250(kKinds[kind].seenCaption);
        m_buttonEnabled[kind] = true;
        sortColumn = kKinds[kind].sortColumn;
    }
    if (sortColumn >= 0) {
        if (auto error = RefLstColumnClick(sortColumn)) outcome.messages.push_back(std::move(*error));
    }
    return outcome;
}

std::optional<Message> DetailedList::RefLstColumnClick(int column)
{
    if (column < 0 || column >= kDetailedColumnCount) return std::nullopt;
    // The marks move: a marked caption loses its pair of stars, the clicked one gets a pair.
    for (std::string& caption : m_captions) {
        if (caption.find('*') == std::string::npos) continue;
        if (!caption.empty() && caption.front() == '*') caption.erase(0, 1);
        if (!caption.empty() && caption.back() == '*') caption.pop_back();
    }
    std::string& clicked = m_captions[static_cast<std::size_t>(column)];
    clicked = "*" + clicked + "*";
    m_sortColumn = column;
    return sortRows(m_rows, column);
}

FillOutcome DetailedList::fixedGroupClick(SupportKind kind, int selectedRow)
{
    FillOutcome outcome;
    const std::string kept = m_currentCode;
    if (m_currentCode.size() < kCurrentCodeLength) return outcome;
    if (selectedRow < 0 || static_cast<std::size_t>(selectedRow) >= m_rows.size()) {
        outcome.messages.push_back(plainMessage("Jelöljön ki egy készítményt az alsó listából"));
        return outcome;
    }
    const auto index = static_cast<std::size_t>(kind);
    std::string id =
        m_rows[static_cast<std::size_t>(selectedRow)].cells[static_cast<std::size_t>(kKinds[index].idColumn)];
    if (!id.empty() && id[0] == '0') id.clear();
    m_groups.storedIds[index] = id;
    outcome = bFillSameAtc(std::string_view(m_currentCode).substr(0, kBroaderGroupLength),
                           static_cast<ListingMode>(index + 2));
    m_currentCode = kept;
    ResetLastFixVars();
    return outcome;
}

void DetailedList::ResetLastFixVars()
{
    m_groups = FixedGroupState{};
    m_buttonEnabled = {};
}

}  // namespace rovanel
