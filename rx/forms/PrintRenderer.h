// The one renderer of the printed forms: a print layout painted with QPainter onto a QPrinter (A4, the
// layout's orientation, the whole sheet as the page, positions converted from layout units), shown in a
// print preview, printed at once on the default printer, or saved as PDF. Windows that print a rich
// text box as it stands hand its document over instead.
#pragma once

#include <QString>
#include <functional>
#include <optional>

#include "rx/PrintLayout.h"

class QPrinter;
class QTextDocument;
class QWidget;

namespace rovanel::forms
{

// Sets A4, the orientation and a full-page origin on `printer`.
void preparePrinter(QPrinter& printer, const PrintLayout& layout);
// Paints every page; false when the printer cannot be opened.
bool paintLayout(QPrinter& printer, const PrintLayout& layout);

// "Előkép": the modal print preview, from which the user prints.
void previewLayout(QWidget* parent, const PrintLayout& layout);
void previewDocument(QWidget* parent, const QTextDocument& document);
// "Direkt": prints on the default printer at once, with an empty print job title.
void printLayoutNow(QWidget* parent, const PrintLayout& layout);
void printDocumentNow(QWidget* parent, const QTextDocument& document);

// Saves as PDF at `path` (written beside and renamed over); the reason when it cannot be written.
[[nodiscard]] std::optional<QString> saveLayoutPdf(const QString& path, const PrintLayout& layout);
[[nodiscard]] std::optional<QString> saveDocumentPdf(const QString& path, const QTextDocument& document);

// "PDF": asks for a file name (suggesting `name`) and saves; a refused write is shown as a message.
void saveLayoutPdfAsked(QWidget* parent, const PrintLayout& layout, const QString& name);
void saveDocumentPdfAsked(QWidget* parent, const QTextDocument& document, const QString& name);

// Where "Direkt" printing and the preview go, and which file "PDF" asks for: tests replace them (an
// empty function restores the default). A print target gets a printer that is ready to paint on and
// is printed when it returns; the file chooser gives the empty text for "cancelled".
using PrintTarget = std::function<void(QPrinter& printer, const std::function<void(QPrinter&)>& paint)>;
PrintTarget setDirectPrintTarget(PrintTarget target);
PrintTarget setPreviewTarget(PrintTarget target);
using PdfFileChooser = std::function<QString(QWidget* parent, const QString& suggested)>;
PdfFileChooser setPdfFileChooser(PdfFileChooser chooser);

}  // namespace rovanel::forms
