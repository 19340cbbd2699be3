// The Qt side of the core's styled-document model (db/StyledDocument.h): a document written into a
// rich-text box, and the heading search the jump buttons use.
#pragma once

#include <QString>

class QTextEdit;

namespace rovanel
{
class StyledDocument;
}

namespace rovanel::forms
{

// Replaces the box's content with `document` (fonts, pixel heights, bold, colours, indents), then puts
// the caret at the start and scrolls to it.
void renderInto(QTextEdit* box, const rovanel::StyledDocument& document);

// SearchRtf: the first occurrence of `text` in the box's plain text, case-sensitive, anywhere in a word.
// Not found: nothing changes. Found: the caret goes to the end of the text and is scrolled into view,
// then to the occurrence and is scrolled into view again (so that the heading stands at the top of the
// visible area), and the box takes the focus. Returns whether it was found.
bool searchRtf(QTextEdit* box, const QString& text);

}  // namespace rovanel::forms
