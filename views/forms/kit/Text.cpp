#include "views/forms/kit/Text.h"

#include "db/Cp1250.h"

namespace rovanel::forms
{

QString fromCp1250(std::string_view text) { return QString::fromStdString(cp1250ToUtf8(text)); }

std::string toCp1250(const QString& text) { return utf8ToCp1250(text.toStdString()); }

QString boxText(std::string_view fileText)
{
    QString text = fromCp1250(fileText);
    text.remove(QLatin1Char('\r'));
    return text;
}

std::string fileText(const QString& boxText)
{
    std::string text;
    for (const char c : toCp1250(boxText)) {
        if (c == '\n') text += '\r';
        text += c;
    }
    return text;
}

}  // namespace rovanel::forms
