#include "views/forms/Rvkh.h"

#include <QApplication>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
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
#include "views/forms/kit/NameList.h"
#include "views/forms/kit/StyledText.h"
#include "views/forms/kit/TakenDrugs.h"
#include "views/forms/kit/WindowGeometry.h"

using rovanel::forms::button;

namespace
{

// A tab page of a tree with one button under it.
struct TreePage {
    QWidget* page;
    QTreeWidget* tree;
    QPushButton* button;
};

TreePage treePage(const char* pageName, const char* treeName, const char* buttonName, const QString& caption)
{
    auto* page = new QWidget;
    page->setObjectName(pageName);
    const TreePage result{page, rovanel::forms::readOnlyTree(treeName, page),
                          button(buttonName, caption, page)};
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(result.tree);
    layout->addWidget(result.button);
    return result;
}

}  // namespace

TKh::TKh(rovanel::SharedState& state, QWidget* parent) : QWidget(parent), m_state(state)
{
    setObjectName("Kh");
    setWindowTitle(QStringLiteral("Kölcsönhatás - ATC                    Help=F1"));
    setHelpContext(this, 200);

    m_tab = new QTabWidget(this);
    m_tab->setObjectName("Tab");
    m_tab->setUsesScrollButtons(false);  // the four tabs are always all in sight
    m_tab->setElideMode(Qt::ElideNone);

    auto* gyTab = new QWidget;
    gyTab->setObjectName("GyTab");
    auto* gylist = new rovanel::forms::NameList("Gylist", gyTab);
    auto* gyLayout = new QVBoxLayout(gyTab);
    gyLayout->addWidget(gylist);
    auto* gyButtons = new QHBoxLayout;
    auto* gyToList = button("GyToList", QStringLiteral("Listá&hoz ad >>"), gyTab);
    auto* gyMegnez = button("GyMegnez", QStringLiteral("&Megnéz"), gyTab);
    gyButtons->addWidget(gyToList);
    gyButtons->addWidget(gyMegnez);
    gyLayout->addLayout(gyButtons);
    gyLayout->addStretch();
    m_tab->addTab(gyTab, QStringLiteral("Gyógyszerek"));

    const TreePage ell = treePage("ETab", "EllTree", "EllToList", QStringLiteral("Listához a&d >>"));
    m_ellTree = ell.tree;
    m_tab->addTab(ell.page, QStringLiteral("Ellenjavallatok"));
    const TreePage atc = treePage("ATCTab", "ATCTree", "ATCKeres", QStringLiteral("&Keres"));
    m_atcTree = atc.tree;
    m_tab->addTab(atc.page, QStringLiteral("ATC"));

    auto* eredmenyTab = new QWidget;
    eredmenyTab->setObjectName("EredmenyTab");
    m_eredmeny = new QTextEdit(eredmenyTab);
    m_eredmeny->setObjectName("EredmenyRtf");
    m_eredmeny->setReadOnly(true);
    m_eredmeny->setLineWrapMode(QTextEdit::WidgetWidth);  // a finding is read without scrolling sideways
    m_eredmeny->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    // The caption's spelling is the program's own.
    auto* ellenoriz = button(
        "Ellenoriz", QStringLiteral("Szedett gyógszereket - ellenjavallatokat ellenőriz"), eredmenyTab);
    auto* eredmenyLayout = new QVBoxLayout(eredmenyTab);
    eredmenyLayout->addWidget(m_eredmeny);
    eredmenyLayout->addWidget(ellenoriz);
    m_tab->addTab(eredmenyTab, QStringLiteral("Ellenőrzés eredménye"));
    m_tab->setCurrentWidget(eredmenyTab);

    m_szedett = new rovanel::forms::TakenDrugs(
        m_state, {"KhSzedettGyList", "KhSzGyTorol", "Töröl", "KhSzGyListTorol", "Listát töröl"}, this);
    m_szedett->pickFrom(gylist);
    auto* right = new QVBoxLayout;
    right->addWidget(m_szedett, 2);
    right->addWidget(new QLabel(QStringLiteral("Ellenjavallatok:")));
    m_ellList = rovanel::forms::nameLines("EllList", this);
    right->addWidget(m_ellList, 2);
    auto* ellButtons = new QHBoxLayout;
    auto* ellTorol = button("EllTorol", QStringLiteral("Töröl"), this);
    auto* ellListTorol = button("EllListTorol", QStringLiteral("Listát töröl"), this);
    ellButtons->addWidget(ellTorol);
    ellButtons->addWidget(ellListTorol);
    right->addLayout(ellButtons);
    right->addWidget(new QLabel(QStringLiteral("Talált gyógyszerek:")));
    m_found = rovanel::forms::nameLines("KhGyList", this);
    // A listed group drug's line: its name, then its insurer's identifier, "-K" and its highlighted
    // group, "!" when it needs care.
    QWidget* header = rovanel::forms::tabColumns(m_found, QStringLiteral("Név"), QStringLiteral("Azonosító"));
    header->setObjectName("KhGyListFejlec");
    auto* legend = new QLabel(QStringLiteral("-K: kiemelt csoport,  !: óvatosan adható"), this);
    legend->setObjectName("KhGyListJelmagyarazat");
    legend->setWordWrap(true);
    right->addWidget(header);
    right->addWidget(m_found, 3);
    right->addWidget(legend);
    auto* khGyMegnez = button("KhGyMegnez", QStringLiteral("Megnéz"), this);
    right->addWidget(khGyMegnez);
    m_kgy = new QCheckBox(QStringLiteral("Közgyógy jelölve"), this);
    m_kgy->setObjectName("KgyJelolve");
    right->addWidget(m_kgy);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(5, 5, 5, 5);
    layout->addWidget(m_tab, 3);
    layout->addLayout(right, 2);
    rovanel::forms::rememberGeometry(this, QSize(900, 600));

    connect(gyToList, &QPushButton::clicked, this, &TKh::GyToListClick);
    connect(gyMegnez, &QPushButton::clicked, this, &TKh::GyMegnezClick);
    connect(ell.button, &QPushButton::clicked, this, &TKh::EllToListClick);
    connect(atc.button, &QPushButton::clicked, this, &TKh::ATCKeresClick);
    connect(ellenoriz, &QPushButton::clicked, this, &TKh::EllenorizClick);
    connect(m_szedett, &rovanel::forms::TakenDrugs::changed, this, &TKh::clearResults);
    connect(m_szedett, &rovanel::forms::TakenDrugs::descriptionRequested, this,
            &TKh::KhSzedettGyListDblClick);
    connect(ellTorol, &QPushButton::clicked, this, &TKh::EllTorolClick);
    connect(ellListTorol, &QPushButton::clicked, this, &TKh::EllListTorolClick);
    connect(khGyMegnez, &QPushButton::clicked, this, &TKh::KhGyMegnezClick);
    connect(m_found, &QListWidget::itemDoubleClicked, this, &TKh::KhGyMegnezClick);
    connect(m_atcTree, &QTreeWidget::currentItemChanged, this, &TKh::ATCTreeChange);
}

