// Help: HTML pages in the "help" folder beside the program, shown in one help window (Escape closes it),
// one page per help context ("help/100.html" for the main window). F1 opens the page of the focused
// widget's context, or of the nearest parent window that has one; a window's "Használati útmutató"
// button calls openHelp with its own context. Pages are written in Hungarian, in app/help/.
#pragma once

#include <QString>
#include <functional>

class QWidget;

// Gives `widget` a help context and makes F1 work in its window. Context 0 means none.
void setHelpContext(QWidget* widget, int context);
[[nodiscard]] int helpContext(const QWidget* widget);

// The page of `context`: "<program folder>/help/<context>.html", or the contents page "index.html"
// when the context has no page of its own.
[[nodiscard]] QString helpPagePath(int context);

// Shows the help page of `context` in the help window.
void openHelp(int context);

// What openHelp does: the default shows the page in the program's own help browser. Tests replace it;
// the previous opener is returned, an empty function restores the default.
using HelpOpener = std::function<void(int context)>;
HelpOpener setHelpOpener(HelpOpener opener);
