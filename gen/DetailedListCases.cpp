#include "gen/DetailedListCases.h"

#include <algorithm>
#include <map>
#include <set>
#include <vector>

#include "app/IniFile.h"
#include "db/DataFile.h"
#include "db/Text.h"
#include "gen/DatabaseGenerator.h"

namespace rovanel
{

namespace
{

constexpr char kDelimiters[21] = {';', ';', ';', ';', ';', ';', ';', ';', '^',    '@', '#',
                                  '$', '*', '[', ']', '{', '}', '(', ')', '\xB3', '@'};

// A block as its lines (without CR LF).
struct Block {
    std::vector<std::string> lines;
    [[nodiscard]] std::size_t indexOf(std::string_view marker) const
    {
        for (std::size_t i = 1; i < lines.size(); ++i)
            if (lines[i] == marker) return i;
        return lines.size();
    }
};

std::vector<std::string> supportFields(const std::string& line)
{
    std::vector<std::string> fields;
    std::size_t start = 0;
    for (char delimiter : kDelimiters) {
        const std::size_t end = line.find(delimiter, start);
        if (end == std::string::npos) return {};
        fields.push_back(line.substr(start, end - start));
        start = end + 1;
    }
    fields.push_back(line.substr(start));
    return fields;
}

std::string supportLine(const std::vector<std::string>& fields)
{
    std::string line = fields[0];
    for (std::size_t i = 1; i < fields.size(); ++i) line += kDelimiters[i - 1] + fields[i];
    return line;
}

// Changes of one block: fields by their 1-based number, the two price lines when not empty.
struct Change {
    std::map<int, std::string> fields;
    std::string price, support;
};

bool apply(Block& block, const Change& change)
{
    const std::size_t ar = block.indexOf("#ar"), ha = block.indexOf("#ha");
    if (ar + 2 >= block.lines.size() || ha + 1 >= block.lines.size()) return false;
    std::vector<std::string> fields = supportFields(block.lines[ha + 1]);
    if (fields.size() != 22) return false;
    for (const auto& [number, value] : change.fields) fields[static_cast<std::size_t>(number - 1)] = value;
    block.lines[ha + 1] = supportLine(fields);
    if (!change.price.empty()) block.lines[ar + 1] = change.price;
    if (!change.support.empty()) block.lines[ar + 2] = change.support;
    return true;
}

}  // namespace

bool plantDetailedListCases(const std::filesystem::path& directory, PlantedCases& planted, std::string* error)
{
    const auto fail = [&](const std::string& reason) {
        if (error) *error = reason;
        return false;
    };
    const auto gyful = readWholeFile(directory / "gy.ful");
    const auto nevpos = readWholeFile(directory / "nevpos.dat");
    const auto rend = readWholeFile(directory / "rend.dat");
    if (!gyful || !nevpos || !rend) return fail("gy.ful, nevpos.dat or rend.dat cannot be read");

    // Blocks follow each other in record order.
    std::vector<Block> blocks;
    std::vector<std::size_t> offsets;
    for (std::size_t p = 0; p * 10 + 10 <= nevpos->size(); ++p) {
        const auto offset = parseInteger(std::string_view(*nevpos).substr(p * 10, 8));
        if (!offset) return fail("nevpos.dat is not as written");
        offsets.push_back(static_cast<std::size_t>(*offset));
    }
    for (std::size_t p = 0; p < offsets.size(); ++p) {
        const std::size_t end = p + 1 < offsets.size() ? offsets[p + 1] : gyful->size();
        Block block;
        forEachLine(std::string_view(*gyful).substr(offsets[p], end - offsets[p]),
                    [&](std::string_view line) {
                        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
                        block.lines.emplace_back(line);
                        return true;
                    });
        blocks.push_back(std::move(block));
    }

    // One increased and one highlighted indication point of rend.dat.
    std::string increasedCode, highlightedCode;
    forEachLine(*rend, [&](std::string_view line) {
        const std::string code(line.substr(0, line.find('\t')));
        std::string& slot = code.find_first_of("_&*") == std::string::npos ? highlightedCode : increasedCode;
        if (slot.empty()) slot = code;
        return true;
    });

    // Candidates: medicines that are no planted case and not TT, by chemical subgroup.
    const std::set<std::int32_t> taken = {planted.avoidFirst,      planted.avoidSecond,
                                          planted.carefulFirst,    planted.carefulSecond,
                                          planted.contraindicated, planted.longCodeLineDrug};
    std::map<std::string, std::vector<std::int32_t>> bySubgroup, bySubstance;
    std::set<std::string> substancesWithOthers;  // substances with a planted or TT package
    for (std::int32_t p = 0; p < planted.medicines && static_cast<std::size_t>(p) < blocks.size(); ++p) {
        const Block& block = blocks[static_cast<std::size_t>(p)];
        if (block.lines.empty() || block.lines[0].size() < 8) continue;
        const std::size_t ha = block.indexOf("#ha");
        const auto fields =
            ha + 1 < block.lines.size() ? supportFields(block.lines[ha + 1]) : std::vector<std::string>{};
        const std::string substance = block.lines[0].substr(0, 8);
        if (taken.count(p) || fields.size() != 22 || fields[8] != "0") {
            substancesWithOthers.insert(substance);
            continue;
        }
        bySubgroup[block.lines[0].substr(0, 6)].push_back(p);
        bySubstance[substance].push_back(p);
    }
    // The group: at least ten candidates in more than one substance if there is such a group, then the most.
    const auto score = [&](const std::vector<std::int32_t>& members) {
        std::set<std::string> substances;
        for (std::int32_t p : members)
            substances.insert(blocks[static_cast<std::size_t>(p)].lines[0].substr(0, 8));
        return std::pair<bool, std::size_t>(substances.size() > 1 && members.size() >= 10, members.size());
    };
    std::string group;
    std::pair<bool, std::size_t> best{false, 0};
    for (const auto& [code, members] : bySubgroup) {
        const auto candidate = score(members);
        if (group.empty() || candidate > best) {
            group = code;
            best = candidate;
        }
    }

    DetailedListCases& cases = planted.detailed;
    cases.groupCode = group;
    if (!group.empty()) {
        std::vector<std::int32_t> members = bySubgroup[group];
        // The second "333" package in another substance of the group, when there is one.
        const auto other = std::find_if(members.begin() + 1, members.end(), [&](std::int32_t p) {
            return blocks[static_cast<std::size_t>(p)].lines[0].compare(
                       0, 8, blocks[static_cast<std::size_t>(members[0])].lines[0], 0, 8) != 0;
        });
        if (other != members.end() && members.size() > 2) std::iter_swap(members.begin() + 2, other);

        const std::string supports = increasedCode + " 500," + highlightedCode + " 600";
        // Categories "333" with all three fixed groups: the first package and the one elsewhere.
        const Change allThree = {{{2, "9001"},
                                  {3, "9002"},
                                  {4, "9003"},
                                  {5, "333"},
                                  {6, supports},
                                  {12, increasedCode},
                                  {13, highlightedCode}},
                                 "",
                                 ""};
        std::int32_t* slots[] = {&cases.minusCategories, &cases.allThreeGroups,      &cases.allThreeElsewhere,
                                 &cases.fiveAndSix,      &cases.fivesAndSixes,       &cases.leadingZeroId,
                                 &cases.groupIdZero,     &cases.increasedAbovePrice, &cases.decimalDoses,
                                 &cases.freePackage};
        const Change changes[] = {
            {{{2, "9001"}, {3, "9002"}, {4, "9003"}, {5, "-33"}}, "", ""},
            allThree,
            allThree,
            {{{2, "9001"}, {3, "0"}, {4, "0"}, {5, "356"}}, "", ""},
            {{{2, "0"}, {3, "0"}, {4, "0"}, {5, "565"}}, "", ""},
            {{{2, "0"},
              {3, "0"},
              {4, "0415"},
              {5, "653"},
              {6, highlightedCode + " 700"},
              {13, highlightedCode}},
             "",
             ""},
            {{{2, "0"}, {3, "0"}, {4, "0"}, {5, "355"}}, "", ""},
            {{{1, "10"}, {5, "525"}, {6, increasedCode + " 900"}, {12, increasedCode}}, "500", "400"},
            {{{1, "1,5"}}, "", ""},
            {{}, "0", "0"},
        };
        for (std::size_t i = 0; i < std::size(changes) && i < members.size(); ++i) {
            if (i == 2 && other == members.end()) continue;
            if (apply(blocks[static_cast<std::size_t>(members[i])], changes[i])) *slots[i] = members[i];
        }
    }
    // A substance outside the group whose every package is a candidate becomes all TT.
    for (const auto& [substance, members] : bySubstance) {
        if (substance.compare(0, 6, group) == 0 || substancesWithOthers.count(substance) ||
            members.size() > 3)
            continue;
        for (std::int32_t p : members) (void)apply(blocks[static_cast<std::size_t>(p)], {{{9, "1"}}, "", ""});
        cases.allTtGroup = substance;
        break;
    }

    std::string newGyful, newNevpos;
    for (const Block& block : blocks) {
        const std::string offset = std::to_string(newGyful.size());
        newNevpos += std::string(offset.size() < 8 ? 8 - offset.size() : 0, ' ') + offset + "\r\n";
        for (const std::string& line : block.lines) newGyful += line + "\r\n";
    }
    if (!writeFileAtomically(directory / "gy.ful", newGyful) ||
        !writeFileAtomically(directory / "nevpos.dat", newNevpos))
        return fail("gy.ful or nevpos.dat cannot be written");
    return true;
}

}  // namespace rovanel
