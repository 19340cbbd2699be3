#include "rx/BnoRules.h"

#include <algorithm>

#include "db/Cp1250.h"
#include "db/DataFile.h"
#include "db/Text.h"

namespace rovanel
{

namespace
{

Message refusal(const char* utf8) { return Message{utf8ToCp1250(utf8), "", MessageIcon::Warning}; }

// A rule line cut into its key and the rest; nothing for a line without a blank (not a rule).
struct RuleLine {
    std::string_view key;
    std::string_view rest;
};

std::optional<RuleLine> ruleLine(std::string_view line)
{
    if (line.size() > kBnoRuleLineLimit) line = line.substr(0, kBnoRuleLineLimit);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    const std::size_t blank = line.find(' ');
    // A line without a key is no rule: an empty key would equal a drug's empty key.
    if (blank == std::string_view::npos || blank == 0) return std::nullopt;
    return RuleLine{line.substr(0, blank), line.substr(blank + 1)};
}

// The first five characters compared as strings that may end earlier.
bool codeMatches(std::string_view rest, std::string_view code)
{
    return rest.substr(0, 5) == code.substr(0, 5);
}

bool admits(std::string_view rest, std::string_view code)
{
    return codeMatches(rest, code) || codeMatches(rest, "XXXXX");
}

bool inList(std::string_view list, std::string_view key)
{
    std::size_t start = 0;
    while (start <= list.size()) {
        std::size_t end = list.find(',', start);
        if (end == std::string_view::npos) end = list.size();
        if (end > start && list.substr(start, end - start) == key) return true;
        start = end + 1;
    }
    return false;
}

// Which rules of the file are relevant to a drug's keys, and what the scan saw.
class RuleScan
{
public:
    RuleScan(const RegulationKeys& keys, bool feePaying) : m_keys(keys), m_feePaying(feePaying)
    {
        m_simple =
            m_keys.freeKey.find(',') == std::string::npos && m_keys.feeKey.find(',') == std::string::npos;
    }

    // Whether the rule is relevant; records the kind of rule seen.
    bool relevant(std::string_view key)
    {
        if (m_simple) {
            if (!((!m_feePaying && key == m_keys.freeKey) || (m_feePaying && key == m_keys.feeKey)))
                return false;
            (isFeePayingKey(key) ? feeRuleSeen : freeRuleSeen) = true;
            return true;
        }
        // In list mode a fee-paying key must carry its rate prefix, a free one may begin with anything:
        // the asymmetry is intended (BnoRules_test).
        if (m_feePaying && !m_keys.feeKey.empty() && isFeePayingKey(key) && inList(m_keys.feeKey, key)) {
            feeRuleSeen = true;
            return true;
        }
        if (!m_feePaying && !m_keys.freeKey.empty() && inList(m_keys.freeKey, key)) {
            freeRuleSeen = true;
            return true;
        }
        return false;
    }

    // The end message when nothing was accepted or listed, the first that applies.
    [[nodiscard]] Message endMessage() const
    {
        if (!freeRuleSeen && !feeRuleSeen) return refusal("Hiba: Nincs hozzárendelt BNO kód");
        if (!m_feePaying && !freeRuleSeen) return refusal("Csak térítéskötelesre rendelhető");
        if (m_feePaying && !feeRuleSeen) return refusal("Csak térítésmentesre rendelhető");
        return refusal("Hiba: Rendeletben nem szereplő BNO kód");
    }

