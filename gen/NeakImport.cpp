#include "gen/NeakImport.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <fstream>
#include <map>
#include <set>

#include "db/Cp1250.h"
#include "db/DataFile.h"
#include "db/HungarianCollation.h"
#include "db/MessageCatalog.h"
#include "gen/AidBook.h"
#include "gen/AidCatalogueWriter.h"
#include "gen/DatabaseCheck.h"
#include "gen/NeakTable.h"
#include "gen/PictureWriter.h"
#include "gen/PrescriptionFiles.h"
#include "gen/Vocabulary.h"

namespace rovanel
{
namespace
{

std::string cp(std::string_view utf8) { return utf8ToCp1250(utf8); }
std::string number(long long value) { return std::to_string(value); }

std::string padRight(std::string_view text, std::size_t width)
{
    std::string padded(text.substr(0, width));
    padded.resize(width, ' ');
    return padded;
}
std::string fixedLine(std::string_view text, std::size_t width) { return padRight(text, width - 2) + "\r\n"; }

// Source text made fit for a text line: Excel's "_x000d_", line ends and tabs become blanks, runs of
// blanks one blank, no blank at either end; the comment mark, the marker sign and "$2" are defused.
std::string cleanText(std::string_view text)
{
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char c = text[i];
        if (text.substr(i).starts_with("_x000d_") || text.substr(i).starts_with("_x000D_")) {
            i += 6;
            c = ' ';
        }
        if (c == '\0' || c == '\x1A') continue;
        if (c == '\r' || c == '\n' || c == '\t') c = ' ';
        if (c == '~') c = '-';
        if (c == '#') c = ' ';
        if (c == '2' && !out.empty() && out.back() == '$') out.back() = 'S';
        if (c == ' ' && (out.empty() || out.back() == ' ')) continue;
        out += c;
    }
    while (!out.empty() && out.back() == ' ') out.pop_back();
    return out;
}

// Cut to at most `width` bytes (Windows-1250: one byte a character), without a trailing blank.
std::string cutTo(std::string text, std::size_t width)
{
    if (text.size() > width) text.resize(width);
    while (!text.empty() && text.back() == ' ') text.pop_back();
    return text;
}

// A decimal number of the source ("77.5", "-3"); empty is nothing, anything else is an error.
std::optional<double> decimal(std::string_view text, bool* bad)
{
    if (text.empty()) return std::nullopt;
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || end != text.data() + text.size() || !std::isfinite(value)) {
        *bad = true;
        return std::nullopt;
    }
    return value;
}

// A whole number of the source; anything else sorts last.
long long parseIndex(std::string_view text)
{
    long long value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc{} && end == text.data() + text.size() ? value : (1LL << 62);
}

long long wholeForints(double value) { return value > 0 ? std::llround(value) : 0; }

// Daily doses with a decimal comma and at most four decimals, trailing zeros dropped ("26,6667").
std::string dailyDosesField(double doses)
{
    if (!(doses > 0)) return "0";
    const long long scaled = std::llround(doses * 10000);
    std::string text = number(scaled / 10000);
    std::string fraction = number(10000 + scaled % 10000).substr(1);
    while (!fraction.empty() && fraction.back() == '0') fraction.pop_back();
    if (!fraction.empty()) text += "," + fraction;
    return text == "0" ? "0" : text;
}

using generation::rovanelCode;
using generation::serialText;

std::string internationalCode(std::string_view code)
{
    std::string text(code);
    if (text.size() >= 6 && text[5] == '-') text.erase(5, 1);
    return text;
}

constexpr int kSerialsPerSubstance = 100 + 260 + 676;

// An international ATC code of the regular shape cut at a level: 1, 3, 4, 5 or 7 characters.
bool regularAtc(std::string_view code)
{
    static constexpr std::string_view kShape = "ANNAANN";  // A letter, N digit
    if (code.size() != 1 && code.size() != 3 && code.size() != 4 && code.size() != 5 && code.size() != 7)
        return false;
    for (std::size_t i = 0; i < code.size(); ++i) {
        const bool letter = code[i] >= 'A' && code[i] <= 'Z', digit = code[i] >= '0' && code[i] <= '9';
        if (kShape[i] == 'A' ? !letter : !digit) return false;
    }
    return true;
}

// The 8-character Rovanel code of a regular international code, missing levels filled with '0'.
std::string carriedCode(std::string_view international)
{
    switch (international.size()) {
        case 7:
            return rovanelCode(international);
        case 5:
            return std::string(international) + "-00";
        case 4:
            return std::string(international) + "0-00";
        case 3:
            return std::string(international) + "00-00";
        default:
            return {};
    }
}

// Pharmaceutical forms: a word of the product name and the x.dat abbreviation (at most 11 bytes).
// The first word found in the name wins, so longer words come before the words they contain.
struct FormWord {
    const char* word;
    const char* abbreviation;
};
constexpr FormWord kFormWords[] = {
    {"FILMTABLETTA", "filmtabl."},
    {"TABLETTA", "tabl."},
    {"KAPSZULA", "kaps."},
    {"INJEKCIÓ", "inj."},
    {"INFÚZIÓ", "infúzió"},
    {"SZUSZPENZIÓ", "szuszp."},
    {"EMULZIÓ", "emulzió"},
    {"OLDAT", "oldat"},
    {"SZIRUP", "szirup"},
    {"CSEPP", "csepp"},
    {"SPRAY", "spray"},
    {"INHALÁCIÓS POR", "inh. por"},
    {"INHALÁCIÓS", "inhaláció"},
    {"GRANULÁTUM", "granulátum"},
    {"POR", "por"},
    {"KRÉM", "krém"},
    {"KENŐCS", "kenőcs"},
    {"GÉL", "gél"},
    {"KÚP", "kúp"},
    {"TAPASZ", "tapasz"},
    {"IMPLANTÁTUM", "implantát."},
    {"HÜVELY", "hüvely"},
    {"PASZTILLA", "pasztilla"},
};
constexpr int kOtherForm = 0;                                                // "egyéb"
constexpr int kNutritionForm = static_cast<int>(std::size(kFormWords)) + 1;  // "tápszer"

// Form words shortened, in this order, while a display name is too long.
constexpr std::array<std::pair<const char*, const char*>, 12> kShortForms = {{
    {"ELŐRETÖLTÖTT FECSKENDŐBEN", "ELŐRET.FECSK."},
    {"MÓDOSÍTOTT HATÓANYAG-LEADÁSÚ", "MÓD.HAT."},
    {"NYÚJTOTT HATÓANYAG-LEADÁSÚ", "NYÚJT.HAT."},
    {"GYOMORNEDV-ELLENÁLLÓ", "GYN.ELL."},
    {"KONCENTRÁTUM", "KONC."},
    {"OLDATOS INJEKCIÓ", "OLD.INJ."},
    {"FILMTABLETTA", "FTBL."},
    {"TABLETTA", "TBL."},
    {"KEMÉNY KAPSZULA", "KEM.KAPS."},
    {"KAPSZULA", "KAPS."},
    {"INJEKCIÓHOZ", "INJ."},
    {"SZUSZPENZIÓ", "SZUSZP."},
}};

