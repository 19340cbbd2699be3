#include "gen/PrescriptionFiles.h"

#include <array>
#include <map>
#include <set>
#include <string_view>
#include <vector>

#include "app/IniFile.h"
#include "db/Cp1250.h"
#include "db/DataFile.h"
#include "db/ProductIndex.h"
#include "db/ProductPrice.h"
#include "db/StartupTables.h"
#include "db/Text.h"
#include "gen/BnoBook.h"

namespace rovanel
{

namespace
{

// splitmix64: the same numbers on every platform for a seed.
class Numbers
{
public:
    explicit Numbers(std::uint64_t seed) : m_state(seed ^ 0x426E6F4872ULL) {}
    std::uint64_t next()
    {
        std::uint64_t z = (m_state += 0x9E3779B97F4A7C15ULL);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
        return z ^ (z >> 31);
    }
    std::size_t below(std::size_t bound) { return bound == 0 ? 0 : static_cast<std::size_t>(next() % bound); }

private:
    std::uint64_t m_state;
};

struct Chapter {
    const char* first;  // first 3-character code of the chapter
    const char* last;   // last 3-character code
    const char* title;  // UTF-8
};

// The chapters of the Hungarian BNO-10 in tree order; the special-purpose U codes come last. A chapter
// title never begins with a code, so no code can match it.
constexpr std::array<Chapter, 22> kChapters = {{
    {"A00", "B99", "I. fejezet: Fertőző és parazitás betegségek (A00-B99)"},
    {"C00", "D48", "II. fejezet: Daganatok (C00-D48)"},
    {"D50", "D89",
     "III. fejezet: A vér és vérképző szervek betegségei, immunrendszeri rendellenességek (D50-D89)"},
    {"E00", "E90", "IV. fejezet: Endokrin, táplálkozási és anyagcsere-betegségek (E00-E90)"},
    {"F00", "F99", "V. fejezet: Mentális és viselkedészavarok (F00-F99)"},
    {"G00", "G99", "VI. fejezet: Az idegrendszer betegségei (G00-G99)"},
    {"H00", "H59", "VII. fejezet: A szem és függelékeinek betegségei (H00-H59)"},
    {"H60", "H95", "VIII. fejezet: A fül és a csecsnyúlvány betegségei (H60-H95)"},
    {"I00", "I99", "IX. fejezet: A keringési rendszer betegségei (I00-I99)"},
    {"J00", "J99", "X. fejezet: A légzőrendszer betegségei (J00-J99)"},
    {"K00", "K93", "XI. fejezet: Az emésztőrendszer betegségei (K00-K93)"},
    {"L00", "L99", "XII. fejezet: A bőr és a bőralatti szövet betegségei (L00-L99)"},
    {"M00", "M99", "XIII. fejezet: A csont-izomrendszer és kötőszövet betegségei (M00-M99)"},
    {"N00", "N99", "XIV. fejezet: Az urogenitális rendszer betegségei (N00-N99)"},
    {"O00", "O99", "XV. fejezet: Terhesség, szülés és gyermekágy (O00-O99)"},
    {"P00", "P96", "XVI. fejezet: A perinatális szakban keletkező bizonyos állapotok (P00-P96)"},
    {"Q00", "Q99", "XVII. fejezet: Veleszületett rendellenességek és kromoszóma-rendellenességek (Q00-Q99)"},
    {"R00", "R99", "XVIII. fejezet: Máshova nem osztályozott panaszok, tünetek és kóros leletek (R00-R99)"},
    {"S00", "T98", "XIX. fejezet: Sérülés, mérgezés és külső okok egyéb következményei (S00-T98)"},
    {"V01", "Y98", "XX. fejezet: A morbiditás és mortalitás külső okai (V01-Y98)"},
    {"Z00", "Z99", "XXI. fejezet: Az egészségi állapotot befolyásoló tényezők (Z00-Z99)"},
    {"U00", "U99", "XXII. fejezet: Különleges célú kódok (U00-U99)"},
}};

// The chapter of a code, or -1 for a code outside every range.
int chapterOf(std::string_view code)
{
    const std::string_view head = code.substr(0, 3);
    for (std::size_t i = 0; i < kChapters.size(); ++i)
        if (head >= kChapters[i].first && head <= kChapters[i].last) return static_cast<int>(i);
    return -1;
}

// bno.tre: the chapters at depth 0, then under each its 3-character codes (depth 1), 4-character codes under
// their 3-character parent (depth 2) and 5-character codes under their 4-character parent (depth 3). A code
// whose parent is missing goes one level up ("I10H0" under "I10"). Node text "CODE name".
}  // namespace

bool inBnoChapter(std::string_view code) { return chapterOf(code) >= 0; }

std::string bnoTreeText(std::span<const BnoBookEntry> entries, std::size_t* nodeCount)
{
    std::vector<std::vector<const BnoBookEntry*>> byChapter(kChapters.size());
    std::set<std::string_view> codes;
    for (const BnoBookEntry& entry : entries) {
        const int chapter = chapterOf(entry.code);
        if (chapter < 0) continue;
        byChapter[static_cast<std::size_t>(chapter)].push_back(&entry);
        codes.insert(entry.code);
    }
    std::string tree;
    std::size_t nodes = 0;
    for (std::size_t c = 0; c < kChapters.size(); ++c) {
        tree += utf8ToCp1250(kChapters[c].title) + "\r\n";
        ++nodes;
        int previousDepth = 0;
        for (const BnoBookEntry* entry : byChapter[c]) {
            const std::string_view code = entry->code;
            int depth = 1;
            if (code.size() >= 4 && codes.count(code.substr(0, 3))) depth = 2;
            if (code.size() == 5 && codes.count(code.substr(0, 4))) depth = 3;
            // Never more than one level below the node before (a 5-character code under a missing
            // 4-character parent sits under the 3-character one).
            depth = std::min(depth, previousDepth + 1);
            previousDepth = depth;
            tree += std::string(static_cast<std::size_t>(depth), '\t') + std::string(code) + " " +
                    utf8ToCp1250(entry->name) + "\r\n";
            ++nodes;
        }
    }
    if (nodeCount) *nodeCount = nodes;
    return tree;
}

std::string bnoRuleText(const std::vector<std::pair<std::string, std::string>>& rules)
{
    std::string text;
    for (const auto& [key, code] : rules) text += key + " " + code + "\r\n";
    return text;
}

std::string qualificationText(const std::vector<std::pair<std::string, std::string>>& pairs)
{
    std::string text;
    for (const auto& [key, qualification] : pairs) text += key + "," + qualification + ";\r\n";
    return text;
}

namespace
{

// The 5-character codes of the tree: the codes a rule may admit.
std::vector<std::string_view> prescribableCodes()
{
    std::vector<std::string_view> codes;
    for (const BnoBookEntry& entry : bnoBook())
        if (std::string_view(entry.code).size() == 5 && chapterOf(entry.code) >= 0)
            codes.push_back(entry.code);
    return codes;
}

using KeyedCodes = std::vector<std::pair<std::string, std::string>>;

void addRules(KeyedCodes& rules, std::size_t& lines, std::string_view key,
              const std::vector<std::string_view>& codes)
{
    for (const std::string_view code : codes) {
        rules.emplace_back(key, code);
        ++lines;
    }
}

std::vector<std::string_view> drawCodes(Numbers& numbers, const std::vector<std::string_view>& codes,
                                        std::size_t count)
{
    std::set<std::string_view> chosen;
    while (chosen.size() < std::min(count, codes.size())) chosen.insert(codes[numbers.below(codes.size())]);
    return {chosen.begin(), chosen.end()};
}

// bnohr.dat: the rules of every rend.dat point, the planted points, then points no product refers to
// ("EU1nn" and "_EU2nn/a") until the file has about 12,000 lines, the size of the national list.
std::string bnoRules(const std::vector<std::string>& points, std::uint64_t seed)
{
    Numbers numbers(seed);
    const auto codes = prescribableCodes();
    KeyedCodes rules;
    std::size_t lines = 0;
    for (const std::string& point : points)
        addRules(rules, lines, point, drawCodes(numbers, codes, 20 + numbers.below(60)));
    addRules(rules, lines, kPlantedFreeKey, {"E1190", "I10H0"});
    addRules(rules, lines, kPlantedFeeKey, {"J4500", "I10H0"});
    addRules(rules, lines, kPlantedWildcardKey, {"XXXXX"});
    addRules(rules, lines, kPlantedFeeWildcardKey, {"XXXXX"});
    for (int n = 0; lines < 12000; ++n) {
        const std::string key =
            n % 2 == 0 ? "EU" + std::to_string(100 + n / 2) : "_EU" + std::to_string(200 + n / 2) + "/a";
        addRules(rules, lines, key,
                 drawCodes(numbers, codes, std::min<std::size_t>(12000 - lines, 20 + numbers.below(200))));
    }
    return bnoRuleText(rules);
}

// Qualification codes (5 digits) by the specialist a regulation text names.
struct Specialty {
    const char* word;  // UTF-8, as it stands in a rend.dat text
    const char* code;
};
constexpr std::array<Specialty, 9> kSpecialties = {{
    {"kardiológus", "00301"},
    {"tüdőgyógyász", "00401"},
    {"neurológus", "00501"},
    {"pszichiáter", "00601"},
    {"reumatológus", "00701"},
    {"szemész", "00801"},
    {"onkológus", "00901"},
    {"anyagcsere-centrum", "01001"},
    {"belgyógyász", "00101"},
}};

// The search key of a point as the qualification check forms it: the code itself (rate prefix included).
std::string qualifications(const std::vector<std::pair<std::string, std::string>>& points)
{
    KeyedCodes pairs;
    for (const auto& [code, pointText] : points)
        for (const Specialty& specialty : kSpecialties)
            if (contains(pointText, utf8ToCp1250(specialty.word))) pairs.emplace_back(code, specialty.code);
    pairs.emplace_back(kPlantedFeeKey, kPlantedQualification);
    return qualificationText(pairs);
}

std::string layoutBFlags(bool normative, bool publicCare, bool free, bool feePaying)
{
    std::string flags(10, '0');
    flags[0] = flags[2] = normative ? '1' : '0';
    flags[3] = free ? '1' : '0';
    flags[4] = feePaying ? '1' : '0';
    flags[5] = publicCare ? '1' : '0';
    return flags;
}

}  // namespace

std::string titleFlagText(const std::filesystem::path& directory)
{
    std::string text;
    const StartupTables tables = loadStartupTables(directory, directory / "no-user.ini");
    DataFile gyful(dataFilePath(directory, "gy.ful"));
    DataFile nevpos(dataFilePath(directory, "nevpos.dat"));
    for (std::int32_t record = 0; record < tables.counts.products(); ++record) {
        const auto block = productBlock(gyful, nevpos, record);
        if (!block) continue;
        const std::vector<std::string_view> lines(block->begin(), block->end());
        const PriceData prices = priceData(lines);
        const std::string ttt(trim(prices.support[10]));
        if (ttt.empty()) continue;
        std::string free, fee;
        for (const IndicationSupport& support : indicationSupports(prices.support[5])) {
            std::string& keys = support.highlighted ? free : fee;
            if (!keys.empty()) keys += ',';
            keys += support.code;
        }
        const bool normative = !prices.support[4].empty() && prices.support[4].front() != '-';
        text += ttt + ";" +
                layoutBFlags(normative, trim(prices.support[7]) == "1", !free.empty(), !fee.empty()) + ";" +
                fee + ";" + free + "\r\n";
    }
    return text;
}

namespace
{

// tamttt.dat: the products' lines, then the planted drugs.
std::string titleFlags(const std::filesystem::path& directory)
{
    std::string text = titleFlagText(directory);
    const std::array<std::array<std::string, 4>, 6> planted = {{
        {kPlantedSimpleDrug, "1011111000", kPlantedFeeKey, kPlantedFreeKey},
        {kPlantedListDrug, "1011111000", std::string(kPlantedFreeKey) + "," + kPlantedFeeKey,
         std::string(kPlantedRulelessKey) + "," + kPlantedFreeKey},
        {kPlantedWildcardDrug, "1011010000", "", kPlantedWildcardKey},
        {kPlantedKeylessDrug, "1010000000", "", ""},
        {kPlantedAllTitlesDrug, "1111111111", kPlantedFeeWildcardKey, kPlantedWildcardKey},
        {kPlantedUnprefixedFeeDrug, "1010100000", kPlantedFreeKey, ""},
    }};
    for (const auto& entry : planted)
        text += entry[0] + ";" + entry[1] + ";" + entry[2] + ";" + entry[3] + "\r\n";
    return text;
}

constexpr std::array<const char*, 14> kDosages = {
    "Naponta 1x1 tablettát reggel, étkezés után.",
    "Naponta 2x1 tablettát reggel és este.",
    "Naponta 3x1 tablettát étkezés után.",
    "Naponta 1x1 kapszulát este, lefekvés előtt.",
    "Naponta 1x1 filmtablettát szétrágás nélkül, bő folyadékkal.",
    "Szükség esetén 1 tablettát, naponta legfeljebb 3-at.",
    "Naponta 2x5 ml-t étkezés után.",
    "Naponta 3x20 cseppet kevés vízben.",
    "Naponta 1x1 adagot belélegezni.",
    "Naponta 2x1 adagot belélegezni, utána a szájat kiöblíteni.",
    "Naponta 2x vékonyan az érintett bőrfelületre kenni.",
    "Naponta 3x1-2 cseppet mindkét szembe cseppenteni.",
    "Hetente 1x1 tablettát, mindig ugyanazon a napon.",
    "Orvosi utasítás szerint.",
};

}  // namespace

std::size_t bnoTreeNodeCount()
{
    std::size_t nodes = 0;
    (void)bnoTreeText(bnoBook(), &nodes);
    return nodes;
}

bool writePrescriptionFiles(const std::filesystem::path& directory, std::uint64_t seed, std::string* error)
{
    // The regulation points of rend.dat, with their texts.
    std::vector<std::string> points;
    std::vector<std::pair<std::string, std::string>> pointTexts;
    forEachLine(readWholeFile(dataFilePath(directory, "rend.dat")).value_or(std::string()),
                [&](std::string_view line) {
                    const std::size_t tab = line.find('\t');
                    if (tab == std::string_view::npos || tab == 0) return true;
                    points.emplace_back(line.substr(0, tab));
                    pointTexts.emplace_back(points.back(), std::string(line.substr(tab + 1)));
                    return true;
                });

    std::string dosages;
    for (const char* dosage : kDosages) dosages += utf8ToCp1250(dosage) + "\r\n";
    const std::array<std::pair<const char*, std::string>, 5> files = {{
        {"bno.tre", bnoTreeText(bnoBook())},
        {"bnohr.dat", bnoRules(points, seed)},
        {"tamttt.dat", titleFlags(directory)},
        {"szvhr.dat", qualifications(pointTexts)},
        {"DsListT.txt", dosages},
    }};
    for (const auto& [name, content] : files) {
        if (!writeFileAtomically(directory / name, content)) {
            if (error) *error = "cannot write " + (directory / name).string();
            return false;
        }
    }
    return true;
}

}  // namespace rovanel