    bool freeRuleSeen = false;
    bool feeRuleSeen = false;

private:
    const RegulationKeys& m_keys;
    bool m_feePaying;
    bool m_simple = true;
};

std::optional<Message> preconditions(std::optional<std::string_view> bnohr, const RegulationKeys& keys)
{
    if (keys.freeKey.empty() && keys.feeKey.empty())
        return refusal("Nem rendelhető rendelet szerinti támogatással.");
    if (!bnohr) return refusal("BNOHR.DAT hiányzik.");
    return std::nullopt;
}

// The rules of bnohr.dat relevant to a drug's keys, in file order, and the message to give when none of
// them serves: the refusal for no keys or no file (then no line is read), else the scan's end message.
struct RelevantRules {
    std::vector<RuleLine> rules;  // views into the file's text
    Message noneServes;
};

RelevantRules relevantRules(std::optional<std::string_view> bnohr, const RegulationKeys& keys, bool feePaying)
{
    RelevantRules found;
    if (auto refusal = preconditions(bnohr, keys)) {
        found.noneServes = std::move(*refusal);
        return found;
    }
    RuleScan scan(keys, feePaying);
    forEachLine(*bnohr, [&](std::string_view line) {
        const auto rule = ruleLine(line);
        if (rule && scan.relevant(rule->key)) found.rules.push_back(*rule);
        return true;
    });
    found.noneServes = scan.endMessage();
    return found;
}

std::optional<std::string> readRules(const std::filesystem::path& dataDirectory)
{
    return readWholeFile(dataFilePath(dataDirectory, "bnohr.dat"));
}

}  // namespace

bool isFeePayingKey(std::string_view key)
{
    return !key.empty() && (key.front() == '_' || key.front() == '&' || key.front() == '*');
}

BnoCheckResult checkBnoText(std::optional<std::string_view> bnohr, const RegulationKeys& keys,
                            std::string_view code, bool feePaying, int source)
{
    BnoCheckResult result;
    if (source == static_cast<int>(PrescriptionSource::MedicalAid)) {
        result.accepted = true;
        return result;
    }
    RelevantRules found = relevantRules(bnohr, keys, feePaying);
    result.accepted =
        std::ranges::any_of(found.rules, [&](const RuleLine& rule) { return admits(rule.rest, code); });
    if (!result.accepted) result.message = std::move(found.noneServes);
    return result;
}

BnoCheckResult checkBno(const std::filesystem::path& dataDirectory, const RegulationKeys& keys,
                        std::string_view code, bool feePaying, int source)
{
    if (source == static_cast<int>(PrescriptionSource::MedicalAid) ||
        (keys.freeKey.empty() && keys.feeKey.empty()))
        return checkBnoText(std::optional<std::string_view>{}, keys, code, feePaying, source);
    const auto rules = readRules(dataDirectory);
    return checkBnoText(rules ? std::optional<std::string_view>(*rules) : std::nullopt, keys, code, feePaying,
                        source);
}

BnoCodeList bnoCodeListText(std::optional<std::string_view> bnohr, const RegulationKeys& keys, bool feePaying)
{
    BnoCodeList list;
    RelevantRules found = relevantRules(bnohr, keys, feePaying);
    for (const RuleLine& rule : found.rules) {
        const bool fee = isFeePayingKey(rule.key);
        const char* rate = !fee                      ? "100%"
                           : rule.key.front() == '_' ? "90%"
                           : rule.key.front() == '&' ? "70%"
                                                     : "50%";
        const std::string_view shownKey = fee ? rule.key.substr(1) : rule.key;
        list.lines.push_back(std::string(rule.rest) + " \t" + rate + "  " + std::string(shownKey) + "\t");
    }
    // With nothing listed no rule kind was seen, so only the first three end messages can apply.
    if (list.lines.empty()) list.message = std::move(found.noneServes);
    return list;
}

BnoCodeList bnoCodeList(const std::filesystem::path& dataDirectory, const RegulationKeys& keys,
                        bool feePaying)
{
    if (keys.freeKey.empty() && keys.feeKey.empty())
        return bnoCodeListText(std::optional<std::string_view>{}, keys, feePaying);
    const auto rules = readRules(dataDirectory);
    return bnoCodeListText(rules ? std::optional<std::string_view>(*rules) : std::nullopt, keys, feePaying);
}

std::string_view codeOfListLine(std::string_view line) { return line.substr(0, line.find(' ')); }

std::string keyOfListLine(std::string_view line)
{
    // "CODE \tRATE  KEY\t"
    const std::size_t tab = line.find('\t');
    if (tab == std::string_view::npos) return {};
    const std::string_view after = line.substr(tab + 1);
    const std::size_t blanks = after.find("  ");
    if (blanks == std::string_view::npos) return {};
    const std::string_view rate = after.substr(0, blanks);
    std::string_view key = after.substr(blanks + 2);
    key = key.substr(0, key.find('\t'));
    if (key.empty()) return {};
    const std::string prefix = rate == "90%" ? "_" : rate == "70%" ? "&" : rate == "50%" ? "*" : "";
    return prefix + std::string(key);
}

}  // namespace rovanel
