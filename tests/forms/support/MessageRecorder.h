// Records every message a window shows instead of opening a modal box, for as long as it lives.
//   MessageRecorder messages;
//   ... drive the window ...
//   QCOMPARE(messages.texts(), QStringList{"Az adatbázis ..."});
#pragma once

#include <QStringList>
#include <vector>

#include "app/forms/ShowMessage.h"
#include "db/Cp1250.h"

class MessageRecorder
{
public:
    MessageRecorder()
        : m_previous(setMessageShower(
              [this](QWidget*, const rovanel::Message& shown) { m_messages.push_back(shown); }))
    {
    }
    ~MessageRecorder() { setMessageShower(m_previous); }
    MessageRecorder(const MessageRecorder&) = delete;
    MessageRecorder& operator=(const MessageRecorder&) = delete;

    // The messages in the order shown, as the core gave them (Windows-1250).
    [[nodiscard]] const std::vector<rovanel::Message>& messages() const { return m_messages; }
    // Their texts and captions converted to Unicode.
    [[nodiscard]] QStringList texts() const { return converted(&rovanel::Message::text); }
    [[nodiscard]] QStringList captions() const { return converted(&rovanel::Message::caption); }
    void clear() { m_messages.clear(); }
    // The texts shown since the last take.
    [[nodiscard]] QStringList take()
    {
        const QStringList shown = texts();
        clear();
        return shown;
    }

private:
    [[nodiscard]] QStringList converted(std::string rovanel::Message::*part) const
    {
        QStringList result;
        for (const rovanel::Message& message : m_messages)
            result << QString::fromStdString(rovanel::cp1250ToUtf8(message.*part));
        return result;
    }
    std::vector<rovanel::Message> m_messages;
    MessageShower m_previous;
};
