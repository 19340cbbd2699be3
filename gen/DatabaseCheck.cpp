#include "gen/DatabaseCheck.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <set>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "db/DataFile.h"
#include "db/RecordLayout.h"
#include "db/Text.h"
#include "gen/PrescriptionFiles.h"

namespace rovanel
{
namespace
{

constexpr std::size_t kMaximumProblemsPerKind = 5;

class Problems
{
public:
    void add(const std::string& kind, const std::string& text)
    {
        if (++m_perKind[kind] <= kMaximumProblemsPerKind) m_list.push_back(text);
    }
    std::vector<std::string> take() { return std::move(m_list); }
    [[nodiscard]] bool empty() const { return m_list.empty(); }

private:
    std::vector<std::string> m_list;
    std::map<std::string, std::size_t> m_perKind;
};

std::string at(std::string_view file, std::size_t line)
{
    return std::string(file) + " line " + std::to_string(line) + ": ";
}

// The lines of a CR LF file without their line ends; reports bare LFs, a missing final line end and
// forbidden bytes.
std::vector<std::string_view> textLines(std::string_view name, std::string_view content, Problems& problems)
{
    std::vector<std::string_view> lines;
    if (content.find('\0') != std::string_view::npos || content.find('\x1A') != std::string_view::npos)
        problems.add("bytes", std::string(name) + ": holds a NUL or Ctrl-Z byte");
    if (!content.empty() && !content.ends_with("\r\n"))
        problems.add("crlf", std::string(name) + ": does not end with CR LF");
    forEachLine(content, [&](std::string_view line) {
        if (line.empty() || line.back() != '\r')
            problems.add("crlf", at(name, lines.size()) + "not ended by CR LF");
        else
            line.remove_suffix(1);
        lines.push_back(line);
        return true;
    });
    return lines;
}

// Lines of exactly `width` bytes (CR LF included): the texts, leading blanks stripped and trimmed.
std::vector<std::string> fixedLines(std::string_view name, std::string_view content, std::size_t width,
                                    std::size_t count, Problems& problems)
{
    std::vector<std::string> texts;
    if (content.size() != width * count) {
        problems.add("size", std::string(name) + ": " + std::to_string(content.size()) + " bytes, expected " +
                                 std::to_string(count) + " lines of " + std::to_string(width));
    }
    for (std::size_t i = 0; i < count; ++i) {
        const auto record = fixedRecord(content, width, i);
        if (!record) break;
        if (!record->ends_with("\r\n") ||
            record->substr(0, width - 2).find_first_of("\r\n") != std::string_view::npos)
            problems.add("record", at(name, i) + "not a " + std::to_string(width) + "-byte line");
        texts.emplace_back(trim(stripLeadingBlanks(record->substr(0, width - 2))));
    }
    return texts;
}

// Depths of a tab-indented tree; checks the indentation rules.
std::vector<int> treeDepths(std::string_view name, const std::vector<std::string_view>& lines,
                            Problems& problems, std::vector<std::string_view>* texts = nullptr)
{
    std::vector<int> depths;
    int previous = -1;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const std::string_view line = lines[i];
        const std::size_t tabs = std::min(line.find_first_not_of('\t'), line.size());
        const int depth = static_cast<int>(tabs);
        const std::string_view text = line.substr(tabs);
        if (text.empty() || text.front() == ' ')
            problems.add("tree", at(name, i) + "blank node or leading blank");
        if (depth > previous + 1) problems.add("tree", at(name, i) + "depth grows by more than one");
        previous = depth;
        depths.push_back(depth);
        if (texts) texts->push_back(text);
    }
    return depths;
}

// Directory records: each exactly as the encoder writes the values the reader decodes from it.
std::vector<KeyRecord> directoryRecords(std::string_view name, std::string_view content, std::size_t count,
                                        Problems& problems)
{
    std::vector<KeyRecord> records;
    if (content.size() != kDirectoryRecordLength * count)
        problems.add("size", std::string(name) + ": " + std::to_string(content.size()) + " bytes, expected " +
                                 std::to_string(count) + " records");
    for (std::size_t i = 0; i < count; ++i) {
        const auto bytes = fixedRecord(content, kDirectoryRecordLength, i);
        if (!bytes) break;
        const auto record = decodeDirectoryRecord(*bytes);
        if (!record || encodeDirectoryRecord(*record) != *bytes) {
            problems.add("record", at(name, i) + "not \"offset,count\": " + std::string(trim(*bytes)));
            records.push_back({});
        } else {
            records.push_back(*record);
        }
    }
    return records;
}

// Compares each key's list in the list file with the expected record numbers.
void checkLists(std::string_view directoryName, std::string_view listName,
                const std::vector<KeyRecord>& records, std::string_view list,
                const std::vector<std::vector<std::int32_t>>& expected, bool commaAfterEach,
                Problems& problems)
{
    std::size_t expectedSize = 0;
    for (std::size_t k = 0; k < expected.size() && k < records.size(); ++k) {
        std::string wanted;
        for (std::int32_t r : expected[k]) wanted += encodeListEntry(r, commaAfterEach);
        expectedSize += wanted.size();
        const KeyRecord& record = records[k];
        if (static_cast<std::size_t>(record.count) != expected[k].size()) {
            problems.add(std::string(listName), std::string(directoryName) + " key " + std::to_string(k) +
                                                    ": count " + std::to_string(record.count) +
                                                    ", expected " + std::to_string(expected[k].size()));
            continue;
        }
        if (expected[k].empty()) {
            if (record.offset != 0)
                problems.add(std::string(listName), std::string(directoryName) + " key " + std::to_string(k) +
                                                        ": empty key with offset");
            continue;
        }
        if (static_cast<std::size_t>(record.offset) > list.size() ||
            list.substr(static_cast<std::size_t>(record.offset), wanted.size()) != wanted)
            problems.add(std::string(listName), std::string(listName) + " key " + std::to_string(k) +
                                                    ": the list differs from the products that have the key");
    }
    if (expectedSize != list.size())
        problems.add(std::string(listName), std::string(listName) + ": " + std::to_string(list.size()) +
                                                " bytes, the lists need " + std::to_string(expectedSize));
}

constexpr std::array<std::string_view, 28> kFiles = {
    "MSG.DAT",      "inf.dat",      "KOD.DAT",      "xd.dat",       "x.dat",        "nevrend.dat",
    "nevpos.dat",   "gy.ful",       "atcindin.dat", "atcind.dat",   "ellindin.dat", "ellind.dat",
    "haindinf.dat", "haind.dat",    "mhindin.dat",  "mhind.dat",    "ellnrend.dat", "mhnrend.dat",
    "atcnrend.dat", "atcnren5.dat", "atcnren2.dat", "ellnren2.dat", "mhnren2.dat",  "harend2.dat",
    "rend.dat",     "rend2.ful",    "zaras.inf",    "RV.INI",
};

constexpr std::array<std::string_view, 15> kMarkers = {"#ar",  "#ha",  "#ter", "#jav",  "#adag",
                                                       "#bet", "#ell", "#mh",  "#ov",   "#til",
                                                       "#mer", "#fig", "#nev", "#vege", ""};
enum Section {
    kOwn = -1,
    kAr = 0,
    kHa,
    kTer,
    kJav,
    kAdag,
    kBet,
    kEll,
    kMh,
    kOv,
    kTil,
    kMer,
    kFig,
    kNev,
    kVege
};

// The international form of a Rovanel ATC code ("C08CA-01" -> "C08CA01").
std::string international(std::string_view code)
{
    std::string text(code);
    if (text.size() >= 6 && text[5] == '-') text.erase(5, 1);
    return text;
}

bool validCode(std::string_view code)
{
    return !code.empty() && code.find_first_of(" \t~#") == std::string_view::npos;
}

bool allOf(std::string_view text, std::string_view allowed)
{
    return text.find_first_not_of(allowed) == std::string_view::npos;
}

constexpr std::string_view kDigits = "0123456789";
constexpr std::string_view kCodeCharacters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";

// The prescription files (bno.tre, bnohr.dat, tamttt.dat, szvhr.dat, DsListT.txt). A generated directory
// must hold them with their planted cases; any other directory is checked for those of them it holds.
void checkPrescriptionFiles(const std::filesystem::path& directory, CheckMode mode,
                            const std::set<std::string>& regulationCodes, Problems& problems)
{
    const bool generated = mode == CheckMode::Generated;
    std::map<std::string, std::string, std::less<>> files;
    for (const char* name : {"bno.tre", "bnohr.dat", "tamttt.dat", "szvhr.dat", "DsListT.txt"}) {
        if (auto content = readWholeFile(dataFilePath(directory, name)))
            files.emplace(name, std::move(*content));
        else if (generated)
            problems.add("missing", std::string(name) + ": missing");
    }
    const auto linesOf = [&](std::string_view name) {
        const auto file = files.find(name);
        return file == files.end() ? std::vector<std::string_view>{}
                                   : textLines(name, file->second, problems);
    };

    // bno.tre: chapters at depth 0, "CODE name" below; the 5-character codes a rule may name.
    std::set<std::string, std::less<>> bnoCodes;
    std::vector<std::string_view> nodes;
    const std::vector<int> depths = treeDepths("bno.tre", linesOf("bno.tre"), problems, &nodes);
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        const std::string_view node = nodes[i];
        if (depths[i] == 0) {
            if (node.find(". fejezet: ") == std::string_view::npos)
                problems.add("bno", at("bno.tre", i) + "a chapter is not \"N. fejezet: title\"");
            continue;
        }
        const std::size_t blank = node.find(' ');
        const std::string_view code = node.substr(0, blank), name = node.substr(std::min(blank, node.size()));
        if (code.size() < 3 || code.size() > 5 || code[0] < 'A' || code[0] > 'Z' ||
            !allOf(code, kCodeCharacters) || name.size() < 2 || name.size() > 171 ||
            name.find('~') != std::string_view::npos)
            problems.add(
                "bno", at("bno.tre", i) + "not \"CODE name\" (code of 3 to 5 characters, name of 1 to 170)");
        else if (code.size() == 5)
            bnoCodes.emplace(code);
    }
    if (generated && files.count("bno.tre") && nodes.size() != bnoTreeNodeCount())
        problems.add("bno", "bno.tre: " + std::to_string(nodes.size()) + " nodes, the vendored list makes " +
                                std::to_string(bnoTreeNodeCount()));

