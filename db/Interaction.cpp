#include "db/Interaction.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <optional>
#include <string_view>
#include <unordered_set>

#include "app/IniFile.h"
#include "db/Cp1250.h"
#include "db/DataFile.h"
#include "db/DrugSelection.h"
#include "db/MessageCatalog.h"
#include "db/ProductIndex.h"
#include "db/SharedState.h"
#include "db/StartupTables.h"
#include "db/Text.h"

namespace rovanel
{

namespace
{

// The engine reads gy.ful lines through a 255-byte buffer.
constexpr std::size_t kLineBuffer = 255;
// A drug taken keeps its product code and at most 20 own codes (21 slots of its record); a group
// product at most 100 own codes.
constexpr std::size_t kOwnCodesOfDrugTaken = 20;
constexpr std::size_t kOwnCodesOfGroupProduct = 100;
// Names over this many characters together put the finding on its own line.
constexpr std::size_t kNamesOnOneLine = 60;
// Drug names and the heading stand out in the styled report.
const TextStyle kNameStyle{.bold = true};

constexpr std::array<std::string_view, 7> kEngineFiles = {"nevrend.dat",  "atcindin.dat", "atcind.dat",
                                                          "ellindin.dat", "ellind.dat",   "ellnrend.dat",
                                                          "atcnrend.dat"};

struct EngineFiles {
    ProductTexts texts;  // gy.ful, nevpos.dat
    DataFile nevrend, atcindin, atcind, ellindin, ellind, ellnrend, atcnrend;
};

// One product's codes as the engine reads them from its block.
struct ProductCodes {
    std::string productCode;
    std::vector<std::string> own;                // up to "#ar", without the product code line
    std::vector<std::string> careful;            // "#ov" .. "#til"
    std::vector<std::string> avoid;              // "#til" .. "#mer"
    std::vector<std::string> contraindications;  // "#ell" .. "#mh"
    std::string supportLine;                     // the line after "#ha"
};

bool beginsWith(std::string_view text, std::string_view prefix)
{
    return text.size() >= prefix.size() && text.compare(0, prefix.size(), prefix) == 0;
}

bool equalOverShorterLength(std::string_view a, std::string_view b)
{
    const std::size_t length = std::min(a.size(), b.size());
    return a.substr(0, length) == b.substr(0, length);
}

bool isMarker(std::string_view line, std::string_view marker) { return contains(line, marker); }

// The trimmed lines after the first line containing `start` up to the one containing `end`; a scan stops
// at "#vege" and at the end of the block. A line containing "$2" is a comment and is skipped together with
// the line after it. `start` empty: from the line after the product code.
std::vector<std::string> sectionLines(const std::vector<std::string>& block, std::string_view start,
                                      std::string_view end)
{
    std::vector<std::string> lines;
    std::size_t i = 1;
    if (!start.empty()) {
        while (i < block.size() && !isMarker(block[i], start) && !isMarker(block[i], "#vege")) ++i;
        if (i >= block.size() || !isMarker(block[i], start)) return lines;
        ++i;
    }
    for (; i < block.size(); ++i) {
        const std::string_view line = block[i];
        if (isMarker(line, end) || isMarker(line, "#vege")) break;
        if (contains(line, "$2")) {
            ++i;
            continue;
        }
        const std::string_view code = trim(line);
        if (stripBlanks(code).empty()) continue;  // an all-blank code would prefix-match everything
        lines.emplace_back(code);
    }
    return lines;
}

std::optional<ProductCodes> readProductCodes(EngineFiles& files, ProductRecord record)
{
    const auto block = files.texts.block(record, kLineBuffer);
    if (!block || block->empty()) return std::nullopt;
    ProductCodes codes;
    codes.productCode = std::string(trim((*block)[0]));
    codes.own = sectionLines(*block, {}, "#ar");
    codes.careful = sectionLines(*block, "#ov", "#til");
    codes.avoid = sectionLines(*block, "#til", "#mer");
    codes.contraindications = sectionLines(*block, "#ell", "#mh");
    for (std::size_t i = 1; i + 1 < block->size(); ++i) {
        if (isMarker((*block)[i], "#vege")) break;
        if (isMarker((*block)[i], "#ha")) {
            codes.supportLine = (*block)[i + 1];
            break;
        }
    }
    return codes;
}

std::string productNameOf(DataFile& nevrend, std::int64_t record)
{
    if (record < 0) return {};
    const auto line = nevrend.lineAt(static_cast<std::uint64_t>(record) * 50, 79);
    if (!line) return {};
    return std::string(trim(*line));
}

std::string messageText(const StartupTables& tables, int line)
{
    return std::string(tables.messages.at(static_cast<std::size_t>(line)));
}

// The class name of a careful or avoid code: the first slot of KOD.DAT table 2 that agrees with the code
// in its first four characters, compared as C strings (so a code of 1-3 characters must equal the slot),
// then that group's name in atcnrend.dat.
std::string className(const StartupTables& tables, EngineFiles& files, std::string_view code)
{
    const auto agreeInFour = [](std::string_view a, std::string_view b) {
        for (std::size_t i = 0; i < 4; ++i) {
            const char x = i < a.size() ? a[i] : '\0';
            const char y = i < b.size() ? b[i] : '\0';
            if (x != y) return false;
            if (x == '\0') return true;
        }
        return true;
    };
    for (std::size_t k = 0; k < tables.atcGroupCodes.size(); ++k) {
        if (!agreeInFour(code, tables.atcGroupCodes[k])) continue;
        return nameLine(files.atcnrend, static_cast<std::int64_t>(k)).value_or(std::string{});
    }
    return {};
}

// The fields of the support line (22, delimited in a fixed order); missing ones are empty.
std::vector<std::string_view> supportFields(std::string_view line)
{
    static constexpr char kDelimiters[] = {';', ';', ';', ';', ';', ';', ';', ';', '^',    '@', '#',
                                           '$', '*', '[', ']', '{', '}', '(', ')', '\xB3', '@'};
    line = trim(line);
    std::vector<std::string_view> fields;
    std::size_t position = 0;
    for (char delimiter : kDelimiters) {
        const std::size_t end = line.find(delimiter, position);
        if (end == std::string_view::npos) break;
        fields.push_back(line.substr(position, end - position));
        position = end + 1;
    }
    if (position <= line.size()) fields.push_back(line.substr(position));
    fields.resize(22);
    return fields;
}

// A mode-2 list line: the name, a tab, the insurer's identifier (field 16; "999999" when the data leave it
// blank, a blank or "0"), " -K " and the highlighted fixed-group id (field 4) when the product has one, and
// " !" when the product needs care.
std::string listLine(std::string_view name, std::string_view supportLine, bool care)
{
    const auto fields = supportFields(supportLine);
    const std::string_view identifier = trim(fields[15]);
    const std::string_view highlighted = trim(fields[3]);
    std::string line(name);
    line += '\t';
    line += (identifier.empty() || identifier == " " || identifier == "0") ? std::string_view("999999")
                                                                           : identifier;
    if (!highlighted.empty() && highlighted != " " && highlighted != "0" && highlighted != "-") {
        line += " -K ";
        line += highlighted;
    }
    if (care) line += " !";
    return line;
}

struct TakenDrug {
    ProductRecord record = kNoProduct;
    std::string name;
    ProductCodes codes;
};

class Run
{
public:
    Run(const StartupTables& tables, const DrugSelection& selection, KhRunResult& result)
        : m_tables(tables), m_selection(selection), m_result(result)
    {
    }