constexpr std::size_t kNameWidth = 48;

// "30x buborékcsomagolásban" -> "30X", "10x3ml patronban" -> "10X3 ML", "1x100 ml" -> "1X100 ML",
// "200 ml" -> "200 ML"; empty when the pack text does not start with a number.
std::string compactPack(std::string_view pack)
{
    const std::string upper = upperCaseCp1250(pack);
    std::size_t i = 0;
    const auto digits = [&] {
        const std::size_t from = i;
        while (i < upper.size() &&
               ((upper[i] >= '0' && upper[i] <= '9') || upper[i] == ',' || upper[i] == '.'))
            ++i;
        while (i > from && (upper[i - 1] == ',' || upper[i - 1] == '.')) --i;
        return upper.substr(from, i - from);
    };
    const auto blanks = [&] {
        while (i < upper.size() && upper[i] == ' ') ++i;
    };
    std::string count = digits();
    if (count.empty()) return {};
    blanks();
    std::string result = count;
    if (i < upper.size() && upper[i] == 'X') {
        ++i;
        result += 'X';
        blanks();
        const std::string amount = digits();
        if (amount.empty()) return result;
        result += amount;
        blanks();
    }
    std::size_t unitEnd = i;
    while (unitEnd < upper.size() && upper[unitEnd] >= 'A' && upper[unitEnd] <= 'Z') ++unitEnd;
    const std::string unit = upper.substr(i, unitEnd - i);
    if (unit == "ML" || unit == "G" || unit == "MG" || unit == "L" || unit == "KG") result += " " + unit;
    return result;
}

enum class Kind { Medicine = 0, Nutrition = 1, Other = 2 };

// One turnover row as the money formulas need it.
struct Row {
    std::string title;  // JOGCIM
    double packs = 0, doses = 0, insurer = 0, price = 0;
    bool hasDoses = false;
};

struct Product {
    std::string ttt, name, pack, registration, brand, atc, substance;  // source texts, Windows-1250
    std::vector<Row> rows;
    bool older = false;  // only in the older month
    Kind kind = Kind::Medicine;
    std::string realAtc, own;  // the source's code (international) and the carried 8-character code
    std::string displayName, sortKey, code;
    int form = kOtherForm;
    long long price = 0, normative = 0, increased = 0, highlighted = 0;
    double dailyDoses = 0;
    bool publicCare = false, isNew = false, nameCut = false;
    std::vector<std::string> increasedKeys, highlightedKeys;  // real points from --eu-links
};

// A medical aid of the catalogue, its texts in UTF-8 as the aid writer takes them.
struct Aid {
    std::string iso, name, pack, kind, ttt, manufacturer, distributor;
    long gross = 0, fee = 0, euFee = 0;
    int percent = 0, euPercent = 0;
};

// The row of most packs among those of one of `titles` (tried in order) that has packs.
const Row* largestRow(const std::vector<Row>& rows, std::initializer_list<std::string_view> titles)
{
    for (std::string_view title : titles) {
        const Row* best = nullptr;
        for (const Row& row : rows)
            if ((title.empty() || row.title == cp(title)) && row.packs > 0 &&
                (!best || row.packs > best->packs))
                best = &row;
        if (best) return best;
    }
    return nullptr;
}

class Importer
{
public:
    Importer(const std::filesystem::path& source, const NeakImportOptions& options,
             const ImportProgress& progress)
        : m_source(source), m_options(options), m_progress(progress)
    {
    }
    bool read(std::string* error);
    void build();
    bool write(const std::filesystem::path& output, std::string* error);
    NeakImportReport report;

private:
    std::optional<SourceTable> table(std::string_view relative, const TableLayout& layout,
                                     std::string* error);
    std::optional<SourceTable> tableAt(const std::filesystem::path& path, const TableLayout& layout,
                                       std::string* error);
    bool readTurnover(const std::string& month, bool older, std::string* error);
    bool readPoints(std::string* error);
    bool readBno(std::string* error);
    bool readAids(std::string* error);
    bool readUserFiles(std::string* error);
    void warn(const std::string& kind, const std::string& detail);
    std::string groupName(const std::string& code) const;
    double whoDailyDoses(const Product& product) const;

    std::filesystem::path m_source;
    NeakImportOptions m_options;
    ImportProgress m_progress;
    std::map<std::string, Product> m_products;  // by TTT
    std::set<std::string> m_olderTtt;
    std::map<std::string, std::pair<std::string, std::string>> m_book;  // international -> Hungarian, English
    struct Regulation {
        std::string id, code, text;
        int rate = 100;
    };
    std::vector<Regulation> m_regulations;
    std::map<std::string, std::string> m_bno;  // code -> name: the tree's codes
    std::vector<std::pair<std::string, std::string>> m_bnoRules, m_qualifications;  // (key, code)
    std::vector<Aid> m_aids;
    struct WhoDose {
        double amount = 0;
        std::string unit, route;
    };
    std::map<std::string, std::pair<std::string, std::vector<WhoDose>>> m_who;  // ATC -> name, doses
    std::map<std::string, std::vector<std::string>> m_links;                    // TTT -> point ids
    std::map<std::string, int> m_warningsPerKind;

    // Built.
    std::vector<Product*> m_order;
    std::map<std::string, std::string> m_groupNames;  // Rovanel code -> name
    std::set<std::string> m_pseudo;
};

void Importer::warn(const std::string& kind, const std::string& detail)
{
    if (++m_warningsPerKind[kind] <= 5) report.warnings.push_back(kind + ": " + detail);
}

std::optional<SourceTable> Importer::table(std::string_view relative, const TableLayout& layout,
                                           std::string* error)
{
    return tableAt(m_source / std::filesystem::path(std::string(relative)), layout, error);
}

std::optional<SourceTable> Importer::tableAt(const std::filesystem::path& path, const TableLayout& layout,
                                             std::string* error)
{
    const auto content = readWholeFile(path);
    if (!content) {
        if (error) *error = path.string() + ": missing or unreadable";
        return std::nullopt;
    }
    TableLayout named = layout;
    const std::string shown = path.string();
    named.file = shown;
    return parseSourceTable(*content, named, error);
}

