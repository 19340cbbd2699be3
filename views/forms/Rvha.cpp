#include "views/forms/Rvha.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include "app/forms/Help.h"
#include "app/forms/ShowMessage.h"
#include "db/DataFile.h"
#include "db/Searches.h"
#include "db/SharedState.h"
#include "db/Text.h"
#include "views/forms/kit/DescriptionBox.h"
#include "views/forms/kit/Lists.h"
#include "views/forms/kit/NameList.h"
#include "views/forms/kit/WindowGeometry.h"

THaForm::THaForm(rovanel::SharedState& state, QWidget* parent) : QWidget(parent), m_state(state)
{
    setObjectName("HaForm");
    setWindowTitle(QStringLiteral("Hatóanyagok                    Help=F1"));
    setHelpContext(this, 400);

    m_haList = new rovanel::forms::NameList("HaList", this);
    m_haList->lineEdit()->installEventFilter(this);
    auto* haKeres = rovanel::forms::button("HaKeres", QStringLiteral("Keres"), this);
    m_found = rovanel::forms::nameLines("HaGyList", this);
    m_leiro =
        new rovanel::forms::DescriptionBox("GyLeiro", rovanel::forms::DescriptionBox::Captions::None, this);

    auto* layout = new QGridLayout(this);
    layout->addWidget(new QLabel(QStringLiteral("Hatóanyagok:")), 0, 0);
    layout->addWidget(m_haList, 1, 0);
    layout->addWidget(haKeres, 2, 0);
    layout->addWidget(new QLabel(QStringLiteral("Hatóanyagot tartalmazza:")), 3, 0);
    layout->addWidget(m_found, 4, 0);
    layout->addWidget(m_leiro, 0, 1, 5, 1);
    layout->setColumnStretch(0, 2);
    layout->setColumnStretch(1, 3);
    layout->setRowStretch(4, 1);
    rovanel::forms::rememberGeometry(this, QSize(900, 560));

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
    std::vector<std::string> names;
    rovanel::forEachLine(*content, [&](std::string_view line) {
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        names.emplace_back(line);
        return true;
    });
    m_haList->setNames(names);
}

bool THaForm::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_haList->lineEdit() && event->type() == QEvent::MouseButtonDblClick) HaKeresClick();
    return QWidget::eventFilter(watched, event);
}

void THaForm::HaKeresClick()
{
    const rovanel::SearchOutcome outcome =
        rovanel::HaKeres(m_state.tables, m_state.found, m_haList->chosenIndex());
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
    m_leiro->showProduct(m_state.tables, m_state.found.recordAt(row));
}
