#include "catalogues/forms/Rvmagi.h"

#include <QGridLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/forms/ShowMessage.h"
#include "catalogues/MagiStore.h"
#include "db/SharedState.h"
#include "views/forms/kit/Lists.h"
#include "views/forms/kit/NameList.h"
#include "views/forms/kit/Text.h"
#include "views/forms/kit/WindowGeometry.h"

using rovanel::forms::boxText;
using rovanel::forms::button;
using rovanel::forms::fileText;

TMagiForm::TMagiForm(rovanel::SharedState& state, QWidget* parent) : QWidget(parent), m_state(state)
{
    setObjectName("MagiForm");
    setWindowTitle(QStringLiteral("Saját Magi receptek"));
    rovanel::forms::rememberGeometry(this, QSize(640, 480));
    m_names = new rovanel::forms::NameList("MagiList", this);
    auto* add = button("MagiAdd", QStringLiteral("Hozzáad"), this);
    auto* del = button("MagiDel", QStringLiteral("Töröl"), this);
    auto* mod = button("MagiMod", QStringLiteral("Módosít"), this);
    m_text = new QPlainTextEdit(this);
    m_text->setObjectName("MagiTxt");
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    handOverOnRightButton(m_text, [this] { return name(); });
    m_text->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    m_text->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);

    auto* buttons = new QVBoxLayout;
    buttons->addWidget(add);
    buttons->addWidget(del);
    buttons->addWidget(mod);
    buttons->addStretch();
    auto* layout = new QGridLayout(this);
    layout->addWidget(m_names, 0, 0);
    layout->addLayout(buttons, 0, 1);
    layout->addWidget(m_text, 1, 0, 1, 2);
    layout->setRowStretch(1, 1);

    connect(m_names, qOverload<int>(&QComboBox::activated), this, &TMagiForm::MagiListChange);
    connect(add, &QPushButton::clicked, this, &TMagiForm::MagiAddClick);
    connect(del, &QPushButton::clicked, this, &TMagiForm::MagiDelClick);
    connect(mod, &QPushButton::clicked, this, &TMagiForm::MagiModClick);
    FormCreate();
}

TMagiForm::~TMagiForm() = default;

void TMagiForm::FormCreate()
{
    m_store = std::make_unique<rovanel::MagiStore>(rovanel::magiDirectory(m_state.tables.dataDirectory));
    m_openMessage = m_store->open();
    fillNames();
}

void TMagiForm::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (m_openMessage) {
        const rovanel::Message message = *m_openMessage;
        m_openMessage.reset();
        showMessage(this, message);
    }
}

// The name box keeps its text over a new filling, as an edit line over its list does.
void TMagiForm::fillNames()
{
    const QSignalBlocker blocker(m_names);
    const QString text = m_names->currentText();
    m_names->setNames(m_store->names());
    m_names->lineEdit()->setText(text);
}

std::string TMagiForm::name() const { return rovanel::forms::toCp1250(m_names->currentText()); }

int TMagiForm::selectedItem() const
{
    const int item = m_names->currentIndex();
    return item >= 0 && m_names->itemText(item) == m_names->currentText() ? item : -1;
}

void TMagiForm::tell(const std::optional<rovanel::Message>& message)
{
    if (message) showMessage(this, *message);
}

void TMagiForm::MagiListChange()
{
    if (selectedItem() < 0) return;
    const auto recipe = m_store->recipe(name());
    m_text->setPlainText(recipe ? boxText(*recipe) : QString());
}

void TMagiForm::MagiAddClick()
{
    tell(m_store->add(name(), fileText(m_text->toPlainText())));
    fillNames();
}

void TMagiForm::MagiModClick() { tell(m_store->modify(name(), fileText(m_text->toPlainText()))); }

// The file deleted is the one of the name box's text after the line is gone (kept on purpose).
void TMagiForm::MagiDelClick()
{
    const int row = selectedItem();
    if (row < 0) return;
    if (const auto failed = m_store->removeLine(row)) {
        tell(failed);
        return;
    }
    fillNames();
    tell(m_store->removeFile(name()));
}
