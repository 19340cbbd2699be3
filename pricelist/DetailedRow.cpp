#include "pricelist/DetailedRow.h"

#include <cmath>

#include "db/Cp1250.h"
#include "db/DataFile.h"
#include "db/ProductIndex.h"
#include "db/ProductPrice.h"
#include "db/Text.h"

namespace rovanel
{

namespace
{

constexpr std::size_t kCodeLineLimit = 19;       // a 20-byte read
constexpr std::size_t kLineLimit = 255;          // 256-byte reads
constexpr std::size_t kSupportLineLimit = 1254;  // a 1,255-byte read
constexpr std::size_t kBlockBound = 64000;

// Support line fields (1-based, docs/data-format.md 5.3) that only the detailed list reads.
constexpr std::size_t kFieldNormativeGroup = 2, kFieldCategories = 5, kFieldPublicCare = 8;
constexpr std::size_t kFieldNew = 10, kFieldTtt = 11, kFieldIncreasedCodes = 12, kFieldHighlightedCodes = 13;
constexpr std::size_t kFieldInfo = 14, kFieldForm = 15, kFieldInsurerId = 16, kFieldMihaId = 17;
constexpr std::size_t kFieldMihaC = 18, kFieldMihaS = 19, kFieldDosageMethod = 20, kFieldTargetCost = 21;
constexpr std::size_t kFieldAtc = 22;

std::string_view withoutBlanks(std::string_view text)
{
    const auto first = text.find_first_not_of(" \t\r");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

const std::string& field(const std::array<std::string, kSupportFieldCount>& fields, std::size_t number)
{
    return fields[number - 1];
}

// The amounts are long integers: "%ld".
std::string wholeNumber(long value) { return std::to_string(value); }

// The payable amount and daily cost of an indication-bound support of `amount` forints; three empty
// cells when there is none.
void indicationCells(DetailedRow& row, int firstColumn, long amount, float price, float doses)
{
    if (amount <= 0) return;
    const float payable = price - static_cast<float>(amount);
    row.cells[firstColumn] = wholeNumber(amount);
    row.cells[firstColumn + 1] = wholeNumber(static_cast<long>(payable));
    if (doses > 0) row.cells[firstColumn + 2] = fixedDecimals(payable / doses, 1);
}

}  // namespace

const std::array<DetailedColumn, kDetailedColumnCount>& detailedColumns()
{
    // Converted once: the captions are written in UTF-8 here for readability.
    static const auto columns = [] {
        static const std::array<std::string, kDetailedColumnCount> captions = [] {
            const char* utf8[kDetailedColumnCount] = {"Név - kiszerelés",
                                                      "Teljes ár",
                                                      "Tb Ft",
                                                      "Fizetendő",
                                                      "NK alap",
                                                      "R",
                                                      "normfix",
                                                      "Tb emelt Ft",
                                                      "Fizetendő",
                                                      "NK emelt",
                                                      "Rtk",
                                                      "euemfix",
                                                      "Tb kiemelt Ft",
                                                      "Fizetendő",
                                                      "NK kiemelt",
                                                      "Rtm",
                                                      "eukiemfix",
                                                      "Rend",
                                                      "Kgy",
                                                      "Tk",
                                                      "ttt",
                                                      "gyidx",
                                                      "eutk",
                                                      "eutm",
                                                      "info",
                                                      "TFX",
                                                      "Új",
                                                      "Gyforma",
                                                      "Oep-egyenid",
                                                      "Miha-ID",
                                                      "Miha-C",
                                                      "Miha-S",
                                                      "Adagmod",
                                                      "ATC",
                                                      "DOT"};
            std::array<std::string, kDetailedColumnCount> result;
            for (int i = 0; i < kDetailedColumnCount; ++i) result[i] = utf8ToCp1250(utf8[i]);
            return result;
        }();
        using S = SortClass;
        constexpr S classes[kDetailedColumnCount] = {
            S::Caption, S::Integer,  S::Integer, S::Integer,  S::Decimal, S::Category, S::Integer,
            S::Integer, S::Integer,  S::Decimal, S::Category, S::Integer, S::Integer,  S::Integer,
            S::Decimal, S::Category, S::Integer, S::Text,     S::Text,    S::Integer,  S::Integer,
            S::Integer, S::Integer,  S::Integer, S::Integer,  S::Text,    S::Text,     S::Integer,
            S::Integer, S::Text,     S::Text,    S::Text,     S::Integer, S::Text,     S::Integer};
        std::array<DetailedColumn, kDetailedColumnCount> result{};
        for (int i = 0; i < kDetailedColumnCount; ++i) {
            // Columns without a designed width get the list view's default of 50.
            int width = 50;
            if (i == 0) width = 200;
            if (i == 5 || i == 10 || i == 15 || i == 18) width = 30;
            if (i == 32) width = 0;  // "Adagmod" is hidden by design
            result[i] = {captions[i].c_str(), width, classes[i]};
        }
        return result;
    }();
    return columns;
}

std::optional<std::vector<std::string>> rowBlockLines(DataFile& gyful, DataFile& nevpos, std::int64_t record)
{
    const auto offset = textPosition(nevpos, record);
    if (!offset || !gyful.isOpen() || *offset >= gyful.size()) return std::nullopt;
    std::string bytes;
    // Most blocks reach their support line within a few hundred bytes: read a little, and more only while
    // the support line is not complete.
    for (std::size_t chunk = 2048;; chunk *= 2) {
        bytes += gyful.read(*offset + bytes.size(), std::min(chunk, kBlockBound - bytes.size()));
        const bool whole = bytes.size() >= kBlockBound || *offset + bytes.size() >= gyful.size();
        std::vector<std::string> lines;
        bool complete = false, afterSupportMarker = false;
        std::size_t position = 0;
        while (position < bytes.size()) {
            std::size_t end = bytes.find('\n', position);
            if (end == std::string::npos) {
                if (!whole) break;  // cut by the read: read more
                end = bytes.size();
            }
            std::string_view line(bytes.data() + position, end - position);
            if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
            position = end + 1;
            const std::size_t limit = lines.empty()        ? kCodeLineLimit
                                      : afterSupportMarker ? kSupportLineLimit
                                                           : kLineLimit;
            lines.emplace_back(line.substr(0, std::min(limit, line.size())));
            if (afterSupportMarker || withoutBlanks(line) == "#vege") {
                complete = true;
                break;
            }
            afterSupportMarker = lines.size() > 1 && withoutBlanks(line) == "#ha";
        }
        if (complete || whole) return lines;
    }
}

std::string targetCostWord(std::string_view rating)
{
    if (rating == "-1") return utf8ToCp1250("C.É. ALATT");
    if (rating == "0") return utf8ToCp1250("NEM ÉRT.");
    if (rating == "1") return utf8ToCp1250("C.É. FÖLÖTT");
    return std::string(rating);
}

std::string dispensingWord(std::string_view digit)
{
    constexpr const char* kWords[] = {"VN", "V", "KP", "Abusus", "Uj", "J", "SZ", "I"};
    if (digit.size() != 1 || digit[0] < '1' || digit[0] > '8') return {};
    return kWords[digit[0] - '1'];
}

std::optional<DetailedRow> GetDailyPrice(const std::vector<std::string>& blockLines, std::int32_t record,
                                         std::string_view name, ListingMode mode, bool hideDeleted,
                                         FixedGroupState& groups)
{
    std::vector<std::string_view> lines(blockLines.begin(), blockLines.end());
    const PriceData price = priceData(lines);
    const auto& fields = price.support;

    // Fixed-group ids: "0" is no group.
    std::array<std::string, 3> ids;
    for (std::size_t kind = 0; kind < 3; ++kind) {
        ids[kind] = field(fields, kFieldNormativeGroup + kind);
        if (ids[kind] == "0") ids[kind].clear();
    }
    // A fixed-group listing keeps only the products of the stored group, while its kind is seen.
    if (mode != ListingMode::Plain) {
        const auto kind = static_cast<std::size_t>(mode) - 2;
        if (groups.seen[kind] && ids[kind] != groups.storedIds[kind]) return std::nullopt;
    }
    std::array<std::string, 3> categories;
    const std::string& categoryField = field(fields, kFieldCategories);
    if (categoryField.empty() || categoryField[0] != '-') {
        for (std::size_t kind = 0; kind < 3 && kind < categoryField.size(); ++kind) {
            const char c = categoryField[kind];
            if (c != '5' && c != '6') categories[kind] = std::string(1, c);
        }
    }
    const bool deleted = field(fields, kFieldDeleted) == "1";
    if (hideDeleted && deleted) return std::nullopt;

    DetailedRow row;
    row.record = record;
    auto& cells = row.cells;
    cells[column::kCaption] = std::string(name);

    // Prices, in single precision as the row has always computed them.
    const float fullPrice = price.fullPrice;
    const float normative = price.normativeSupport;
    const auto priceSection = sectionLines(lines, "#ar");
    if (!priceSection.empty()) cells[column::kFullPrice] = std::string(withoutBlanks(priceSection[0]));
    if (priceSection.size() > 1) {
        const std::string_view supportText = withoutBlanks(priceSection[1]);
        if (supportText != "0") cells[column::kNormativeSupport] = std::string(supportText);
    }
    const float payable = fullPrice == 0 ? 0.0F : std::trunc(fullPrice - normative);
    cells[3] = fullPrice == 0 ? "0" : fixedDecimals(payable, 0);
    const float doses = dailyDoses(field(fields, kFieldDailyDoses));
    if (doses > 0 && payable > 0) cells[column::kNormativeDailyCost] = fixedDecimals(payable / doses, 1);

    // Indication-bound supports: the last entry of each kind counts.
    long increased = 0, highlighted = 0;
    for (const IndicationSupport& support : indicationSupports(field(fields, kFieldIndicationSupports)))
        (support.highlighted ? highlighted : increased) = support.amount;
    indicationCells(row, 7, increased, fullPrice, doses);
    indicationCells(row, 12, highlighted, fullPrice, doses);

    constexpr int kCategoryColumns[3] = {column::kNormativeCategory, column::kIncreasedCategory,
                                         column::kHighlightedCategory};
    constexpr const char* kTfxWords[3] = {"NORM", "EUTK", "EUTM"};
    std::string tfx;
    for (std::size_t kind = 0; kind < 3; ++kind) {
        cells[kCategoryColumns[kind]] = categories[kind];
        cells[kCategoryColumns[kind] + 1] = ids[kind];
        if (categories[kind] == "3") {
            groups.seen[kind] = true;
            if (!tfx.empty()) tfx += ',';
            tfx += kTfxWords[kind];
        }
    }
    cells[17] = dispensingWord(field(fields, kFieldDispensing));
    cells[18] = field(fields, kFieldPublicCare) == "1" ? "I" : "";
    cells[19] = deleted ? "TT" : "";
    cells[column::kTtt] = field(fields, kFieldTtt);
    cells[column::kRecord] = std::to_string(record);
    cells[22] = field(fields, kFieldIncreasedCodes);
    cells[23] = field(fields, kFieldHighlightedCodes);
    cells[24] = field(fields, kFieldInfo);
    cells[25] = tfx;
    // The data marks new products with "0".
    cells[26] = field(fields, kFieldNew) == "0" ? "*" : "";
    cells[column::kForm] = field(fields, kFieldForm);
    cells[28] = field(fields, kFieldInsurerId);
    cells[29] = field(fields, kFieldMihaId);
    cells[30] = field(fields, kFieldMihaC);
    cells[31] = field(fields, kFieldMihaS);
    cells[32] = field(fields, kFieldDosageMethod);
    cells[column::kAtc] = field(fields, kFieldAtc);
    cells[34] = targetCostWord(field(fields, kFieldTargetCost));
    return row;
}

}  // namespace rovanel
