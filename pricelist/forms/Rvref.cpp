#include "pricelist/forms/Rvref.h"

#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "app/UserPaths.h"
#include "app/UserSettings.h"
#include "app/forms/Help.h"
#include "app/forms/ShowMessage.h"
#include "certs/PublicCareList.h"
#include "db/Cp1250.h"
#include "db/DataFile.h"
#include "db/ProductIndex.h"
#include "db/SharedState.h"
#include "db/Text.h"
#include "pricelist/AtcTreeSearch.h"
#include "pricelist/forms/RefListModel.h"
#include "views/forms/kit/NameList.h"
#include "views/forms/kit/WindowGeometry.h"

using rovanel::forms::fromCp1250;

namespace
{

constexpr int kHelpContext = 700;
constexpr std::size_t kAtcFieldLength = 8;

QPushButton* button(const char* name, const QString& caption, QWidget* parent)
{
    auto* result = new QPushButton(caption, parent);
    result->setObjectName(name);
    return result;
}

rovanel::Message plainMessage(const char* utf8)
{
    return rovanel::Message{rovanel::utf8ToCp1250(utf8), "", rovanel::MessageIcon::None, false};
}

constexpr const char* kSelectRow = "Jelöljön ki egy készítményt az alsó listából";

// The list's column header: a caption wider than its column ends in "…" within the room the style leaves
// for the text (the header's own eliding measures the whole section and lets both ends be cut off).
class ElidingHeader : public QHeaderView
{
public:
    explicit ElidingHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {}

protected:
    void initStyleOptionForIndex(QStyleOptionHeader* option, int logicalIndex) const override
    {
        QHeaderView::initStyleOptionForIndex(option, logicalIndex);
        const int margin = style()->pixelMetric(QStyle::PM_HeaderMargin, option, this);
        const int room = sectionSize(logicalIndex) - 4 * margin;
        option->text = option->fontMetrics.elidedText(option->text, Qt::ElideRight, std::max(room, 0));
    }
};

}  // namespace

