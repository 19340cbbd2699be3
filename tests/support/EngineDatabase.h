// The test databases' builder: a database described by its products and tables, written with the
// generator's record encoders (db/RecordLayout.h) and index writers (gen/ProductModel.h). The fixtures
// (tests/fixtures/Databases.h) are such descriptions.
// Names and texts are UTF-8 here and Windows-1250 in the files; layouts as in docs/data-format.md.
#pragma once

#include <algorithm>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "db/Cp1250.h"
#include "db/MessageCatalog.h"
#include "db/RecordLayout.h"
#include "db/StartupTables.h"
#include "gen/ProductModel.h"
#include "tests/support/ScratchDirectory.h"

namespace rovanel::testing
{

// Names in the fixed-length records of db/RecordLayout.h, given in UTF-8.
inline std::string nameLine(const std::string& name)
{
    return encodeFixedLine(utf8ToCp1250(name), kNameLineLength);
}
inline std::string nameFileLine(const std::string& name)
{
    return encodeFixedLine(utf8ToCp1250(name), kNameFileLineLength);
}

// A gy.ful block from its lines, '|' between them: Windows-1250, CR LF after each line.
inline std::string blockLines(std::string_view lines)
{
    std::string text;
    for (std::size_t from = 0; from <= lines.size();) {
        const std::size_t bar = std::min(lines.find('|', from), lines.size());
        text += utf8ToCp1250(lines.substr(from, bar - from)) + "\r\n";
        from = bar + 1;
    }
    return text;
}

// Given in braces: {code, name, own, careful, avoid, contraindications}, the ones after name when wanted.
struct EngineProduct {
    std::string code;  // 10 characters
    std::string name;
    std::vector<std::string> own = {};  // ATC codes of its substances
    std::vector<std::string> careful = {}, avoid = {}, contraindications = {};
    std::string supportLine =
        "30;0;0;0;1--;-;2;1;0^1@210751477#-$-*-[3]0{0}0(0)-\xB3"
        "0@C08CA01";
    std::string priceLines = "1000\r\n800";  // the lines between "#ar" and "#ha"
    std::string block = {};                  // the gy.ful block as written; made from the fields when empty

    [[nodiscard]] std::string gyBlock() const
    {
        if (!block.empty()) return block;
        const auto lines = [](const std::vector<std::string>& codes) {
            std::string text;
            for (const std::string& line : codes) text += line + "\r\n";
            return text;
        };
        return code + "\r\n" + lines(own) + "#ar\r\n" + priceLines + "\r\n#ha\r\n" + supportLine +
               "\r\n#ter\r\n#jav\r\n#adag\r\n#bet\r\n#ell\r\n" + lines(contraindications) + "#mh\r\n#ov\r\n" +
               lines(careful) + "#til\r\n" + lines(avoid) + "#mer\r\n#fig\r\n#nev\r\n#vege\r\n";
    }
};

struct EngineDatabase {
    std::vector<EngineProduct> products;  // nutrition and then other products last
    int nutrition = 0, others = 0;
    std::vector<std::pair<std::string, std::string>> atcGroups;          // code, name in tree pre-order
    std::vector<std::pair<std::string, std::string>> contraindications;  // code, name
    std::vector<std::pair<std::string, std::vector<int>>> sideEffects;   // name, products
    std::vector<std::string> sideEffectCodes;                            // "M0", "M1", ... when not given
    std::vector<std::pair<std::string, std::vector<int>>> ingredients;   // name, products
    std::vector<std::pair<std::string, int>> forms;                      // abbreviation, products
    std::vector<std::string> regulationPoints;                           // rend.dat lines
    std::string regulations = "Rendelet\r\n\t1. pont\r\n\t\ta) alpont\r\n\t2. pont\r\n";  // rend2.ful
    std::map<std::string, std::string> files;  // written as given (Windows-1250) instead of the made ones