void TKh::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (!m_loaded) FormShow();
}

// First showing only: the drug names, the two trees and a fresh selection; kept until the program ends.
void TKh::FormShow()
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const auto& tables = m_state.tables;
    m_szedett->fillNames();
    rovanel::forms::loadTree(m_ellTree, rovanel::dataFilePath(tables.dataDirectory, "ellnren2.dat"));
    rovanel::forms::loadTree(m_atcTree, rovanel::dataFilePath(tables.dataDirectory, "atcnren2.dat"));
    m_state.selection.resetForInteractionWindow();
    QApplication::restoreOverrideCursor();
    m_loaded = true;
}

void TKh::GyToListClick() { m_szedett->addChosen(); }

// The drugs taken changed (added, deleted, cleared): the report and the found drugs no longer hold.
void TKh::clearResults()
{
    m_found->clear();
    m_eredmeny->clear();
}

void TKh::EllToListClick()
{
    const QList<QTreeWidgetItem*> selected = m_ellTree->selectedItems();
    const int node = selected.isEmpty() ? -1 : rovanel::forms::absoluteIndex(selected.first());
    const rovanel::SelectionChange change = m_state.selection.addContraindication(node);
    if (change.outcome == rovanel::SelectionOutcome::Changed) {
        m_found->clear();
        m_eredmeny->clear();
        rovanel::forms::addElidedLine(m_ellList, selected.first()->text(0));
    }
    if (change.message) showMessage(this, *change.message);
}

void TKh::KhSzGyTorolClick() { m_szedett->removeSelected(); }

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

void TKh::KhSzGyListTorolClick() { m_szedett->clearAll(); }

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
    if (!result.report.empty()) rovanel::forms::renderInto(m_eredmeny, result.styledReport);
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

void TKh::GyMegnezClick() { m_szedett->describeChosen(); }

void TKh::KhGyMegnezClick()
{
    const int row = rovanel::forms::selectedRow(m_found);
    if (row < 0 || !m_viewer) return;
    m_viewer(m_state.found.recordAt(row), m_found->item(row)->text());
}

void TKh::KhSzedettGyListDblClick(rovanel::ProductRecord record, const QString& caption)
{
    if (m_viewer) m_viewer(record, caption);
}