TRefForm::TRefForm(rovanel::SharedState& state, rovanel::RegistryStore& registry, QWidget* parent)
    : QWidget(parent, Qt::Window),
      m_state(state),
      m_registry(registry),
      m_list(state.tables),
      m_widths(rovanel::designedColumnWidths())
{
    setObjectName("RefForm");
    setWindowTitle(QStringLiteral("Részletes lista"));
    setHelpContext(this, kHelpContext);
    rovanel::forms::rememberGeometry(this, QSize(1100, 700));

    AtcTree = new QTreeWidget(this);
    AtcTree->setObjectName("AtcTree");
    AtcTree->setHeaderHidden(true);
    AtcTree->setEditTriggers(QAbstractItemView::NoEditTriggers);

    GyTapRb = new QGroupBox(this);
    GyTapRb->setObjectName("GyTapRb");
    m_drugs = new QRadioButton(QStringLiteral("Gyógyszer"), GyTapRb);
    m_drugs->setObjectName("GyTapRb0");
    m_drugs->setChecked(true);
    m_nutrition = new QRadioButton(QStringLiteral("Tápszer"), GyTapRb);
    m_nutrition->setObjectName("GyTapRb1");
    auto* kindLayout = new QHBoxLayout(GyTapRb);
    kindLayout->addWidget(m_drugs);
    kindLayout->addWidget(m_nutrition);

    Gylist = new rovanel::forms::NameList("Gylist", this);

    auto* textGroup = new QGroupBox(QStringLiteral("Atc szövegben keres"), this);
    textGroup->setObjectName("AtcSzovegGrp");
    AtcTxtEdt = new QLineEdit(textGroup);
    AtcTxtEdt->setObjectName("AtcTxtEdt");
    auto* textFind = button("AtcTxtKeres", QStringLiteral("&Keres"), textGroup);
    AtcTxtNext = button("AtcTxtNext", QStringLiteral("Kö&vetkező"), textGroup);
    AtcTxtNext->setEnabled(false);
    auto* textLayout = new QHBoxLayout(textGroup);
    textLayout->addWidget(AtcTxtEdt, 1);
    textLayout->addWidget(textFind);
    textLayout->addWidget(AtcTxtNext);

    auto* codeGroup = new QGroupBox(QStringLiteral("Atc kódot keres"), this);
    codeGroup->setObjectName("AtcKodGrp");
    AtcKodEdt = new QLineEdit(codeGroup);
    AtcKodEdt->setObjectName("AtcKodEdt");
    connect(AtcKodEdt, &QLineEdit::textEdited, this, [this](const QString& text) {
        const int cursor = AtcKodEdt->cursorPosition();
        AtcKodEdt->setText(text.toUpper());  // upper-case input
        AtcKodEdt->setCursorPosition(cursor);
    });
    auto* codeFind = button("AtcKodKeres", QStringLiteral("Ke&res"), codeGroup);
    auto* codeLayout = new QHBoxLayout(codeGroup);
    codeLayout->addWidget(AtcKodEdt, 1);
    codeLayout->addWidget(codeFind);

    ShowAtcList = new QCheckBox(QStringLiteral("Atc listát mutat"), this);
    ShowAtcList->setObjectName("ShowAtcList");
    ShowAtcList->setChecked(true);
    auto* kgyAdd = button("KgyAdd", QStringLiteral("Közgyógy listához ad"), this);
    auto* help = button("HasznalatiUtmutato", QStringLiteral("&Használati útmutató"), this);

    constexpr const char* kTfxNames[3] = {"TfxNorm", "TfxTerkot", "TfxTerment"};
    auto* tfxLayout = new QHBoxLayout;
    for (int kind = 0; kind < 3; ++kind) {
        const auto supportKind = static_cast<rovanel::SupportKind>(kind);
        m_tfx[kind] = button(kTfxNames[kind], fromCp1250(m_list.fixedGroupButtonCaption(supportKind)), this);
        m_tfx[kind]->setEnabled(false);
        tfxLayout->addWidget(m_tfx[kind]);
        connect(m_tfx[kind], &QPushButton::clicked, this, [this, supportKind] { TfxClick(supportKind); });
    }

    auto* widthGroup = new QGroupBox(QStringLiteral("Adatoszlopok beáll."), this);
    widthGroup->setObjectName("GroupBox1");
    auto* save = button("SaveColWidth", QStringLiteral("Ment"), widthGroup);
    auto* showAll = button("DefColWidth", QStringLiteral("Mindent mutat"), widthGroup);
    auto* widthLayout = new QHBoxLayout(widthGroup);
    widthLayout->addWidget(save);
    widthLayout->addWidget(showAll);

    m_model = new RefListModel(m_list, this);
    RefLst = new QTableView(this);
    RefLst->setObjectName("RefLst");
    RefLst->setHorizontalHeader(new ElidingHeader(RefLst));
    RefLst->setModel(m_model);
    RefLst->setSelectionBehavior(QAbstractItemView::SelectRows);
    RefLst->setSelectionMode(QAbstractItemView::SingleSelection);
    RefLst->setEditTriggers(QAbstractItemView::NoEditTriggers);
    RefLst->setShowGrid(true);
    RefLst->setWordWrap(false);
    RefLst->verticalHeader()->hide();
    RefLst->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    RefLst->verticalHeader()->setDefaultSectionSize(RefLst->fontMetrics().height() + 6);
    RefLst->horizontalHeader()->setSectionsClickable(true);
    RefLst->horizontalHeader()->setHighlightSections(false);
    RefLst->horizontalHeader()->setTextElideMode(Qt::ElideRight);

    // Layout: the tree on the left, the searches and buttons beside it, the list below both.
    auto* controls = new QVBoxLayout;
    controls->addWidget(GyTapRb);
    controls->addWidget(Gylist);
    auto* searches = new QHBoxLayout;
    searches->addWidget(textGroup, 3);
    searches->addWidget(codeGroup, 2);
    controls->addLayout(searches);
    auto* actions = new QHBoxLayout;
    actions->addWidget(ShowAtcList);
    actions->addWidget(kgyAdd);
    actions->addWidget(help);
    actions->addStretch();
    controls->addLayout(actions);
    controls->addLayout(tfxLayout);
    controls->addWidget(widthGroup);
    controls->addStretch();
    auto* top = new QHBoxLayout;
    top->addWidget(AtcTree, 1);
    top->addLayout(controls, 1);
    auto* main = new QVBoxLayout(this);
    main->addLayout(top, 2);
    main->addWidget(RefLst, 3);

    connect(AtcTree, &QTreeWidget::itemDoubleClicked, this, [this] { AtcTreeDblClick(); });
    connect(RefLst, &QTableView::doubleClicked, this, [this] { RefLstDblClick(); });
    connect(Gylist, qOverload<int>(&QComboBox::activated), this, &TRefForm::GylistClick);
    connect(m_drugs, &QRadioButton::clicked, this, &TRefForm::GyTapRbClick);
    connect(m_nutrition, &QRadioButton::clicked, this, &TRefForm::GyTapRbClick);
    connect(RefLst->horizontalHeader(), &QHeaderView::sectionClicked, this, &TRefForm::RefLstColumnClick);
    connect(RefLst->horizontalHeader(), &QHeaderView::sectionResized, this,
            [this](int section, int, int size) {
                if (!m_applyingWidths && section >= 0 && section < rovanel::kDetailedColumnCount)
                    m_widths[static_cast<std::size_t>(section)] = size;
            });
    connect(textFind, &QPushButton::clicked, this, &TRefForm::AtcTxtKeresClick);
    connect(AtcTxtNext, &QPushButton::clicked, this, &TRefForm::AtcTxtNextClick);
    connect(AtcTxtEdt, &QLineEdit::textChanged, this, &TRefForm::AtcTxtEdtChange);
    connect(codeFind, &QPushButton::clicked, this, &TRefForm::AtcKodKeresClick);
    connect(AtcKodEdt, &QLineEdit::returnPressed, this, &TRefForm::AtcKodKeresClick);
    connect(ShowAtcList, &QCheckBox::clicked, this, &TRefForm::ShowAtcListClick);
    connect(kgyAdd, &QPushButton::clicked, this, &TRefForm::KgyAddClick);
    connect(help, &QPushButton::clicked, this, [] { openHelp(kHelpContext); });
    connect(save, &QPushButton::clicked, this, &TRefForm::SaveColWidthClick);
    connect(showAll, &QPushButton::clicked, this, &TRefForm::DefColWidthClick);
    applyWidths();
}

