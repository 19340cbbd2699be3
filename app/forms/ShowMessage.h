// The one way a window shows a message box. Every form calls showMessage; tests replace what it does
// (setMessageShower) to record the exact text instead of blocking on a modal box.
#pragma once

#include <functional>

#include "db/Message.h"

class QWidget;

// Shows `message` (Windows-1250 text and caption) as a modal message box over `owner`. An empty
// caption shows the application's title, as every Rovanel message box does. A task-modal message is
// shown without owner.
void showMessage(QWidget* owner, const rovanel::Message& message);

// What showMessage does: the default shows a QMessageBox and waits for it to be closed.
using MessageShower = std::function<void(QWidget* owner, const rovanel::Message& message)>;

// Replaces what showMessage does and returns the previous shower; an empty function restores the
// default box.
MessageShower setMessageShower(MessageShower shower);
