#include "views/forms/Rvha.h"

#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPushButton>
#include <QTextEdit>

#include "app/forms/Help.h"
#include "app/forms/ShowMessage.h"
#include "db/Cp1250.h"
#include "db/DataFile.h"
#include "db/DescriptionBuilder.h"
#include "db/Searches.h"
#include "db/SharedState.h"
#include "db/StyledDocument.h"
#include "db/Text.h"
#include "views/forms/RichText.h"

using rovanel::forms::fromCp1250;

THaForm::THaForm(rovanel::SharedState& state, QWidget* parent) : QWidget(parent), m_state(state)
{
    setObjectName("HaForm");
    setWindowTitle(QStringLiteral("Hatóanyagok                    Help=F1"));
    setHelpContext(this, 400);

    m_haList = new QComboBox(this);
    m_haList->setObjectName("HaList");
    m_haList->setEditable(true);
    m_haList->setInsertPolicy(QComboBox::NoInsert);
    m_haList->lineEdit()->installEventFilter(this);
    auto* haKeres = new QPushButton(QStringLiteral("Keres"), this);
    haKeres->setObjectName("HaKeres");
    m_found = new QListWidget(this);
    m_found->setObjectName("HaGyList");
    m_leiro = new QTextEdit(this);
    m_leiro->setObjectName("GyLeiro");
    m_leiro->setReadOnly(true);
    m_leiro->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    m_leiro->viewport()->installEventFilter(this);

    auto* layout = new QGridLayout(this);
    layout->addWidget(new QLabel(QStringLiteral("Hatóanyagok:")), 0, 0);
    layout->addWidget(m_haList, 1, 0);
    layout->addWidget(haKeres, 2, 0);
    layout->addWidget(new QLabel(QStringLiteral("Hatóanyagot tartalmazza:")), 3, 0);
    layout->addWidget(m_found, 4, 0);
    layout->addWidget(m_leiro, 0, 1, 5, 1);
    layout->setColumnStretch(1, 2);

    connect(haKeres, &QPushButton::clicked, this, &THaForm::HaKeresClick);
    connect(m_haList, &QComboBox::editTextChanged, this, &THaForm::HaListChange);
    connect(m_haList, &QComboBox::currentIndexChanged, this, &THaForm::HaListChange);
    connect(m_found, &QListWidget::itemClicked, this, &THaForm::HaGyListClick);
    FormCreate();
}

// harend2.dat is read once, when the window is created: line k is ingredient k. A missing file leaves the
// combo empty.
void THaForm::FormCreate()
{
    const auto content =
        rovanel::readWholeFile(rovanel::dataFilePath(m_state.tables.dataDirectory, "harend2.dat"));
    if (!content) return;
    rovanel::forEachLine(*content, [&](std::string_view line) {
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        m_haList->addItem(fromCp1250(std::string(line)));
        return true;
    });
    m_haList->setCurrentIndex(-1);
}

bool THaForm::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_haList->lineEdit() && event->type() == QEvent::MouseButtonDblClick) HaKeresClick();
    if (watched == m_leiro->viewport() && event->type() == QEvent::MouseButtonPress &&
        static_cast<QMouseEvent*>(event)->button() == Qt::RightButton) {
        showMessage(
            this, rovanel::Message{
                      rovanel::utf8ToCp1250("Változás: Receptnyomtatás a -Részletes lista- menüpont alatt."),
                      "", rovanel::MessageIcon::None, false});
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void THaForm::HaKeresClick()
{
    const int index = rovanel::forms::comboItemIndex(m_haList);
    const rovanel::SearchOutcome outcome = rovanel::HaKeres(m_state.tables, m_state.found, index);
    if (outcome.message) showMessage(nullptr, *outcome.message);
    rovanel::forms::setLines(m_found, rovanel::foundDrugNames(m_state.tables, m_state.found));
}

void THaForm::HaListChange()
{
    m_leiro->clear();
    m_found->clear();
}

void THaForm::HaGyListClick()
{
    m_leiro->clear();
    const int row = m_found->currentRow();
    if (row < 0) return;
    renderInto(m_leiro, rovanel::buildDescription(m_state.tables, m_state.found.recordAt(row)).document);
}
