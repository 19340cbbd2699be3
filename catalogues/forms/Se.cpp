#include "catalogues/forms/Se.h"

#include <QApplication>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSplitter>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "catalogues/MedicalAids.h"
#include "db/Cp1250.h"
#include "db/DataFile.h"
#include "db/SharedState.h"
#include "views/forms/kit/Lists.h"
#include "views/forms/kit/Text.h"
#include "views/forms/kit/WindowGeometry.h"

using rovanel::forms::fromCp1250;

namespace
{

constexpr int kNodeRole = Qt::UserRole;
constexpr int kCodeRole = Qt::UserRole + 1;

QPushButton* button(const char* name, const QString& caption, QWidget* parent)
{
    auto* result = new QPushButton(caption, parent);
    result->setObjectName(name);
    return result;
}

QLabel* label(const QString& text, const QString& hint = {})
{
    auto* result = new QLabel(text);
    result->setToolTip(hint);
    return result;
}

std::string fromBox(const QString& text) { return rovanel::utf8ToCp1250(text.toStdString()); }

}  // namespace

TSegedeszk::TSegedeszk(rovanel::SharedState& state, QWidget* parent)
    : QWidget(parent), m_state(state), m_catalogue(std::make_unique<rovanel::AidCatalogue>())
{
    setObjectName("Segedeszk");
    setWindowTitle(QStringLiteral("Gyógyászati segédeszközök"));
    rovanel::forms::rememberGeometry(this, QSize(900, 640));

    m_tree = new QTreeWidget(this);
    m_tree->setObjectName("SeTree");
    m_tree->setHeaderHidden(true);
    auto* collapse = button("SeTreeCollapse", QStringLiteral("&Fát összecsuk"), this);
    auto* expand = button("SeTreeExpand", QStringLiteral("Fát &kinyit"), this);

    m_search = new QLineEdit(this);
    m_search->setObjectName("SeEdt");
    auto* keres = button("SeKeres", QStringLiteral("Fá&ban keres"), this);
    m_next = button("SeNext", QStringLiteral("Fában kö&vetkező"), this);
    auto* nevKeres = button("SeNevKeres", QStringLiteral("&Nevekben keres"), this);
    auto* mode = new QGroupBox(QStringLiteral("Fában keresés eredményének megjelenítése"), this);
    mode->setObjectName("FabaListaba");
    m_oneByOne = new QRadioButton(QStringLiteral("Fában egyenként"), mode);
    m_oneByOne->setObjectName("FabaListaba0");
    auto* asList = new QRadioButton(QStringLiteral("Listában felsorolva"), mode);
    asList->setObjectName("FabaListaba1");
    asList->setChecked(true);
    auto* modeLayout = new QHBoxLayout(mode);  // side by side: the window's least height fits 768 at 150 %
    modeLayout->addWidget(m_oneByOne);
    modeLayout->addWidget(asList);

    m_found = new QListWidget(this);
    m_found->setObjectName("FoundSeLst");
    auto* listaz = button("SeListaz", QStringLiteral("&Listáz"), this);
    m_list = new QTreeWidget(this);
    m_list->setObjectName("SeList");
    m_list->setRootIsDecorated(false);
    m_list->setHeaderHidden(true);
    m_list->setColumnCount(2);
    m_list->header()->resizeSection(0, 300);  // the list's tab width
    m_description = new QPlainTextEdit(this);
    m_description->setObjectName("SeDesc");
    m_description->setReadOnly(true);

    auto* treeButtons = new QHBoxLayout;
    treeButtons->addWidget(collapse);
    treeButtons->addWidget(expand);
    treeButtons->addStretch();
    auto* left = new QWidget(this);
    auto* leftLayout = new QVBoxLayout(left);
    leftLayout->setContentsMargins(0, 0, 0, 0);
    leftLayout->addWidget(m_tree);
    leftLayout->addLayout(treeButtons);

    auto* searchButtons = new QHBoxLayout;
    searchButtons->addWidget(keres);
    searchButtons->addWidget(m_next);
    searchButtons->addWidget(nevKeres);
    auto* right = new QWidget(this);
    auto* rightLayout = new QGridLayout(right);
    rightLayout->setContentsMargins(0, 0, 0, 0);
    rightLayout->addWidget(label(QStringLiteral("Keresendő:")), 0, 0);
    rightLayout->addWidget(m_search, 0, 1);
    rightLayout->addLayout(searchButtons, 1, 0, 1, 2);
    rightLayout->addWidget(mode, 2, 0, 1, 2);
    rightLayout->addWidget(
        label(QStringLiteral("Keresés eredménye:"),
              QStringLiteral("kettős kattintásra listázza az azonos csoportba tartozó eszközöket")),
        3, 0, 1, 2);
    rightLayout->addWidget(m_found, 4, 0, 1, 2);
    rightLayout->addWidget(listaz, 5, 0);
    rightLayout->addWidget(label(QStringLiteral("Listázás eredménye:"),
                                 QStringLiteral("kiválasztáskor megjelenik az eszköz leírása")),
                           6, 0, 1, 2);
    rightLayout->addWidget(m_list, 7, 0, 1, 2);
    rightLayout->setRowStretch(4, 1);
    rightLayout->setRowStretch(7, 2);

    auto* top = new QSplitter(Qt::Horizontal, this);
    top->addWidget(left);
    top->addWidget(right);
    top->setStretchFactor(0, 2);
    top->setStretchFactor(1, 3);
    auto* bottom = new QWidget(this);
    auto* bottomLayout = new QVBoxLayout(bottom);
    bottomLayout->setContentsMargins(0, 0, 0, 0);
    bottomLayout->addWidget(label(QStringLiteral("Eszköz leírása:")));
    bottomLayout->addWidget(m_description);
    auto* split = new QSplitter(Qt::Vertical, this);
    split->addWidget(top);
    split->addWidget(bottom);
    split->setStretchFactor(0, 3);
    split->setStretchFactor(1, 2);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(split);

    connect(collapse, &QPushButton::clicked, this, &TSegedeszk::SeTreeCollapseClick);
    connect(expand, &QPushButton::clicked, this, &TSegedeszk::SeTreeExpandClick);
    connect(keres, &QPushButton::clicked, this, &TSegedeszk::SeKeresClick);
    connect(m_next, &QPushButton::clicked, this, &TSegedeszk::SeNextClick);
    connect(nevKeres, &QPushButton::clicked, this, &TSegedeszk::SeNevKeresClick);
    connect(listaz, &QPushButton::clicked, this, &TSegedeszk::SeListazClick);
    connect(m_found, &QListWidget::itemClicked, this, &TSegedeszk::FoundSeLstClick);
    connect(m_found, &QListWidget::itemDoubleClicked, this, &TSegedeszk::SeListazClick);
    connect(m_list, &QTreeWidget::itemSelectionChanged, this, &TSegedeszk::SeListClick);
}

