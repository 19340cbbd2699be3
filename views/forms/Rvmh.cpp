#include "views/forms/Rvmh.h"

#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTreeWidget>

#include "app/forms/Help.h"
#include "app/forms/ShowMessage.h"
#include "db/DataFile.h"
#include "db/ProductIndex.h"
#include "db/Searches.h"
#include "db/SharedState.h"

using rovanel::forms::fromCp1250;

namespace
{

QPushButton* button(const char* name, const QString& caption, QWidget* parent)
{
    auto* result = new QPushButton(caption, parent);
    result->setObjectName(name);
    return result;
}

}  // namespace

TMh::TMh(rovanel::SharedState& state, QWidget* parent) : QWidget(parent), m_state(state)
{
    setObjectName("Mh");
    setWindowTitle(QStringLiteral("Mellékhatások                    Help=F1"));
    setHelpContext(this, 300);
    setFixedSize(641, 561);

    m_gyList = new QComboBox(this);
    m_gyList->setObjectName("GyList");
    m_gyList->setEditable(true);
    m_gyList->setInsertPolicy(QComboBox::NoInsert);
    m_gyList->lineEdit()->installEventFilter(this);
    auto* gyToList = button("GyToList", QStringLiteral("Listához &ad >>"), this);
    auto* gyListMegnez = button("GyListMegnez", QStringLiteral("&Megnéz"), this);
    m_szedett = new QListWidget(this);
    m_szedett->setObjectName("MhSzedettGyList");
    auto* szGyTorol = button("SzGyTorol", QStringLiteral("&Töröl"), this);
    auto* szGyListatTorol = button("SzGyListatTorol", QStringLiteral("&Listát töröl"), this);
    m_tree = new QTreeWidget(this);
    m_tree->setObjectName("MhTree");
    m_tree->setHeaderHidden(true);
    m_tree->setEditTriggers(QAbstractItemView::NoEditTriggers);
    auto* mhKeres = button("MhKeres", QStringLiteral("&Keres"), this);
    m_found = new QListWidget(this);
    m_found->setObjectName("MhGyList");
    auto* gyMegnez = button("GyMegnez", QStringLiteral("M&egnéz"), this);

    auto* layout = new QGridLayout(this);
    layout->addWidget(new QLabel(QStringLiteral("Gyógszerek:")), 0, 0);  // spelt so on purpose
    layout->addWidget(m_gyList, 1, 0);
    layout->addWidget(gyToList, 2, 0);
    layout->addWidget(gyListMegnez, 3, 0);
    layout->addWidget(new QLabel(QStringLiteral("Szedett gyógyszerek:")), 0, 1);
    layout->addWidget(m_szedett, 1, 1);
    layout->addWidget(szGyTorol, 2, 1);
    layout->addWidget(szGyListatTorol, 3, 1);
    layout->addWidget(new QLabel(QStringLiteral("Mellékhatások:")), 4, 0);
    layout->addWidget(m_tree, 5, 0);
    layout->addWidget(mhKeres, 6, 0);
    layout->addWidget(new QLabel(QStringLiteral("Mellékhatást okozhatja:")), 4, 1);
    layout->addWidget(m_found, 5, 1);
    layout->addWidget(gyMegnez, 6, 1);

    connect(gyToList, &QPushButton::clicked, this, &TMh::GyToListClick);
    connect(gyListMegnez, &QPushButton::clicked, this, &TMh::GyListMegnezClick);
    connect(szGyTorol, &QPushButton::clicked, this, &TMh::SzGyTorolClick);
    connect(szGyListatTorol, &QPushButton::clicked, this, &TMh::SzGyListatTorolClick);
    connect(mhKeres, &QPushButton::clicked, this, &TMh::MhKeresClick);
    connect(gyMegnez, &QPushButton::clicked, this, &TMh::GyMegnezClick);
    connect(m_found, &QListWidget::itemDoubleClicked, this, &TMh::GyMegnezClick);
    connect(m_szedett, &QListWidget::itemDoubleClicked, this, &TMh::MhSzedettGyListDblClick);
    connect(m_tree, &QTreeWidget::currentItemChanged, this, &TMh::MhTreeChange);
}

