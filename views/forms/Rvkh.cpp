#include "views/forms/Rvkh.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QTextEdit>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "app/forms/Help.h"
#include "app/forms/ShowMessage.h"
#include "db/DataFile.h"
#include "db/Interaction.h"
#include "db/ProductIndex.h"
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

QTreeWidget* readOnlyTree(const char* name, QWidget* parent)
{
    auto* tree = new QTreeWidget(parent);
    tree->setObjectName(name);
    tree->setHeaderHidden(true);
    tree->setEditTriggers(QAbstractItemView::NoEditTriggers);
    return tree;
}

}  // namespace

TKh::TKh(rovanel::SharedState& state, QWidget* parent) : QWidget(parent), m_state(state)
{
    setObjectName("Kh");
    setWindowTitle(QStringLiteral("Kölcsönhatás - ATC                    Help=F1"));
    setHelpContext(this, 200);

    m_tab = new QTabWidget(this);
    m_tab->setObjectName("Tab");

    auto* gyTab = new QWidget;
    gyTab->setObjectName("GyTab");
    m_gylist = new QComboBox(gyTab);
    m_gylist->setObjectName("Gylist");
    m_gylist->setEditable(true);
    m_gylist->setInsertPolicy(QComboBox::NoInsert);
    m_gylist->lineEdit()->installEventFilter(this);
    auto* gyLayout = new QVBoxLayout(gyTab);
    gyLayout->addWidget(m_gylist);
    auto* gyButtons = new QHBoxLayout;
    auto* gyToList = button("GyToList", QStringLiteral("Listá&hoz ad >>"), gyTab);
    auto* gyMegnez = button("GyMegnez", QStringLiteral("&Megnéz"), gyTab);
    gyButtons->addWidget(gyToList);
    gyButtons->addWidget(gyMegnez);
    gyLayout->addLayout(gyButtons);
    gyLayout->addStretch();
    m_tab->addTab(gyTab, QStringLiteral("Gyógyszerek"));

    auto* eTab = new QWidget;
    eTab->setObjectName("ETab");
    m_ellTree = readOnlyTree("EllTree", eTab);
    auto* ellToList = button("EllToList", QStringLiteral("Listához a&d >>"), eTab);
    auto* eLayout = new QVBoxLayout(eTab);
    eLayout->addWidget(m_ellTree);
    eLayout->addWidget(ellToList);
    m_tab->addTab(eTab, QStringLiteral("Ellenjavallatok"));

    auto* atcTab = new QWidget;
    atcTab->setObjectName("ATCTab");
    m_atcTree = readOnlyTree("ATCTree", atcTab);
    auto* atcKeres = button("ATCKeres", QStringLiteral("&Keres"), atcTab);
    auto* atcLayout = new QVBoxLayout(atcTab);
    atcLayout->addWidget(m_atcTree);
    atcLayout->addWidget(atcKeres);
    m_tab->addTab(atcTab, QStringLiteral("ATC"));

    auto* eredmenyTab = new QWidget;
    eredmenyTab->setObjectName("EredmenyTab");
    m_eredmeny = new QTextEdit(eredmenyTab);
    m_eredmeny->setObjectName("EredmenyRtf");
    m_eredmeny->setReadOnly(true);
    m_eredmeny->setLineWrapMode(QTextEdit::NoWrap);
    m_eredmeny->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    m_eredmeny->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    // The caption's spelling is the program's own.
    auto* ellenoriz = button(
        "Ellenoriz", QStringLiteral("Szedett gyógszereket - ellenjavallatokat ellenőriz"), eredmenyTab);
    auto* eredmenyLayout = new QVBoxLayout(eredmenyTab);
    eredmenyLayout->addWidget(m_eredmeny);
    eredmenyLayout->addWidget(ellenoriz);
    m_tab->addTab(eredmenyTab, QStringLiteral("Ellenőrzés eredménye"));
    m_tab->setCurrentWidget(eredmenyTab);

    auto* right = new QVBoxLayout;
    right->addWidget(new QLabel(QStringLiteral("Szedett gyógyszerek:")));
    m_szedett = new QListWidget;
    m_szedett->setObjectName("KhSzedettGyList");
    right->addWidget(m_szedett);
    auto* szButtons = new QHBoxLayout;
    auto* szTorol = button("KhSzGyTorol", QStringLiteral("Töröl"), this);
    auto* szListTorol = button("KhSzGyListTorol", QStringLiteral("Listát töröl"), this);
    szButtons->addWidget(szTorol);
    szButtons->addWidget(szListTorol);
    right->addLayout(szButtons);
    right->addWidget(new QLabel(QStringLiteral("Ellenjavallatok:")));
    m_ellList = new QListWidget;
    m_ellList->setObjectName("EllList");
    right->addWidget(m_ellList);
    auto* ellButtons = new QHBoxLayout;
    auto* ellTorol = button("EllTorol", QStringLiteral("Töröl"), this);
    auto* ellListTorol = button("EllListTorol", QStringLiteral("Listát töröl"), this);
    ellButtons->addWidget(ellTorol);
    ellButtons->addWidget(ellListTorol);
    right->addLayout(ellButtons);
    right->addWidget(new QLabel(QStringLiteral("Talált gyógyszerek:")));
    m_found = new QListWidget;
    m_found->setObjectName("KhGyList");
    right->addWidget(m_found);
    auto* khGyMegnez = button("KhGyMegnez", QStringLiteral("Megnéz"), this);
    right->addWidget(khGyMegnez);
    m_kgy = new QCheckBox(QStringLiteral("Közgyógy jelölve"), this);
    m_kgy->setObjectName("KgyJelolve");
    right->addWidget(m_kgy);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(5, 5, 5, 5);
    layout->addWidget(m_tab, 3);
    layout->addLayout(right, 2);

    connect(gyToList, &QPushButton::clicked, this, &TKh::GyToListClick);
    connect(gyMegnez, &QPushButton::clicked, this, &TKh::GyMegnezClick);
    connect(ellToList, &QPushButton::clicked, this, &TKh::EllToListClick);
    connect(atcKeres, &QPushButton::clicked, this, &TKh::ATCKeresClick);
    connect(ellenoriz, &QPushButton::clicked, this, &TKh::EllenorizClick);
    connect(szTorol, &QPushButton::clicked, this, &TKh::KhSzGyTorolClick);
    connect(szListTorol, &QPushButton::clicked, this, &TKh::KhSzGyListTorolClick);
    connect(ellTorol, &QPushButton::clicked, this, &TKh::EllTorolClick);
    connect(ellListTorol, &QPushButton::clicked, this, &TKh::EllListTorolClick);
    connect(khGyMegnez, &QPushButton::clicked, this, &TKh::KhGyMegnezClick);
    connect(m_found, &QListWidget::itemDoubleClicked, this, &TKh::KhGyMegnezClick);
    connect(m_szedett, &QListWidget::itemDoubleClicked, this, &TKh::KhSzedettGyListDblClick);
    connect(m_atcTree, &QTreeWidget::currentItemChanged, this, &TKh::ATCTreeChange);
}

