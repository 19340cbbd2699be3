#include "catalogues/forms/Fono.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QSplitter>
#include <QTextEdit>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "catalogues/Formulary.h"
#include "db/Cp1250.h"
#include "db/DataFile.h"
#include "db/SharedState.h"
#include "views/forms/kit/Lists.h"
#include "views/forms/kit/NameList.h"
#include "views/forms/kit/StyledText.h"
#include "views/forms/kit/Text.h"
#include "views/forms/kit/WindowGeometry.h"

using rovanel::forms::fromCp1250;

namespace
{

// The box's own font: fixed pitch.
rovanel::TextStyle fixedPitch()
{
    rovanel::TextStyle style;
    style.font = "Courier New";
    style.height = 14;
    return style;
}

}  // namespace

TFoNoForm::TFoNoForm(rovanel::SharedState& state, QWidget* parent)
    : QWidget(parent), m_state(state), m_catalogue(std::make_unique<rovanel::FonoCatalogue>())
{
    setObjectName("FoNoForm");
    setWindowTitle(QStringLiteral("FoNo"));
    rovanel::forms::rememberGeometry(this, QSize(900, 600));
    auto* panel = new QWidget(this);
    panel->setObjectName("Panel1");
    m_tree = new QTreeWidget(panel);
    m_tree->setObjectName("FoNoTree");
    m_tree->setHeaderHidden(true);
    m_tree->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_names = new rovanel::forms::NameList("FoNoLst", panel);
    m_names->lineEdit()->setPlaceholderText(QStringLiteral("Keresés névre"));
    m_text = new QTextEdit(panel);
    m_text->setObjectName("FoNoRtf");
    m_text->setReadOnly(true);
    m_text->setLineWrapMode(QTextEdit::NoWrap);
    m_text->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    m_text->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    handOverOnRightButton(m_text, [this] { return m_name; });

    auto* left = new QWidget(panel);
    auto* leftLayout = new QVBoxLayout(left);
    leftLayout->setContentsMargins(0, 0, 0, 0);
    leftLayout->addWidget(m_names);
    leftLayout->addWidget(m_tree, 1);
    auto* split = new QSplitter(Qt::Horizontal, panel);
    split->addWidget(left);
    split->addWidget(m_text);
    split->setStretchFactor(0, 2);
    split->setStretchFactor(1, 3);
    auto* panelLayout = new QHBoxLayout(panel);
    panelLayout->addWidget(split);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(panel);

    connect(m_names, qOverload<int>(&QComboBox::activated), this, &TFoNoForm::FoNoLstSelect);
    connect(m_tree, &QTreeWidget::currentItemChanged, this, &TFoNoForm::FoNoTreeChange);
    FormCreate();
}

TFoNoForm::~TFoNoForm() = default;

// Missing files leave their part of the window empty; nothing stops the program's start.
void TFoNoForm::FormCreate()
{
    *m_catalogue = rovanel::loadFonoCatalogue(m_state.tables.dataDirectory);
    rovanel::forms::loadTree(m_tree, rovanel::dataFilePath(m_state.tables.dataDirectory, "fononr.txt"));
    m_names->setNames(m_catalogue->names);
}

void TFoNoForm::FoNoLstSelect() { showItem(m_names->currentIndex()); }

void TFoNoForm::FoNoTreeChange()
{
    const QTreeWidgetItem* node = m_tree->currentItem();
    if (!node) return;
    const int item = rovanel::fonoItemNamed(*m_catalogue, rovanel::utf8ToCp1250(node->text(0).toStdString()));
    const QSignalBlocker blocker(m_names);
    m_names->setCurrentIndex(item);
    showItem(item);
}

// Item -1 (a chapter, or a node not among the names) shows nothing.
void TFoNoForm::showItem(int item)
{
    const auto found = rovanel::readFonoItem(*m_catalogue, item);
    if (!found) {
        m_text->clear();
        return;
    }
    m_name = found->name;
    rovanel::forms::renderInto(m_text, rovanel::fonoDocument(*found, fixedPitch()));
}
