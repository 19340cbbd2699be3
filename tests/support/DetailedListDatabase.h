// A small database for the detailed list: eight packages in two level-5 groups of one chemical subgroup,
// with normative fixed group 12, an id beginning with "0", ids "0", TT packages, and a group whose only
// package is TT. Layouts as in docs/data-format.md.
//
//   record  code        name           R  normfix  price/support  NK alap  TT
//   0       C08CA-0100  ALFA 5 MG      3  12       1000/800       20.0
//   1       C08CA-0101  BETA 5 MG      3  12       999/500        49.9
//   2       C08CA-0102  GAMMA 5 MG     1  0        500/400        10.0
//   3       C08CA-0103  DELTA 5 MG     3  0415     700/600        10.0
//   4       C08CA-0200  EPSZILON 5 MG  3  12       900/600        30.0
//   5       C08CA-0201  ZETA 5 MG      1  0        900/600        30.0     TT
//   6       C08CA-0202  ETA 5 MG       1  0        900/600        30.0
//   7       C08CB-0100  THETA 5 MG     1  0        900/600        30.0     TT
#pragma once

#include <string>

#include "tests/support/EngineDatabase.h"

namespace rovanel::testing
{

// A package with its normative category and group, its price lines and TT flag; "ttt" is 2107514 and
// the code's serial, the form "3", the ATC field "C08CA01".
inline EngineProduct detailedListProduct(const std::string& code, const std::string& name,
                                         const std::string& categories, const std::string& normativeGroup,
                                         const std::string& prices, bool deleted = false)
{
    EngineProduct result(code, name, {code.substr(0, 8)});
    result.supportLine = "10;" + normativeGroup + ";0;0;" + categories + ";-;2;0;" + (deleted ? "1" : "0") +
                         "^1@2107514" + code.substr(8) + "#-$-*-[3]123456{0}0(0)-\xB3" + "0@C08CA01";
    result.priceLines = prices;
    return result;
}

inline EngineDatabase detailedListDatabase()
{
    EngineDatabase database;
    database.products = {
        detailedListProduct("C08CA-0100", "ALFA 5 MG", "355", "12", "1000\r\n800"),
        detailedListProduct("C08CA-0101", "BETA 5 MG", "355", "12", "999\r\n500"),
        detailedListProduct("C08CA-0102", "GAMMA 5 MG", "155", "0", "500\r\n400"),
        detailedListProduct("C08CA-0103", "DELTA 5 MG", "355", "0415", "700\r\n600"),
        detailedListProduct("C08CA-0200", "EPSZILON 5 MG", "355", "12", "900\r\n600"),
        detailedListProduct("C08CA-0201", "ZETA 5 MG", "155", "0", "900\r\n600", true),
        detailedListProduct("C08CA-0202", "ETA 5 MG", "155", "0", "900\r\n600"),
        detailedListProduct("C08CB-0100", "THETA 5 MG", "155", "0", "900\r\n600", true),
    };
    // Node numbers: C 0, C08 1, C08C 2, C08CA- 3, C08CA-01 4, C08CA-02 5, C08CB- 6, C08CB-01 7, N 8.
    database.atcGroups = {{"C", "Kardiovaszkuláris rendszer"},
                          {"C08", "Kalciumcsatorna-blokkolók"},
                          {"C08C", "Szelektív kalciumcsatorna-blokkolók"},
                          {"C08CA-", "Dihidropiridin-származékok"},
                          {"C08CA-01", "amlodipin"},
                          {"C08CA-02", "felodipin"},
                          {"C08CB-", "Fenilalkilamin-származékok"},
                          {"C08CB-01", "verapamil"},
                          {"N", "Idegrendszer"}};
    return database;
}

}  // namespace rovanel::testing
