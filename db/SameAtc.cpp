#include "db/SameAtc.h"

#include <algorithm>
#include <optional>

#include "db/DataFile.h"
#include "db/ProductIndex.h"
#include "db/ProductPrice.h"
#include "db/StartupTables.h"
#include "db/Text.h"

namespace rovanel
{

namespace
{

// The head of a block (code, own codes, prices, support line) always fits here: 19 own codes of
// 10 characters, two price lines and a support line of at most 1,253 bytes.
constexpr std::size_t kHeadRead = 4096;
constexpr std::size_t kBlockLimit = 64000;
constexpr std::string_view kNoPrice = "N.\xE1.";

struct Priced {
    FoundDrug entry;
    std::optional<float> cost;
};

// Lines of `bytes` up to the "#ter" marker; false when the bytes end before it and more may follow.
bool headLines(std::string_view bytes, bool wholeRest, std::vector<std::string_view>& lines)
{
    lines.clear();
    std::size_t position = 0;
    while (position < bytes.size()) {
        std::size_t end = bytes.find('\n', position);
        if (end == std::string_view::npos) {
            if (!wholeRest) return false;
            end = bytes.size();
        }
        std::string_view line = bytes.substr(position, end - position);
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        lines.push_back(line);
        if (trim(line) == "#ter" || trim(line) == "#vege") return true;
        position = end + 1;
    }
    return wholeRest;
}

std::optional<PriceData> readPrice(ProductTexts& texts, ProductRecord record)
{
    const auto offset = texts.position(record);
    if (!offset || *offset >= texts.textSize()) return std::nullopt;
    std::vector<std::string_view> lines;
    std::string bytes = texts.read(*offset, kHeadRead);
    if (!headLines(bytes, *offset + bytes.size() >= texts.textSize(), lines)) {
        bytes = texts.read(*offset, kBlockLimit);
        if (!headLines(bytes, true, lines)) return std::nullopt;
    }
    return priceData(lines);
}

}  // namespace

AtcLevels atcLevels(const StartupTables& tables, std::string_view code)
{
    AtcLevels levels;
    code = trim(code);
    DataFile names(dataFilePath(tables.dataDirectory, "atcnren5.dat"));
    for (const std::size_t length : kAtcLevelLengths) {
        if (code.size() < length) break;
        const std::string_view prefix = code.substr(0, length);
        const auto& groups = tables.atcGroupCodes;
        const auto found = std::find(groups.begin(), groups.end(), prefix);
        if (found == groups.end()) continue;
        const auto slot = found - groups.begin();
        if (auto line = nameLine(names, slot)) levels.lines.push_back(std::move(*line));
        levels.levelLength = (*found).size();
    }
    return levels;
}

SameAtcList sameAtcProducts(const StartupTables& tables, std::string_view code, std::size_t levelLength,
                            SameAtcOrder order, bool hideDeleted)
{
    SameAtcList list;
    code = trim(code);
    const std::string_view cut = code.substr(0, std::min(levelLength, code.size()));
    const auto& groups = tables.atcGroupCodes;
    // A code that is not a group reads the sentinel record after the last group: an empty list.
    const auto slot = std::find(groups.begin(), groups.end(), cut) - groups.begin();

    const auto& directory = tables.dataDirectory;
    DataFile directoryFile(dataFilePath(directory, "atcindin.dat"));
    DataFile listFile(dataFilePath(directory, "atcind.dat"));
    ProductTexts texts(directory);
    if (!directoryFile.isOpen() || !listFile.isOpen() || !texts.isOpen()) return list;
    const auto key = keyRecord(directoryFile, slot);
    if (!key || key->count <= 0) return list;
    // A count larger than the products cannot be right; it is bounded rather than trusted.
    const std::int64_t count = std::min<std::int64_t>(key->count, tables.counts.products());
    const auto records = readRecordList(listFile, key->offset, count, false);

    std::vector<Priced> products;
    products.reserve(records.size());
    for (const ProductRecord record : records) {
        if (record < 0 || record >= tables.counts.products()) continue;
        const auto price = readPrice(texts, record);
        Priced priced{FoundDrug{record, 0}, std::nullopt};
        if (price) {
            if (hideDeleted && price->support[kFieldDeleted - 1] == "1") continue;
            const float doses = dailyDoses(price->support[kFieldDailyDoses - 1]);
            if (price->hasPriceLines)
                priced.cost = dailyCost(price->fullPrice, price->fullPrice - price->normativeSupport, doses,
                                        tables.fullPriceDailyCost);
        }
        products.push_back(priced);
    }

    if (order == SameAtcOrder::Price) {
        std::stable_sort(products.begin(), products.end(), [](const Priced& a, const Priced& b) {
            if (a.cost && b.cost && *a.cost != *b.cost) return *a.cost < *b.cost;
            if (a.cost.has_value() != b.cost.has_value()) return a.cost.has_value();
            return a.entry.record < b.entry.record;
        });
    } else {
        std::stable_sort(products.begin(), products.end(),
                         [](const Priced& a, const Priced& b) { return a.entry.record < b.entry.record; });
    }

    list.lines.reserve(products.size());
    list.found.reserve(products.size());
    for (const Priced& product : products) {
        std::string line(tables.productName(product.entry.record));
        line += "  ";
        if (product.cost)
            line += fixedDecimals(*product.cost, 1) + " Ft/nap";
        else
            line += kNoPrice;
        list.lines.push_back(std::move(line));
        list.found.push_back(product.entry);
    }
    return list;
}

}  // namespace rovanel