    // bnohr.dat: "KEY CODE", CODE a 5-character code of the tree or XXXXX.
    std::set<std::string, std::less<>> rules, keys;
    const std::vector<std::string_view> ruleLines = linesOf("bnohr.dat");
    for (std::size_t i = 0; i < ruleLines.size(); ++i) {
        const std::string_view line = ruleLines[i];
        const std::size_t blank = line.find(' ');
        const std::string_view code = line.substr(std::min(blank + 1, line.size()));
        if (line.size() > 1023 || blank == 0 || blank == std::string_view::npos ||
            (code != "XXXXX" && !bnoCodes.count(code)))
            problems.add("bnohr", at("bnohr.dat", i) + "not \"KEY CODE\" with a code of bno.tre or XXXXX");
        else if (mode == CheckMode::AnyDatabase && !regulationCodes.count(std::string(line.substr(0, blank))))
            problems.add("rulekey", at("bnohr.dat", i) + "key " + std::string(line.substr(0, blank)) +
                                        " not in rend.dat");
        rules.emplace(line);
        keys.emplace(line.substr(0, blank));
    }

    // tamttt.dat: "KEY;FLAGS;FEEKEY;FREEKEY", a 9-digit key once, 10 flags of 0 and 1, keys
    // joined by ','.
    std::set<std::string, std::less<>> drugKeys, drugLines;
    const std::vector<std::string_view> drugs = linesOf("tamttt.dat");
    for (std::size_t i = 0; i < drugs.size(); ++i) {
        std::vector<std::string_view> fields;
        for (std::size_t from = 0;;) {
            const std::size_t semicolon = drugs[i].find(';', from);
            fields.push_back(drugs[i].substr(from, semicolon - from));
            if (semicolon == std::string_view::npos) break;
            from = semicolon + 1;
        }
        const auto keyList = [](std::string_view list) {
            return list.empty() ||
                   (list.front() != ',' && list.back() != ',' && list.find(",,") == std::string_view::npos &&
                    list.find(' ') == std::string_view::npos);
        };
        if (fields.size() != 4 || fields[0].size() != 9 || !allOf(fields[0], kDigits) ||
            fields[1].size() != 10 || !allOf(fields[1], "01") || !keyList(fields[2]) || !keyList(fields[3]))
            problems.add("tamttt",
                         at("tamttt.dat", i) + "not \"KEY;FLAGS;FEEKEY;FREEKEY\" (9 digits, 10 flags)");
        else if (!drugKeys.emplace(fields[0]).second)
            problems.add("tamttt", at("tamttt.dat", i) + "drug key " + std::string(fields[0]) + " twice");
        drugLines.emplace(drugs[i]);
    }

