#include "tests/forms/support/MessageRecorder.h"

#include "db/Cp1250.h"

MessageRecorder::MessageRecorder()
{
    m_previous = setMessageShower(
        [this](QWidget*, const rovanel::Message& message) { m_messages.push_back(message); });
}

MessageRecorder::~MessageRecorder() { setMessageShower(m_previous); }

QStringList MessageRecorder::texts() const
{
    QStringList result;
    for (const rovanel::Message& message : m_messages)
        result << QString::fromUtf8(rovanel::cp1250ToUtf8(message.text));
    return result;
}

QStringList MessageRecorder::captions() const
{
    QStringList result;
    for (const rovanel::Message& message : m_messages)
        result << QString::fromUtf8(rovanel::cp1250ToUtf8(message.caption));
    return result;
}