bool Importer::readTurnover(const std::string& month, bool older, std::string* error)
{
    if (m_progress) m_progress("reading the turnover of " + month);
    std::string relative(kTurnoverFile);
    relative.replace(relative.find("YYYYMM"), 6, month);
    const TableLayout layout{
        "",
        ',',
        SourceEncoding::Utf8,
        {"IDOSZAK", "BRAND", "BRANDID", "TTT", "NEV", "KISZNEV", "TK", "ATC", "HATOANYAG", "VENYTIPUS",
         "JOGCIM", "DOBOZ", "DOTFORG", "TBTAM", "FOGYAR", "TERDIJ", "KVATER"}};
    const auto rows = table(relative, layout, error);
    if (!rows) return false;
    if (!older) report.turnoverRows = static_cast<int>(rows->rows.size());
    static constexpr std::array<std::pair<std::size_t, const char*>, 4> kNumbers = {
        {{11, "DOBOZ"}, {12, "DOTFORG"}, {13, "TBTAM"}, {14, "FOGYAR"}}};
    for (std::size_t r = 0; r < rows->rows.size(); ++r) {
        const std::vector<std::string>& f = rows->rows[r];
        std::array<std::optional<double>, 4> values;
        for (std::size_t k = 0; k < kNumbers.size(); ++k) {
            bool bad = false;
            values[k] = decimal(f[kNumbers[k].first], &bad);
            if (bad) {
                if (error)
                    *error = (m_source / relative).string() + " line " + std::to_string(rows->lines[r]) +
                             ": column " + kNumbers[k].second + " is not a number: \"" +
                             cp1250ToUtf8(f[kNumbers[k].first]) + "\"";
                return false;
            }
        }
        const std::string& ttt = f[3];
        if (older) {
            m_olderTtt.insert(ttt);
            const auto found = m_products.find(ttt);
            if (found != m_products.end() && !found->second.older) continue;
        }
        Product& product = m_products[ttt];
        if (product.ttt.empty()) {
            product.ttt = ttt, product.name = cleanText(f[4]), product.pack = cleanText(f[5]);
            product.registration = cleanText(f[6]), product.atc = cleanText(f[7]);
            product.substance = cleanText(f[8]), product.brand = cleanText(f[1]);
            product.older = older;
        }
        Row row;
        row.title = f[10];
        row.packs = values[0].value_or(0);
        row.hasDoses = values[1].has_value();
        row.doses = values[1].value_or(0);
        row.insurer = values[2].value_or(0);
        row.price = values[3].value_or(0);
        product.rows.push_back(row);
    }
    return true;
}

bool Importer::read(std::string* error)
{
    if (m_options.month.size() != 6 ||
        !std::all_of(m_options.month.begin(), m_options.month.end(),
                     [](char c) { return c >= '0' && c <= '9'; }) ||
        (!m_options.also.empty() && (m_options.also.size() != 6 || m_options.also == m_options.month ||
                                     !std::all_of(m_options.also.begin(), m_options.also.end(),
                                                  [](char c) { return c >= '0' && c <= '9'; })))) {
        if (error) *error = "a month is YYYYMM, and --also names another month";
        return false;
    }
    if (!readTurnover(m_options.month, false, error)) return false;
    if (!m_options.also.empty() && !readTurnover(m_options.also, true, error)) return false;

    if (m_progress) m_progress("reading the ATC book");
    const auto book = table(
        kAtcBookFile,
        {"", '\t', SourceEncoding::Cp1250, {"ATC", "MEGNEV", "ANGOL", "HATOANYAG", "KIHIRDETES_ID"}}, error);
    if (!book) return false;
    for (const auto& f : book->rows) m_book.emplace(f[0], std::pair(cleanText(f[1]), cleanText(f[2])));
    return readPoints(error) && readBno(error) && readAids(error) && readUserFiles(error);
}

bool Importer::readPoints(std::string* error)
{
    if (m_progress) m_progress("reading the EU points");
    const auto points =
        table(kEuPointsFile, {"", ';', SourceEncoding::Utf8, {"ID", "EUTIP", "KODSZAM", "PERJEL", "IND_TIP"}},
              error);
    if (!points) return false;
    const auto texts =
        table(kEuTextsFile, {"", ';', SourceEncoding::Utf8, {"ID", "EUPONT_ID", "NDX", "LEIRAS"}}, error);
    if (!texts) return false;
    std::map<std::string, std::map<long long, std::string>> textsOfPoint;
    for (const auto& f : texts->rows) {
        const auto index = parseIndex(f[2]);
        std::string& text = textsOfPoint[f[1]][index];
        text += (text.empty() ? "" : " ") + cleanText(f[3]);
    }
    std::set<std::string> keys;
    for (const auto& f : points->rows) {
        if (f[4] != "G") continue;  // medical-aid points
        const std::string type = cp1250ToUtf8(f[1]);
        const int rate = type == "EÜ100"  ? 100
                         : type == "EÜ90" ? 90
                         : type == "EÜ70" ? 70
                         : type == "EÜ50" ? 50
                                          : 0;
        const auto alphanumeric = [](const std::string& text) {
            return std::all_of(text.begin(), text.end(), [](char c) {
                return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
            });
        };
        if (rate == 0 || f[2].empty() || !alphanumeric(f[2]) || !alphanumeric(f[3])) {
            warn("EU point skipped", "ID " + f[0] + " (" + f[1] + " " + f[2] + ")");
            continue;
        }
        const std::string prefix = rate == 90 ? "_" : rate == 70 ? "&" : rate == 50 ? "*" : "K";
        Regulation regulation;
        regulation.id = f[0];
        regulation.code = prefix + "EU" + f[2] + (f[3].empty() ? "" : "/" + f[3]);
        regulation.rate = rate;
        for (const auto& [index, text] : textsOfPoint[f[0]])
            regulation.text += (regulation.text.empty() ? "" : " ") + text;
        if (regulation.text.empty()) {
            regulation.text = cp("(az EÜ pont szövege nincs a forrásban)");
            warn("EU point without text", regulation.code);
        }
        if (!keys.insert(regulation.code).second) {
            warn("EU point key repeated", regulation.code);
            continue;
        }
        m_regulations.push_back(std::move(regulation));
    }
    return true;
}

// A BNO code of the tree: 3 to 5 upper-case letters and digits, a letter first; "XXX" (the placeholder
// for "the code of the underlying illness") is none.
bool treeCode(std::string_view code)
{
    if (code.size() < 3 || code.size() > 5 || code == "XXX" || code[0] < 'A' || code[0] > 'Z') return false;
    return std::all_of(code.begin(), code.end(),
                       [](char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); });
}