void TKh::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (!m_loaded) FormShow();
}

bool TKh::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_gylist->lineEdit() && event->type() == QEvent::MouseButtonDblClick) AddSzGy();
    return QWidget::eventFilter(watched, event);
}

// First showing only: the drug names, the two trees and a fresh selection; kept until the program ends.
void TKh::FormShow()
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const auto& tables = m_state.tables;
    rovanel::forms::fillMedicineNames(m_gylist, tables);
    rovanel::forms::loadTree(m_ellTree, rovanel::dataFilePath(tables.dataDirectory, "ellnren2.dat"));
    rovanel::forms::loadTree(m_atcTree, rovanel::dataFilePath(tables.dataDirectory, "atcnren2.dat"));
    m_state.selection.resetForInteractionWindow();
    QApplication::restoreOverrideCursor();
    m_loaded = true;
}

void TKh::GyToListClick() { AddSzGy(); }

void TKh::AddSzGy()
{
    const int index = rovanel::forms::comboItemIndex(m_gylist);
    const rovanel::SelectionChange change = m_state.selection.addDrug(
        rovanel::recordOfListPosition(m_state.tables, rovanel::NameGroup::Medicines, index));
    if (change.outcome == rovanel::SelectionOutcome::Changed) {
        m_found->clear();
        m_eredmeny->clear();
        m_szedett->addItem(m_gylist->itemText(index));
    }
    if (change.message) showMessage(this, *change.message);
}

