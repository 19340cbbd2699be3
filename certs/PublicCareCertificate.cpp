#include "certs/PublicCareCertificate.h"

#include <array>
#include <system_error>

#include "app/IniFile.h"
#include "db/Cp1250.h"
#include "db/DataFile.h"

namespace rovanel
{
namespace
{

constexpr std::size_t kLineBuffer = 512;

// strtok: skips leading separators, then takes the token up to the next separator; nothing at the end.
std::optional<std::string_view> nextToken(std::string_view& rest, std::string_view separators)
{
    const std::size_t start = rest.find_first_not_of(separators);
    if (start == std::string_view::npos) {
        rest = {};
        return std::nullopt;
    }
    rest.remove_prefix(start);
    const std::size_t end = rest.find_first_of(separators);
    const std::string_view token = rest.substr(0, end);
    rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
    return token;
}

std::string utf8(std::string_view text) { return utf8ToCp1250(text); }

struct IniLine {
    const char* section;
    const char* key;
    const char* defaultValue;  // UTF-8
    const char* label;         // UTF-8
};

constexpr std::array<IniLine, 6> kPhysicianLines = {{
    {"OrvosAdatok", "orvnev", "", "A háziorvos neve: "},
    {"OrvosAdatok", "pecset", "", "Személyspecifikus orvosi bélyegzőjének száma: "},
    {"OrvosAdatok", "agazon", "", "Ágazati azonosító: "},
    {"OrvosAdatok", "antsz", "", "ÁNTSZ engedély száma: "},
    {"OrvosAdatok", "rendcim", "", "Rendelő/munkahely neve, címe: "},
    {"OrvosAdatok", "orvtel", "", "Telefonszáma: "},
}};

std::string iniValue(const std::filesystem::path& file, const char* section, const char* key,
                     const char* defaultValue)
{
    return readProfileString(file, section, key, utf8(defaultValue));
}

}  // namespace

std::vector<PublicCareEntry> parsePublicCareList(std::string_view content)
{
    std::vector<PublicCareEntry> entries;
    while (!content.empty()) {
        // fgets into a 512-byte buffer: up to and including the LF, at most 511 bytes.
        std::size_t length = std::min(content.size(), kLineBuffer - 1);
        const std::size_t lineFeed = content.substr(0, length).find('\n');
        if (lineFeed != std::string_view::npos) length = lineFeed + 1;
        std::string_view line = content.substr(0, length);
        content.remove_prefix(length);
        // The line end is no part of any field (text mode: a CR before the LF neither).
        if (!line.empty() && line.back() == '\n') line.remove_suffix(1);
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        PublicCareEntry entry;
        std::string* fields[] = {&entry.atcCode, &entry.ttt, &entry.name, &entry.form, &entry.ingredient};
        bool any = false;
        for (std::size_t i = 0; i < 5; ++i) {
            const auto token = nextToken(line, i < 4 ? std::string_view(";") : std::string_view("\n"));
            if (!token) break;
            *fields[i] = std::string(*token);
            any = true;
        }
        if (any) entries.push_back(std::move(entry));
    }
    return entries;
}

std::optional<std::vector<PublicCareEntry>> readPublicCareList(const std::filesystem::path& file)
{
    if (file.empty()) return std::nullopt;
    DataFile data(file);
    if (!data.isOpen()) return std::nullopt;
    return parsePublicCareList(data.read(0, kPublicCareListLimit));
}

void deletePublicCareList(const std::filesystem::path& file)
{
    std::error_code ignored;
    if (!file.empty()) std::filesystem::remove(file, ignored);
}

PublicCareCertificate buildPublicCareCertificate(const std::filesystem::path& listFile,
                                                 const std::filesystem::path& patientIni,
                                                 std::string_view today)
{
    return buildPublicCareCertificate(readPublicCareList(listFile), patientIni, today);
}

PublicCareCertificate buildPublicCareCertificate(const std::optional<std::vector<PublicCareEntry>>& entries,
                                                 const std::filesystem::path& patientIni,
                                                 std::string_view today)
{
    PublicCareCertificate certificate;
    if (!entries) certificate.message = Message{utf8("Üres közgyógy lista"), utf8("Közgyógy igazolás"), {}};
    auto& out = certificate.paragraphs;
    const auto line = [&out](std::string text) { out.push_back({std::move(text), false}); };
    const auto heading = [&out](std::string text) { out.push_back({std::move(text), true}); };
    const auto patient = [&patientIni](const char* key, const char* defaultValue) {
        return iniValue(patientIni, "BetegAdatok", key, defaultValue);
    };

    heading(std::string(55, ' ') + utf8("Háziorvosi igazolás"));
    heading(utf8("I. A kérelmező személyi adatai"));
    line(utf8("Neve: ") + patient("Beteg neve", "Beteg neve"));
    line(utf8("Születési neve: ") + patient("Beteg szulneve", "Beteg születési neve"));
    line(utf8("Anyja neve: ") + patient("Beteg anyja", "Anyja neve"));
    line(utf8("Lakóhelye: ") + patient("Beteg cim1", "Irsz, Helység") + " " +
         patient("Beteg cim2", "Utca, hsz."));
    line(utf8("Tartózkodási helye: ") + patient("Beteg tarth", "tarkózkodási hely"));
    line(utf8("TAJ száma:") + patient("Beteg TAJ", "TAJ"));
    line(utf8("BNO: ") + patient("Beteg bno", "BNO kód"));
    line(utf8("A háziorvosi igazolás kiadására"));
    line(utf8("1. közgyógyellátásra való jogosultság megállapítása"));
    line(utf8("2. egyéni gyógyszerkeret felülvizsgálata"));
    line(utf8("céljából kerül sor."));
    heading(
        utf8("II. A társadalombiztosítás által támogatott, tartósan alkalmazott gyógyító ellátási "
             "szükségletre vonatkozó adatok"));
    heading(utf8("1. Havi rendszerességgel rendelt gyógyszerek:"));
    if (entries) {
        for (const PublicCareEntry& entry : *entries) {
            line("BNO: ?????");
            line("ATC: " + entry.atcCode);
            line("ttt: " + entry.ttt);
            line(utf8("Gyógyszer: ") + entry.name);
            line(utf8("Gyógyszer forma: ") + entry.form);
            line(utf8("Hatóanyag: ") + entry.ingredient);
            line(utf8("A hatóanyag napi mennyisége"));
            line(utf8("Napi adagolás"));
            line(utf8("Gyógyszer rendelésére vonatkozó jelzés"));
            line(utf8("Szak orvos pecsétszáma"));
            line(utf8("Megjegyzés"));
        }
    }
    heading(
        utf8("2. Gyógyászati segédeszközök és orvosi rehabilitáció céljából havonta rendszeresen rendelt "
             "gyógyító ellátások:"));
    heading(utf8("III. Háziorvosra (intézményi orvosra) vonatkozó adatok, a háziorvos nyilatkozata"));
    for (const IniLine& physician : kPhysicianLines)
        line(utf8(physician.label) +
             iniValue(patientIni, physician.section, physician.key, physician.defaultValue));
    line(utf8(
        "Kijelentem, hogy az igazolásban feltüntetett gyógyító ellátásra vonatkozó szükséglet kizárólag a "
        "közgyógyellátást igénylő személy orvosi dokumentációjában igazolt kezelése alapján került "
        "megállapításra."));
    line(dottedDate(today));
    line("P. H.");
    line("...........................................");
    line(utf8("              háziorvos aláírása"));
    return certificate;
}

PrintLayout certificateLayout(const std::vector<CertificateParagraph>& paragraphs)
{
    constexpr int kLeft = 76;  // 20 mm
    constexpr int kTop = 76;
    constexpr double kFontPoints = 10;
    const int lineUnits = static_cast<int>(kFontPoints * kLineSpacingEm / kPointsPerLayoutUnit + 0.5);
    const int bottom = static_cast<int>(kA4HeightUnits) - 76;

    PrintLayout layout;
    layout.name = "KgyForm";
    layout.caption = utf8("Közgyógy igazolás");
    layout.pages.emplace_back();
    int top = kTop;
    int lineNumber = 0;
    const auto place = [&](std::string_view text, bool bold) {
        if (top + lineUnits > bottom) {
            layout.pages.emplace_back();
            top = kTop;
        }
        layout.pages.back().items.push_back(
            {"k" + std::to_string(++lineNumber), kLeft, top, std::string(text), kFontPoints, bold});
        top += lineUnits;
    };
    for (const CertificateParagraph& paragraph : paragraphs) {
        std::string_view rest = paragraph.text;
        if (rest.empty()) place("", paragraph.heading);
        while (!rest.empty()) {
            std::size_t cut = rest.size();
            if (cut > kCertificateColumns) {
                // Break at the last blank that leaves a non-blank line, else hard at the column.
                const std::size_t blank = rest.substr(0, kCertificateColumns + 1).find_last_of(' ');
                cut = blank != std::string_view::npos && blank > 0 ? blank : kCertificateColumns;
            }
            place(rest.substr(0, cut), paragraph.heading);
            rest.remove_prefix(cut);
            if (rest.size() > 0 && rest.front() == ' ' && cut != kCertificateColumns) rest.remove_prefix(1);
        }
    }
    return layout;
}

}  // namespace rovanel
