// Records every message a window shows instead of opening a modal box, for as long as it lives.
//   MessageRecorder messages;
//   ... drive the window ...
//   QCOMPARE(messages.texts(), QStringList{"Az adatbázis ..."});
#pragma once

#include <QStringList>
#include <vector>

#include "app/forms/ShowMessage.h"

class MessageRecorder
{
public:
    MessageRecorder();
    ~MessageRecorder();
    MessageRecorder(const MessageRecorder&) = delete;
    MessageRecorder& operator=(const MessageRecorder&) = delete;

    // The messages in the order shown, as the core gave them (Windows-1250).
    [[nodiscard]] const std::vector<rovanel::Message>& messages() const { return m_messages; }
    // Their texts and captions converted to Unicode.
    [[nodiscard]] QStringList texts() const;
    [[nodiscard]] QStringList captions() const;
    void clear() { m_messages.clear(); }

private:
    std::vector<rovanel::Message> m_messages;
    MessageShower m_previous;
};