void TKh::EllToListClick()
{
    const QList<QTreeWidgetItem*> selected = m_ellTree->selectedItems();
    const int node = selected.isEmpty() ? -1 : rovanel::forms::absoluteIndex(selected.first());
    const rovanel::SelectionChange change = m_state.selection.addContraindication(node);
    if (change.outcome == rovanel::SelectionOutcome::Changed) {
        m_found->clear();
        m_eredmeny->clear();
        m_ellList->addItem(selected.first()->text(0));
    }
    if (change.message) showMessage(this, *change.message);
}

void TKh::KhSzGyTorolClick()
{
    const int row = rovanel::forms::selectedRow(m_szedett);
    const rovanel::SelectionChange change = m_state.selection.deleteDrug(m_szedett->count(), row);
    if (change.outcome == rovanel::SelectionOutcome::Changed) {
        delete m_szedett->takeItem(row);
        m_szedett->clearSelection();
        m_found->clear();
        m_eredmeny->clear();
    }
    if (change.message) showMessage(this, *change.message);
}

// The same on the contraindications, but the report stays.
void TKh::EllTorolClick()
{
    const int row = rovanel::forms::selectedRow(m_ellList);
    const rovanel::SelectionChange change = m_state.selection.deleteContraindication(m_ellList->count(), row);
    if (change.outcome == rovanel::SelectionOutcome::Changed) {
        delete m_ellList->takeItem(row);
        m_ellList->clearSelection();
        m_found->clear();
    }
    if (change.message) showMessage(this, *change.message);
}

void TKh::KhSzGyListTorolClick()
{
    m_state.selection.clearDrugs();
    m_szedett->clear();
    m_found->clear();
    m_eredmeny->clear();
}

// The found drugs stay.
void TKh::EllListTorolClick()
{
    m_state.selection.clearContraindications();
    m_ellList->clear();
    m_eredmeny->clear();
}

void TKh::showResult(const rovanel::KhRunResult& result)
{
    for (const rovanel::Message& message : result.messages) showMessage(this, message);
    if (!result.report.empty()) m_eredmeny->setPlainText(fromCp1250(result.report));
    rovanel::forms::setLines(m_found, result.listLines);
}

void TKh::EllenorizClick()
{
    m_eredmeny->clear();
    m_found->clear();
    showResult(rovanel::KhRun(m_state, rovanel::KhMode::Check, -1));
}

void TKh::ATCKeresClick()
{
    const int node = rovanel::forms::selectedNode(m_atcTree);
    if (node < 0) return;
    m_found->clear();
    m_state.selection.markReportOutdated();
    m_eredmeny->clear();
    showResult(rovanel::KhRun(m_state, rovanel::KhMode::AtcGroup, node));
}

void TKh::ATCTreeChange()
{
    m_found->clear();
    m_eredmeny->clear();
    m_state.selection.markReportOutdated();
}

void TKh::GyMegnezClick()
{
    const int index = rovanel::forms::comboItemIndex(m_gylist);
    if (m_viewer)
        m_viewer(rovanel::recordOfListPosition(m_state.tables, rovanel::NameGroup::Medicines, index),
                 m_gylist->currentText());
}

void TKh::KhGyMegnezClick()
{
    const int row = rovanel::forms::selectedRow(m_found);
    if (row < 0 || !m_viewer) return;
    m_viewer(m_state.found.recordAt(row), m_found->item(row)->text());
}

void TKh::KhSzedettGyListDblClick()
{
    const int row = rovanel::forms::selectedRow(m_szedett);
    if (row < 0 || !m_viewer) return;
    const auto& drugSlots = m_state.selection.SzedettGy;
    const rovanel::ProductRecord record = static_cast<std::size_t>(row) < drugSlots.size()
                                              ? drugSlots[static_cast<std::size_t>(row)]
                                              : rovanel::kNoProduct;
    m_viewer(record, m_szedett->item(row)->text());
}