void TMh::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (!m_loaded) FormShow();
}

bool TMh::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_gyList->lineEdit() && event->type() == QEvent::MouseButtonDblClick) AddSzGy();
    return QWidget::eventFilter(watched, event);
}

// First showing only. All 22 slots of the shared selection go to -1 but its count stays (kept on
// purpose: the count can then exceed the slots in use; the engine skips -1 slots).
void TMh::FormShow()
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const auto& tables = m_state.tables;
    rovanel::forms::fillMedicineNames(m_gyList, tables);
    rovanel::forms::loadTree(m_tree, rovanel::dataFilePath(tables.dataDirectory, "mhnren2.dat"));
    m_state.selection.resetSlotsForSideEffectWindow();
    QApplication::restoreOverrideCursor();
    m_loaded = true;
}

void TMh::GyToListClick() { AddSzGy(); }

void TMh::AddSzGy()
{
    const int index = rovanel::forms::comboItemIndex(m_gyList);
    const rovanel::SelectionChange change = m_state.selection.addDrug(
        rovanel::recordOfListPosition(m_state.tables, rovanel::NameGroup::Medicines, index));
    if (change.outcome == rovanel::SelectionOutcome::Changed) {
        m_found->clear();
        m_szedett->addItem(m_gyList->itemText(index));
    }
    if (change.message) showMessage(this, *change.message);
}

void TMh::SzGyTorolClick()
{
    const int row = rovanel::forms::selectedRow(m_szedett);
    const rovanel::SelectionChange change = m_state.selection.deleteDrug(m_szedett->count(), row);
    if (change.outcome == rovanel::SelectionOutcome::Changed) {
        delete m_szedett->takeItem(row);
        m_szedett->clearSelection();
        m_found->clear();
    }
    if (change.message) showMessage(this, *change.message);
}

void TMh::SzGyListatTorolClick()
{
    m_state.selection.clearDrugs();
    m_szedett->clear();
    m_found->clear();
}

void TMh::MhTreeChange() { m_found->clear(); }

void TMh::MhKeresClick()
{
    const int node = rovanel::forms::selectedNode(m_tree);
    if (node < 0) return;
    m_found->clear();
    const rovanel::SearchOutcome outcome =
        m_szedett->count() == 0
            ? rovanel::FillMhIdxList(m_state.tables, m_state.found, node)
            : rovanel::FillMhSpecIdxList2(m_state.tables, m_state.selection, m_state.found, node);
    if (outcome.message)
        showMessage(QApplication::focusWidget() ? QApplication::focusWidget() : this, *outcome.message);
    // The table as it stands: over 600 drugs it still holds the previous search's result (kept so).
    rovanel::forms::setLines(m_found, rovanel::foundDrugNames(m_state.tables, m_state.found));
}

void TMh::GyListMegnezClick()
{
    const int index = rovanel::forms::comboItemIndex(m_gyList);
    if (m_viewer)
        m_viewer(rovanel::recordOfListPosition(m_state.tables, rovanel::NameGroup::Medicines, index),
                 m_gyList->currentText());
}

void TMh::GyMegnezClick()
{
    const int row = rovanel::forms::selectedRow(m_found);
    if (row < 0 || !m_viewer) return;
    m_viewer(m_state.found.recordAt(row), m_found->item(row)->text());
}

void TMh::MhSzedettGyListDblClick()
{
    const int row = rovanel::forms::selectedRow(m_szedett);
    if (row < 0 || !m_viewer) return;
    const auto& drugSlots = m_state.selection.SzedettGy;
    const rovanel::ProductRecord record = static_cast<std::size_t>(row) < drugSlots.size()
                                              ? drugSlots[static_cast<std::size_t>(row)]
                                              : rovanel::kNoProduct;
    m_viewer(record, m_szedett->item(row)->text());
}
