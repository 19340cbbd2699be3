#include "rx/forms/PrintRenderer.h"

#include <QFileDialog>
#include <QPageLayout>
#include <QPainter>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QTextDocument>
#include <filesystem>
#include <system_error>

#include "app/forms/ShowMessage.h"
#include "db/Cp1250.h"
#include "views/forms/kit/Lists.h"
#include "views/forms/kit/Text.h"

namespace rovanel::forms
{
namespace
{

void paintDirectly(QPrinter& printer, const std::function<void(QPrinter&)>& paint) { paint(printer); }

void showPreview(QPrinter& printer, const std::function<void(QPrinter&)>& paint)
{
    QPrintPreviewDialog dialog(&printer);
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog,
                     [&paint](QPrinter* shown) { paint(*shown); });
    dialog.exec();
}

PrintTarget& directTarget()
{
    static PrintTarget target = paintDirectly;
    return target;
}

PrintTarget& previewTarget()
{
    static PrintTarget target = showPreview;
    return target;
}

QString askPdfFile(QWidget* parent, const QString& suggested)
{
    return QFileDialog::getSaveFileName(parent, QStringLiteral("Mentés PDF-ként"), suggested,
                                        QStringLiteral("PDF (*.pdf)"));
}

PdfFileChooser& fileChooser()
{
    static PdfFileChooser chooser = askPdfFile;
    return chooser;
}

QString refusal(const QString& path) { return QStringLiteral("A PDF fájl nem írható: ") + path; }

void prepareDocumentPrinter(QPrinter& printer)
{
    printer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait,
                                      QMarginsF(20, 20, 20, 20), QPageLayout::Millimeter));
    printer.setDocName(QString());
}

// Paints with `paint` into a PDF beside `path`, then renames it over `path`.
std::optional<QString> savePdf(const QString& path, const std::function<bool(QPrinter&)>& paint,
                               const std::function<void(QPrinter&)>& prepare)
{
    const std::filesystem::path target = path.toStdString();
    std::filesystem::path temporary = target;
    temporary += ".part";
    {
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(QString::fromStdString(temporary.string()));
        prepare(printer);
        if (!paint(printer)) {
            std::error_code ignored;
            std::filesystem::remove(temporary, ignored);
            return refusal(path);
        }
    }
    std::error_code error;
    if (!std::filesystem::exists(temporary, error)) return refusal(path);
    std::filesystem::rename(temporary, target, error);
    if (error) {
        std::filesystem::remove(temporary, error);
        return refusal(path);
    }
    return std::nullopt;
}

void showRefusal(QWidget* parent, const std::optional<QString>& refused)
{
    if (refused) showMessage(parent, Message{utf8ToCp1250(refused->toStdString()), "PDF", MessageIcon::Stop});
}

void printDocument(QPrinter& printer, const QTextDocument& document)
{
    // QTextDocument::print lays the text out anew for the printer's page.
    document.print(&printer);
}

}  // namespace

void preparePrinter(QPrinter& printer, const PrintLayout& layout)
{
    const auto orientation =
        layout.orientation == PageOrientation::Sideways ? QPageLayout::Landscape : QPageLayout::Portrait;
    printer.setFullPage(true);
    printer.setPageLayout(
        QPageLayout(QPageSize(QPageSize::A4), orientation, QMarginsF(0, 0, 0, 0), QPageLayout::Millimeter));
    printer.setDocName(QString());
}

bool paintLayout(QPrinter& printer, const PrintLayout& layout)
{
    QPainter painter;
    if (!painter.begin(&printer)) return false;
    // The sheet's corner is the origin (full page); a layout unit is 1/96 inch.
    const double dotsPerUnit = printer.resolution() / 96.0;
    for (std::size_t page = 0; page < layout.pages.size(); ++page) {
        if (page > 0) printer.newPage();
        for (const PrintItem& item : layout.pages[page].items) {
            QFont font(QStringLiteral("Courier New"));
            font.setStyleHint(QFont::TypeWriter);
            font.setFixedPitch(true);
            font.setPointSizeF(item.fontPoints);
            font.setBold(item.bold);
            painter.setFont(QFont(font, &printer));
            const double unitsPerPoint = 1.0 / kPointsPerLayoutUnit;
            const std::vector<std::string_view> lines = itemLines(item.text);
            for (std::size_t i = 0; i < lines.size(); ++i) {
                if (lines[i].empty()) continue;
                const double baseline =
                    item.top +
                    item.fontPoints * unitsPerPoint * (kBaselineEm + static_cast<double>(i) * kLineSpacingEm);
                painter.drawText(QPointF(item.left * dotsPerUnit, baseline * dotsPerUnit),
                                 fromCp1250(std::string(lines[i])));
            }
        }
    }
    return painter.end();
}

void previewLayout(QWidget* /*parent*/, const PrintLayout& layout)
{
    QPrinter printer(QPrinter::HighResolution);
    preparePrinter(printer, layout);
    previewTarget()(printer, [&layout](QPrinter& shown) { paintLayout(shown, layout); });
}

void previewDocument(QWidget* /*parent*/, const QTextDocument& document)
{
    QPrinter printer(QPrinter::HighResolution);
    prepareDocumentPrinter(printer);
    previewTarget()(printer, [&document](QPrinter& shown) { printDocument(shown, document); });
}

void printLayoutNow(QWidget* /*parent*/, const PrintLayout& layout)
{
    QPrinter printer(QPrinter::HighResolution);
    preparePrinter(printer, layout);
    directTarget()(printer, [&layout](QPrinter& target) { paintLayout(target, layout); });
}

void printDocumentNow(QWidget* /*parent*/, const QTextDocument& document)
{
    QPrinter printer(QPrinter::HighResolution);
    prepareDocumentPrinter(printer);
    directTarget()(printer, [&document](QPrinter& target) { printDocument(target, document); });
}

std::optional<QString> saveLayoutPdf(const QString& path, const PrintLayout& layout)
{
    return savePdf(
        path, [&layout](QPrinter& printer) { return paintLayout(printer, layout); },
        [&layout](QPrinter& printer) { preparePrinter(printer, layout); });
}

std::optional<QString> saveDocumentPdf(const QString& path, const QTextDocument& document)
{
    return savePdf(
        path,
        [&document](QPrinter& printer) {
            printDocument(printer, document);
            return true;
        },
        prepareDocumentPrinter);
}

void saveLayoutPdfAsked(QWidget* parent, const PrintLayout& layout, const QString& name)
{
    const QString path = fileChooser()(parent, name);
    if (!path.isEmpty()) showRefusal(parent, saveLayoutPdf(path, layout));
}

void saveDocumentPdfAsked(QWidget* parent, const QTextDocument& document, const QString& name)
{
    const QString path = fileChooser()(parent, name);
    if (!path.isEmpty()) showRefusal(parent, saveDocumentPdf(path, document));
}

PrintTarget setDirectPrintTarget(PrintTarget target)
{
    PrintTarget previous = directTarget();
    directTarget() = target ? std::move(target) : PrintTarget(paintDirectly);
    return previous;
}

PrintTarget setPreviewTarget(PrintTarget target)
{
    PrintTarget previous = previewTarget();
    previewTarget() = target ? std::move(target) : PrintTarget(showPreview);
    return previous;
}

PdfFileChooser setPdfFileChooser(PdfFileChooser chooser)
{
    PdfFileChooser previous = fileChooser();
    fileChooser() = chooser ? std::move(chooser) : PdfFileChooser(askPdfFile);
    return previous;
}

}  // namespace rovanel::forms