bool Importer::readBno(std::string* error)
{
    if (m_progress) m_progress("reading the BNO codes, their points and the prescriber rights");
    const auto codes = table(kBnoCodesFile, {"", ';', SourceEncoding::Utf8, {"ID", "KOD", "LEIRAS"}}, error);
    if (!codes) return false;
    std::map<std::string, std::string> codeOfId;
    for (const auto& f : codes->rows) {
        codeOfId[f[0]] = f[1];
        const std::string name = cutTo(cleanText(f[2]), 170);
        if (!treeCode(f[1])) continue;
        if (!inBnoChapter(f[1])) {
            warn("BNO code outside every chapter", f[1]);
            continue;
        }
        if (name.empty()) {
            warn("BNO code without a name", f[1]);
            continue;
        }
        m_bno.emplace(f[1], name);
    }
    report.bnoCodes = static_cast<int>(m_bno.size());

    const auto links = table(kBnoLinksFile, {"", ';', SourceEncoding::Utf8, {"EUPONT_ID", "BNO_ID"}}, error);
    if (!links) return false;
    std::map<std::string, std::set<std::string>> codesOfPoint;
    for (const auto& f : links->rows) {
        const auto code = codeOfId.find(f[1]);
        if (code != codeOfId.end() && code->second.size() == 5 && m_bno.count(code->second))
            codesOfPoint[f[0]].insert(code->second);
        else
            warn("BNO link skipped", "point " + f[0] + ", BNO " + f[1]);
    }

    const auto specialties =
        table(kSpecialtiesFile, {"", ';', SourceEncoding::Utf8, {"ID", "KOD", "LEIRAS", "MEGFELEL"}}, error);
    if (!specialties) return false;
    std::map<std::string, std::string> specialtyOfId;
    for (const auto& f : specialties->rows) specialtyOfId[f[0]] = f[1];
    const auto rights =
        table(kRightsFile,
              {"",
               ';',
               SourceEncoding::Utf8,
               {"EUPONT_ID", "KATEGORIA_ID", "KATEGORIA", "JOGOSULT", "JIDOKORLAT", "SZAKV_ID", "KIINT_ID"}},
              error);
    if (!rights) return false;
    std::map<std::string, std::set<std::string>> qualificationsOfPoint;
    std::set<std::string> unrestricted;
    for (const auto& f : rights->rows) {
        if (f[3] == cp("Nincs jogosultsága")) continue;
        const auto specialty = specialtyOfId.find(f[5]);
        const std::string code = specialty == specialtyOfId.end() ? std::string() : specialty->second;
        if (code == "0") {
            // "Megkötés nélkül": anyone may prescribe, unless only on a specialist's recommendation.
            if (f[3] != cp("javaslatra írhat")) unrestricted.insert(f[0]);
        } else if (!code.empty() && code.size() <= 5 &&
                   std::all_of(code.begin(), code.end(), [](char c) { return c >= '0' && c <= '9'; })) {
            qualificationsOfPoint[f[0]].insert(std::string(5 - code.size(), '0') + code);
        } else {
            warn("prescriber right skipped", "point " + f[0] + ", specialty " + f[5]);
        }
    }
    for (const Regulation& regulation : m_regulations) {
        for (const std::string& code : codesOfPoint[regulation.id])
            m_bnoRules.emplace_back(regulation.code, code);
        if (unrestricted.count(regulation.id)) {
            ++report.unrestrictedPoints;
            continue;
        }
        for (const std::string& code : qualificationsOfPoint[regulation.id])
            m_qualifications.emplace_back(regulation.code, code);
    }
    return true;
}

bool Importer::readAids(std::string* error)
{
    if (m_progress) m_progress("reading the medical aids");
    const std::filesystem::path path = m_source / std::filesystem::path(std::string(kAidsFile));
    const auto content = readWholeFile(path);
    if (!content) {
        if (error) *error = path.string() + ": missing or unreadable";
        return false;
    }
    const std::string shown = path.string();
    const auto items = parseJsonItems(
        *content, "items",
        {shown,
         ',',
         SourceEncoding::Utf8,
         {"isoCode", "name", "packSize", "grossPrice", "patientFee", "supportPercent", "supportType",
          "euSupportPercent", "euPatientFee", "tttCode", "manufacturer", "distributor"}},
        error);
    if (!items) return false;
    std::set<std::string> seen;
    for (std::size_t r = 0; r < items->rows.size(); ++r) {
        const auto& f = items->rows[r];
        std::array<double, 5> amounts{};
        static constexpr std::array<std::pair<std::size_t, const char*>, 5> kAmounts = {
            {{3, "grossPrice"},
             {4, "patientFee"},
             {5, "supportPercent"},
             {7, "euSupportPercent"},
             {8, "euPatientFee"}}};
        for (std::size_t k = 0; k < kAmounts.size(); ++k) {
            bool bad = false;
            amounts[k] = decimal(f[kAmounts[k].first], &bad).value_or(0);
            if (bad || amounts[k] < 0 || amounts[k] > 1e9) {
                if (error)
                    *error = shown + " line " + std::to_string(items->lines[r]) + ": " + kAmounts[k].second +
                             " is not a number: \"" + cp1250ToUtf8(f[kAmounts[k].first]) + "\"";
                return false;
            }
        }
        const std::string& iso = f[0];
        if ((iso.size() != 13 && iso.size() != 15) ||
            !std::all_of(iso.begin(), iso.end(), [](char c) { return c >= '0' && c <= '9'; }) ||
            !seen.insert(iso).second) {
            warn("medical aid skipped (ISO code)", iso + " " + f[1]);
            continue;
        }
        Aid aid;
        aid.iso = iso;
        aid.name = cp1250ToUtf8(cleanText(f[1]));
        aid.pack = cp1250ToUtf8(cleanText(f[2]));
        aid.gross = static_cast<long>(std::llround(amounts[0]));
        aid.fee = static_cast<long>(std::llround(amounts[1]));
        aid.percent = static_cast<int>(std::lround(amounts[2]));
        aid.kind = cp1250ToUtf8(cleanText(f[6]));
        aid.euPercent = static_cast<int>(std::lround(amounts[3]));
        aid.euFee = static_cast<long>(std::llround(amounts[4]));
        aid.ttt = cp1250ToUtf8(cleanText(f[9]));
        aid.manufacturer = cp1250ToUtf8(cleanText(f[10]));
        aid.distributor = cp1250ToUtf8(cleanText(f[11]));
        m_aids.push_back(std::move(aid));
    }
    std::sort(m_aids.begin(), m_aids.end(), [](const Aid& x, const Aid& y) { return x.iso < y.iso; });
    return true;
}

// The files the user points at: the WHO ATC/DDD table and the product-to-point links.
bool Importer::readUserFiles(std::string* error)
{
    if (!m_options.whoDdd.empty()) {
        if (m_progress) m_progress("reading the WHO ATC/DDD table");
        const auto who = tableAt(
            m_options.whoDdd,
            {"", ',', SourceEncoding::Utf8, {"atc_code", "atc_name", "ddd", "uom", "adm_r", "note"}}, error);
        if (!who) return false;
        for (const auto& f : who->rows) {
            auto& entry = m_who[f[0]];
            if (entry.first.empty() && f[1] != "NA") entry.first = cutTo(cleanText(f[1]), 116);
            bool bad = false;
            const auto amount = decimal(f[2], &bad);
            if (amount && *amount > 0) entry.second.push_back({*amount, f[3], f[4]});
        }
    }
    if (!m_options.euLinks.empty()) {
        if (m_progress) m_progress("reading the product-to-point links");
        const auto links =
            tableAt(m_options.euLinks, {"", ';', SourceEncoding::Utf8, {"TTT", "EUPONT_ID"}}, error);
        if (!links) return false;
        for (const auto& f : links->rows) m_links[f[0]].push_back(f[1]);
    }
    return true;
}

