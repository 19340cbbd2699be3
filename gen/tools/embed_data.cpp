// Build-time tool: turns vendored data into C++ sources of the generator library, so that the generator
// reads no file at run time and no table is kept twice.
//
//   embed_data atc-book atc_hu.tsv AtcBook.cpp
//       The ATC groups the generator draws from: every substance (7-character code) whose Hungarian name
//       reads as one active ingredient (no combination, no "egyéb", at most 28 characters, starting with
//       a letter), at most 6 per chemical subgroup, whose four ancestor groups all have names; written
//       with those ancestors, sorted by code.
//   embed_data bno-book bno_hu.tsv BnoBook.cpp
//       The BNO codes and names bno.tre is built from, one entry a table line (code, name), as sorted.
//   embed_data aid-book aids_hu.tsv AidBook.cpp
//       The medical-aids catalogue, one entry a table line (the twelve columns of gen/AidBook.h), as sorted.
//   embed_data pictures DemoPictures.cpp NAME=FILE...
//       The pictures the program shows (title pictures, the drug list's pictures) as byte arrays.
#include <algorithm>
#include <array>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace
{

bool readFile(const std::string& path, std::string& content)
{
    std::ifstream in(path, std::ios::binary);
    if (!in) return false;
    content.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    return true;
}

// Written only when it changed, so that an unchanged table rebuilds nothing.
bool writeFile(const std::string& path, const std::string& content)
{
    std::string old;
    if (readFile(path, old) && old == content) return true;
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out << content;
    return static_cast<bool>(out);
}

// The Unicode code points of a UTF-8 text (the table is valid UTF-8; a stray byte counts as one).
std::vector<char32_t> codePoints(std::string_view text)
{
    std::vector<char32_t> points;
    for (std::size_t i = 0; i < text.size();) {
        const auto lead = static_cast<unsigned char>(text[i]);
        const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
        char32_t point = length == 1 ? lead : lead & (0x7F >> length);
        for (std::size_t k = 1; k < length && i + k < text.size(); ++k)
            point = (point << 6) | (static_cast<unsigned char>(text[i + k]) & 0x3F);
        points.push_back(point);
        i += length;
    }
    return points;
}

void appendUtf8(std::string& out, char32_t point)
{
    if (point < 0x80) {
        out += static_cast<char>(point);
    } else if (point < 0x800) {
        out += static_cast<char>(0xC0 | (point >> 6));
        out += static_cast<char>(0x80 | (point & 0x3F));
    } else {
        out += static_cast<char>(0xE0 | (point >> 12));
        out += static_cast<char>(0x80 | ((point >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (point & 0x3F));
    }
}

// Lower case for the letters the table holds: ASCII, Latin-1 and the Latin Extended-A pairs.
std::string lowerCase(std::string_view text)
{
    std::string lower;
    for (char32_t point : codePoints(text)) {
        if ((point >= 'A' && point <= 'Z') || (point >= 0xC0 && point <= 0xDE && point != 0xD7))
            point += 0x20;
        else if (point >= 0x100 && point <= 0x17F && point % 2 == 0 && point != 0x130 && point != 0x138)
            point += 1;
        appendUtf8(lower, point);
    }
    return lower;
}

bool startsWithLetter(std::string_view text)
{
    const auto points = codePoints(text);
    if (points.empty()) return false;
    const char32_t first = points.front();
    return (first >= 'A' && first <= 'Z') || (first >= 'a' && first <= 'z') ||
           (first >= 0xC0 && first != 0xD7 && first != 0xF7);
}

std::string literal(std::string_view text)
{
    std::string quoted = "\"";
    for (char c : text) {
        if (c == '\\' || c == '"') quoted += '\\';
        quoted += c;
    }
    return quoted + "\"";
}

int writeAtcBook(const std::string& source, const std::string& target)
{
    std::string content;
    if (!readFile(source, content)) {
        std::cerr << "embed_data: cannot read " << source << "\n";
        return 1;
    }
    std::map<std::string, std::string> names;
    std::istringstream lines(content);
    for (std::string line; std::getline(lines, line);) {
        const auto tab = line.find('\t');
        if (tab != std::string::npos) names[line.substr(0, tab)] = line.substr(tab + 1);
    }
    constexpr std::array<std::string_view, 16> kRejected = {
        "kombin", "+", "ß", "komb.", "egyéb", " és ", ",", "(", ")", "/", ";", "~", "#", "$", "\"", "\\"};
    std::set<std::string> chosen;
    std::map<std::string, int> perSubgroup;
    for (const auto& [code, name] : names) {
        if (code.size() != 7 || codePoints(name).size() > 28 || !startsWithLetter(name)) continue;
        const std::string lower = lowerCase(name);
        if (std::any_of(kRejected.begin(), kRejected.end(),
                        [&](std::string_view part) { return lower.find(part) != std::string::npos; }))
            continue;
        const std::array<std::string, 4> ancestors = {code.substr(0, 1), code.substr(0, 3), code.substr(0, 4),
                                                      code.substr(0, 5)};
        if (!std::all_of(ancestors.begin(), ancestors.end(),
                         [&](const auto& a) { return names.count(a) > 0; }))
            continue;
        int& subgroup = perSubgroup[code.substr(0, 5)];
        if (subgroup >= 6) continue;
        ++subgroup;
        chosen.insert(code);
        chosen.insert(ancestors.begin(), ancestors.end());
    }
    std::string out =
        "// Generated at build time by gen/tools/embed_data.cpp from data/vendor/atc_hu.tsv (NEAK ATC book,\n"
        "// see data/vendor/README.md).\n"
        "#include \"gen/AtcBook.h\"\n\nnamespace rovanel\n{\n\nnamespace\n{\n"
        "constexpr AtcBookEntry kEntries[] = {\n";
    for (const std::string& code : chosen)
        out += "    {" + literal(code) + ", " + literal(names[code]) + "},\n";
    out +=
        "};\n}  // namespace\n\nstd::span<const AtcBookEntry> atcBook() { return kEntries; }\n\n"
        "}  // namespace rovanel\n";
    return writeFile(target, out) ? 0 : 1;
}

// A TAB-separated table as the initialisers of an array of TYPE: a column marked 's' in kinds is a
// text, 'n' a whole number. A line with another number of columns or a non-numeric number stops the build.
int writeTable(const std::string& source, const std::string& target, const std::string& book,
               const std::string& type, std::string_view kinds)
{
    std::string content;
    if (!readFile(source, content)) {
        std::cerr << "embed_data: cannot read " << source << "\n";
        return 1;
    }
    std::string out =
        "// Generated at build time by gen/tools/embed_data.cpp from " +
        source.substr(source.rfind('/') + 1) + " (see data/vendor/README.md).\n#include \"gen/" + type +
        ".h\"\n\nnamespace rovanel\n{\n\n" + "namespace\n{\nconstexpr " + type + "Entry kEntries[] = {\n";
    std::istringstream lines(content);
    int number = 0;
    for (std::string line; std::getline(lines, line);) {
        ++number;
        if (line.empty()) continue;
        std::vector<std::string> fields;
        for (std::size_t start = 0;;) {
            const auto tab = line.find('\t', start);
            fields.push_back(line.substr(start, tab - start));
            if (tab == std::string::npos) break;
            start = tab + 1;
        }
        if (fields.size() != kinds.size()) {
            std::cerr << source << ":" << number << ": " << fields.size() << " columns, not " << kinds.size()
                      << "\n";
            return 1;
        }
        out += "    {";
        for (std::size_t k = 0; k < fields.size(); ++k) {
            const std::string& field = fields[k];
            if (kinds[k] == 'n' &&
                (field.empty() || field.find_first_not_of("0123456789") != std::string::npos)) {
                std::cerr << source << ":" << number << ": column " << k + 1 << " is not a number\n";
                return 1;
            }
            out += (k == 0 ? "" : ", ") + (kinds[k] == 'n' ? field : literal(field));
        }
        out += "},\n";
    }
    out += "};\n}  // namespace\n\nstd::span<const " + type + "Entry> " + book +
           "() { return kEntries; }\n\n" + "}  // namespace rovanel\n";
    return writeFile(target, out) ? 0 : 1;
}

int writePictures(const std::string& target, const std::vector<std::string>& pictures)
{
    std::string out =
        "// Generated at build time by gen/tools/embed_data.cpp from data/demo.\n"
        "#include \"gen/DemoPictures.h\"\n\nnamespace rovanel\n{\n\nnamespace\n{\n";
    std::string table = "constexpr DemoPicture kPictures[] = {\n";
    for (std::size_t i = 0; i < pictures.size(); ++i) {
        const auto equals = pictures[i].find('=');
        std::string bytes;
        if (equals == std::string::npos || !readFile(pictures[i].substr(equals + 1), bytes)) {
            std::cerr << "embed_data: cannot read " << pictures[i] << "\n";
            return 1;
        }
        const std::string array = "kPicture" + std::to_string(i);
        out += "constexpr unsigned char " + array + "[] = {";
        for (std::size_t k = 0; k < bytes.size(); ++k) {
            out += k % 24 == 0 ? "\n    " : " ";
            out += std::to_string(static_cast<unsigned char>(bytes[k])) + ",";
        }
        out += "\n};\n";
        table +=
            "    {" + literal(pictures[i].substr(0, equals)) + ", {" + array + ", sizeof " + array + "}},\n";
    }
    out += table +
           "};\n}  // namespace\n\nstd::span<const DemoPicture> demoPictures() { return kPictures; }\n\n"
           "}  // namespace rovanel\n";
    return writeFile(target, out) ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv)
{
    const std::vector<std::string> args(argv + 1, argv + argc);
    if (args.size() == 3 && args[0] == "atc-book") return writeAtcBook(args[1], args[2]);
    if (args.size() == 3 && args[0] == "bno-book")
        return writeTable(args[1], args[2], "bnoBook", "BnoBook", "ss");
    if (args.size() == 3 && args[0] == "aid-book")
        return writeTable(args[1], args[2], "aidBook", "AidBook", "sssnnnsnnsss");
    if (args.size() >= 2 && args[0] == "pictures")
        return writePictures(args[1], std::vector<std::string>(args.begin() + 2, args.end()));
    std::cerr << "usage: embed_data atc-book|bno-book|aid-book TABLE OUT.cpp | embed_data pictures OUT.cpp "
                 "NAME=FILE...\n";
    return 2;
}
