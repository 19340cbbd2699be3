#include "views/forms/kit/NameList.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSortFilterProxyModel>
#include <QStringList>

#include "views/forms/kit/Text.h"

namespace rovanel::forms
{

namespace
{

// The combo's items that contain the needle; the search keys are made once per filling of the list.
class ContainsFilter : public QSortFilterProxyModel
{
public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    void setNeedle(const QString& needle)
    {
        if (needle == m_needle) return;
        m_needle = needle;
        invalidateFilter();
    }
    void forgetKeys() { m_keys.clear(); }

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override
    {
        if (m_needle.isEmpty()) return true;
        if (m_keys.size() != static_cast<std::size_t>(sourceModel()->rowCount(parent))) {
            m_keys.clear();
            for (int i = 0; i < sourceModel()->rowCount(parent); ++i)
                m_keys.push_back(NameList::searchKey(sourceModel()->index(i, 0, parent).data().toString()));
        }
        return row >= 0 && static_cast<std::size_t>(row) < m_keys.size() &&
               m_keys[static_cast<std::size_t>(row)].contains(m_needle);
    }

private:
    QString m_needle;
    mutable std::vector<QString> m_keys;
};

}  // namespace

NameList::NameList(const char* objectName, QWidget* parent) : QComboBox(parent)
{
    setObjectName(objectName);
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    setMaxVisibleItems(20);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(24);

    auto* filter = new ContainsFilter(this);
    filter->setSourceModel(model());
    const auto forget = [filter] { filter->forgetKeys(); };
    connect(model(), &QAbstractItemModel::modelReset, this, forget);
    connect(model(), &QAbstractItemModel::rowsInserted, this, forget);
    connect(model(), &QAbstractItemModel::rowsRemoved, this, forget);
    connect(model(), &QAbstractItemModel::dataChanged, this, forget);

    auto* completer = new QCompleter(filter, this);
    completer->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    completer->setMaxVisibleItems(20);
    setCompleter(completer);

    // The filter follows the text before the completer shows its list; Down then highlights the first
    // match, and Enter or a click picks the highlighted one. Enter before any arrow picks the first match:
    // this filter runs before the completer's own, which then picks the row made current here.
    connect(lineEdit(), &QLineEdit::textEdited, this,
            [filter](const QString& text) { filter->setNeedle(searchKey(text)); });
    completer->popup()->installEventFilter(this);
}

bool NameList::eventFilter(QObject* watched, QEvent* event)
{
    QAbstractItemView* popup = completer()->popup();
    if (watched == popup && event->type() == QEvent::KeyPress && popup->isVisible() &&
        !popup->currentIndex().isValid()) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        const QAbstractItemModel* shown = completer()->completionModel();
        if ((key == Qt::Key_Return || key == Qt::Key_Enter) && shown->rowCount() > 0)
            popup->setCurrentIndex(shown->index(0, 0));
    }
    return QComboBox::eventFilter(watched, event);
}

void NameList::setNames(const std::vector<std::string>& names)
{
    QStringList items;
    items.reserve(static_cast<qsizetype>(names.size()));
    for (const std::string& name : names) items << fromCp1250(name);
    clear();
    addItems(items);
    setCurrentIndex(-1);
}

int NameList::chosenIndex() const
{
    const QString text = currentText();
    if (text.isEmpty()) return -1;
    if (currentIndex() >= 0 && itemText(currentIndex()) == text) return currentIndex();
    const int exact = findText(text, Qt::MatchFixedString);
    if (exact >= 0) return exact;
    return findText(text, Qt::MatchStartsWith);
}

QString NameList::searchKey(const QString& text)
{
    const QString decomposed = text.normalized(QString::NormalizationForm_KD);
    QString key;
    key.reserve(decomposed.size());
    for (const QChar c : decomposed)
        if (c.category() != QChar::Mark_NonSpacing) key.append(c);
    return key.toCaseFolded();
}

}  // namespace rovanel::forms