    void execute(KhMode mode, std::int64_t atcNode)
    {
        if (!openFiles()) return;
        m_result.filesOpened = true;
        if (!readDrugsTaken()) return;
        if (!m_taken.empty()) checkPairs();
        if (mode == KhMode::AtcGroup) {
            if (!listGroup(atcNode)) return;
        } else {
            listDrugsConcerned();
        }
        m_result.completed = true;
    }

private:
    bool openFiles()
    {
        m_files.texts = ProductTexts(m_tables.dataDirectory);
        if (!m_files.texts.isOpen()) return false;
        DataFile* targets[] = {&m_files.nevrend, &m_files.atcindin, &m_files.atcind,  &m_files.ellindin,
                               &m_files.ellind,  &m_files.ellnrend, &m_files.atcnrend};
        for (std::size_t i = 0; i < kEngineFiles.size(); ++i) {
            *targets[i] = DataFile(dataFilePath(m_tables.dataDirectory, kEngineFiles[i]));
            if (!targets[i]->isOpen()) return false;
        }
        return true;
    }

    void stop(int textLine, std::string caption, MessageIcon icon, bool taskModal)
    {
        m_result.messages.push_back(
            Message{messageText(m_tables, textLine), std::move(caption), icon, taskModal});
    }

    // Reads the codes of every drug taken and pools the careful and avoid codes, stopping at a limit.
    bool readDrugsTaken()
    {
        const std::int64_t slots =
            std::clamp<std::int64_t>(m_selection.SzedettGyCount, 0, m_selection.SzedettGy.size());
        for (std::int64_t slot = 0; slot < slots; ++slot) {
            const ProductRecord record = m_selection.SzedettGy[static_cast<std::size_t>(slot)];
            if (record < 0 || static_cast<std::size_t>(record) >= m_tables.productCodes.size()) continue;
            auto codes = readProductCodes(m_files, record);
            TakenDrug drug;
            drug.record = record;
            drug.name = productNameOf(m_files.nevrend, record);
            if (codes) drug.codes = std::move(*codes);
            if (drug.codes.own.size() > kOwnCodesOfDrugTaken) drug.codes.own.resize(kOwnCodesOfDrugTaken);
            if (!checkSection(drug.codes.careful, m_pooledCareful, true)) return false;
            if (!checkSection(drug.codes.avoid, m_pooledAvoid, false)) return false;
            m_taken.push_back(std::move(drug));
        }
        return true;
    }

