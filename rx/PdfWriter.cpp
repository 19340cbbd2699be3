#include "rx/PdfWriter.h"

#include <array>
#include <cstdio>
#include <vector>

#include "app/IniFile.h"
#include "db/Cp1250.h"

namespace rovanel
{
namespace
{

// Glyph names of the bytes 0x80..0xFF of Windows-1250; "space" for the five bytes the code page leaves
// undefined.
constexpr std::array<const char*, 128> kUpperHalfGlyphs = {
    "Euro",         "space",          "quotesinglbase", "space",          "quotedblbase", "ellipsis",
    "dagger",       "daggerdbl",      "space",          "perthousand",    "Scaron",       "guilsinglleft",
    "Sacute",       "Tcaron",         "Zcaron",         "Zacute",         "space",        "quoteleft",
    "quoteright",   "quotedblleft",   "quotedblright",  "bullet",         "endash",       "emdash",
    "space",        "trademark",      "scaron",         "guilsinglright", "sacute",       "tcaron",
    "zcaron",       "zacute",         "space",          "caron",          "breve",        "Lslash",
    "currency",     "Aogonek",        "brokenbar",      "section",        "dieresis",     "copyright",
    "Scedilla",     "guillemotleft",  "logicalnot",     "hyphen",         "registered",   "Zdotaccent",
    "degree",       "plusminus",      "ogonek",         "lslash",         "acute",        "mu",
    "paragraph",    "periodcentered", "cedilla",        "aogonek",        "scedilla",     "guillemotright",
    "Lcaron",       "hungarumlaut",   "lcaron",         "zdotaccent",     "Racute",       "Aacute",
    "Acircumflex",  "Abreve",         "Adieresis",      "Lacute",         "Cacute",       "Ccedilla",
    "Ccaron",       "Eacute",         "Eogonek",        "Edieresis",      "Ecaron",       "Iacute",
    "Icircumflex",  "Dcaron",         "Dcroat",         "Nacute",         "Ncaron",       "Oacute",
    "Ocircumflex",  "Ohungarumlaut",  "Odieresis",      "multiply",       "Rcaron",       "Uring",
    "Uacute",       "Uhungarumlaut",  "Udieresis",      "Yacute",         "Tcommaaccent", "germandbls",
    "racute",       "aacute",         "acircumflex",    "abreve",         "adieresis",    "lacute",
    "cacute",       "ccedilla",       "ccaron",         "eacute",         "eogonek",      "edieresis",
    "ecaron",       "iacute",         "icircumflex",    "dcaron",         "dcroat",       "nacute",
    "ncaron",       "oacute",         "ocircumflex",    "ohungarumlaut",  "odieresis",    "divide",
    "rcaron",       "uring",          "uacute",         "uhungarumlaut",  "udieresis",    "yacute",
    "tcommaaccent", "dotaccent",
};

std::string number(double value)
{
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%.2f", value);
    return buffer;
}

// A PDF literal string; control characters become '?', bytes above 0x7F octal escapes.
std::string literal(std::string_view text)
{
    std::string out = "(";
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '(' || c == ')' || c == '\\') {
            out += '\\';
            out += c;
        } else if (byte < 0x20) {
            out += '?';
        } else if (byte > 0x7E) {
            char escape[8];
            std::snprintf(escape, sizeof escape, "\\%03o", byte);
            out += escape;
        } else {
            out += c;
        }
    }
    return out + ")";
}

std::string pageContent(const PrintPage& page, double pageHeightPoints)
{
    std::string content;
    for (const PrintItem& item : page.items) {
        const std::vector<std::string_view> lines = itemLines(item.text);
        for (std::size_t i = 0; i < lines.size(); ++i) {
            if (lines[i].empty()) continue;
            const double x = item.left * kPointsPerLayoutUnit;
            const double baseline = item.top * kPointsPerLayoutUnit + item.fontPoints * kBaselineEm +
                                    static_cast<double>(i) * item.fontPoints * kLineSpacingEm;
            content += "BT /" + std::string(item.bold ? "F2 " : "F1 ") + number(item.fontPoints) +
                       " Tf 1 0 0 1 " + number(x) + " " + number(pageHeightPoints - baseline) + " Tm " +
                       literal(lines[i]) + " Tj ET\n";
        }
    }
    return content;
}

}  // namespace

std::string pdfDocument(const PrintLayout& layout)
{
    const bool sideways = layout.orientation == PageOrientation::Sideways;
    const double width = (sideways ? 297.0 : 210.0) * 72.0 / 25.4;
    const double height = (sideways ? 210.0 : 297.0) * 72.0 / 25.4;
    std::vector<PrintPage> pages = layout.pages;
    if (pages.empty()) pages.emplace_back();

    std::vector<std::string> objects;  // object n is objects[n - 1]
    objects.push_back("<< /Type /Catalog /Pages 2 0 R >>");
    std::string kids;
    for (std::size_t i = 0; i < pages.size(); ++i) kids += std::to_string(6 + 2 * i) + " 0 R ";
    objects.push_back("<< /Type /Pages /Kids [" + kids + "] /Count " + std::to_string(pages.size()) + " >>");
    objects.push_back("<< /Type /Font /Subtype /Type1 /BaseFont /Courier /Encoding 5 0 R >>");
    objects.push_back("<< /Type /Font /Subtype /Type1 /BaseFont /Courier-Bold /Encoding 5 0 R >>");
    std::string differences = "<< /Type /Encoding /BaseEncoding /WinAnsiEncoding /Differences [128";
    for (const char* glyph : kUpperHalfGlyphs) differences += std::string(" /") + glyph;
    objects.push_back(differences + "] >>");
    for (std::size_t i = 0; i < pages.size(); ++i) {
        objects.push_back("<< /Type /Page /Parent 2 0 R /MediaBox [0 0 " + number(width) + " " +
                          number(height) + "] /Resources << /Font << /F1 3 0 R /F2 4 0 R >> >> /Contents " +
                          std::to_string(7 + 2 * i) + " 0 R >>");
        const std::string content = pageContent(pages[i], height);
        objects.push_back("<< /Length " + std::to_string(content.size()) + " >>\nstream\n" + content +
                          "endstream");
    }

    std::string pdf = "%PDF-1.4\n%\xE2\xE3\xCF\xD3\n";
    std::vector<std::size_t> offsets;
    for (std::size_t i = 0; i < objects.size(); ++i) {
        offsets.push_back(pdf.size());
        pdf += std::to_string(i + 1) + " 0 obj\n" + objects[i] + "\nendobj\n";
    }
    const std::size_t xref = pdf.size();
    pdf += "xref\n0 " + std::to_string(objects.size() + 1) + "\n0000000000 65535 f \n";
    for (const std::size_t offset : offsets) {
        char entry[24];
        std::snprintf(entry, sizeof entry, "%010zu 00000 n \n", offset);
        pdf += entry;
    }
    pdf += "trailer\n<< /Size " + std::to_string(objects.size() + 1) + " /Root 1 0 R >>\nstartxref\n" +
           std::to_string(xref) + "\n%%EOF\n";
    return pdf;
}

std::optional<std::string> writePdf(const std::filesystem::path& file, const PrintLayout& layout)
{
    if (writeFileAtomically(file, pdfDocument(layout))) return std::nullopt;
    return utf8ToCp1250("A PDF fájl nem írható: ") + utf8ToCp1250(file.string());
}

}  // namespace rovanel