std::string Importer::groupName(const std::string& international) const
{
    const auto found = m_book.find(international);
    if (found != m_book.end()) {
        if (!found->second.first.empty()) return found->second.first;
        if (!found->second.second.empty()) return found->second.second;
    }
    if (international.size() == 7)
        for (const auto& [ttt, product] : m_products)
            if (product.realAtc == international && !product.substance.empty()) return product.substance;
    return {};
}

// Daily doses from the WHO table for a simple oral solid: "… 20 MG TABLETTA" (or FILMTABLETTA, KAPSZULA)
// in a pack of "30x…", whose ATC code has exactly one oral DDD in mg or g: strength × count / DDD.
double Importer::whoDailyDoses(const Product& product) const
{
    const auto who = m_who.find(product.realAtc);
    if (who == m_who.end()) return 0;
    const WhoDose* oral = nullptr;
    for (const WhoDose& dose : who->second.second)
        if (dose.route == "O") {
            if (oral) return 0;
            oral = &dose;
        }
    if (!oral || (oral->unit != "mg" && oral->unit != "g")) return 0;
    const std::string name = upperCaseCp1250(product.name);
    const std::size_t mg = name.find(" MG ");
    if (mg == std::string::npos) return 0;
    const std::string_view after = std::string_view(name).substr(mg + 4);
    if (!after.starts_with("TABLETTA") && !after.starts_with("FILMTABLETTA") &&
        !after.starts_with("KAPSZULA"))
        return 0;
    std::size_t from = mg;
    while (from > 0 && ((name[from - 1] >= '0' && name[from - 1] <= '9') || name[from - 1] == ',')) --from;
    std::string strength = name.substr(from, mg - from);
    std::replace(strength.begin(), strength.end(), ',', '.');
    bool bad = false;
    const auto amount = decimal(strength, &bad);
    const std::string pack = compactPack(product.pack);
    if (!amount || pack.empty() || pack.back() != 'X') return 0;
    const auto count = decimal(std::string_view(pack).substr(0, pack.size() - 1), &bad);
    if (!count || bad) return 0;
    return *amount * *count / (oral->amount * (oral->unit == "g" ? 1000 : 1));
}

void Importer::build()
{
    if (m_progress) m_progress("building the products");
    // Kinds and carried codes.
    for (auto it = m_products.begin(); it != m_products.end();) {
        Product& product = it->second;
        const std::string prefix = product.ttt.substr(0, 2);
        const bool digits =
            product.ttt.size() == 9 &&
            std::all_of(product.ttt.begin(), product.ttt.end(), [](char c) { return c >= '0' && c <= '9'; });
        if (!digits ||
            (prefix != "21" && prefix != "22" && prefix != "24" && prefix != "27" && prefix != "23")) {
            if (!digits) warn("TTT not 9 digits", product.ttt);
            ++report.excluded;
            it = m_products.erase(it);
            continue;
        }
        if (prefix == "23") {
            product.kind = Kind::Nutrition;
            product.own = product.atc.starts_with("V06C") ? "T01AA-01" : "T02AA-01";
        } else if (regularAtc(product.atc) && product.atc.size() >= 3) {
            product.kind = Kind::Medicine;
            product.realAtc = product.atc;
            product.own = carriedCode(product.atc);
        } else {
            product.kind = Kind::Other;
            product.own = "X01AA-01";
        }
        ++it;
    }

    // Group names: the book's Hungarian name, else its English one, else the turnover's substance name;
    // a level the source code does not have takes the name of the code's own level.
    const std::string nutrition1 = groupName("V06C"), nutrition2 = groupName("V06D");
    const std::map<std::string, std::string> fixed = {
        {"T", cp("Tápszerek")},
        {"T01", nutrition1},
        {"T01A", nutrition1},
        {"T01AA-", nutrition1},
        {"T01AA-01", nutrition1},
        {"T02", nutrition2},
        {"T02A", nutrition2},
        {"T02AA-", nutrition2},
        {"T02AA-01", nutrition2},
        {"X", cp("Egyéb termékek")},
        {"X01", cp("ATC kód nélküli termékek")},
        {"X01A", cp("ATC kód nélküli termékek")},
        {"X01AA-", cp("ATC kód nélküli termékek")},
        {"X01AA-01", cp("ATC kód nélküli termékek")},
    };
    for (auto& [ttt, product] : m_products)
        for (std::size_t length : {1u, 3u, 4u, 6u, 8u}) {
            const std::string code = product.own.substr(0, length);
            if (m_groupNames.count(code)) continue;
            std::string name;
            if (const auto f = fixed.find(code); f != fixed.end()) {
                name = f->second;
            } else {
                const std::string international = internationalCode(code);
                const bool real = international.size() <= product.realAtc.size();
                if (!real) m_pseudo.insert(code);
                name = groupName(real ? international : product.realAtc);
                if (const auto who = m_who.find(real ? international : product.realAtc);
                    name.empty() && who != m_who.end() && !who->second.first.empty()) {
                    name = who->second.first;
                    ++report.whoNames;
                }
                if (name.empty()) {
                    name = real ? international : product.realAtc;
                    ++report.groupsWithoutName;
                    warn("ATC code without a name", name);
                }
            }
            m_groupNames[code] = cutTo(name.empty() ? internationalCode(code) : name, 116);
        }

    // Money, daily doses, flags and forms.
    for (auto& [ttt, product] : m_products) {
        if (const Row* row = largestRow(product.rows, {""})) {
            product.price = wholeForints(row->price / row->packs);
            if (row->hasDoses && row->doses > 0) product.dailyDoses = row->doses / row->packs;
        }
        if (product.dailyDoses <= 0 && product.kind == Kind::Medicine) {
            product.dailyDoses = whoDailyDoses(product);
            report.whoDoses += product.dailyDoses > 0 ? 1 : 0;
        }
        if (const Row* row = largestRow(product.rows, {"Normatív", "Közgyógy"}))
            product.normative = wholeForints(row->insurer / row->packs);
        if (const Row* row = largestRow(product.rows, {"Emelt", "Emelt-Kgy"}))
            product.increased = wholeForints(row->insurer / row->packs);
        if (const Row* row = largestRow(product.rows, {"Kiemelt", "Kiemelt-Kgy"}))
            product.highlighted = wholeForints(row->insurer / row->packs);
        for (const Row& row : product.rows)
            product.publicCare = product.publicCare || row.title == cp("Közgyógy") ||
                                 row.title == cp("Emelt-Kgy") || row.title == cp("Kiemelt-Kgy");
        product.isNew = !m_options.also.empty() && !product.older && !m_olderTtt.count(ttt);
        if (const auto links = m_links.find(ttt); links != m_links.end()) {
            for (const std::string& id : links->second) {
                const auto point = std::find_if(m_regulations.begin(), m_regulations.end(),
                                                [&](const Regulation& r) { return r.id == id; });
                if (point == m_regulations.end()) {
                    warn("link to an unknown EU point", ttt + ";" + id);
                    continue;
                }
                auto& keys = point->rate == 100 ? product.highlightedKeys : product.increasedKeys;
                if (std::find(keys.begin(), keys.end(), point->code) == keys.end())
                    keys.push_back(point->code);
            }
            if (product.increasedKeys.empty() == (product.increased > 0) ||
                product.highlightedKeys.empty() == (product.highlighted > 0))
                warn("linked points and supports differ", ttt + " " + product.name);
            report.linkedProducts += !product.increasedKeys.empty() || !product.highlightedKeys.empty();
        }
        if (product.price == 0) {
            ++report.withoutPrice;
            warn("product without a price", ttt + " " + product.name);
        }
        if (product.kind != Kind::Other && product.dailyDoses <= 0) {
            ++report.withoutDailyDoses;
            warn("product without daily doses", ttt + " " + product.name);
        }
        if (product.kind == Kind::Nutrition) {
            product.form = kNutritionForm;
        } else {
            const std::string upper = upperCaseCp1250(product.name);
            for (std::size_t k = 0; k < std::size(kFormWords); ++k)
                if (upper.find(cp(kFormWords[k].word)) != std::string::npos) {
                    product.form = static_cast<int>(k) + 1;
                    break;
                }
        }
        product.displayName =
            displayName(product.name.empty() ? "TTT " + ttt : product.name, product.pack, &product.nameCut);
        if (product.nameCut) {
            ++report.namesCut;
            warn("name cut to 48 bytes", product.displayName + " <- " + product.name);
        }
    }

    // Unique names: every product of a clash gets the end of its TTT, then the whole TTT.
    for (const std::size_t digits : {4u, 9u}) {
        std::map<std::string, std::vector<Product*>> byName;
        for (auto& [ttt, product] : m_products) byName[product.displayName].push_back(&product);
        for (auto& [name, clash] : byName) {
            if (clash.size() < 2) continue;
            for (Product* product : clash) {
                const std::string suffix = " (" + product->ttt.substr(9 - digits) + ")";
                std::string base = name;
                if (const std::size_t open = base.rfind(" ("); digits == 9 && open != std::string::npos)
                    base.resize(open);
                product->displayName = cutTo(base, kNameWidth - suffix.size()) + suffix;
                if (digits == 4) {
                    ++report.nameClashes;
                    warn("name clash resolved", product->displayName);
                }
            }
        }
    }

    // Record order: medicines, nutrition, others, each by Hungarian name order.
    for (auto& [ttt, product] : m_products) {
        product.sortKey = hungarianSortKey(product.displayName);
        m_order.push_back(&product);
    }
    std::sort(m_order.begin(), m_order.end(), [](const Product* x, const Product* y) {
        if (x->kind != y->kind) return x->kind < y->kind;
        if (x->sortKey != y->sortKey) return x->sortKey < y->sortKey;
        return x->ttt < y->ttt;
    });
    std::map<std::string, int> serials;
    for (Product* product : m_order) {
        const int serial = serials[product->own]++;
        product->code = product->own + serialText(std::min(serial, kSerialsPerSubstance - 1));
        if (serial >= kSerialsPerSubstance) warn("too many products for one substance", product->own);
        ++(product->kind == Kind::Medicine    ? report.medicines
           : product->kind == Kind::Nutrition ? report.nutrition
                                              : report.others);
        report.olderOnly += product->older ? 1 : 0;
        report.newProducts += product->isNew ? 1 : 0;
    }
    report.products = static_cast<int>(m_order.size());
}