    // szvhr.dat: "KEY,QUALIFICATION;" with a 5-digit qualification.
    std::set<std::string, std::less<>> qualifications;
    const std::vector<std::string_view> pairs = linesOf("szvhr.dat");
    for (std::size_t i = 0; i < pairs.size(); ++i) {
        const std::string_view line = pairs[i];
        const std::size_t comma = line.rfind(',');
        if (comma == 0 || comma == std::string_view::npos || line.size() != comma + 7 ||
            !line.ends_with(';') || !allOf(line.substr(comma + 1, 5), kDigits))
            problems.add("szvhr", at("szvhr.dat", i) + "not \"KEY,QUALIFICATION;\" (5 digits)");
        else if (mode == CheckMode::AnyDatabase) {
            // The qualification check searches "KEY,CODE" anywhere in the file: no key may be another's tail.
            const std::string key(line.substr(0, comma));
            if (!regulationCodes.count(key))
                problems.add("rulekey", at("szvhr.dat", i) + "key " + key + " not in rend.dat");
            for (const std::string& other : regulationCodes)
                if (other != key && other.ends_with(key))
                    problems.add("rulekey", at("szvhr.dat", i) + "key " + key + " is the tail of " + other);
        }
        qualifications.emplace(line);
    }

    // DsListT.txt: one dosage text a line.
    const std::vector<std::string_view> dosages = linesOf("DsListT.txt");
    for (std::size_t i = 0; i < dosages.size(); ++i)
        if (dosages[i].empty() || dosages[i].size() > 255)
            problems.add("dslist", at("DsListT.txt", i) + "empty or longer than 255 bytes");
    if (!generated) return;

    // The generator's rules for every point of rend.dat and its planted cases.
    for (const std::string& code : regulationCodes)
        if (!keys.count(code))
            problems.add("bnohr", "bnohr.dat: no rule for the point " + code + " of rend.dat");
    for (const char* rule :
         {"EU901 E1190", "EU901 I10H0", "_EU902/a J4500", "_EU902/a I10H0", "EU903 XXXXX", "&EU904/a XXXXX"})
        if (!rules.count(rule))
            problems.add("planted", std::string("bnohr.dat: no planted rule \"") + rule + "\"");
    if (keys.count(kPlantedRulelessKey)) problems.add("planted", "bnohr.dat: the rule-less point has a rule");
    for (const char* drug :
         {"900000001;1011111000;_EU902/a;EU901", "900000002;1011111000;EU901,_EU902/a;EU905,EU901",
          "900000003;1011010000;;EU903", "900000004;1010000000;;", "900000005;1111111111;&EU904/a;EU903",
          "900000006;1010100000;EU901;"})
        if (!drugLines.count(drug))
            problems.add("planted", std::string("tamttt.dat: no planted line \"") + drug + "\"");
    if (drugKeys.count(kPlantedAbsentDrug)) problems.add("planted", "tamttt.dat: the absent drug has a line");
    if (!qualifications.count(std::string(kPlantedFeeKey) + "," + kPlantedQualification + ";"))
        problems.add("planted", "szvhr.dat: no planted qualification of " + std::string(kPlantedFeeKey));
}

