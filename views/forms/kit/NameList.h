// NameList: a name list of the windows (drugs, ingredients): an editable combo box whose item index
// stays what the list has always meant (a record or ingredient number), with a filter that opens under
// the edit line as the physician types. The filter shows every item that contains the typed text,
// compared without case and accents ("amlo" finds "AMLODIPIN", "szedules" finds "Szédülés"), in the
// list's own order. Arrows move in it; Enter or a click picks an item (Enter before any arrow the first one
// shown), which becomes the combo's current item and is announced by activated(index), exactly as choosing it
// from the drop-down list.
#pragma once

#include <QComboBox>
#include <string>
#include <vector>

namespace rovanel::forms
{

class NameList : public QComboBox
{
    Q_OBJECT
public:
    explicit NameList(const char* objectName, QWidget* parent = nullptr);

    // Replaces the items with Windows-1250 names, item index = position; nothing is chosen afterwards.
    void setNames(const std::vector<std::string>& names);

    // The item the edit line names: the current item when its text is the edit line's, else the first
    // item of that text (case-blind), else the first that begins with it; -1 for none or empty text.
    [[nodiscard]] int chosenIndex() const;

    // The text the filter compares: case-folded, accents dropped ("Ő" and "ő" both give "o").
    [[nodiscard]] static QString searchKey(const QString& text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace rovanel::forms
