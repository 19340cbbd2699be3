// A small database written from a list of products with the codes the interaction engine and the
// searches read: own, careful, avoid and contraindication codes, the support line, and the ATC groups,
// contraindications, side effects and active ingredients with their index pairs and trees.
// Layouts as in docs/data-format.md. Names and texts are UTF-8 here and Windows-1250 in the files.
#pragma once

#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "db/Cp1250.h"
#include "db/MessageCatalog.h"
#include "tests/support/RecordLayouts.h"
#include "tests/support/ScratchDirectory.h"

namespace rovanel::testing
{

struct EngineProduct {
    EngineProduct(std::string productCode, std::string productName, std::vector<std::string> ownCodes = {},
                  std::vector<std::string> carefulCodes = {}, std::vector<std::string> avoidCodes = {},
                  std::vector<std::string> contraindicationCodes = {})
        : code(std::move(productCode)),
          name(std::move(productName)),
          own(std::move(ownCodes)),
          careful(std::move(carefulCodes)),
          avoid(std::move(avoidCodes)),
          contraindications(std::move(contraindicationCodes))
    {
    }
    std::string code;  // 10 characters
    std::string name;
    std::vector<std::string> own;  // ATC codes of its substances
    std::vector<std::string> careful;
    std::vector<std::string> avoid;
    std::vector<std::string> contraindications;
    std::string supportLine =
        "30;0;0;0;1--;-;2;1;0^1@210751477#-$-*-[3]0{0}0(0)-\xB3"
        "0@C08CA01";
    std::string priceLines = "1000\r\n800";  // the lines between "#ar" and "#ha"
};

struct EngineDatabase {
    std::vector<EngineProduct> products;
    std::vector<std::pair<std::string, std::string>> atcGroups;  // code, name; in tree pre-order
    std::vector<std::pair<std::string, std::string>> contraindications;
    std::vector<std::pair<std::string, std::vector<int>>> sideEffects;  // name, products
    std::vector<std::pair<std::string, std::vector<int>>> ingredients;  // name, products
    std::string regulations = "Rendelet\r\n\t1. pont\r\n\t\ta) alpont\r\n\t2. pont\r\n";

