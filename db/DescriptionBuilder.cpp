#include "db/DescriptionBuilder.h"

#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

#include "db/AtcCode.h"
#include "db/DataFile.h"
#include "db/MessageCatalog.h"
#include "db/ProductIndex.h"
#include "db/ProductPrice.h"
#include "db/StartupTables.h"
#include "db/StyledDocument.h"
#include "db/Text.h"

namespace rovanel
{

namespace
{

constexpr std::size_t kLineBuffer = 1254;  // the builder's gy.ful line buffer

const TextStyle kBody{};
const TextStyle kHeading{"Arial", 16, true, kMaroon};
const TextStyle kTitleLead{"Arial", 16, false, kBlack};
const TextStyle kTitleName{"Arial", 20, true, kBlue};
const TextStyle kEmphasis{"Arial", 16, true, kBlack};

std::string internationalAtc(std::string_view code) { return internationalFromAtc(code); }

// The headings of the sections the jump buttons find: literals, so that the case-sensitive search finds
// them byte for byte (kJumpSearchTexts are their beginnings).
constexpr std::string_view kAtcHeading = "ATC besorol\xE1s:";
constexpr std::string_view kIngredientHeading =
    "Hat\xF3"
    "anyag:";
constexpr std::string_view kIndicationsHeading = "Javallatok:";
constexpr std::string_view kDosageHeading = "Adagol\xE1s:";
constexpr std::string_view kPatientHeading = "Beteg tudom\xE1s\xE1ra hozand\xF3:";
constexpr std::string_view kContraindicationsHeading = "Ellenjavallatok:";
constexpr std::string_view kSideEffectsHeading = "Mell\xE9khat\xE1sok:";
constexpr std::string_view kCarefulHeading = "\xD3vatosan egy\xFCttadhat\xF3:";
constexpr std::string_view kAvoidHeading = "Egy\xFCttad\xE1sa ker\xFClend\xF5:";
constexpr std::string_view kPoisoningHeading = "M\xE9rgez\xE9s eset\xE9n teend\xF5:";

std::int64_t slotOf(const TextList& table, std::string_view code)
{
    for (std::size_t i = 0; i < table.size(); ++i)
        if (table[i] == code) return static_cast<std::int64_t>(i);
    return -1;
}

std::string withoutLineEnd(std::string_view line)
{
    while (!line.empty() && (line.back() == '\r' || line.back() == '\n')) line.remove_suffix(1);
    return std::string(line);
}

// Writes sections into the document; owns the open name files for one build.
class Writer
{
public:
    Writer(const StartupTables& tables, StyledDocument& out, DataFile& atcNames,
           DataFile& contraindicationNames, DataFile& sideEffectNames)
        : m_tables(tables),
          m_out(out),
          m_atcNames(atcNames),
          m_contraindicationNames(contraindicationNames),
          m_sideEffectNames(sideEffectNames)
    {
    }

    void title(std::string_view name)
    {
        m_out.append(message(msg::kDescriptionTitle), kTitleLead);
        m_out.append(" ", kTitleLead);
        m_out.append(name, kTitleName);
        m_out.append("\n", kTitleLead);
    }

    // Writer 1: the product's own codes under the "ATC" heading, their substances under "Hatóanyag:".
    void ownCodes(const std::vector<std::string_view>& lines)
    {
        std::vector<std::string> codes;
        for (std::size_t i = 1; i < lines.size() && !isMarkerLine(lines[i]); ++i) {
            const std::string_view code = trim(lines[i]);
            if (!code.empty() && code != " ") codes.emplace_back(code);
        }
        if (codes.empty()) return;
        heading(kAtcHeading);
        line(internationalAtc(codes.front()) + "  " + atcName(codes.front()));
        heading(kIngredientHeading);
        for (const std::string& code : codes) line(atcName(code) + " (" + internationalAtc(code) + ")");
    }

