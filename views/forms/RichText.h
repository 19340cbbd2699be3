// The description boxes' shared parts: the styled document written into a QTextEdit, the heading search
// of the jump buttons, and the right-click notice.
#pragma once

#include <QString>

class QTextEdit;
class QWidget;

namespace rovanel
{
class StyledDocument;
}

// Replaces the box's content with `document` (fonts, pixel heights, bold, colours), then puts the caret
// at the start and scrolls to it, as the builder's finishing step does.
void renderInto(QTextEdit* box, const rovanel::StyledDocument& document);

// SearchRtf: the first occurrence of `text` in the box's plain text, case-sensitive, anywhere in a word.
// Not found: nothing changes. Found: the caret goes to the end of the text and is scrolled into view,
// then to the occurrence and is scrolled into view again (so that the heading stands at the top of the
// visible area), and the box takes the focus. Returns whether it was found.
bool searchRtf(QTextEdit* box, const QString& text);

// The jump buttons' search texts in button order (JumpAtc ... JumpMer), in Unicode.
[[nodiscard]] QString jumpSearchText(int button);

// The notice a right click in a description box shows ("Változás: Receptnyomtatás a -Részletes lista-
// menüpont alatt.") in a plain message box.
void showPrescriptionNotice(QWidget* owner);