// Directory and list files of one index pair from the record lists of its keys.
void indexPair(const std::vector<std::vector<std::int32_t>>& lists, bool sentinel, std::string& directory,
               std::string& list)
{
    for (const auto& records : lists) {
        const std::size_t offset = records.empty() ? 0 : list.size();
        directory += fixedLine(
            number(static_cast<long long>(offset)) + "," + number(static_cast<long long>(records.size())),
            16);
        for (std::int32_t r : records) list += number(r) + "\r\n";
    }
    if (sentinel) directory += fixedLine("0,0", 16);
}

// The placeholder points: products with an increased or highlighted support get one of these, since
// the public tables do not say which point a product belongs to. They have no BNO rule, so a
// prescription under such a title is refused rather than wrongly accepted.
struct Placeholder {
    const char* code;
    int rate;
    const char* text;
};
constexpr Placeholder kPlaceholders[] = {
    {"K100", 100,
     "Kiemelt támogatás: a termék EÜ pontja a NEAK nyilvános adataiból nem állapítható meg. Kiemelt "
     "jogcímen a pont ismeretében, a rendelet szerint rendelhető."},
    {"_E90", 90,
     "Emelt 90 %: a termék EÜ pontja a NEAK nyilvános adataiból nem állapítható meg. Emelt jogcímen a "
     "pont ismeretében, a rendelet szerint rendelhető."},
    {"&E70", 70,
     "Emelt 70 %: a termék EÜ pontja a NEAK nyilvános adataiból nem állapítható meg. Emelt jogcímen a "
     "pont ismeretében, a rendelet szerint rendelhető."},
    {"*E50", 50,
     "Emelt 50 %: a termék EÜ pontja a NEAK nyilvános adataiból nem állapítható meg. Emelt jogcímen a "
     "pont ismeretében, a rendelet szerint rendelhető."},
};

std::string supportLine(const Product& product, int* placeholders)
{
    std::string categories = "---", supports, increasedCodes, highlightedCodes;
    const long long p = product.price, s = product.normative, e = product.increased, k = product.highlighted;
    if (s > 0 || e > 0 || k > 0) {
        categories = s <= 0 ? "5" : p > 0 && s * 100 <= p * 25 ? "4" : p > 0 && s * 100 <= p * 55 ? "2" : "1";
        categories += e > 0 ? '2' : '5';
        categories += k > 0 ? '4' : '5';
    }
    bool placeholder = false;
    const auto add = [&](const std::vector<std::string>& keys, const char* fallback, long long amount,
                         std::string& codes) {
        for (const std::string& key : keys.empty() ? std::vector<std::string>{fallback} : keys) {
            codes += (codes.empty() ? "" : ",") + key;
            supports += (supports.empty() ? "" : ",") + key + " " + number(amount);
        }
        placeholder = placeholder || keys.empty();
    };
    if (e > 0)
        add(product.increasedKeys,
            p > 0 && e * 1000 > p * 705   ? "_E90"
            : p > 0 && e * 1000 > p * 505 ? "&E70"
                                          : "*E50",
            e, increasedCodes);
    if (k > 0) add(product.highlightedKeys, "K100", k, highlightedCodes);
    if (placeholder) ++*placeholders;
    const std::string international = internationalCode(product.code.substr(0, 8));
    const std::string fields[22] = {
        dailyDosesField(product.dailyDoses),
        "0",
        "0",
        "0",
        categories,
        supports.empty() ? "-" : supports,
        "0",
        product.publicCare ? "1" : "0",
        "0",
        product.isNew ? "0" : "1",
        product.ttt,
        increasedCodes.empty() ? "-" : increasedCodes,
        highlightedCodes.empty() ? "-" : highlightedCodes,
        "-",
        number(product.form),
        "0",
        "0",
        "0",
        "0",
        "-",
        "0",
        international,
    };
    static constexpr char kDelimiters[21] = {';', ';', ';', ';', ';', ';', ';', ';', '^',    '@', '#',
                                             '$', '*', '[', ']', '{', '}', '(', ')', '\xB3', '@'};
    std::string line = fields[0];
    for (int i = 1; i < 22; ++i) line += kDelimiters[i - 1] + fields[i];
    return line;
}

