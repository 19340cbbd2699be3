#include "views/forms/kit/TakenDrugs.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/forms/ShowMessage.h"
#include "db/SharedState.h"
#include "views/forms/kit/Lists.h"

namespace rovanel::forms
{

TakenDrugs::TakenDrugs(rovanel::SharedState& state, const Controls& controls, QWidget* parent)
    : QWidget(parent), m_state(state)
{
    m_list = nameLines(controls.list, this);  // long names elided, whole in the tooltip
    auto* remove = new QPushButton(QString::fromUtf8(controls.removeCaption), this);
    remove->setObjectName(controls.remove);
    auto* clear = new QPushButton(QString::fromUtf8(controls.clearCaption), this);
    clear->setObjectName(controls.clear);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(remove);
    buttons->addWidget(clear);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new QLabel(QStringLiteral("Szedett gyógyszerek:"), this));
    layout->addWidget(m_list, 1);
    layout->addLayout(buttons);

    connect(remove, &QPushButton::clicked, this, &TakenDrugs::removeSelected);
    connect(clear, &QPushButton::clicked, this, &TakenDrugs::clearAll);
    connect(m_list, &QListWidget::itemDoubleClicked, this, &TakenDrugs::lineDoubleClicked);
}

void TakenDrugs::add(rovanel::ProductRecord record, const QString& name)
{
    const rovanel::SelectionChange change = m_state.selection.addDrug(record);
    if (change.outcome == rovanel::SelectionOutcome::Changed) {
        addElidedLine(m_list, name);
        emit changed();
    }
    if (change.message) showMessage(window(), *change.message);
}

void TakenDrugs::removeSelected()
{
    const int row = selectedRow(m_list);
    const rovanel::SelectionChange change = m_state.selection.deleteDrug(m_list->count(), row);
    if (change.outcome == rovanel::SelectionOutcome::Changed) {
        delete m_list->takeItem(row);
        m_list->clearSelection();
        emit changed();
    }
    if (change.message) showMessage(window(), *change.message);
}

void TakenDrugs::clearAll()
{
    m_state.selection.clearDrugs();
    m_list->clear();
    emit changed();
}

void TakenDrugs::lineDoubleClicked()
{
    const int row = selectedRow(m_list);
    if (row < 0) return;
    const auto& drugSlots = m_state.selection.SzedettGy;
    const rovanel::ProductRecord record = static_cast<std::size_t>(row) < drugSlots.size()
                                              ? drugSlots[static_cast<std::size_t>(row)]
                                              : rovanel::kNoProduct;
    emit descriptionRequested(record, m_list->item(row)->text());
}

}  // namespace rovanel::forms