    void write(const ScratchDirectory& directory) const;
};

// Writes a list file and its directory: one run of numbers per key.
inline std::pair<std::string, std::string> indexPair(const std::vector<std::vector<int>>& lists, bool comma,
                                                     bool sentinel)
{
    std::string list;
    std::string directory;
    for (const auto& records : lists) {
        directory += directoryRecord(records.empty() ? 0 : static_cast<long>(list.size()),
                                     static_cast<long>(records.size()));
        for (int record : records) list += std::to_string(record) + (comma ? ",\r\n" : "\r\n");
    }
    if (sentinel) directory += directoryRecord(0, 0);
    return {list, directory};
}

// Tree depth of an ATC group code of 1, 3, 4, 6 or 8 characters.
inline int treeDepthOfAtc(const std::string& code)
{
    return code.size() == 1 ? 0 : code.size() == 3 ? 1 : code.size() == 4 ? 2 : code.size() == 6 ? 3 : 4;
}

inline void EngineDatabase::write(const ScratchDirectory& directory) const
{
    std::string msg;
    for (const std::string& line : messageCatalogLines()) msg += line + "\r\n";
    directory.write("MSG.DAT", msg);
    const auto count = [](const auto& list) { return std::to_string(list.size()); };
    directory.write("inf.dat", count(products) + "," + count(atcGroups) + "," + count(sideEffects) + "," +
                                   count(contraindications) + "," + count(ingredients) +
                                   ",0,0,0,0,0,0,0,1\r\n");
    std::string kod, nevrend, gyful, nevpos;
    for (const EngineProduct& product : products) {
        kod += encodeCodeField(product.code, kProductCodeWidth);
        nevrend += nameLine(product.name);
        nevpos += positionRecord(static_cast<long>(gyful.size()));
        std::string block = product.code + "\r\n";
        for (const auto& code : product.own) block += code + "\r\n";
        block += "#ar\r\n" + product.priceLines + "\r\n#ha\r\n" + product.supportLine +
                 "\r\n#ter\r\n#jav\r\n#adag\r\n#bet\r\n#ell\r\n";
        for (const auto& code : product.contraindications) block += code + "\r\n";
        block += "#mh\r\n#ov\r\n";
        for (const auto& code : product.careful) block += code + "\r\n";
        block += "#til\r\n";
        for (const auto& code : product.avoid) block += code + "\r\n";
        block += "#mer\r\n#fig\r\n#nev\r\n#vege\r\n";
        gyful += block;
    }
    for (const auto& group : atcGroups) kod += encodeCodeField(group.first, kAtcGroupCodeWidth);
    for (const auto& contra : contraindications)
        kod += encodeCodeField(contra.first, kContraindicationCodeWidth);
    for (std::size_t i = 0; i < sideEffects.size(); ++i)
        kod += encodeCodeField("M" + std::to_string(i), kSideEffectCodeWidth);
    directory.write("KOD.DAT", kod);
    directory.write("xd.dat", "");
    directory.write("x.dat", "");
    directory.write("nevrend.dat", nevrend);
    directory.write("gy.ful", gyful);
    directory.write("nevpos.dat", nevpos);

    const auto writeIndex = [&](const char* listFile, const char* directoryFile,
                                const std::vector<std::vector<int>>& lists, bool comma, bool sentinel) {
        const auto [list, index] = indexPair(lists, comma, sentinel);
        directory.write(listFile, list);
        directory.write(directoryFile, index);
    };
    std::vector<std::vector<int>> atcLists;
    std::string atcTree, atcNames;
    for (const auto& [code, name] : atcGroups) {
        std::vector<int> members;
        for (std::size_t p = 0; p < products.size(); ++p)
            if (products[p].code.compare(0, code.size(), code) == 0) members.push_back(static_cast<int>(p));
        atcLists.push_back(members);
        atcTree += std::string(static_cast<std::size_t>(treeDepthOfAtc(code)), '\t') + utf8ToCp1250(name) +
                   " (" + code + ")\r\n";
        atcNames += nameFileLine(name);
    }
    writeIndex("atcind.dat", "atcindin.dat", atcLists, false, true);
    directory.write("atcnren2.dat", atcTree);
    directory.write("atcnrend.dat", atcNames);

    std::vector<std::vector<int>> contraLists;
    std::string contraTree, contraNames;
    for (const auto& [code, name] : contraindications) {
        std::vector<int> members;
        for (std::size_t p = 0; p < products.size(); ++p)
            for (const auto& own : products[p].contraindications)
                if (own.compare(0, code.size(), code) == 0) {
                    members.push_back(static_cast<int>(p));
                    break;
                }
        contraLists.push_back(members);
        contraTree += std::string(code.size() > 3 ? "\t" : "") + utf8ToCp1250(name) + "\r\n";
        contraNames += nameFileLine(name);
    }
    writeIndex("ellind.dat", "ellindin.dat", contraLists, false, false);
    directory.write("ellnren2.dat", contraTree);
    directory.write("ellnrend.dat", contraNames);

    std::vector<std::vector<int>> effectLists, ingredientLists;
    std::string effectTree, effectNames, ingredientNames;
    for (const auto& [name, members] : sideEffects) {
        effectLists.push_back(members);
        effectTree += utf8ToCp1250(name) + "\r\n";
        effectNames += nameFileLine(name);
    }
    for (const auto& [name, members] : ingredients) {
        ingredientLists.push_back(members);
        ingredientNames += utf8ToCp1250(name) + "\r\n";
    }
    writeIndex("mhind.dat", "mhindin.dat", effectLists, true, false);
    directory.write("mhnren2.dat", effectTree);
    directory.write("mhnrend.dat", effectNames);
    writeIndex("haind.dat", "haindinf.dat", ingredientLists, false, false);
    directory.write("harend2.dat", ingredientNames);
    directory.write("rend2.ful", utf8ToCp1250(regulations));
}

}  // namespace rovanel::testing