    // ATC lists by the products' code prefix, contraindication lists from their #ell sections.
    void write(const ScratchDirectory& directory) const
    {
        using Lists = std::vector<std::vector<std::int32_t>>;
        std::map<std::string, std::string> out;
        for (const char* name : {"atcnren2.dat", "atcnrend.dat", "atcnren5.dat", "ellnrend.dat",
                                 "mhnren2.dat", "mhnrend.dat", "harend2.dat", "x.dat", "xd.dat", "rend.dat"})
            out[name];  // written even when empty
        const auto pair = [&out](const char* directoryFile, const char* listFile, const Lists& lists,
                                 bool sentinel, bool comma) {
            generation::indexPair(lists, sentinel, comma, out[directoryFile], out[listFile]);
        };
        const auto count = [](const auto& list) { return std::to_string(list.size()) + ","; };
        std::string& kod = out["KOD.DAT"];
        std::vector<const std::vector<std::string>*> sections;
        for (const EngineProduct& product : products) {
            kod += encodeCodeField(product.code, kProductCodeWidth);
            out["nevrend.dat"] += nameLine(product.name);
            out["nevpos.dat"] += encodePositionRecord(out["gy.ful"].size());
            out["gy.ful"] += product.gyBlock();
            sections.push_back(&product.contraindications);
        }
        Lists atcLists;
        for (const auto& [code, name] : atcGroups) {
            kod += encodeCodeField(code, kAtcGroupCodeWidth);
            auto& members = atcLists.emplace_back();
            for (std::size_t p = 0; p < products.size(); ++p)
                if (products[p].code.starts_with(code)) members.push_back(static_cast<std::int32_t>(p));
            constexpr std::size_t kDepthOfLength[] = {0, 0, 1, 1, 2, 3, 3, 4, 4};  // 1, 3, 4, 6, 8 characters
            out["atcnren2.dat"] += std::string(kDepthOfLength[std::min<std::size_t>(code.size(), 8)], '\t') +
                                   utf8ToCp1250(name) + " (" + code + ")\r\n";
            out["atcnrend.dat"] += nameFileLine(name);
            std::string international = code;
            std::erase(international, '-');
            out["atcnren5.dat"] += nameFileLine(international + "  " + name);
        }
        pair("atcindin.dat", "atcind.dat", atcLists, true, false);
        std::vector<generation::CodeEntry> entries;
        for (const auto& [code, name] : contraindications) {
            kod += encodeCodeField(code, kContraindicationCodeWidth);
            entries.push_back({code.c_str(), name.c_str()});
            out["ellnrend.dat"] += nameFileLine(name);
        }
        out["ellnren2.dat"] = generation::codeTree(entries);
        pair("ellindin.dat", "ellind.dat", generation::codeLists(entries, sections), false, false);
        const auto keyed = [&](const auto& table, const char* names, const char* directoryFile,
                               const char* listFile, bool comma) {
            Lists lists;
            for (const auto& [name, members] : table) {
                out[names] += utf8ToCp1250(name) + "\r\n";
                lists.emplace_back(members.begin(), members.end());
            }
            pair(directoryFile, listFile, lists, false, comma);
        };
        keyed(sideEffects, "mhnren2.dat", "mhindin.dat", "mhind.dat", true);
        keyed(ingredients, "harend2.dat", "haindinf.dat", "haind.dat", false);
        for (std::size_t k = 0; k < sideEffects.size(); ++k) {
            kod += encodeCodeField(k < sideEffectCodes.size() ? sideEffectCodes[k] : "M" + std::to_string(k),
                                   kSideEffectCodeWidth);
            out["mhnrend.dat"] += nameFileLine(sideEffects[k].first);
        }
        for (std::size_t k = 0; k < forms.size(); ++k) {
            out["x.dat"] += forms[k].first + "\r\n";
            out["xd.dat"] += std::to_string(k) + "," + std::to_string(forms[k].second) + "\r\n";
        }
        for (const std::string& point : regulationPoints) out["rend.dat"] += utf8ToCp1250(point) + "\r\n";
        out["rend2.ful"] = utf8ToCp1250(regulations);
        for (const std::string& line : messageCatalogLines()) out["MSG.DAT"] += line + "\r\n";
        out["inf.dat"] = count(products) + count(atcGroups) + count(sideEffects) + count(contraindications) +
                         count(ingredients) + "0,0," + count(forms) + count(forms) + count(regulationPoints) +
                         std::to_string(nutrition) + "," + std::to_string(others) + ",1\r\n";
        for (const auto& [name, content] : files) out[name] = content;
        for (const auto& [name, content] : out) directory.write(name, content);
    }
    // Writes the database and loads its start-up tables without user settings.
    [[nodiscard]] StartupTables load(const ScratchDirectory& directory) const
    {
        write(directory);
        return loadStartupTables(directory.path(), directory.path() / "no-user.ini");
    }
};

}  // namespace rovanel::testing
