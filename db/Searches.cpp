#include "db/Searches.h"

#include <algorithm>

#include "db/Cp1250.h"
#include "db/DataFile.h"
#include "db/DrugSelection.h"
#include "db/FoundDrugs.h"
#include "db/MessageCatalog.h"
#include "db/ProductIndex.h"
#include "db/StartupTables.h"

namespace rovanel
{

namespace
{

struct IndexFiles {
    DataFile list;
    DataFile directory;
    [[nodiscard]] bool isOpen() const { return list.isOpen() && directory.isOpen(); }
};

IndexFiles openPair(const StartupTables& tables, std::string_view list, std::string_view directory)
{
    return IndexFiles{DataFile(dataFilePath(tables.dataDirectory, list)),
                      DataFile(dataFilePath(tables.dataDirectory, directory))};
}

Message tableMessage(const StartupTables& tables, int text, int caption)
{
    return Message{std::string(tables.messages.at(static_cast<std::size_t>(text))),
                   std::string(tables.messages.at(static_cast<std::size_t>(caption))),
                   MessageIcon::Information, false};
}

// Record numbers outside the name list name nothing; they are left out of every result.
std::vector<FoundDrug> validEntries(const StartupTables& tables, const std::vector<ProductRecord>& records)
{
    std::vector<FoundDrug> entries;
    entries.reserve(records.size());
    for (ProductRecord record : records)
        if (record >= 0 && static_cast<std::size_t>(record) < tables.productNames.size())
            entries.push_back(FoundDrug{record, 0});
    return entries;
}

}  // namespace

SearchOutcome FillMhIdxList(const StartupTables& tables, FoundDrugTable& found, std::int64_t sideEffect)
{
    IndexFiles files = openPair(tables, "mhind.dat", "mhindin.dat");
    if (!files.isOpen()) return {};
    const auto key = sideEffect >= 0 ? keyRecord(files.directory, sideEffect) : std::nullopt;
    if (!key) {
        found.clear();
        return {true, std::nullopt};
    }
    if (key->count > kSearchLimit)
        return {false, tableMessage(tables, msg::kMhTooMany, msg::kMhTooManyCaption)};
    if (key->count <= 0) return {false, tableMessage(tables, msg::kMhNone, msg::kMhCaption)};
    found.assign(validEntries(tables, readRecordList(files.list, key->offset, key->count, true)));
    return {true, std::nullopt};
}

SearchOutcome FillMhSpecIdxList2(const StartupTables& tables, const DrugSelection& selection,
                                 FoundDrugTable& found, std::int64_t sideEffect)
{
    IndexFiles files = openPair(tables, "mhind.dat", "mhindin.dat");
    if (!files.isOpen()) return {};
    std::vector<ProductRecord> kept;
    const auto key = sideEffect >= 0 ? keyRecord(files.directory, sideEffect) : std::nullopt;
    if (key && key->count > 0) {
        // Slots 0..SzedettGyCount, the one past the last entry included (it holds -1, which no record
        // equals).
        const std::size_t slots = static_cast<std::size_t>(std::clamp<std::int64_t>(
            std::int64_t{selection.SzedettGyCount} + 1, 0, selection.SzedettGy.size()));
        for (ProductRecord record : readRecordList(files.list, key->offset, key->count, true))
            if (std::find(selection.SzedettGy.begin(),
                          selection.SzedettGy.begin() + static_cast<std::ptrdiff_t>(slots),
                          record) != selection.SzedettGy.begin() + static_cast<std::ptrdiff_t>(slots))
                kept.push_back(record);
    }
    found.assign(validEntries(tables, kept));
    if (found.entries().empty()) return {true, tableMessage(tables, msg::kMhNoneAmongTaken, msg::kMhCaption)};
    return {true, std::nullopt};
}

SearchOutcome HaKeres(const StartupTables& tables, FoundDrugTable& found, std::int64_t ingredient)
{
    if (ingredient < 0) {
        found.clear();
        return {true, std::nullopt};
    }
    IndexFiles files = openPair(tables, "haind.dat", "haindinf.dat");
    if (!files.isOpen()) return {};
    const auto key = keyRecord(files.directory, ingredient);
    if (!key || key->count <= 0) {
        found.clear();
        return {true, std::nullopt};
    }
    SearchOutcome outcome{true, std::nullopt};
    std::int64_t toRead = key->count;
    if (toRead > kSearchLimit) {
        toRead = kSearchLimit;
        outcome.message = Message{utf8ToCp1250("Túl sok gyógyszer tartozik ide, csak a lista eleje látszik!"),
                                  "", MessageIcon::None, true};
    }
    found.assign(validEntries(tables, readRecordList(files.list, key->offset, toRead, false)));
    return outcome;
}

std::vector<std::string> foundDrugNames(const StartupTables& tables, const FoundDrugTable& found)
{
    std::vector<std::string> names;
    for (const FoundDrug& entry : found.entries()) {
        if (entry.record < 0) break;
        names.emplace_back(tables.productName(entry.record));
    }
    return names;
}

}  // namespace rovanel