// The medical-aid files, each when present (docs/data-format.md 11): sorted by code, each group's offset
// the start of its run, one line per node in each list.
void checkAidFiles(const std::filesystem::path& directory, Problems& problems)
{
    const auto lines = [&](std::string_view name, std::string& content) {
        content = readWholeFile(dataFilePath(directory, name)).value_or(std::string());
        return textLines(name, content, problems);
    };
    std::string se, positions, codes, tree, iso, names;
    const auto aidLines = lines("se.dat", se);
    std::vector<std::size_t> starts;
    std::string previous;
    for (std::size_t i = 0, offset = 0; i < aidLines.size(); offset += aidLines[i].size() + 2, ++i) {
        const std::string code(aidLines[i].substr(0, aidLines[i].find('\t')));
        if (code <= previous)
            problems.add("se", at("se.dat", i) + "code " + code + " not after the one before");
        previous = code;
        starts.push_back(offset);
    }
    const auto groupCodes = lines("sekod2.dat", codes), groupOffsets = lines("sepos.dat", positions);
    const std::size_t groupNodes = treeDepths("senrend2.dat", lines("senrend2.dat", tree), problems).size();
    if (groupCodes.size() != groupNodes || groupOffsets.size() != groupNodes ||
        lines("seiso.dat", iso).size() != groupNodes)
        problems.add("se", "senrend2.dat, sekod2.dat, sepos.dat, seiso.dat: not one line per group each");
    if (lines("senev.dat", names).size() != aidLines.size())
        problems.add("se", "senev.dat: not one line per aid of se.dat");
    for (std::size_t k = 0; k < groupCodes.size() && k < groupOffsets.size(); ++k) {
        std::size_t first = 0;
        while (first < aidLines.size() && !aidLines[first].starts_with(groupCodes[k])) ++first;
        if (first == aidLines.size() || groupOffsets[k] != std::to_string(starts[first]))
            problems.add("se", at("sepos.dat", k) + "not the offset of the first aid of group " +
                                   std::string(groupCodes[k]));
    }
}

// A product block as the checker needs it.
struct Block {
    std::vector<std::string> own, contraindications, sideEffects, supportCodes;
};

class Checker
{
public:
    Checker(const std::filesystem::path& directory, CheckMode mode) : m_directory(directory), m_mode(mode) {}
    std::vector<std::string> run();

private:
    void checkBlock(std::size_t record, std::string_view block, const std::string& code);

    std::filesystem::path m_directory;
    CheckMode m_mode;
    Problems m_problems;
    std::map<std::string, std::string, std::less<>> m_files;
    std::vector<Block> m_blocks;
    std::unordered_set<std::string> m_atcGroups, m_contraindications, m_sideEffects;
    std::vector<std::pair<std::size_t, std::string>> m_interactionCodes;  // record, code
    int m_longLines = 0;
};