bool writeFile(const std::filesystem::path& path, std::string_view content, std::string* error)
{
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(content.data(), static_cast<std::streamsize>(content.size()));
    out.close();
    if (!out) {
        if (error) *error = "cannot write " + path.string();
        return false;
    }
    return true;
}

bool Importer::write(const std::filesystem::path& output, std::string* error)
{
    if (m_progress) m_progress("writing the database");
    std::error_code ec;
    std::filesystem::create_directories(output, ec);
    if (ec || !std::filesystem::is_directory(output)) {
        if (error) *error = "cannot create the directory " + output.string();
        return false;
    }
    const std::size_t n = m_order.size();
    std::string nevrend, nevpos, gyful, kod;
    for (const Product* product : m_order) {
        nevrend += fixedLine(product->displayName, 50);
        const std::string offset = number(static_cast<long long>(gyful.size()));
        nevpos += std::string(offset.size() < 8 ? 8 - offset.size() : 0, ' ') + offset + "\r\n";
        kod += padRight(product->code, 10);
        const auto line = [&](std::string_view text) {
            gyful += text;
            gyful += "\r\n";
        };
        line(product->code);
        line(product->own);
        line("#ar");
        line(number(product->price));
        line(number(product->normative));
        line("#ha");
        line(supportLine(*product, &report.withPlaceholder));
        line("#ter");
        const auto labelled = [&](const char* label, const std::string& value) {
            if (!value.empty()) line(cutTo(cp(label) + value, 253));
        };
        labelled("Megnevezés: ", product->name);
        labelled("Kiszerelés: ", product->pack);
        labelled("Hatóanyag: ", product->substance);
        labelled("Gyógyszerforma: ", product->form == kOtherForm || product->form == kNutritionForm
                                         ? std::string()
                                         : cp(kFormWords[product->form - 1].abbreviation));
        labelled("Törzskönyvi szám: ", product->registration);
        labelled("ATC kód (NEAK): ", product->kind == Kind::Medicine ? std::string() : product->atc);
        labelled("TTT kód: ", product->ttt);
        for (const char* marker :
             {"#jav", "#adag", "#bet", "#ell", "#mh", "#ov", "#til", "#mer", "#fig", "#nev"}) {
            line(marker);
            if (std::string_view(marker) == "#nev") labelled("Márkanév: ", product->brand);
        }
        line("#vege");
    }
    if (gyful.size() >= 100'000'000) {
        if (error) *error = "gy.ful would need offsets of more than 8 digits";
        return false;
    }

    // ATC groups in pre-order (sorted codes), their names and product lists.
    std::vector<std::string> groups;
    std::map<std::string, std::size_t> groupIndex;
    for (const auto& [code, name] : m_groupNames) {
        groupIndex[code] = groups.size();
        groups.push_back(code);
    }
    std::string atcTree, atcNames, atcLevels;
    for (const std::string& code : groups) {
        const std::string& name = m_groupNames.at(code);
        kod += padRight(code, 10);
        const int depth = code.size() == 1   ? 0
                          : code.size() == 3 ? 1
                          : code.size() == 4 ? 2
                          : code.size() == 6 ? 3
                                             : 4;
        atcTree += std::string(static_cast<std::size_t>(depth), '\t') + name + " (" +
                   internationalCode(code) + ")\r\n";
        atcNames += fixedLine(name, 128);
        atcLevels += fixedLine(internationalCode(code) + "  " + name, 128);
    }
    std::vector<std::vector<std::int32_t>> atcLists(groups.size());
    for (std::size_t r = 0; r < n; ++r)
        for (std::size_t length : {1u, 3u, 4u, 6u, 8u})
            atcLists[groupIndex.at(m_order[r]->code.substr(0, length))].push_back(
                static_cast<std::int32_t>(r));

    // Active ingredients: the names of the medicines' own codes, in Hungarian order.
    std::map<std::string, std::string> ingredientKeys;  // name -> sort key
    for (const Product* product : m_order)
        if (product->kind == Kind::Medicine) {
            const std::string& name = m_groupNames.at(product->own);
            ingredientKeys.emplace(name, hungarianSortKey(name));
        }
    std::vector<std::string> ingredients;
    for (const auto& [name, key] : ingredientKeys) ingredients.push_back(name);
    std::stable_sort(ingredients.begin(), ingredients.end(), [&](const std::string& x, const std::string& y) {
        return ingredientKeys[x] < ingredientKeys[y];
    });
    std::map<std::string, std::size_t> ingredientIndex;
    std::string harend;
    for (std::size_t k = 0; k < ingredients.size(); ++k) {
        ingredientIndex[ingredients[k]] = k;
        harend += ingredients[k] + "\r\n";
    }
    std::vector<std::vector<std::int32_t>> ingredientLists(ingredients.size());
    for (std::size_t r = 0; r < n; ++r)
        if (m_order[r]->kind == Kind::Medicine)
            ingredientLists[ingredientIndex.at(m_groupNames.at(m_order[r]->own))].push_back(
                static_cast<std::int32_t>(r));
    std::string atcDirectory, atcList, ingredientDirectory, ingredientList;
    indexPair(atcLists, true, atcDirectory, atcList);
    indexPair(ingredientLists, false, ingredientDirectory, ingredientList);

    // Forms.
    const int formCount = kNutritionForm + 1;
    std::vector<int> formProducts(static_cast<std::size_t>(formCount), 0);
    for (const Product* product : m_order) ++formProducts[static_cast<std::size_t>(product->form)];
    std::string shortTexts, pairs;
    for (int k = 0; k < formCount; ++k) {
        shortTexts += cp(k == kOtherForm       ? "egyéb"
                         : k == kNutritionForm ? "tápszer"
                                               : kFormWords[k - 1].abbreviation) +
                      "\r\n";
        pairs += number(k) + "," + number(formProducts[static_cast<std::size_t>(k)]) + "\r\n";
    }

    // Regulations: the real points, then the placeholders.
    std::string rend, rend2 = cp("Indikációhoz kötött támogatások (NEAK EÜ pontok)") + "\r\n";
    for (const int rate : {100, 90, 70, 50}) {
        rend2 +=
            cp(rate == 100 ? "\tKiemelt támogatás (EÜ100)" : "\tEmelt támogatás (EÜ" + number(rate) + ")") +
            "\r\n";
        for (const Regulation& regulation : m_regulations)
            if (regulation.rate == rate) rend2 += "\t\t" + regulation.code + ": " + regulation.text + "\r\n";
    }
    for (const Regulation& regulation : m_regulations)
        rend += regulation.code + "\t-\t" + regulation.text + "\r\n";
    rend2 += cp("\tA forrásból meg nem állapítható pontok") + "\r\n";
    for (const Placeholder& placeholder : kPlaceholders) {
        rend += std::string(placeholder.code) + "\t-\t" + cp(placeholder.text) + "\r\n";
        rend2 += "\t\t" + std::string(placeholder.code) + ": " + cp(placeholder.text) + "\r\n";
    }

    std::string messages;
    for (const std::string& line : messageCatalogLines()) messages += line + "\r\n";

    // The BNO tree (names back to UTF-8 for the shared writer), rules and prescriber rights.
    std::vector<std::string> bnoNames;
    bnoNames.reserve(m_bno.size());
    std::vector<BnoBookEntry> bnoEntries;
    for (const auto& [code, name] : m_bno) {
        bnoNames.push_back(cp1250ToUtf8(name));
        bnoEntries.push_back({code.c_str(), bnoNames.back().c_str()});
    }
    std::size_t bnoNodes = 0;
    const std::string bnoTree = bnoTreeText(bnoEntries, &bnoNodes);
    report.bnoNodes = static_cast<int>(bnoNodes);
    report.bnoRules = static_cast<int>(m_bnoRules.size());
    report.qualifications = static_cast<int>(m_qualifications.size());

    report.atcGroups = static_cast<int>(groups.size());
    report.pseudoGroups = static_cast<int>(m_pseudo.size());
    report.ingredients = static_cast<int>(ingredients.size());
    report.forms = formCount;
    report.regulations = static_cast<int>(m_regulations.size() + std::size(kPlaceholders));
    report.placeholders = static_cast<int>(std::size(kPlaceholders));
    const std::string counts = number(report.products) + "," + number(report.atcGroups) + ",0,0," +
                               number(report.ingredients) + ",0,0," + number(formCount) + "," +
                               number(formCount) + "," + number(report.regulations) + "," +
                               number(report.nutrition) + "," + number(report.others) + ",1\r\n";

    // Closing date: the last day of the month.
    const int year = std::stoi(m_options.month.substr(0, 4)), month = std::stoi(m_options.month.substr(4, 2));
    static constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    const int day = month >= 1 && month <= 12 ? kDays[month - 1] + (month == 2 && leap ? 1 : 0) : 1;
    const std::string dd = (day < 10 ? "0" : "") + number(day);
    const std::string closing = m_options.month + dd + "\r\n" + m_options.month.substr(0, 4) + "." +
                                m_options.month.substr(4, 2) + "." + dd + "\r\n";

    const std::pair<const char*, std::string> files[] = {
        {"MSG.DAT", messages},
        {"inf.dat", counts},
        {"KOD.DAT", kod},
        {"xd.dat", pairs},
        {"x.dat", shortTexts},
        {"nevrend.dat", nevrend},
        {"nevpos.dat", nevpos},
        {"gy.ful", gyful},
        {"atcindin.dat", atcDirectory},
        {"atcind.dat", atcList},
        {"ellindin.dat", ""},
        {"ellind.dat", ""},
        {"haindinf.dat", ingredientDirectory},
        {"haind.dat", ingredientList},
        {"mhindin.dat", ""},
        {"mhind.dat", ""},
        {"ellnrend.dat", ""},
        {"mhnrend.dat", ""},
        {"atcnrend.dat", atcNames},
        {"atcnren5.dat", atcLevels},
        {"atcnren2.dat", atcTree},
        {"ellnren2.dat", ""},
        {"mhnren2.dat", ""},
        {"harend2.dat", harend},
        {"rend.dat", rend},
        {"rend2.ful", rend2},
        {"zaras.inf", closing},
        {"bno.tre", bnoTree},
        {"bnohr.dat", bnoRuleText(m_bnoRules)},
        {"szvhr.dat", qualificationText(m_qualifications)},
        {"RV.INI",
         "[Rovanel Beallitasok]\r\nTTNemKellLeirasba=NEM\r\nKgyTxtPath=kgy.txt\r\n"
         "BetegAdatokIniPath=beteg.ini\r\nPathToUpdate=\r\nKolcsonhatasiAdat=NINCS\r\n"},
    };
    for (const auto& [name, content] : files)
        if (!writeFile(output / name, content, error)) return false;

    // tamttt.dat from the written products; the aids catalogue with the shared writer.
    const std::string titles = titleFlagText(output);
    report.titleLines = static_cast<int>(std::count(titles.begin(), titles.end(), '\n'));
    if (!writeFile(output / "tamttt.dat", titles, error)) return false;
    std::vector<AidBookEntry> aidEntries;
    for (const Aid& aid : m_aids)
        aidEntries.push_back({aid.iso.c_str(), aid.name.c_str(), aid.pack.c_str(), aid.gross, aid.fee,
                              aid.percent, aid.kind.c_str(), aid.euPercent, aid.euFee, aid.ttt.c_str(),
                              aid.manufacturer.c_str(), aid.distributor.c_str()});
    std::vector<const AidBookEntry*> aids;
    for (const AidBookEntry& entry : aidEntries) aids.push_back(&entry);
    report.aids = static_cast<int>(aids.size());
    for (const auto& [name, content] : aidCatalogueFiles(aids, std::nullopt)) {
        if (name == "sekod2.dat")
            report.aidGroups = static_cast<int>(std::count(content.begin(), content.end(), '\n'));
        if (!writeFile(output / name, content, error)) return false;
    }
    return writePictures(output, error);
}

}  // namespace

