#include "rx/forms/Rvbno.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "app/forms/Help.h"
#include "db/Cp1250.h"
#include "rx/BnoTree.h"
#include "rx/forms/BnoTreeView.h"
#include "views/forms/kit/Lists.h"
#include "views/forms/kit/Text.h"
#include "views/forms/kit/WindowGeometry.h"

using rovanel::forms::fromCp1250;

namespace
{

QPushButton* button(const char* name, const char* caption, QWidget* parent)
{
    auto* result = new QPushButton(QString::fromUtf8(caption), parent);
    result->setObjectName(name);
    return result;
}

std::string toCp1250(const QString& text) { return rovanel::utf8ToCp1250(text.toUtf8().toStdString()); }

}  // namespace

TBnoForm::TBnoForm(std::filesystem::path dataDirectory, QWidget* parent)
    : QWidget(parent, Qt::Window), m_dataDirectory(std::move(dataDirectory))
{
    setObjectName("BnoForm");
    setWindowTitle(QString::fromUtf8("Bno kereső"));
    setHelpContext(this, 610);
    rovanel::forms::rememberGeometry(this, QSize(760, 560));

    BnoEdt = new QLineEdit(this);
    BnoEdt->setObjectName("BnoEdt");
    auto* label = new QLabel(QString::fromUtf8("Keresendő:"), this);
    label->setBuddy(BnoEdt);
    BnoKeres = button("BnoKeres", "&Keres", this);
    BnoNext = button("BnoNext", "Kö&vetkező", this);
    aAChb = new QCheckBox(QString::fromUtf8("kisbetű=&NAGYBETŰ"), this);
    aAChb->setObjectName("aAChb");

    auto* mode = new QGroupBox(QString::fromUtf8("Keresés eredményének megjelenítése"), this);
    mode->setObjectName("FabaListaba");
    m_inTree = new QRadioButton(QString::fromUtf8("Fában egyenként"), mode);
    m_inTree->setObjectName("FabaListaba0");
    m_inTree->setChecked(true);
    m_inList = new QRadioButton(QString::fromUtf8("Listában felsorolva"), mode);
    m_inList->setObjectName("FabaListaba1");
    auto* modeLayout = new QHBoxLayout(mode);
    modeLayout->addWidget(m_inTree);
    modeLayout->addWidget(m_inList);

    BnoTree = new QTreeWidget(this);
    BnoTree->setObjectName("BnoTree");
    BnoTree->setHeaderHidden(true);
    BnoTree->setUniformRowHeights(true);
    FoundBnoLst = new QListWidget(this);
    FoundBnoLst->setObjectName("FoundBnoLst");
    auto* listLabel = new QLabel(QString::fromUtf8("A listában dupla klikkre kinyílik a BNO fa"), this);
    BnoCollapse = button("BnoCollapse", "BNO fát összecsuk", this);
    CopyToClipboard = button("CopyToClipboard", "&Vágólapra másol", this);

    auto* search = new QHBoxLayout;
    search->addWidget(label);
    search->addWidget(BnoEdt, 1);
    search->addWidget(BnoKeres);
    search->addWidget(BnoNext);
    search->addWidget(aAChb);
    auto* found = new QVBoxLayout;
    found->addWidget(mode);
    found->addWidget(listLabel);
    found->addWidget(FoundBnoLst, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(BnoCollapse);
    buttons->addWidget(CopyToClipboard);
    found->addLayout(buttons);
    auto* body = new QHBoxLayout;
    body->addWidget(BnoTree, 3);
    body->addLayout(found, 2);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(search);
    layout->addLayout(body, 1);

    connect(BnoKeres, &QPushButton::clicked, this, &TBnoForm::BnoKeresClick);
    connect(BnoNext, &QPushButton::clicked, this, &TBnoForm::BnoNextClick);
    connect(BnoEdt, &QLineEdit::returnPressed, this, &TBnoForm::BnoKeresClick);
    // A changed text has no "next" until it is searched.
    connect(BnoEdt, &QLineEdit::textChanged, this, [this] { BnoNext->setEnabled(false); });
    connect(FoundBnoLst, &QListWidget::itemDoubleClicked, this,
            [this](QListWidgetItem* item) { FoundBnoLstDblClick(FoundBnoLst->row(item)); });
    connect(BnoCollapse, &QPushButton::clicked, this, &TBnoForm::BnoCollapseClick);
    connect(CopyToClipboard, &QPushButton::clicked, this, &TBnoForm::CopyToClipboardClick);
}

void TBnoForm::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    FormShow();
}

void TBnoForm::FormShow()
{
    // Loaded once per run, however often the window is shown.
    if (m_treeLoads > 0) return;
    ++m_treeLoads;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    m_nodes = rovanel::loadBnoTree(m_dataDirectory).value_or(std::vector<rovanel::TreeNode>{});
    rovanel::forms::fillBnoTree(BnoTree, m_nodes);
    QApplication::restoreOverrideCursor();
}

bool TBnoForm::listMode() const { return m_inList->isChecked(); }

void TBnoForm::selectNode(std::size_t index) { rovanel::forms::selectBnoNode(BnoTree, index); }

void TBnoForm::BnoKeresClick()
{
    FoundBnoLst->clear();
    BnoNext->setEnabled(!listMode());
    const std::string text = toCp1250(BnoEdt->text());
    if (listMode()) {
        rovanel::sharedBnoSearchPosition().counter = 0;
        for (const std::size_t hit : rovanel::bnoSearchAll(m_nodes, text, aAChb->isChecked()))
            FoundBnoLst->addItem(fromCp1250(m_nodes[hit].text));
        return;
    }
    // No hit leaves the selection as it was.
    if (const auto hit =
            rovanel::bnoSearchFirst(m_nodes, text, aAChb->isChecked(), rovanel::sharedBnoSearchPosition()))
        selectNode(*hit);
}

void TBnoForm::BnoNextClick()
{
    const std::string text = toCp1250(BnoEdt->text());
    if (const auto hit =
            rovanel::bnoSearchNext(m_nodes, text, aAChb->isChecked(), rovanel::sharedBnoSearchPosition()))
        selectNode(*hit);
}

void TBnoForm::FoundBnoLstDblClick(int row)
{
    if (row < 0 || row >= FoundBnoLst->count()) return;
    const std::string line = toCp1250(FoundBnoLst->item(row)->text());
    for (std::size_t i = 0; i < m_nodes.size(); ++i) {
        if (m_nodes[i].text == line) {
            selectNode(i);
            return;
        }
    }
}

void TBnoForm::BnoCollapseClick() { BnoTree->collapseAll(); }

void TBnoForm::CopyToClipboardClick()
{
    QStringList lines;
    for (int i = 0; i < FoundBnoLst->count(); ++i) lines << FoundBnoLst->item(i)->text();
    QApplication::clipboard()->setText(lines.join('\n') + (lines.isEmpty() ? "" : "\n"));
}
