// The words of a PDF file with their boxes, as poppler's `pdftotext -bbox` reads them, for tests that
// check where printed values stand. Positions in millimetres from the page's top-left corner.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <regex>
#include <string>
#include <vector>

// pdftotext is a program of the build machine: in the Windows build a test that reads a PDF back skips.
#if defined(_WIN32)
#define ROVANEL_SKIP_READING_PDF() GTEST_SKIP() << "pdftotext, which reads the PDF back, runs on Linux only"
#else
#define ROVANEL_SKIP_READING_PDF() static_cast<void>(0)
#endif

namespace rovanel::testing
{

struct PdfWord {
    std::string text;  // UTF-8
    double left = 0, top = 0, right = 0, bottom = 0;
    int page = 0;  // 1-based
};

inline std::string unescapeHtml(std::string text)
{
    const std::pair<const char*, const char*> entities[] = {{"&lt;", "<"},   {"&gt;", ">"},  {"&quot;", "\""},
                                                            {"&apos;", "'"}, {"&#39;", "'"}, {"&amp;", "&"}};
    for (const auto& [entity, character] : entities) {
        for (std::size_t at = text.find(entity); at != std::string::npos; at = text.find(entity, at + 1))
            text.replace(at, std::string(entity).size(), character);
    }
    return text;
}

// Every word of every page; empty when pdftotext is missing or fails.
inline std::vector<PdfWord> pdfWords(const std::filesystem::path& pdf)
{
    const std::string command = "pdftotext -bbox '" + pdf.string() + "' - 2>/dev/null";
    std::string html;
    if (FILE* pipe = ::popen(command.c_str(), "r")) {
        char buffer[4096];
        std::size_t got = 0;
        while ((got = std::fread(buffer, 1, sizeof buffer, pipe)) > 0) html.append(buffer, got);
        ::pclose(pipe);
    }
    constexpr double kMillimetresPerPoint = 25.4 / 72.0;
    static const std::regex tag(
        R"re(<page |<word xMin="([^"]*)" yMin="([^"]*)" xMax="([^"]*)" yMax="([^"]*)">([^<]*)</word>)re");
    std::vector<PdfWord> words;
    int page = 0;
    for (std::sregex_iterator it(html.begin(), html.end(), tag), end; it != end; ++it) {
        const std::smatch& found = *it;
        if (!found[1].matched) {
            ++page;
            continue;
        }
        const auto at = [&](int group) {
            return std::atof(found[group].str().c_str()) * kMillimetresPerPoint;
        };
        words.push_back({unescapeHtml(found[5].str()), at(1), at(2), at(3), at(4), page});
    }
    return words;
}

// The words of one line that start at (left, top), within `tolerance` mm, joined by blanks: the first
// word there and each following word that starts less than 3 mm after the previous one ends. Values
// printed close after one another on a line join as well, so tests compare the beginning.
inline std::string textAt(const std::vector<PdfWord>& words, double left, double top, int page = 1,
                          double tolerance = 1.0)
{
    std::vector<const PdfWord*> line;
    for (const PdfWord& word : words) {
        if (word.page == page && std::fabs(word.top - top) <= tolerance && word.left >= left - tolerance)
            line.push_back(&word);
    }
    std::sort(line.begin(), line.end(), [](const PdfWord* a, const PdfWord* b) { return a->left < b->left; });
    std::string text;
    const PdfWord* previous = nullptr;
    for (const PdfWord* word : line) {
        if (!previous && std::fabs(word->left - left) > tolerance) return {};
        if (previous && word->left - previous->right >= 3.0) break;
        text += (previous ? " " : "") + word->text;
        previous = word;
    }
    return text;
}

}  // namespace rovanel::testing
