// The detailed list's planted cases: after the generator has written a database, a handful of medicines
// of one chemical subgroup get support lines and prices that take every path of the row builder and the
// fixed-group listings, and one substance group has only TT packages. gy.ful and nevpos.dat are
// rewritten; every other file stays as it was.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace rovanel
{

struct PlantedCases;

// Record numbers of the planted packages (-1 when the database is too small to hold the case). All lie
// in the 6-character group `groupCode`; fixed-group ids "9001", "9002", "9003" are theirs alone.
struct DetailedListCases {
    std::string groupCode;
    std::int32_t minusCategories = -1;    // categories "-33" with ids: no category, no TFX word
    std::int32_t allThreeGroups = -1;     // "333", ids 9001/9002/9003, an increased and a highlighted support
    std::int32_t allThreeElsewhere = -1;  // the same groups in another substance of the group (when any)
    std::int32_t fiveAndSix = -1;         // "356": normative 9001 only
    std::int32_t fivesAndSixes = -1;      // "565": no category at all
    std::int32_t leadingZeroId = -1;      // "653", highlighted id "0415": listed with the rows without an id
    std::int32_t groupIdZero = -1;        // "355" with normative id "0": category 3 without a group
    std::int32_t increasedAbovePrice = -1;  // category "2" in the middle, increased support above the price
    std::int32_t decimalDoses = -1;         // daily doses "1,5"
    std::int32_t freePackage = -1;          // full price 0
    std::string allTtGroup;                 // an 8-character group whose every package is TT
};

// Plants the cases into the database in `directory` and records them in `planted.detailed`. False and a
// reason when gy.ful or nevpos.dat cannot be read or written.
bool plantDetailedListCases(const std::filesystem::path& directory, PlantedCases& planted,
                            std::string* error);

}  // namespace rovanel
