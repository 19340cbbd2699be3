// TakenDrugs: the "Szedett gyógyszerek:" panel the interaction and side-effect windows share: the list
// of the drugs added through the window, with its delete and clear buttons, kept in step with the
// shared selection (SzedettGy). Each window's list shows only what was added through it; the selection
// behind them is one.
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

    // AddSzGy: adds product `record` under `name` (silently nothing when it is there already; the
    // limit's message when the list is full).
    void add(rovanel::ProductRecord record, const QString& name);
    // The delete button: removes the selected line, or asks for one.
    void removeSelected();
    // The clear button: empties the list and the selection's drugs.
    void clearAll();

signals:
    // The drugs taken changed: the window's results no longer hold.
    void changed();
    // A line was double-clicked: show that drug's description.
    void descriptionRequested(rovanel::ProductRecord record, const QString& caption);

private:
    void lineDoubleClicked();

    rovanel::SharedState& m_state;
    QListWidget* m_list = nullptr;
};

}  // namespace rovanel::forms