void Checker::checkBlock(std::size_t record, std::string_view block, const std::string& code)
{
    const std::string where = "gy.ful record " + std::to_string(record) + ": ";
    Block& parsed = m_blocks[record];
    std::vector<std::string_view> lines;
    forEachLine(block, [&](std::string_view line) {
        if (line.ends_with('\r')) line.remove_suffix(1);
        lines.push_back(line);
        return true;
    });
    if (lines.empty() || lines.front() != code) {
        m_problems.add("block", where + "first line is not the product code " + code);
        return;
    }
    int section = kOwn;
    int arLines = 0, haLines = 0;
    bool ellText = false;
    for (std::size_t i = 1; i < lines.size(); ++i) {
        const std::string_view line = lines[i];
        const auto marker = std::find(kMarkers.begin(), kMarkers.end() - 1, line);
        if (marker != kMarkers.end() - 1) {
            const int next = static_cast<int>(marker - kMarkers.begin());
            if (next != section + 1)
                m_problems.add("markers", where + "marker " + std::string(line) + " out of order");
            section = next;
            if (section == kVege && i + 1 != lines.size())
                m_problems.add("markers", where + "lines after #vege");
            continue;
        }
        if (line.size() > (section == kHa ? 1253u : 253u))
            m_problems.add("length", where + "line longer than its limit");
        if (line.find('~') != std::string_view::npos || line.find("$2") != std::string_view::npos ||
            (section != kHa && line.find('#') != std::string_view::npos))
            m_problems.add("text", where + "line holds '~', '$2' or '#': " + std::string(line));
        switch (section) {
            case kOwn:
                if (!validCode(line) || line.size() > 10)
                    m_problems.add("code", where + "bad own code " + std::string(line));
                parsed.own.emplace_back(line);
                for (std::size_t length : {1u, 3u, 4u, 6u, 8u})
                    if (!m_atcGroups.count(std::string(line.substr(0, length))))
                        m_problems.add("code", where + "own code " + std::string(line) +
                                                   " has no ATC group of length " + std::to_string(length));
                break;
            case kAr:
                ++arLines;
                if (!parseInteger(line) || *parseInteger(line) < 0)
                    m_problems.add("price", where + "price line is not a whole number");
                break;
            case kHa: {
                ++haLines;
                static constexpr std::string_view kDelimiters = ";;;;;;;;^@#$*[]{}()\xB3@";
                std::size_t start = 0;
                std::vector<std::string_view> fields;
                for (char delimiter : kDelimiters) {
                    const std::size_t end = line.find(delimiter, start);
                    if (end == std::string_view::npos) break;
                    fields.push_back(line.substr(start, end - start));
                    start = end + 1;
                }
                fields.push_back(line.substr(std::min(start, line.size())));
                // strtok cuts field i at the first occurrence of its own delimiter: a field must not hold
                // it.
                bool empty = false;
                for (std::size_t f = 0; f < fields.size(); ++f)
                    empty =
                        empty || fields[f].empty() ||
                        (f < kDelimiters.size() && fields[f].find(kDelimiters[f]) != std::string_view::npos);
                if (fields.size() != 22 || empty) {
                    m_problems.add("support", where + "support line is not 22 non-empty fields");
                    break;
                }
                if (fields[5] != "-") {
                    std::size_t from = 0;
                    while (from <= fields[5].size()) {
                        std::size_t comma = fields[5].find(',', from);
                        if (comma == std::string_view::npos) comma = fields[5].size();
                        const std::string_view entry = fields[5].substr(from, comma - from);
                        parsed.supportCodes.emplace_back(entry.substr(0, entry.find(' ')));
                        from = comma + 1;
                    }
                }
                if (fields[21] != international(code.substr(0, 8)))
                    m_problems.add("support", where + "support line ATC field differs from the product code");
                break;
            }
            case kEll:
                if (line.starts_with("* ")) {
                    ellText = true;
                } else if (ellText || !m_contraindications.count(std::string(line))) {
                    m_problems.add("code", where + "bad contraindication line " + std::string(line));
                } else {
                    parsed.contraindications.emplace_back(line);
                }
                break;
            case kMh:
                if (!m_sideEffects.count(std::string(line)))
                    m_problems.add("code", where + "unknown side effect " + std::string(line));
                parsed.sideEffects.emplace_back(line);
                break;
            case kOv:
            case kTil:
                if (!validCode(line) || line.size() > 11) {
                    m_problems.add("code", where + "bad interaction code " + std::string(line));
                } else if (line.size() == 11) {
                    if (m_mode == CheckMode::AnyDatabase)
                        m_problems.add("code", where + "11-character interaction code " + std::string(line));
                    else if (++m_longLines > 1)
                        m_problems.add("code", where + "a second 11-character interaction line");
                } else {
                    m_interactionCodes.emplace_back(record, line);
                }
                break;
            default:
                break;
        }
    }
    if (section != kVege) m_problems.add("markers", where + "does not end with #vege after all markers");
    if (parsed.own.empty() || parsed.own.size() > 19)
        m_problems.add("code", where + "1 to 19 own codes expected");
    if (!parsed.own.empty() && parsed.own.front() != code.substr(0, 8))
        m_problems.add("code", where + "first own code is not the product's ATC code");
    if (arLines != 2) m_problems.add("price", where + "#ar is not followed by exactly two price lines");
    if (haLines != 1) m_problems.add("support", where + "#ha is not followed by exactly one support line");
}

}  // namespace

