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

// The printed forms of a window, caught in `file` for as long as this lives: "Direkt" printing, the
// preview, or the file the "PDF" button asks for.
class PdfPrints
{
public:
    enum class Way { Direct, Preview, AskedFile };

    explicit PdfPrints(std::filesystem::path file, Way way = Way::Direct)
        : m_file(std::move(file)), m_way(way)
    {
        if (way == Way::AskedFile) {
            m_previousChooser = rovanel::forms::setPdfFileChooser(
                [this](QWidget*, const QString&) { return QString::fromStdString(m_file.string()); });
            return;
        }
        m_previous = set([this](QPrinter& printer, const auto& paint) {
            ++count;
            orientation = printer.pageLayout().orientation();
            printer.setOutputFormat(QPrinter::PdfFormat);
            printer.setOutputFileName(QString::fromStdString(m_file.string()));
            paint(printer);
        });
    }
    ~PdfPrints()
    {
        if (m_way == Way::AskedFile)
            rovanel::forms::setPdfFileChooser(m_previousChooser);
        else
            set(m_previous);
    }
    PdfPrints(const PdfPrints&) = delete;
    PdfPrints& operator=(const PdfPrints&) = delete;

    [[nodiscard]] std::vector<rovanel::testing::PdfWord> words() const
    {
        return rovanel::testing::pdfWords(m_file);
    }
    // Every word, in order, joined by blanks.
    [[nodiscard]] QString text() const
    {
        QStringList all;
        for (const auto& word : words()) all << QString::fromStdString(word.text);
        return all.join(' ');
    }
    // The text that stands at (left, top) in layout units on the first page.
    [[nodiscard]] QString at(int left, int top) const
    {
        return QString::fromStdString(rovanel::testing::textAt(
            words(), left * rovanel::kMillimetresPerLayoutUnit, top * rovanel::kMillimetresPerLayoutUnit));
    }

    int count = 0;  // prints and previews
    QPageLayout::Orientation orientation = QPageLayout::Portrait;

private:
    rovanel::forms::PrintTarget set(rovanel::forms::PrintTarget target) const
    {
        return m_way == Way::Preview ? rovanel::forms::setPreviewTarget(std::move(target))
                                     : rovanel::forms::setDirectPrintTarget(std::move(target));
    }
    std::filesystem::path m_file;
    Way m_way;
    rovanel::forms::PrintTarget m_previous;
    rovanel::forms::PdfFileChooser m_previousChooser;
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
