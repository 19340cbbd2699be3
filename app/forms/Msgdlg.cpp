#include "app/forms/Msgdlg.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/RegistrySettings.h"
#include "app/UpdateNotice.h"
#include "app/forms/CreamPanel.h"
#include "app/forms/Help.h"
#include "app/forms/ShowMessage.h"
#include "views/forms/kit/Lists.h"
#include "views/forms/kit/Text.h"
#include "views/forms/kit/WindowGeometry.h"

namespace
{

constexpr int kLabelWidth = 300;

}  // namespace

TMsgDlg::TMsgDlg(rovanel::RegistryStore& registry, QWidget* parent) : QWidget(parent), m_registry(registry)
{
    setObjectName("MsgDlg");
    setWindowTitle(QString::fromUtf8("Új adatbázis elérhető"));
    rovanel::forms::rememberGeometry(this, QSize(410, 276));
    setHelpContext(this, 110);

    QWidget* panel = fillWithCreamPanel(this);

    const auto label = [&](const char* name, const char* text) {
        auto* created = new QLabel(QString::fromUtf8(text), panel);
        created->setObjectName(name);
        created->setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
        created->setMinimumWidth(kLabelWidth);
        return created;
    };
    Label1 = label("Label1", "a");
    Label2 = label("Label2", "b");
    QFont place = Label2->font();
    place.setPointSize(12);
    place.setItalic(true);
    Label2->setFont(place);
    Label2->setStyleSheet("color: blue");
    Label2->setWordWrap(true);
    Label3 = label("Label3", "c");
    Label4 = label("Label4", "d");
    Label5 = label("Label5", "e");
    Label5->setWordWrap(true);  // the closing text may run to 100 characters
    Button1 = new QPushButton(QString::fromUtf8("&Tovább"), panel);
    Button1->setObjectName("Button1");
    Button1->setMinimumSize(75, 25);
    chbNoUpgMsg = new QCheckBox(QString::fromUtf8("&Ez az üzenet ne jelenjék meg többet."), panel);
    chbNoUpgMsg->setObjectName("chbNoUpgMsg");

    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(40, 20, 40, 20);
    for (QLabel* each : {Label1, Label2, Label3, Label4, Label5}) column->addWidget(each);
    column->addSpacing(8);
    column->addWidget(Button1, 0, Qt::AlignHCenter);
    column->addSpacing(20);
    column->addWidget(chbNoUpgMsg, 0, Qt::AlignHCenter);
    column->addStretch();

    connect(Button1, &QPushButton::clicked, this, &TMsgDlg::Button1Click);
}

void TMsgDlg::showNotice(const rovanel::NoticeLines& lines)
{
    Label1->setText(QString::fromUtf8("Frissítés elérhető a"));
    Label2->setText(rovanel::forms::fromCp1250(lines.place));
    Label3->setText(QString::fromUtf8("oldalon."));
    Label4->setText(QString::fromUtf8("Az adatok lezárásának időpontja:"));
    Label5->setText(rovanel::forms::fromCp1250(lines.closingText));
    show();
    raise();
    activateWindow();
}

void TMsgDlg::Button1Click() { close(); }

void TMsgDlg::closeEvent(QCloseEvent* event)
{
    FormClose();
    event->accept();
}

// Unchecking never switches the notice back on: only a checked box is written.
void TMsgDlg::FormClose()
{
    if (!chbNoUpgMsg->isChecked()) return;
    if (auto error = rovanel::RegWriteBool(m_registry, "\\Software\\Rovanel\\UpgShow", false))
        showMessage(this, *error);
}
