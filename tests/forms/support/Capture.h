// What a window hands to the outside, caught for a test for as long as the object lives: its prints (as
// a PDF file read back with poppler), the file its "PDF" button asks for, and its help requests.
#pragma once

#include <QPrinter>
#include <QStringList>
#include <filesystem>

#include "app/forms/Help.h"
#include "rx/PrintLayout.h"
#include "rx/forms/PrintRenderer.h"
#include "tests/support/PdfWords.h"

// Every word of a PDF file, in order, joined by blanks.
inline QString pdfText(const std::filesystem::path& file)
{
    QStringList all;
    for (const auto& word : rovanel::testing::pdfWords(file)) all << QString::fromStdString(word.text);
    return all.join(' ');
}

// "Direkt" prints (or, with preview set, the preview) go into `file`.
class PdfPrints
{
public:
    explicit PdfPrints(std::filesystem::path file, bool preview = false)
        : m_file(std::move(file)), m_preview(preview)
    {
        m_previous = set([this](QPrinter& printer, const auto& paint) {
            ++count;
            orientation = printer.pageLayout().orientation();
            printer.setOutputFormat(QPrinter::PdfFormat);
            printer.setOutputFileName(QString::fromStdString(m_file.string()));
            paint(printer);
        });
    }
    ~PdfPrints() { set(m_previous); }
    PdfPrints(const PdfPrints&) = delete;
    PdfPrints& operator=(const PdfPrints&) = delete;

    [[nodiscard]] std::vector<rovanel::testing::PdfWord> words() const
    {
        return rovanel::testing::pdfWords(m_file);
    }
    [[nodiscard]] QString text() const { return pdfText(m_file); }
    // The text that stands at (left, top) in layout units on the first page.
    [[nodiscard]] QString at(int left, int top) const
    {
        return QString::fromStdString(rovanel::testing::textAt(
            words(), left * rovanel::kMillimetresPerLayoutUnit, top * rovanel::kMillimetresPerLayoutUnit));
    }

    int count = 0;
    QPageLayout::Orientation orientation = QPageLayout::Portrait;

private:
    rovanel::forms::PrintTarget set(rovanel::forms::PrintTarget target) const
    {
        return m_preview ? rovanel::forms::setPreviewTarget(std::move(target))
                         : rovanel::forms::setDirectPrintTarget(std::move(target));
    }
    std::filesystem::path m_file;
    bool m_preview;
    rovanel::forms::PrintTarget m_previous;
};

// "PDF" saves into `file` without asking.
class PdfFileChosen
{
public:
    explicit PdfFileChosen(const std::filesystem::path& file)
        : m_previous(rovanel::forms::setPdfFileChooser(
              [chosen = QString::fromStdString(file.string())](QWidget*, const QString&) { return chosen; }))
    {
    }
    ~PdfFileChosen() { rovanel::forms::setPdfFileChooser(m_previous); }
    PdfFileChosen(const PdfFileChosen&) = delete;
    PdfFileChosen& operator=(const PdfFileChosen&) = delete;

private:
    rovanel::forms::PdfFileChooser m_previous;
};

// The help contexts asked for, instead of opening the help window.
class HelpRequests
{
public:
    HelpRequests() : m_previous(setHelpOpener([this](int context) { contexts.append(context); })) {}
    ~HelpRequests() { setHelpOpener(m_previous); }
    HelpRequests(const HelpRequests&) = delete;
    HelpRequests& operator=(const HelpRequests&) = delete;

    QList<int> contexts;

private:
    HelpOpener m_previous;
};