TSegedeszk::~TSegedeszk() = default;

void TSegedeszk::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (!m_loaded) FormShow();
}

// First showing only; a catalogue without its tree is tried again at the next showing.
void TSegedeszk::FormShow()
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    *m_catalogue = rovanel::loadAidCatalogue(m_state.tables.dataDirectory);
    m_loaded =
        rovanel::forms::loadTree(m_tree, rovanel::dataFilePath(m_state.tables.dataDirectory, "senrend2.dat"));
    // The ISO notation of each group (seiso.dat) is its node's hint.
    for (QTreeWidgetItemIterator it(m_tree); *it; ++it) {
        const int node = rovanel::forms::absoluteIndex(*it);
        if (node >= 0 && static_cast<std::size_t>(node) < m_catalogue->iso.size())
            (*it)->setToolTip(0, fromCp1250(m_catalogue->iso[static_cast<std::size_t>(node)]));
    }
    QApplication::restoreOverrideCursor();
}

void TSegedeszk::SeTreeCollapseClick() { m_tree->collapseAll(); }

void TSegedeszk::SeTreeExpandClick() { m_tree->expandAll(); }

void TSegedeszk::selectNode(int node)
{
    for (QTreeWidgetItemIterator it(m_tree); *it; ++it)
        if (rovanel::forms::absoluteIndex(*it) == node) {
            m_tree->setCurrentItem(*it);
            m_tree->scrollToItem(*it);
            return;
        }
}

void TSegedeszk::SeKeresClick()
{
    m_found->clear();
    const bool oneByOne = m_oneByOne->isChecked();
    m_next->setEnabled(oneByOne);
    const std::string text = fromBox(m_search->text());
    if (oneByOne) {
        m_lastHit = rovanel::findInAidTree(*m_catalogue, text, 0);
        if (m_lastHit >= 0) selectNode(m_lastHit);
        return;
    }
    for (int node = rovanel::findInAidTree(*m_catalogue, text, 0); node >= 0;
         node = rovanel::findInAidTree(*m_catalogue, text, node + 1)) {
        auto* item =
            new QListWidgetItem(fromCp1250(m_catalogue->tree[static_cast<std::size_t>(node)].text), m_found);
        item->setData(kNodeRole, node);
    }
}

void TSegedeszk::SeNextClick()
{
    if (m_lastHit < 0) return;
    const int hit = rovanel::findInAidTree(*m_catalogue, fromBox(m_search->text()), m_lastHit + 1);
    if (hit < 0) return;
    m_lastHit = hit;
    selectNode(hit);
}

void TSegedeszk::SeNevKeresClick()
{
    m_found->clear();
    for (const rovanel::AidNameHit& hit : rovanel::findAidNames(*m_catalogue, fromBox(m_search->text()))) {
        auto* item = new QListWidgetItem(fromCp1250(hit.name), m_found);
        item->setData(kNodeRole, hit.node);
        item->setData(kCodeRole, QString::fromStdString(hit.code));
    }
}

void TSegedeszk::FoundSeLstClick()
{
    const QListWidgetItem* item = m_found->currentItem();
    if (item) selectNode(item->data(kNodeRole).toInt());
}

void TSegedeszk::SeListazClick()
{
    m_list->clear();
    m_listedNode = rovanel::forms::selectedNode(m_tree);
    if (m_listedNode < 0 && m_tree->currentItem())
        m_listedNode = rovanel::forms::absoluteIndex(m_tree->currentItem());
    const QString wanted =
        m_found->currentItem() ? m_found->currentItem()->data(kCodeRole).toString() : QString();
    for (const rovanel::AidEntry& aid : rovanel::listAidGroup(*m_catalogue, m_listedNode)) {
        auto* row = new QTreeWidgetItem(m_list, {fromCp1250(aid.text), QString::fromStdString(aid.code)});
        // An aid found by name is chosen in its group's list at once.
        if (!wanted.isEmpty() && row->text(1) == wanted) m_list->setCurrentItem(row);
    }
}

void TSegedeszk::SeListClick()
{
    const QTreeWidgetItem* row = m_list->currentItem();
    if (!row) return;
    const auto description = rovanel::aidDescription(*m_catalogue, m_state.tables.messages, m_listedNode,
                                                     row->text(1).toStdString());
    m_description->setPlainText(description ? rovanel::forms::boxText(*description) : QString());
}
