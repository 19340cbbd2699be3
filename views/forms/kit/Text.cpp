#include "views/forms/kit/Text.h"

#include "db/Cp1250.h"

namespace rovanel::forms
{

QString fromCp1250(std::string_view text) { return QString::fromStdString(cp1250ToUtf8(text)); }

std::string toCp1250(const QString& text) { return utf8ToCp1250(text.toStdString()); }

}  // namespace rovanel::forms