    bool checkSection(const std::vector<std::string>& codes, std::vector<std::string>& pooled, bool careful)
    {
        const std::string caption81 = messageText(m_tables, msg::kKhCaptionLimits);
        for (std::size_t i = 0; i < codes.size(); ++i) {
            const std::string& code = codes[i];
            if (code.size() > kKhCodeLineLength) {
                stop(msg::kKhCodeLineTooLong, code, MessageIcon::Stop, careful);
                return false;
            }
            if (i >= kKhCodesPerDrug) {
                if (careful)
                    stop(msg::kKhTooManyCareful, caption81, MessageIcon::Stop, true);
                else
                    stop(msg::kKhTooManyAvoid, code, MessageIcon::Stop, false);
                return false;
            }
            if (pooled.size() >= kKhPooledCodes) {
                if (careful)
                    stop(msg::kKhTooManyPooledCareful, caption81, MessageIcon::Stop, true);
                else
                    stop(msg::kKhTooManyPooledAvoid, caption81, MessageIcon::Stop, false);
                return false;
            }
            pooled.push_back(code);
        }
        return true;
    }

    void addFinding(std::size_t i, std::size_t j, std::string_view code, int phraseLine)
    {
        std::string text;
        const std::string phrase = messageText(m_tables, phraseLine);
        const std::string name = code.size() < 8 ? className(m_tables, m_files, code) : std::string{};
        if (!name.empty())
            text = "( " + name + " )\n\n " + phrase;
        else
            text = "\n\n " + phrase;
        const TakenDrug& a = m_taken[i];
        const TakenDrug& b = m_taken[j];
        const bool avoid = phraseLine == msg::kKhAvoidPhrase;
        const TextStyle finding{.bold = avoid, .colour = avoid ? kAvoidColour : kCarefulColour};
        write(a.name, kNameStyle);
        write(utf8ToCp1250(" és "));
        write(b.name, kNameStyle);
        write(a.name.size() + b.name.size() > kNamesOnOneLine ? "\n" : " : ");
        write(text, finding);
        write("\n\n");
        m_concerned[i] = m_concerned[j] = true;
        m_nothingFound = false;
    }

    // Appends to the report and to its styled copy alike.
    void write(std::string_view text, const TextStyle& style = {})
    {
        m_result.report += text;
        m_result.styledReport.append(text, style);
    }

