#include "views/forms/kit/TakenDrugs.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/forms/ShowMessage.h"
#include "db/ProductIndex.h"
#include "db/SharedState.h"
#include "views/forms/kit/Lists.h"
#include "views/forms/kit/NameList.h"

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

void TakenDrugs::pickFrom(NameList* names)
{
    m_names = names;
    m_nameEdit = names->lineEdit();
    names->lineEdit()->installEventFilter(this);
}

void TakenDrugs::fillNames()
{
    if (m_names) m_names->setNames(rovanel::nameListFill(m_state.tables, rovanel::NameGroup::Medicines));
}

bool TakenDrugs::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonDblClick && m_nameEdit && watched == m_nameEdit) addChosen();
    return QWidget::eventFilter(watched, event);
}

rovanel::ProductRecord TakenDrugs::medicine(int position) const
{
    return rovanel::recordOfListPosition(m_state.tables, rovanel::NameGroup::Medicines, position);
}

void TakenDrugs::addChosen()
{
    if (!m_names) return;
    const int position = m_names->chosenIndex();
    const rovanel::SelectionChange change = m_state.selection.addDrug(medicine(position));
    if (change.outcome == rovanel::SelectionOutcome::Changed) {
        addElidedLine(m_list, m_names->itemText(position));
        emit changed();
    }
    if (change.message) showMessage(window(), *change.message);
}

void TakenDrugs::describeChosen()
{
    if (m_names) emit descriptionRequested(medicine(m_names->chosenIndex()), m_names->currentText());
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
