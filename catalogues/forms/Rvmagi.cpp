#include "catalogues/forms/Rvmagi.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/forms/ShowMessage.h"
#include "catalogues/MagiStore.h"
#include "catalogues/forms/ListFilter.h"
#include "db/Cp1250.h"
#include "db/SharedState.h"
#include "views/forms/kit/Lists.h"
#include "views/forms/kit/Text.h"

using rovanel::forms::fromCp1250;

namespace
{

QPushButton* button(const char* name, const QString& caption, QWidget* parent)
{
    auto* result = new QPushButton(caption, parent);
    result->setObjectName(name);
    return result;
}

std::string fromBox(const QString& text) { return rovanel::utf8ToCp1250(text.toStdString()); }

}  // namespace

TMagiForm::TMagiForm(rovanel::SharedState& state, QWidget* parent) : QWidget(parent), m_state(state)
{
    setObjectName("MagiForm");
    setWindowTitle(QStringLiteral("Saját Magi receptek"));
    resize(640, 480);
    m_name = new QLineEdit(this);
    m_name->setObjectName("MagiListEdit");
    m_names = new QListWidget(this);
    m_names->setObjectName("MagiList");
    auto* add = button("MagiAdd", QStringLiteral("Hozzáad"), this);
    auto* del = button("MagiDel", QStringLiteral("Töröl"), this);
    auto* mod = button("MagiMod", QStringLiteral("Módosít"), this);
    m_text = new QPlainTextEdit(this);
    m_text->setObjectName("MagiTxt");
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    rovanel::forms::onRightButtonPress(m_text->viewport(), [this] {
        if (m_handover)
            m_handover(rovanel::forms::toCp1250(m_name->text()),
                       rovanel::forms::toCp1250(m_text->toPlainText()), "999999999");
    });
    m_text->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    m_text->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);

    auto* buttons = new QVBoxLayout;
    buttons->addWidget(add);
    buttons->addWidget(del);
    buttons->addWidget(mod);
    buttons->addStretch();
    auto* layout = new QGridLayout(this);
    layout->addWidget(m_name, 0, 0);
    layout->addWidget(m_names, 1, 0);
    layout->addLayout(buttons, 0, 1, 2, 1);
    layout->addWidget(m_text, 2, 0, 1, 2);
    layout->setRowStretch(1, 1);
    layout->setRowStretch(2, 2);

    connect(m_names, &QListWidget::itemSelectionChanged, this, [this] {
        if (QListWidgetItem* item = m_names->currentItem(); item && item->isSelected()) {
            const QSignalBlocker blocker(m_name);
            m_name->setText(item->text());
        }
        MagiListChange();
    });
    connect(m_name, &QLineEdit::textEdited, this, [this](const QString& text) {
        filterRows(m_names, text);
        // Typing leaves the list item unless the text names it.
        if (m_names->currentItem() && m_names->currentItem()->text() != text) m_names->clearSelection();
    });
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

void TMagiForm::fillNames()
{
    const QSignalBlocker blocker(m_names);
    m_names->clear();
    for (const std::string& name : m_store->names()) m_names->addItem(fromCp1250(name));
    filterRows(m_names, m_name->text());
}

void TMagiForm::tell(const std::optional<rovanel::Message>& message)
{
    if (message) showMessage(this, *message);
}

void TMagiForm::MagiListChange()
{
    if (rovanel::forms::selectedRow(m_names) < 0) return;
    const auto recipe = m_store->recipe(fromBox(m_name->text()));
    m_text->setPlainText(recipe ? boxText(*recipe) : QString());
}

void TMagiForm::MagiAddClick()
{
    tell(m_store->add(fromBox(m_name->text()), fileText(m_text->toPlainText())));
    fillNames();
}

void TMagiForm::MagiModClick()
{
    tell(m_store->modify(fromBox(m_name->text()), fileText(m_text->toPlainText())));
}

// The file deleted is the one of the name box's text after the line is gone (kept on purpose).
void TMagiForm::MagiDelClick()
{
    const int row = rovanel::forms::selectedRow(m_names);
    if (row < 0) return;
    if (const auto failed = m_store->removeLine(row)) {
        tell(failed);
        return;
    }
    fillNames();
    tell(m_store->removeFile(fromBox(m_name->text())));
}