    void checkPairs()
    {
        m_concerned.assign(m_taken.size(), false);
        m_result.report.clear();
        m_result.styledReport.clear();
        write(messageText(m_tables, msg::kKhReportHeading), kNameStyle);
        write("\n\n");
        for (std::size_t i = 0; i < m_taken.size(); ++i) {
            for (const auto& [codes, phrase] : {std::pair{&m_taken[i].codes.careful, msg::kKhCarefulPhrase},
                                                std::pair{&m_taken[i].codes.avoid, msg::kKhAvoidPhrase}}) {
                for (const std::string& code : *codes)
                    for (std::size_t j = 0; j < m_taken.size(); ++j) {
                        if (j == i) continue;
                        for (const std::string& own : m_taken[j].codes.own)
                            if (beginsWith(own, code)) addFinding(i, j, code, phrase);
                    }
            }
        }
        checkContraindications();
        if (m_nothingFound) {
            // A database marked as holding no interaction data (the real database imported from the
            // public tables) must not read as a clean result.
            const int text = readProfileString(dataFilePath(m_tables.dataDirectory, "RV.INI"),
                                               "Rovanel Beallitasok", "KolcsonhatasiAdat", "") == "NINCS"
                                 ? msg::kKhNoInteractionData
                                 : msg::kKhNothingFound;
            m_result.messages.push_back(Message{messageText(m_tables, text),
                                                messageText(m_tables, msg::kKhNothingFoundCaption),
                                                MessageIcon::Information, true});
            write(messageText(m_tables, text));
        }
    }

    // The chosen contraindications as codes of KOD.DAT table 3 with their names; nodes outside the table
    // are passed over.
    std::vector<std::pair<std::string, std::string>> chosenContraindications()
    {
        std::vector<std::pair<std::string, std::string>> chosen;
        const std::int64_t count =
            std::clamp<std::int64_t>(m_selection.EllSelCount, 0, m_selection.EllSel.size());
        for (std::int64_t i = 0; i < count; ++i) {
            const std::int32_t node = m_selection.EllSel[static_cast<std::size_t>(i)];
            if (node < 0 || static_cast<std::size_t>(node) >= m_tables.contraindicationCodes.size()) continue;
            const std::string_view code = m_tables.contraindicationCodes[static_cast<std::size_t>(node)];
            if (stripBlanks(code).empty()) continue;
            chosen.emplace_back(code, nameLine(m_files.ellnrend, node).value_or(std::string{}));
        }
        return chosen;
    }

    static bool holdsContraindication(const ProductCodes& codes, std::string_view chosen)
    {
        return std::any_of(codes.contraindications.begin(), codes.contraindications.end(),
                           [&](const std::string& code) { return equalOverShorterLength(code, chosen); });
    }

    void checkContraindications()
    {
        const auto chosen = chosenContraindications();
        for (std::size_t i = 0; i < m_taken.size(); ++i)
            for (const auto& [code, name] : chosen) {
                if (!holdsContraindication(m_taken[i].codes, code)) continue;
                const TextStyle contraindication{.colour = kContraindicationColour};
                write(m_taken[i].name, TextStyle{.bold = true, .colour = kContraindicationColour});
                write(" ellenjavallata:\n\n", contraindication);
                write(" ( " + code + " - " + name + " )", contraindication);
                write("\n\n");
                m_concerned[i] = true;
                m_nothingFound = false;
            }
    }

    void listDrugsConcerned()
    {
        for (std::size_t i = 0; i < m_concerned.size(); ++i) {
            if (!m_concerned[i]) continue;
            m_result.found.push_back(FoundDrug{m_taken[i].record, 0});
            m_result.listLines.push_back(m_taken[i].name);
        }
    }