// The table and its model read the detailed list's rows and captions, which are members of this form:
// they go first, before the members they read are destroyed.
TRefForm::~TRefForm()
{
    delete RefLst;
    delete m_model;
}

void TRefForm::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (!m_shown) FormShow();
}

void TRefForm::FormShow()
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    // The user's setting, the one the description window's check box writes; the detailed list hides TT
    // packages only for exactly "IGEN" (kept on purpose, see tst_Rvref).
    m_state.hideDeleted = rovanel::readUserSetting(rovanel::userIniPath(), m_state.tables.dataDirectory,
                                                   rovanel::kHideDeletedKey, "NEM") == "IGEN";
    if (auto error = rovanel::restoreColumnWidths(m_registry, m_widths)) showMessage(this, *error);
    applyWidths();
    loadTree();
    fillNames();
    QApplication::restoreOverrideCursor();
    m_shown = true;
}

void TRefForm::loadTree()
{
    AtcTree->clear();
    m_treeItems.clear();
    m_nodes = rovanel::loadTreeFile(rovanel::dataFilePath(m_state.tables.dataDirectory, "atcnren2.dat"))
                  .value_or(std::vector<rovanel::TreeNode>{});
    std::vector<QTreeWidgetItem*> parents;  // parents[d] = the last item of depth d
    m_treeItems.reserve(m_nodes.size());
    for (std::size_t line = 0; line < m_nodes.size(); ++line) {
        const auto depth = static_cast<std::size_t>(m_nodes[line].depth);
        auto* item = depth == 0 ? new QTreeWidgetItem(AtcTree) : new QTreeWidgetItem(parents[depth - 1]);
        item->setText(0, fromCp1250(m_nodes[line].text));
        item->setData(0, Qt::UserRole, static_cast<int>(line));
        parents.resize(depth + 1);
        parents[depth] = item;
        m_treeItems.push_back(item);
    }
}