std::string displayName(std::string_view name, std::string_view pack, bool* cut)
{
    const std::string packText = compactPack(pack);
    const std::string tail = packText.empty() ? std::string() : " " + packText;
    const std::size_t room = kNameWidth - std::min(tail.size(), kNameWidth - 8);
    std::string base = cleanText(name);
    const std::string uncut = base;
    for (const auto& [word, shorter] : kShortForms) {
        if (base.size() <= room) break;
        const std::string from = cp(word), to = cp(shorter);
        for (std::size_t at = base.find(from); at != std::string::npos; at = base.find(from, at + to.size()))
            base.replace(at, from.size(), to);
    }
    base = cutTo(base, room);
    if (cut) *cut = base != uncut;
    return cutTo(base + tail, kNameWidth);
}

std::optional<NeakImportReport> importNeak(const std::filesystem::path& source,
                                           const std::filesystem::path& output,
                                           const NeakImportOptions& options, std::string* error,
                                           const ImportProgress& progress)
{
    Importer importer(source, options, progress);
    if (!importer.read(error)) return std::nullopt;
    importer.build();
    if (!importer.write(output, error)) return std::nullopt;
    if (progress) progress("checking the database");
    importer.report.problems = checkDatabase(output, CheckMode::AnyDatabase);
    return importer.report;
}

}  // namespace rovanel
