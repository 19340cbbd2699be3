// TakenDrugs: the "Szedett gyógyszerek:" panel the interaction and side-effect windows share: the list
// of the drugs added through the window, with its delete and clear buttons, kept in step with the
// shared selection (SzedettGy), and the medicines name list the drugs are picked from. Each window's
// list shows only what was added through it; the selection behind them is one.
#pragma once

#include <QWidget>
#include <cstdint>

#include "db/ProductRecord.h"

class QListWidget;

namespace rovanel
{
struct SharedState;
}

namespace rovanel::forms
{

class NameList;

class TakenDrugs : public QWidget
{
    Q_OBJECT
public:
    // The controls' names and captions differ between the two windows.
    struct Controls {
        const char* list;
        const char* remove;
        const char* removeCaption;
        const char* clear;
        const char* clearCaption;
    };

    TakenDrugs(rovanel::SharedState& state, const Controls& controls, QWidget* parent = nullptr);

    [[nodiscard]] QListWidget* list() const { return m_list; }

    // The medicines name list the drugs are picked from (item index = list position); a double click on
    // its edit line adds the drug it names.
    void pickFrom(NameList* names);
    // Fills that name list with the medicines (the window's first showing).
    void fillNames();

    // AddSzGy: adds the drug the name list names (silently nothing when it is there already; the
    // limit's message when the list is full).
    void addChosen();
    // The name list's "Megnéz": asks for the description of the drug it names.
    void describeChosen();
    // The delete button: removes the selected line, or asks for one.
    void removeSelected();
    // The clear button: empties the list and the selection's drugs.
    void clearAll();

signals:
    // The drugs taken changed: the window's results no longer hold.
    void changed();
    // A line was double-clicked, or describeChosen(): show that drug's description.
    void descriptionRequested(rovanel::ProductRecord record, const QString& caption);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void lineDoubleClicked();
    // The product record of the name list's item `position`.
    [[nodiscard]] rovanel::ProductRecord medicine(int position) const;

    rovanel::SharedState& m_state;
    QListWidget* m_list = nullptr;
    NameList* m_names = nullptr;
    // The name list's line edit, compared by address only: its events also arrive while the name list
    // is being destroyed, when the list may no longer be asked for it.
    const QObject* m_nameEdit = nullptr;
};

}  // namespace rovanel::forms