void TRefForm::fillNames()
{
    const auto group = m_drugs->isChecked() ? rovanel::NameGroup::Medicines : rovanel::NameGroup::Nutrition;
    Gylist->setNames(rovanel::nameListFill(m_state.tables, group));
    if (Gylist->count() > 0) Gylist->setCurrentIndex(0);
}

void TRefForm::GyTapRbClick() { fillNames(); }

void TRefForm::bFillSameAtc(const std::string& code, rovanel::ListingMode mode)
{
    // Without a product chosen in the name list the list is not filled.
    if (Gylist->currentIndex() < 0) return;
    m_list.setHideDeleted(m_state.hideDeleted);
    m_model->beginChange();
    const rovanel::FillOutcome outcome = m_list.bFillSameAtc(code, mode);
    m_model->endChange();
    showOutcome(outcome);
}

void TRefForm::showOutcome(const rovanel::FillOutcome& outcome)
{
    if (outcome.changed) {
        for (int column : outcome.hiddenColumns) m_widths[static_cast<std::size_t>(column)] = 0;
        applyWidths();
    }
    for (int kind = 0; kind < 3; ++kind) {
        const auto supportKind = static_cast<rovanel::SupportKind>(kind);
        m_tfx[kind]->setText(fromCp1250(m_list.fixedGroupButtonCaption(supportKind)));
        m_tfx[kind]->setEnabled(m_list.fixedGroupButtonEnabled(supportKind));
    }
    for (const rovanel::Message& message : outcome.messages) showMessage(this, message);
}

void TRefForm::applyWidths()
{
    m_applyingWidths = true;
    QHeaderView* header = RefLst->horizontalHeader();
    for (int column = 0; column < rovanel::kDetailedColumnCount; ++column) {
        const int width = m_widths[static_cast<std::size_t>(column)];
        header->setSectionHidden(column, width <= 0);
        if (width > 0) header->resizeSection(column, width);
    }
    m_applyingWidths = false;
}

int TRefForm::selectedRow() const
{
    const QModelIndexList rows = RefLst->selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.first().row();
}

void TRefForm::selectNode(int node)
{
    if (node < 0 || static_cast<std::size_t>(node) >= m_treeItems.size()) return;
    AtcTree->setCurrentItem(m_treeItems[static_cast<std::size_t>(node)]);
    AtcTree->scrollToItem(m_treeItems[static_cast<std::size_t>(node)]);
}

void TRefForm::AtcTreeDblClick()
{
    const int node = rovanel::forms::selectedNode(AtcTree);
    const auto& codes = m_state.tables.atcGroupCodes;
    if (node < 0 || static_cast<std::size_t>(node) >= codes.size()) return;
    bFillSameAtc(std::string(codes[static_cast<std::size_t>(node)]), rovanel::ListingMode::Plain);
}

void TRefForm::GylistClick(int index)
{
    if (index < 0) return;
    const auto group = m_drugs->isChecked() ? rovanel::NameGroup::Medicines : rovanel::NameGroup::Nutrition;
    const std::int32_t record = rovanel::recordOfListPosition(m_state.tables, group, index);
    const auto& products = m_state.tables.productCodes;
    if (record < 0 || static_cast<std::size_t>(record) >= products.size()) return;
    const std::string_view productCode = products[static_cast<std::size_t>(record)];
    const std::string atc(productCode.substr(0, std::min(productCode.size(), kAtcFieldLength)));
    const int slot = rovanel::findAtcCode(m_state.tables.atcGroupCodes, atc);
    selectNode(slot);
    bFillSameAtc(atc, rovanel::ListingMode::Plain);
}

void TRefForm::RefLstDblClick()
{
    const int row = selectedRow();
    if (row < 0 || !m_showDescription) return;
    const auto& cells = m_list.rows()[static_cast<std::size_t>(row)].cells;
    // A "gyidx" cell that is no number opens nothing.
    const auto record = rovanel::parseInteger(cells[rovanel::column::kRecord]);
    if (!record || *record < 0 || *record > INT32_MAX) return;
    m_showDescription(static_cast<std::int32_t>(*record), fromCp1250(cells[rovanel::column::kCaption]));
}

