#include "views/forms/Rvrend.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QRadioButton>
#include <QTextEdit>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "db/DataFile.h"
#include "db/SharedState.h"
#include "views/forms/kit/Lists.h"
#include "views/forms/kit/Text.h"
#include "views/forms/kit/WindowGeometry.h"

TRend::TRend(rovanel::SharedState& state, QWidget* parent) : QWidget(parent), m_state(state)
{
    setObjectName("Rend");
    setWindowTitle(QStringLiteral("Rendeletek"));
    auto* panel = new QWidget(this);
    panel->setObjectName("Panel1");
    m_tree = new QTreeWidget(panel);
    m_tree->setObjectName("RendeletTree");
    m_tree->setHeaderHidden(true);
    m_text = new QTextEdit(panel);
    m_text->setObjectName("RendLeiro");
    m_text->setLineWrapMode(QTextEdit::WidgetWidth);
    m_text->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    m_text->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_text->setTabStopDistance(32);
    m_fa = new QRadioButton(QStringLiteral("Fa szerkezet"), panel);
    m_fa->setObjectName("RendeletFa");
    m_szoveges = new QRadioButton(QStringLiteral("Szöveges szerkezet"), panel);
    m_szoveges->setObjectName("RendeletSzovegesen");
    auto* radios = new QHBoxLayout;
    radios->addWidget(m_fa);
    radios->addWidget(m_szoveges);
    radios->addStretch();
    auto* panelLayout = new QVBoxLayout(panel);
    panelLayout->addLayout(radios);
    panelLayout->addWidget(m_tree);
    panelLayout->addWidget(m_text);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(panel);
    rovanel::forms::rememberGeometry(this, QSize(692, 508));
    connect(m_fa, &QRadioButton::clicked, this, &TRend::RendeletFaClick);
    connect(m_szoveges, &QRadioButton::clicked, this, &TRend::RendeletSzovegesenClick);
}

void TRend::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (!m_loaded) FormShow();
}

// First showing only; a missing rend2.ful leaves the window empty and the next showing tries again.
void TRend::FormShow()
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const auto path = rovanel::dataFilePath(m_state.tables.dataDirectory, "rend2.ful");
    const bool treeLoaded = rovanel::forms::loadTree(m_tree, path);
    const auto content = rovanel::readWholeFile(path);
    QApplication::restoreOverrideCursor();
    if (!treeLoaded || !content) return;
    std::string text = *content;
    std::erase(text, '\r');
    m_text->setPlainText(rovanel::forms::fromCp1250(text));
    m_tree->setVisible(true);
    m_text->setVisible(false);
    m_fa->setChecked(true);
    m_loaded = true;
}

void TRend::RendeletFaClick()
{
    m_tree->setVisible(m_fa->isChecked());
    m_text->setVisible(!m_fa->isChecked());
}

void TRend::RendeletSzovegesenClick()
{
    m_text->setVisible(m_szoveges->isChecked());
    m_tree->setVisible(!m_szoveges->isChecked());
}
