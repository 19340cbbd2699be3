#include "views/forms/kit/StyledText.h"

#include <QColor>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextEdit>

#include "db/StyledDocument.h"
#include "views/forms/kit/Text.h"

namespace rovanel::forms
{

void renderInto(QTextEdit* box, const rovanel::StyledDocument& document)
{
    box->clear();
    QTextCursor cursor(box->document());
    for (const rovanel::TextRun& run : document.runs()) {
        QTextCharFormat format;
        QFont font(QString::fromStdString(run.style.font));
        font.setPixelSize(run.style.height);
        font.setBold(run.style.bold);
        format.setFont(font);
        format.setForeground(QColor(static_cast<int>((run.style.colour >> 16) & 0xFF),
                                    static_cast<int>((run.style.colour >> 8) & 0xFF),
                                    static_cast<int>(run.style.colour & 0xFF)));
        cursor.insertText(fromCp1250(run.text), format);
    }
    QTextCursor start(box->document());
    start.movePosition(QTextCursor::Start);
    box->setTextCursor(start);
    box->ensureCursorVisible();
}

bool searchRtf(QTextEdit* box, const QString& text)
{
    const int position = box->toPlainText().indexOf(text, 0, Qt::CaseSensitive);
    if (position < 0) return false;
    QTextCursor cursor = box->textCursor();
    cursor.movePosition(QTextCursor::End);
    box->setTextCursor(cursor);
    box->ensureCursorVisible();
    cursor.setPosition(position);
    box->setTextCursor(cursor);
    box->ensureCursorVisible();
    box->setFocus();
    return true;
}

}  // namespace rovanel::forms