    bool listGroup(std::int64_t node)
    {
        std::vector<ProductRecord> group;
        if (node >= 0) {
            if (const auto key = keyRecord(m_files.atcindin, node); key && key->count > 0)
                group = readRecordList(m_files.atcind, key->offset, key->count, false);
        }
        // Every prefix of the pooled codes' matches: an own code matches a pooled code when one of its
        // prefixes is that code; a careful line of the product matches the drugs taken when it is a prefix
        // of one of their own codes.
        const std::unordered_set<std::string_view> careful(m_pooledCareful.begin(), m_pooledCareful.end());
        const std::unordered_set<std::string_view> avoid(m_pooledAvoid.begin(), m_pooledAvoid.end());
        std::unordered_set<std::string_view> takenOwnPrefixes;
        for (const TakenDrug& drug : m_taken)
            for (const std::string& own : drug.codes.own)
                for (std::size_t length = 1; length <= own.size(); ++length)
                    takenOwnPrefixes.insert(std::string_view(own).substr(0, length));
        const auto anyPrefixIn = [](std::string_view code, const std::unordered_set<std::string_view>& set) {
            if (set.empty()) return false;
            for (std::size_t length = 1; length <= code.size(); ++length)
                if (set.count(code.substr(0, length)) != 0) return true;
            return false;
        };
        const auto chosen = chosenContraindications();

        std::vector<std::string> supportLines;
        bool stoppedAtLimit = false;
        for (const ProductRecord record : group) {
            if (record < 0 || static_cast<std::size_t>(record) >= m_tables.productCodes.size()) continue;
            auto codes = readProductCodes(m_files, record);
            if (!codes) continue;
            if (codes->own.size() > kOwnCodesOfGroupProduct) codes->own.resize(kOwnCodesOfGroupProduct);
            bool candidate = false;
            bool excluded = false;
            for (const std::string& own : codes->own) {
                if (anyPrefixIn(own, careful)) candidate = true;
                if (anyPrefixIn(own, avoid)) excluded = true;
            }
            bool care = candidate;
            for (const std::string& line : codes->careful) {
                if (line.size() > kKhGroupCodeLineLength) {
                    stop(msg::kKhCodeLineTooLong, messageText(m_tables, msg::kKhCaption70),
                         MessageIcon::Information, false);
                    return false;
                }
                if (takenOwnPrefixes.count(line) != 0) care = true;
            }
            for (const auto& [code, name] : chosen)
                if (holdsContraindication(*codes, code)) excluded = true;
            if (excluded) continue;
            m_result.found.push_back(FoundDrug{record, care ? 1 : 0});
            supportLines.push_back(std::move(codes->supportLine));
            if (m_result.found.size() >= kKhFoundLimit) {
                stop(msg::kKhTooManyFound, messageText(m_tables, msg::kKhCaption72), MessageIcon::Information,
                     false);
                stoppedAtLimit = true;
                break;
            }
        }
        makeSortedList(supportLines);
        return !stoppedAtLimit;
    }

    // The lines, sorted ascending by their bytes, with the table reordered alongside so that line i is
    // still entry i.
    void makeSortedList(const std::vector<std::string>& supportLines)
    {
        std::vector<std::string> lines;
        lines.reserve(m_result.found.size());
        for (std::size_t i = 0; i < m_result.found.size(); ++i)
            lines.push_back(listLine(productNameOf(m_files.nevrend, m_result.found[i].record),
                                     supportLines[i], m_result.found[i].flag != 0));
        std::vector<std::size_t> order(lines.size());
        std::iota(order.begin(), order.end(), 0);
        std::stable_sort(order.begin(), order.end(),
                         [&](std::size_t a, std::size_t b) { return lines[a] < lines[b]; });
        std::vector<FoundDrug> sorted;
        sorted.reserve(order.size());
        for (std::size_t index : order) {
            sorted.push_back(m_result.found[index]);
            m_result.listLines.push_back(std::move(lines[index]));
        }
        m_result.found = std::move(sorted);
    }

    const StartupTables& m_tables;
    const DrugSelection& m_selection;
    KhRunResult& m_result;
    EngineFiles m_files;
    std::vector<TakenDrug> m_taken;
    std::vector<std::string> m_pooledCareful;
    std::vector<std::string> m_pooledAvoid;
    std::vector<bool> m_concerned;
    bool m_nothingFound = true;
};

}  // namespace

KhRunResult KhRun(const StartupTables& tables, const DrugSelection& selection, KhMode mode,
                  std::int64_t atcNode)
{
    KhRunResult result;
    Run(tables, selection, result).execute(mode, atcNode);
    return result;
}

KhRunResult KhRun(SharedState& state, KhMode mode, std::int64_t atcNode)
{
    KhRunResult result = KhRun(state.tables, state.selection, mode, atcNode);
    state.selection.KhResult = result.report;
    if (mode == KhMode::Check && result.completed) state.selection.KhResultValid = 1;
    if (result.filesOpened) state.found.assign(result.found);
    return result;
}

}  // namespace rovanel
