// The Hungarian alphabetical order the name lists are sorted by, and the upper case of Windows-1250 letters.
#include "db/HungarianCollation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace rovanel
{
namespace
{

bool collatesBefore(std::string_view a, std::string_view b)
{
    return hungarianSortKey(a) < hungarianSortKey(b);
}

TEST(HungarianCollation, OrdersByTheHungarianAlphabet)
{
    // In order: blanks and digits before letters, accents ignored first and deciding a tie (ABC < ÁBEL <
    // ABLAK, ARA < ÁRA), any case, C < CS, G < GY, O < Ö = Ő (OZON < ŐR < ÖT), S < SZ, U < Ü, Z < ZS. Sorted
    // stably from the reverse order, so that two names the collation finds equal would stay swapped.
    const std::vector<std::string> ordered = {"A 5 MG", "A MG",      "AB C",   "ABC",    "\301BEL", "ABLAK",
                                              "alma",   "ARA",       "\301RA", "BAB",    "CUKOR",   "CSALAN",
                                              "GUMI",   "GYOGYSZER", "OZON",   "\325R",  "\326T",   "SUGAR",
                                              "SZEM",   "UTCA",      "\334GY", "ZUHANY", "ZSAK"};
    std::vector<std::string> sorted(ordered.rbegin(), ordered.rend());
    std::stable_sort(sorted.begin(), sorted.end(), collatesBefore);
    EXPECT_EQ(sorted, ordered);
    EXPECT_EQ(upperCaseCp1250("\xE1rv\xEDzt\xFBr\xF5 t\xFCk\xF6rf\xFAr\xF3g\xE9p"),
              "\xC1RV\xCDZT\xDBR\xD5 T\xDCK\xD6RF\xDAR\xD3G\xC9P");  // árvíztűrő tükörfúrógép
}

}  // namespace
}  // namespace rovanel
