#include "views/forms/RichText.h"

#include <QColor>
#include <QScrollBar>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextEdit>

#include "app/forms/ShowMessage.h"
#include "db/Cp1250.h"
#include "db/DescriptionBuilder.h"
#include "db/Message.h"
#include "db/StyledDocument.h"

namespace
{

QString unicode(std::string_view cp1250) { return QString::fromUtf8(rovanel::cp1250ToUtf8(cp1250)); }

}  // namespace

void renderInto(QTextEdit* box, const rovanel::StyledDocument& document)
{
    box->clear();
    QTextCursor cursor(box->document());
    for (const rovanel::TextRun& run : document.runs()) {
        QTextCharFormat format;
        format.setFontFamilies({QString::fromStdString(run.style.font)});
        QFont font(QString::fromStdString(run.style.font));
        font.setPixelSize(run.style.height);
        font.setBold(run.style.bold);
        format.setFont(font);
        format.setForeground(QColor(static_cast<int>((run.style.colour >> 16) & 0xFF),
                                    static_cast<int>((run.style.colour >> 8) & 0xFF),
                                    static_cast<int>(run.style.colour & 0xFF)));
        cursor.insertText(unicode(run.text), format);
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

QString jumpSearchText(int button)
{
    if (button < 0 || button >= 10) return {};
    return unicode(rovanel::kJumpSearchTexts[button]);
}

void showPrescriptionNotice(QWidget* owner)
{
    rovanel::Message notice;
    notice.text = rovanel::utf8ToCp1250("Változás: Receptnyomtatás a -Részletes lista- menüpont alatt.");
    showMessage(owner, notice);
}