namespace
{

std::vector<std::string> Checker::run()
{
    Problems& problems = m_problems;
    for (std::string_view name : kFiles) {
        auto content = readWholeFile(dataFilePath(m_directory, name));
        if (!content) {
            problems.add("missing", std::string(name) + ": missing");
            continue;
        }
        m_files.emplace(std::string(name), std::move(*content));
    }
    if (!problems.empty()) return problems.take();
    std::map<std::string, std::vector<std::string_view>, std::less<>> lines;
    for (const auto& [name, content] : m_files)
        if (name != "KOD.DAT") lines[name] = textLines(name, content, problems);

    // Counts.
    std::array<std::int64_t, 13> counts{};
    {
        const std::string_view line =
            lines["inf.dat"].empty() ? std::string_view() : lines["inf.dat"].front();
        std::size_t from = 0;
        for (std::size_t i = 0; i < counts.size(); ++i) {
            const std::size_t comma = i + 1 < counts.size() ? line.find(',', from) : line.size();
            const auto value = comma == std::string_view::npos
                                   ? std::nullopt
                                   : parseInteger(line.substr(from, comma - from));
            if (!value || *value < 0) {
                problems.add("counts",
                             "inf.dat: count " + std::to_string(i + 1) + " is not a non-negative number");
                return problems.take();
            }
            counts[i] = *value;
            from = comma + 1;
        }
    }
    const auto n = static_cast<std::size_t>(counts[0]), groups = static_cast<std::size_t>(counts[1]);
    const auto effects = static_cast<std::size_t>(counts[2]), contras = static_cast<std::size_t>(counts[3]);
    const auto ingredients = static_cast<std::size_t>(counts[4]);
    if (static_cast<std::size_t>(counts[10] + counts[11]) > n)
        problems.add("counts", "inf.dat: K1 + K2 exceed N");

    // MSG.DAT.
    if (lines["MSG.DAT"].size() < 150) problems.add("msg", "MSG.DAT: fewer than 150 lines");
    for (std::size_t i = 0; i < lines["MSG.DAT"].size(); ++i)
        if (lines["MSG.DAT"][i].size() > 253) problems.add("msg", at("MSG.DAT", i) + "longer than 253 bytes");

    // KOD.DAT.
    const std::string& kod = m_files["KOD.DAT"];
    const std::size_t kodSize = n * kProductCodeWidth + groups * kAtcGroupCodeWidth +
                                contras * kContraindicationCodeWidth + effects * kSideEffectCodeWidth;
    if (kod.size() != kodSize)
        problems.add("size", "KOD.DAT: " + std::to_string(kod.size()) + " bytes, the counts need " +
                                 std::to_string(kodSize));
    if (kod.find_first_of(std::string("\r\n\x1A", 3) + '\0') != std::string::npos)
        problems.add("bytes", "KOD.DAT: holds a line end or forbidden byte");
    std::size_t offset = 0;
    const auto table = [&](std::size_t count, std::size_t width, const char* what) {
        std::vector<std::string> codes;
        std::set<std::string> seen;
        for (std::size_t i = 0; i < count; ++i, offset += width) {
            const std::string code(trim(std::string_view(kod).substr(std::min(offset, kod.size()), width)));
            if (!validCode(code))
                problems.add("kod", std::string("KOD.DAT ") + what + " entry " + std::to_string(i) +
                                        ": blank or bad code");
            if (!seen.insert(code).second)
                problems.add("kod", std::string("KOD.DAT ") + what + ": duplicate code " + code);
            codes.push_back(code);
        }
        return codes;
    };
    const std::vector<std::string> productCodes = table(n, kProductCodeWidth, "table 1");
    const std::vector<std::string> groupCodes = table(groups, kAtcGroupCodeWidth, "table 2");
    const std::vector<std::string> contraCodes = table(contras, kContraindicationCodeWidth, "table 3");
    const std::vector<std::string> effectCodes = table(effects, kSideEffectCodeWidth, "table 4");
    for (const std::string& code : productCodes)
        if (code.size() != 10)
            problems.add("kod", "KOD.DAT table 1: product code " + code + " is not 10 characters");
    for (const std::string& code : groupCodes)
        if (code.size() != 1 && code.size() != 3 && code.size() != 4 && code.size() != 6 && code.size() != 8)
            problems.add("kod",
                         "KOD.DAT table 2: " + code + " is not an ATC code of 1, 3, 4, 6 or 8 characters");
    m_atcGroups.insert(groupCodes.begin(), groupCodes.end());
    m_contraindications.insert(contraCodes.begin(), contraCodes.end());
    m_sideEffects.insert(effectCodes.begin(), effectCodes.end());

    // Names, positions and blocks.
    const std::vector<std::string> names =
        fixedLines("nevrend.dat", m_files["nevrend.dat"], kNameLineLength, n, problems);
    for (std::size_t i = 0; i < names.size(); ++i) {
        const std::string_view raw =
            std::string_view(m_files["nevrend.dat"]).substr(i * kNameLineLength, kNameLineLength - 2);
        if (names[i].empty() || names[i] == " " || raw.find('~') != std::string_view::npos)
            problems.add("names", at("nevrend.dat", i) + "empty name or '~'");
    }
    const std::string& gyful = m_files["gy.ful"];
    std::vector<std::size_t> offsets;
    const std::string& nevpos = m_files["nevpos.dat"];
    if (nevpos.size() != n * kPositionRecordLength)
        problems.add("size", "nevpos.dat: not N records of 10 bytes");
    for (std::size_t p = 0; p < n; ++p) {
        const auto record = fixedRecord(nevpos, kPositionRecordLength, p);
        const auto value = record ? decodePositionRecord(record->substr(0, kPositionDigits)) : std::nullopt;
        if (!value || encodePositionRecord(*value) != *record) {
            problems.add("record", at("nevpos.dat", p) + "not an offset right-aligned in 8 characters");
            return problems.take();
        }
        offsets.push_back(static_cast<std::size_t>(*value));
    }
    m_blocks.resize(n);
    for (std::size_t p = 0; p < n; ++p) {
        const std::size_t begin = offsets[p], end = p + 1 < n ? offsets[p + 1] : gyful.size();
        if ((p == 0 && begin != 0) || end < begin || end > gyful.size()) {
            problems.add("nevpos", at("nevpos.dat", p) + "blocks are not contiguous in record order");
            return problems.take();
        }
        checkBlock(p, std::string_view(gyful).substr(begin, end - begin), productCodes[p]);
    }

    // Interaction codes must really match some product's own code.
    std::unordered_set<std::string> ownPrefixes;
    for (const Block& block : m_blocks)
        for (const std::string& own : block.own)
            for (std::size_t length = 1; length <= own.size(); ++length)
                ownPrefixes.insert(own.substr(0, length));
    for (const auto& [record, code] : m_interactionCodes)
        if (!ownPrefixes.count(code))
            problems.add("interaction", "gy.ful record " + std::to_string(record) + ": interaction code " +
                                            code + " matches no own code");
    if (m_mode == CheckMode::Generated && m_longLines != 1 && n > 0)
        problems.add("interaction", "gy.ful: expected exactly one planted 11-character interaction line");

    // Short texts and pairs.
    if (lines["x.dat"].size() != static_cast<std::size_t>(counts[8]))
        problems.add("counts", "x.dat: line count differs from count 9");
    for (std::size_t i = 0; i < lines["x.dat"].size(); ++i)
        if (trim(lines["x.dat"][i]).size() > 11)
            problems.add("x", at("x.dat", i) + "longer than 11 characters");
    if (lines["xd.dat"].size() != static_cast<std::size_t>(counts[7]))
        problems.add("counts", "xd.dat: line count differs from count 8");
    for (std::size_t i = 0; i < lines["xd.dat"].size(); ++i) {
        const std::string_view line = lines["xd.dat"][i];
        const std::size_t comma = line.find(',');
        if (comma == std::string_view::npos || !parseInteger(line.substr(0, comma)) ||
            !parseInteger(line.substr(comma + 1)))
            problems.add("xd", at("xd.dat", i) + "not \"%d,%d\"");
    }

    // ATC tree and its parallel files.
    std::vector<std::string_view> nodeTexts;
    const std::vector<int> atcDepths =
        treeDepths("atcnren2.dat", lines["atcnren2.dat"], problems, &nodeTexts);
    if (atcDepths.size() != groups) problems.add("counts", "atcnren2.dat: node count differs from count 2");
    const std::vector<std::string> groupNames =
        fixedLines("atcnrend.dat", m_files["atcnrend.dat"], kNameFileLineLength, groups, problems);
    const std::vector<std::string> levelLines =
        fixedLines("atcnren5.dat", m_files["atcnren5.dat"], kNameFileLineLength, groups, problems);
    for (std::size_t k = 0;
         k < groups && k < atcDepths.size() && k < groupNames.size() && k < levelLines.size(); ++k) {
        const std::string& code = groupCodes[k];
        const int level = code.size() == 1   ? 0
                          : code.size() == 3 ? 1
                          : code.size() == 4 ? 2
                          : code.size() == 6 ? 3
                                             : 4;
        if (atcDepths[k] != level)
            problems.add("atc", at("atcnren2.dat", k) + "depth differs from the level of " + code);
        if (nodeTexts[k] != groupNames[k] + " (" + international(code) + ")")
            problems.add("atc",
                         at("atcnren2.dat", k) + "node text is not \"name (code)\" of table 2 entry " + code);
        if (levelLines[k] != international(code) + "  " + groupNames[k])
            problems.add("atc", at("atcnren5.dat", k) + "level line differs");
        if (k > 0 && !(groupCodes[k - 1] < code))
            problems.add("atc", "KOD.DAT table 2: codes not in pre-order at " + code);
        if (code.size() > 1 && !m_atcGroups.count(code.substr(0, code.size() == 3   ? 1
                                                                 : code.size() == 4 ? 3
                                                                 : code.size() == 6 ? 4
                                                                                    : 6)))
            problems.add("atc", "KOD.DAT table 2: " + code + " has no parent group");
    }

    // Contraindication and side-effect trees and names.
    std::vector<std::string_view> contraNodes, effectNodes;
    if (treeDepths("ellnren2.dat", lines["ellnren2.dat"], problems, &contraNodes).size() != contras)
        problems.add("counts", "ellnren2.dat: node count differs from count 4");
    if (treeDepths("mhnren2.dat", lines["mhnren2.dat"], problems, &effectNodes).size() != effects)
        problems.add("counts", "mhnren2.dat: node count differs from count 3");
    const std::vector<std::string> contraNames =
        fixedLines("ellnrend.dat", m_files["ellnrend.dat"], kNameFileLineLength, contras, problems);
    const std::vector<std::string> effectNames =
        fixedLines("mhnrend.dat", m_files["mhnrend.dat"], kNameFileLineLength, effects, problems);
    for (std::size_t k = 0; k < contraNames.size() && k < contraNodes.size(); ++k)
        if (contraNodes[k] != contraNames[k])
            problems.add("names", at("ellnrend.dat", k) + "differs from its tree node");
    for (std::size_t k = 0; k < effectNames.size() && k < effectNodes.size(); ++k)
        if (effectNodes[k] != effectNames[k])
            problems.add("names", at("mhnrend.dat", k) + "differs from its tree node");

    // Index pairs against the blocks.
    std::vector<std::vector<std::int32_t>> atcLists(groups), contraLists(contras), effectLists(effects),
        ingredientLists(ingredients);
    std::unordered_map<std::string, std::size_t> groupIndex, ingredientIndex;
    for (std::size_t k = 0; k < groups; ++k) groupIndex[groupCodes[k]] = k;
    const std::vector<std::string_view>& ingredientLines = lines["harend2.dat"];
    if (ingredientLines.size() != ingredients)
        problems.add("counts", "harend2.dat: line count differs from count 5");
    for (std::size_t k = 0; k < ingredientLines.size(); ++k)
        if (!ingredientIndex.emplace(std::string(ingredientLines[k]), k).second)
            problems.add("ingredients", at("harend2.dat", k) + "duplicate ingredient");
    for (std::size_t p = 0; p < n; ++p) {
        const auto r = static_cast<std::int32_t>(p);
        for (std::size_t length : {1u, 3u, 4u, 6u, 8u}) {
            const auto found = groupIndex.find(productCodes[p].substr(0, length));
            if (found != groupIndex.end()) atcLists[found->second].push_back(r);
        }
        const auto keyLists = [&](const std::vector<std::string>& keys, const std::vector<std::string>& codes,
                                  std::vector<std::vector<std::int32_t>>& out) {
            for (std::size_t k = 0; k < keys.size(); ++k)
                for (const std::string& code : codes)
                    if (code.starts_with(keys[k])) {
                        out[k].push_back(r);
                        break;
                    }
        };
        keyLists(contraCodes, m_blocks[p].contraindications, contraLists);
        keyLists(effectCodes, m_blocks[p].sideEffects, effectLists);
        std::set<std::size_t> mine;
        for (const std::string& own : m_blocks[p].own) {
            const auto group = groupIndex.find(own);
            if (group == groupIndex.end() || own[0] == 'T' || own[0] == 'X' ||
                group->second >= groupNames.size())
                continue;
            const auto ingredient = ingredientIndex.find(groupNames[group->second]);
            if (ingredient == ingredientIndex.end())
                problems.add("ingredients", "harend2.dat: no line for the ingredient of " + own);
            else
                mine.insert(ingredient->second);
        }
        for (std::size_t k : mine) ingredientLists[k].push_back(r);
    }
    const auto atcRecords = directoryRecords("atcindin.dat", m_files["atcindin.dat"], groups + 1, problems);
    if (atcRecords.size() == groups + 1 && (atcRecords.back().offset != 0 || atcRecords.back().count != 0))
        problems.add("atc", "atcindin.dat: the record after the last group is not the sentinel 0,0");
    checkLists("atcindin.dat", "atcind.dat", atcRecords, m_files["atcind.dat"], atcLists, false, problems);
    checkLists("ellindin.dat", "ellind.dat",
               directoryRecords("ellindin.dat", m_files["ellindin.dat"], contras, problems),
               m_files["ellind.dat"], contraLists, false, problems);
    checkLists("mhindin.dat", "mhind.dat",
               directoryRecords("mhindin.dat", m_files["mhindin.dat"], effects, problems),
               m_files["mhind.dat"], effectLists, true, problems);
    checkLists("haindinf.dat", "haind.dat",
               directoryRecords("haindinf.dat", m_files["haindinf.dat"], ingredients, problems),
               m_files["haind.dat"], ingredientLists, false, problems);

    // Regulations.
    std::set<std::string> regulationCodes;
    if (lines["rend.dat"].size() != static_cast<std::size_t>(counts[9]))
        problems.add("counts", "rend.dat: line count differs from count 10");
    for (std::size_t i = 0; i < lines["rend.dat"].size(); ++i) {
        const std::string_view line = lines["rend.dat"][i];
        const std::size_t tab1 = line.find('\t'),
                          tab2 = tab1 == std::string_view::npos ? tab1 : line.find('\t', tab1 + 1);
        if (tab2 == std::string_view::npos || tab2 != tab1 + 2 ||
            (line[tab1 + 1] != 'K' && line[tab1 + 1] != '-') || tab2 + 1 >= line.size() ||
            !regulationCodes.insert(std::string(line.substr(0, tab1))).second)
            problems.add("rend", at("rend.dat", i) + "not \"code<TAB>K|-<TAB>text\" with a unique code");
    }
    for (std::size_t p = 0; p < n; ++p)
        for (const std::string& code : m_blocks[p].supportCodes)
            if (!regulationCodes.count(code))
                problems.add("rend", "gy.ful record " + std::to_string(p) + ": support code " + code +
                                         " not in rend.dat");
    treeDepths("rend2.ful", lines["rend2.ful"], problems);

    checkPrescriptionFiles(m_directory, m_mode, regulationCodes, problems);

    // Closing date and settings.
    const auto& closing = lines["zaras.inf"];
    if (closing.size() != 2 || closing[0].size() != 8 || closing[1].size() != 10 ||
        closing[1] != std::string(closing[0].substr(0, 4)) + "." + std::string(closing[0].substr(4, 2)) +
                          "." + std::string(closing[0].substr(6, 2)))
        problems.add("zaras", "zaras.inf: not two lines YYYYMMDD and YYYY.MM.DD of the same date");
    if (lines["RV.INI"].empty() || lines["RV.INI"].front() != "[Rovanel Beallitasok]")
        problems.add("ini", "RV.INI: does not open with the section [Rovanel Beallitasok]");
    checkAidFiles(m_directory, problems);
    return problems.take();
}

}  // namespace

std::vector<std::string> checkDatabase(const std::filesystem::path& directory, CheckMode mode)
{
    Checker checker(directory, mode);
    return checker.run();
}

}  // namespace rovanel