    // Writer 2: prices, normative support, indication-bound supports and daily costs.
    void prices(const std::vector<std::string_view>& lines)
    {
        const PriceData data = priceData(lines);
        const auto supports = indicationSupports(data.support[kFieldIndicationSupports - 1]);
        if (!data.hasPriceLines && supports.empty()) return;
        heading(msg::kDescPriceHeading);
        const float full = data.fullPrice;
        const float normative = data.normativeSupport;
        const float doses = dailyDoses(data.support[kFieldDailyDoses - 1]);
        const bool fromFull = m_tables.fullPriceDailyCost;
        if (data.hasPriceLines) {
            const float percent = full > 0 ? normative * 100 / full : 0;
            line(format("%s%.1f Ft  %s %.0f %%  %s %.1f Ft", message(msg::kDescFullPriceLabel), full,
                        message(msg::kDescNormativeLabel), percent, message(msg::kDescPayableLabel),
                        full - normative));
            dailyCostLine(full, full - normative, doses, fromFull);
        }
        std::optional<std::string> rendDat;
        for (const IndicationSupport& support : supports) {
            if (!rendDat)
                rendDat = readWholeFile(dataFilePath(m_tables.dataDirectory, "rend.dat")).value_or("");
            const RegulationPoint point = regulationPoint(*rendDat, support.code);
            const std::string kind =
                message(support.highlighted ? msg::kDescHighlightedWord : msg::kDescIncreasedWord);
            m_out.append(supportPermissionText(kind, support.code, point.separateBudget), kEmphasis);
            m_out.append("\n", kBody);
            const float amount = static_cast<float>(support.amount);
            line(format("%s %.1f Ft  %s %.1f Ft  %s %.1f Ft", message(msg::kDescSupportLabel), amount,
                        message(msg::kDescPayableLabel), full - amount, message(msg::kDescFullPriceLabel),
                        full));
            dailyCostLine(full, full - amount, doses, fromFull);
            if (!point.text.empty()) line(point.text);
        }
    }

    // Writers 3, 4, 5, 8 (poisoning), 9 and 10: a heading and the section's text lines.
    template <typename Heading>
    void text(const std::vector<std::string_view>& lines, std::string_view marker, Heading headingText)
    {
        const auto section = sectionLines(lines, marker);
        if (section.empty()) return;
        heading(headingText);
        for (std::string_view text : section) line(withoutLineEnd(text));
    }

    // Writer 6: contraindication codes named from ellnrend.dat, then the "* " free-text lines.
    void contraindications(const std::vector<std::string_view>& lines)
    {
        codes(lines, "#ell", kContraindicationsHeading, m_tables.contraindicationCodes,
              m_contraindicationNames, false);
    }

    // Writer 7: side-effect codes named from mhnrend.dat.
    void sideEffects(const std::vector<std::string_view>& lines)
    {
        codes(lines, "#mh", kSideEffectsHeading, m_tables.sideEffectCodes, m_sideEffectNames, false);
    }

    // Writer 8: careful and avoid codes (ATC groups named from atcnrend.dat), then poisoning.
    void interactions(const std::vector<std::string_view>& lines)
    {
        codes(lines, "#ov", kCarefulHeading, m_tables.atcGroupCodes, m_atcNames, true);
        codes(lines, "#til", kAvoidHeading, m_tables.atcGroupCodes, m_atcNames, true);
        text(lines, "#mer", kPoisoningHeading);
    }

private:
    std::string message(int number) const { return std::string(m_tables.messages.at(number)); }

    void heading(int number) { heading(message(number)); }
    void heading(std::string_view text)
    {
        m_out.append("\n", kBody);
        m_out.append(text, kHeading);
        m_out.append("\n", kBody);
    }

    void line(std::string_view text)
    {
        m_out.append(text, kBody);
        m_out.append("\n", kBody);
    }

    static std::string format(const char* pattern, const std::string& a, float x, const std::string& b,
                              float y, const std::string& c, float z)
    {
        return substitute(pattern, {a, b, c}, {x, y, z});
    }

    // Replaces the %s and %.Nf conversions of `pattern` in order (%% stays a single %). Not snprintf:
    // the decimal point must not follow the locale.
    static std::string substitute(std::string_view pattern, std::initializer_list<std::string> texts,
                                  std::initializer_list<float> numbers)
    {
        std::string result;
        auto text = texts.begin();
        auto number = numbers.begin();
        for (std::size_t i = 0; i < pattern.size(); ++i) {
            if (pattern[i] != '%' || i + 1 >= pattern.size()) {
                result += pattern[i];
                continue;
            }
            const char next = pattern[i + 1];
            if (next == '%') {
                result += '%';
                ++i;
            } else if (next == 's') {
                if (text != texts.end()) result += *text++;
                ++i;
            } else if (next == '.' && i + 3 < pattern.size() && pattern[i + 3] == 'f') {
                if (number != numbers.end()) result += fixedDecimals(*number++, pattern[i + 2] - '0');
                i += 3;
            } else {
                result += pattern[i];
            }
        }
        return result;
    }

    void dailyCostLine(float full, float payable, float doses, bool fromFull)
    {
        const auto cost = dailyCost(full, payable, doses, fromFull);
        if (!cost) return;
        line(message(msg::kDescDailyCostLabel) + " " +
             substitute("%.0f Ft (%s %s)",
                        {message(fromFull ? msg::kDescFullPriceBasis : msg::kDescPayableBasis),
                         message(msg::kDescBasisWord)},
                        {*cost}));
    }

