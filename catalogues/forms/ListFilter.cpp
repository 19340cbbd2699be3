#include "catalogues/forms/ListFilter.h"

#include <QListWidget>
#include <string>

#include "db/Cp1250.h"

QString foldedForSearch(const QString& text)
{
    QString folded;
    for (const QChar c : text.normalized(QString::NormalizationForm_D))
        if (c.category() != QChar::Mark_NonSpacing) folded += c;
    return folded.toCaseFolded();
}

void filterRows(QListWidget* list, const QString& text)
{
    const QString wanted = foldedForSearch(text);
    for (int row = 0; row < list->count(); ++row)
        list->setRowHidden(row,
                           !wanted.isEmpty() && !foldedForSearch(list->item(row)->text()).contains(wanted));
}

QString boxText(const std::string& cp1250)
{
    std::string text = rovanel::cp1250ToUtf8(cp1250);
    std::erase(text, '\r');
    return QString::fromStdString(text);
}

std::string fileText(const QString& box)
{
    const std::string cp1250 = rovanel::utf8ToCp1250(box.toStdString());
    std::string text;
    for (const char c : cp1250) {
        if (c == '\n') text += '\r';
        text += c;
    }
    return text;
}
