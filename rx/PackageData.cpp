#include "rx/PackageData.h"

#include "db/DataFile.h"
#include "db/DescriptionBuilder.h"
#include "db/ProductIndex.h"
#include "db/ProductPrice.h"
#include "db/StartupTables.h"
#include "db/Text.h"

namespace rovanel
{

std::string layoutAFlags(std::string_view categories, std::string_view publicCare, std::string_view supports)
{
    std::string flags(11, '0');
    const bool normative = !categories.empty() && categories.front() != '-';
    flags[3] = publicCare == "1" ? '1' : '0';
    flags[6] = normative ? '1' : '0';
    flags[8] = normative ? '1' : '0';
    for (const IndicationSupport& support : indicationSupports(supports))
        flags[support.highlighted ? 9 : 10] = '1';
    return flags;
}

std::string regulationDesignation(std::string_view supportCode)
{
    if (supportCode.empty()) return {};
    const char first = supportCode.front();
    const bool fee = first == '_' || first == '&' || first == '*';
    const std::string rate = !fee ? "100% " : first == '_' ? "90%  " : first == '&' ? "70%  " : "50%  ";
    return rate + std::string(fee ? supportCode.substr(1) : supportCode);
}

std::optional<PackageData> packageData(const StartupTables& tables,
                                       const std::filesystem::path& dataDirectory, std::int32_t record)
{
    DataFile gyful(dataFilePath(dataDirectory, "gy.ful"));
    DataFile nevpos(dataFilePath(dataDirectory, "nevpos.dat"));
    const auto block = productBlock(gyful, nevpos, record);
    if (!block || block->empty()) return std::nullopt;
    std::vector<std::string_view> lines(block->begin(), block->end());
    const PriceData prices = priceData(lines);

    PackageData data;
    data.record = record;
    data.productCode = std::string(trim(lines.front()));
    data.name = std::string(tables.productName(record));
    data.ttt = std::string(trim(prices.support[10]));
    data.daysPerPackage = dailyDoses(prices.support[0]);
    data.titleFlags = layoutAFlags(prices.support[4], trim(prices.support[7]), prices.support[5]);
    const auto supports = indicationSupports(prices.support[5]);
    for (const IndicationSupport& support : supports) {
        std::string& keys = support.highlighted ? data.keys.freeKey : data.keys.feeKey;
        if (!keys.empty()) keys += ',';
        keys += support.code;
    }
    if (!supports.empty()) {
        data.designation = regulationDesignation(supports.front().code);
        const std::string rend =
            readWholeFile(dataFilePath(dataDirectory, "rend.dat")).value_or(std::string());
        data.specialistFlag =
            contains(regulationPoint(rend, supports.front().code).text, "javaslat") ? "1" : "0";
    }
    return data;
}

}  // namespace rovanel
