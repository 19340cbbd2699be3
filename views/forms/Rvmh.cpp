#include "views/forms/Rvmh.h"

#include <QApplication>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "app/forms/Help.h"
#include "app/forms/ShowMessage.h"
#include "db/DataFile.h"
#include "db/ProductIndex.h"
#include "db/Searches.h"
#include "db/SharedState.h"
#include "views/forms/kit/NameList.h"
#include "views/forms/kit/TakenDrugs.h"
#include "views/forms/kit/WindowGeometry.h"

using rovanel::forms::button;

TMh::TMh(rovanel::SharedState& state, QWidget* parent) : QWidget(parent), m_state(state)
{
    setObjectName("Mh");
    setWindowTitle(QStringLiteral("Mellékhatások                    Help=F1"));
    setHelpContext(this, 300);

    auto* gyList = new rovanel::forms::NameList("GyList", this);
    auto* gyToList = button("GyToList", QStringLiteral("Listához &ad >>"), this);
    auto* gyListMegnez = button("GyListMegnez", QStringLiteral("&Megnéz"), this);
    m_szedett = new rovanel::forms::TakenDrugs(
        m_state, {"MhSzedettGyList", "SzGyTorol", "&Töröl", "SzGyListatTorol", "&Listát töröl"}, this);
    m_szedett->pickFrom(gyList);
    m_tree = rovanel::forms::readOnlyTree("MhTree", this);
    auto* mhKeres = button("MhKeres", QStringLiteral("&Keres"), this);
    m_found = rovanel::forms::nameLines("MhGyList", this);
    auto* gyMegnez = button("GyMegnez", QStringLiteral("M&egnéz"), this);

    auto* drugs = new QVBoxLayout;
    drugs->addWidget(new QLabel(QStringLiteral("Gyógszerek:")));  // spelt so on purpose
    drugs->addWidget(gyList);
    drugs->addWidget(gyToList);
    drugs->addWidget(gyListMegnez);
    drugs->addStretch();
    auto* sideEffects = new QVBoxLayout;
    sideEffects->addWidget(new QLabel(QStringLiteral("Mellékhatások:")));
    sideEffects->addWidget(m_tree, 1);
    sideEffects->addWidget(mhKeres);
    auto* causes = new QVBoxLayout;
    causes->addWidget(new QLabel(QStringLiteral("Mellékhatást okozhatja:")));
    causes->addWidget(m_found, 1);
    causes->addWidget(gyMegnez);

    auto* layout = new QGridLayout(this);
    layout->addLayout(drugs, 0, 0);
    layout->addWidget(m_szedett, 0, 1);
    layout->addLayout(sideEffects, 1, 0);
    layout->addLayout(causes, 1, 1);
    layout->setRowStretch(0, 2);
    layout->setRowStretch(1, 3);
    layout->setColumnStretch(0, 1);
    layout->setColumnStretch(1, 1);
    rovanel::forms::rememberGeometry(this, QSize(641, 561));

    connect(gyToList, &QPushButton::clicked, this, &TMh::GyToListClick);
    connect(gyListMegnez, &QPushButton::clicked, this, &TMh::GyListMegnezClick);
    connect(m_szedett, &rovanel::forms::TakenDrugs::changed, m_found, &QListWidget::clear);
    connect(m_szedett, &rovanel::forms::TakenDrugs::descriptionRequested, this,
            &TMh::MhSzedettGyListDblClick);
    connect(mhKeres, &QPushButton::clicked, this, &TMh::MhKeresClick);
    connect(gyMegnez, &QPushButton::clicked, this, &TMh::GyMegnezClick);
    connect(m_found, &QListWidget::itemDoubleClicked, this, &TMh::GyMegnezClick);
    connect(m_tree, &QTreeWidget::currentItemChanged, this, &TMh::MhTreeChange);
}

void TMh::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (!m_loaded) FormShow();
}

// First showing only. All 22 slots of the shared selection go to -1 but its count stays (kept on
// purpose: the count can then exceed the slots in use; the engine skips -1 slots).
void TMh::FormShow()
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const auto& tables = m_state.tables;
    m_szedett->fillNames();
    rovanel::forms::loadTree(m_tree, rovanel::dataFilePath(tables.dataDirectory, "mhnren2.dat"));
    m_state.selection.resetSlotsForSideEffectWindow();
    QApplication::restoreOverrideCursor();
    m_loaded = true;
}

void TMh::GyToListClick() { m_szedett->addChosen(); }

void TMh::SzGyTorolClick() { m_szedett->removeSelected(); }

void TMh::SzGyListatTorolClick() { m_szedett->clearAll(); }

void TMh::MhTreeChange() { m_found->clear(); }

void TMh::MhKeresClick()
{
    const int node = rovanel::forms::selectedNode(m_tree);
    if (node < 0) return;
    m_found->clear();
    const rovanel::SearchOutcome outcome =
        m_szedett->list()->count() == 0
            ? rovanel::FillMhIdxList(m_state.tables, m_state.found, node)
            : rovanel::FillMhSpecIdxList2(m_state.tables, m_state.selection, m_state.found, node);
    if (outcome.message)
        showMessage(QApplication::focusWidget() ? QApplication::focusWidget() : this, *outcome.message);
    // The table as it stands: over 600 drugs it still holds the previous search's result (kept so).
    rovanel::forms::setLines(m_found, rovanel::foundDrugNames(m_state.tables, m_state.found));
}

void TMh::GyListMegnezClick() { m_szedett->describeChosen(); }

void TMh::GyMegnezClick()
{
    const int row = rovanel::forms::selectedRow(m_found);
    if (row < 0 || !m_viewer) return;
    m_viewer(m_state.found.recordAt(row), m_found->item(row)->text());
}

void TMh::MhSzedettGyListDblClick(rovanel::ProductRecord record, const QString& caption)
{
    if (m_viewer) m_viewer(record, caption);
}