    void codes(const std::vector<std::string_view>& lines, std::string_view marker,
               std::string_view headingText, const TextList& table, DataFile& names, bool atcCodes)
    {
        const auto section = sectionLines(lines, marker);
        if (section.empty()) return;
        heading(headingText);
        std::vector<std::string> freeText;
        for (std::string_view entry : section) {
            if (entry.substr(0, 2) == "* ") {
                freeText.push_back(withoutLineEnd(entry));
                continue;
            }
            const std::string_view code = trim(entry);
            if (code.empty() || code == " ") continue;
            const std::int64_t slot = slotOf(table, code);
            std::optional<std::string> name;
            if (slot >= 0) name = nameLine(names, slot);
            const std::string shown = atcCodes ? internationalAtc(code) : std::string(code);
            if (!name || name->empty() || *name == " ")
                line(shown);
            else
                line(atcCodes ? *name + " (" + shown + ")" : *name);
        }
        for (const std::string& text : freeText) line(text);
    }

    std::string atcName(std::string_view code)
    {
        const std::int64_t slot = slotOf(m_tables.atcGroupCodes, code);
        if (slot < 0) return internationalAtc(code);
        auto name = nameLine(m_atcNames, slot);
        return name ? *name : internationalAtc(code);
    }

    const StartupTables& m_tables;
    StyledDocument& m_out;
    DataFile& m_atcNames;
    DataFile& m_contraindicationNames;
    DataFile& m_sideEffectNames;
};

}  // namespace

std::string supportPermissionText(std::string_view kind, std::string_view code, bool separateBudget)
{
    std::string text = std::string(kind) + " t\xE1mogat\xE1ssal rendelheti[" + std::string(code) + "]:";
    if (separateBudget) text += " [K\xDCL\xD6NKERETES!]";
    return text;
}

RegulationPoint regulationPoint(std::string_view rendDat, std::string_view code)
{
    RegulationPoint point;
    if (code.empty()) return point;
    forEachLine(rendDat, [&](std::string_view line) {
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        const auto first = line.find('\t');
        if (first == std::string_view::npos || line.substr(0, first) != code) return true;
        const auto second = line.find('\t', first + 1);
        if (second == std::string_view::npos) return true;
        point.separateBudget = line.substr(first + 1, second - first - 1) == "K";
        point.text = std::string(trim(line.substr(second + 1)));
        if (point.text == " ") point.text.clear();
        return false;
    });
    return point;
}

Description buildDescription(const StartupTables& tables, ProductRecord record)
{
    Description result;
    result.built = record == kNoProduct;
    if (result.built) return result;
    const auto& directory = tables.dataDirectory;
    ProductTexts texts(directory);
    if (!texts.isOpen()) return result;
    DataFile atcNames(dataFilePath(directory, "atcnrend.dat"));
    if (!atcNames.isOpen()) return result;
    DataFile contraindicationNames(dataFilePath(directory, "ellnrend.dat"));
    if (!contraindicationNames.isOpen()) return result;
    DataFile sideEffectNames(dataFilePath(directory, "mhnrend.dat"));
    if (!sideEffectNames.isOpen()) return result;
    DataFile names(dataFilePath(directory, "nevrend.dat"));
    if (!names.isOpen()) return result;

    const auto block = texts.block(record, kLineBuffer);
    if (!block || block->empty()) return result;
    const std::vector<std::string_view> lines(block->begin(), block->end());

    const ProductRecord product = tables.recordOfCode(trim(lines.front()));
    if (product < 0) return result;

    Writer writer(tables, result.document, atcNames, contraindicationNames, sideEffectNames);
    writer.title(tables.productName(product));
    writer.ownCodes(lines);                                    // 1
    writer.prices(lines);                                      // 2
    writer.text(lines, "#ter", msg::kDescProductDataHeading);  // 3
    writer.text(lines, "#jav", kIndicationsHeading);           // 4
    writer.text(lines, "#adag", kDosageHeading);               // 5
    writer.text(lines, "#bet", kPatientHeading);
    writer.contraindications(lines);                          // 6
    writer.sideEffects(lines);                                // 7
    writer.interactions(lines);                               // 8
    writer.text(lines, "#fig", msg::kDescWarningsHeading);    // 9
    writer.text(lines, "#nev", msg::kDescOtherNamesHeading);  // 10
    result.built = true;
    return result;
}

}  // namespace rovanel