void TRefForm::RefLstColumnClick(int column)
{
    m_model->beginChange();
    const auto error = m_list.RefLstColumnClick(column);
    m_model->endChange();
    if (error) showMessage(this, *error);
}

void TRefForm::treeTextHit(int node)
{
    selectNode(node);
    m_textHit = node + 1;
    AtcTreeDblClick();
    AtcTxtNext->setEnabled(true);
}

void TRefForm::AtcTxtKeresClick()
{
    const std::string text = rovanel::utf8ToCp1250(AtcTxtEdt->text().toStdString());
    const int node = rovanel::findAtcText(m_nodes, m_state.tables.atcGroupCodes.size(), 0, text);
    if (node < 0) {
        showMessage(this, plainMessage("Nem található!"));
        return;
    }
    treeTextHit(node);
}

void TRefForm::AtcTxtNextClick()
{
    if (m_textHit == 0) return;
    const std::string text = rovanel::utf8ToCp1250(AtcTxtEdt->text().toStdString());
    const int node = rovanel::findAtcText(m_nodes, m_state.tables.atcGroupCodes.size(),
                                          static_cast<std::size_t>(m_textHit), text);
    if (node < 0) {
        showMessage(this, plainMessage("Nincs több!"));
        return;
    }
    treeTextHit(node);
}

void TRefForm::AtcTxtEdtChange()
{
    m_textHit = 0;
    AtcTxtNext->setEnabled(false);
}

void TRefForm::AtcKodKeresClick()
{
    const std::string typed = rovanel::utf8ToCp1250(AtcKodEdt->text().toUpper().toStdString());
    const int slot = rovanel::findAtcCode(m_state.tables.atcGroupCodes, typed);
    if (slot < 0) {
        showMessage(this, plainMessage("Hibás ATC kód!"));
        return;
    }
    selectNode(slot);
    bFillSameAtc(std::string(m_state.tables.atcGroupCodes[static_cast<std::size_t>(slot)]),
                 rovanel::ListingMode::Plain);
}

void TRefForm::ShowAtcListClick() { AtcTree->setVisible(ShowAtcList->isChecked()); }

void TRefForm::KgyAddClick()
{
    const int row = selectedRow();
    if (row < 0) {
        showMessage(this, plainMessage(kSelectRow));
        return;
    }
    const auto& cells = m_list.rows()[static_cast<std::size_t>(row)].cells;
    // The ATC field comes from the record read last while the list was filled (kept on purpose, see
    // tst_Rvref).
    const std::string& lastCode = m_list.lastReadCode();
    rovanel::PublicCareEntry entry;
    entry.atcCode = lastCode.substr(0, std::min(lastCode.size(), kAtcFieldLength));
    entry.ttt = cells[rovanel::column::kTtt];
    entry.name = cells[rovanel::column::kCaption];
    entry.form = cells[rovanel::column::kForm];
    entry.ingredient = rovanel::publicCareIngredient(m_nodes, m_state.tables.atcGroupCodes, entry.atcCode);
    const auto error =
        rovanel::appendPublicCareEntry(rovanel::publicCareListPath(m_state.tables.dataDirectory), entry);
    if (error) showMessage(this, rovanel::Message{*error, "", rovanel::MessageIcon::Stop, false});
}

void TRefForm::SaveColWidthClick()
{
    if (auto error = rovanel::saveColumnWidths(m_registry, m_widths)) showMessage(this, *error);
}

void TRefForm::DefColWidthClick()
{
    m_widths = rovanel::showAllColumnWidths();
    applyWidths();
}

void TRefForm::TfxClick(rovanel::SupportKind kind)
{
    m_list.setHideDeleted(m_state.hideDeleted);
    m_model->beginChange();
    const rovanel::FillOutcome outcome = m_list.fixedGroupClick(kind, selectedRow());
    m_model->endChange();
    showOutcome(outcome);
}
