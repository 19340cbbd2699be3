#include "views/forms/kit/DescriptionBox.h"

#include <QGridLayout>
#include <QMouseEvent>
#include <QPushButton>
#include <QTextEdit>
#include <QVBoxLayout>

#include "app/forms/ShowMessage.h"
#include "db/DescriptionBuilder.h"
#include "db/StyledDocument.h"
#include "views/forms/kit/StyledText.h"
#include "views/forms/kit/Text.h"

namespace rovanel::forms
{

namespace
{

struct JumpButton {
    const char* name;
    const char* shortCaption;
    const char* longCaption;
};

// In the row's order; each searches the jump text of the same position.
constexpr JumpButton kJumpButtons[10] = {
    {"JumpAtc", "&Atc", "&Atc"},
    {"JumpHa", "&Hatóa.", "&Hatóanyag"},
    {"JumpJav", "&Javallatok", "&Javallatok"},
    {"JumpAdag", "A&dagolás", "A&dagolás"},
    {"JumpBetegnek", "&Betegnek", "&Betegnek"},
    {"JumpEll", "&Ellenjav.", "&Ellenjavallat"},
    {"JumpMh", "&Mellékh.", "&Mellékhatás"},
    {"JumpOv", "Ó&vatosan", "Ó&vatosan"},
    {"JumpTil", "&Tilos", "&Tilos"},
    {"JumpMer", "&Mérgezés", "&Mérgezés"},
};

}  // namespace

int DescriptionBox::captionWidth(const QPushButton* button)
{
    QString caption = button->text();
    caption.remove('&');
    return button->fontMetrics().horizontalAdvance(caption) + 2 * button->fontMetrics().averageCharWidth() +
           4;
}

DescriptionBox::DescriptionBox(const char* boxName, Captions captions, QWidget* parent) : QWidget(parent)
{
    m_box = new QTextEdit(this);
    m_box->setObjectName(boxName);
    QFont arial("Arial");
    arial.setPixelSize(16);
    m_box->setFont(arial);
    m_box->setReadOnly(true);
    m_box->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    m_box->setLineWrapMode(QTextEdit::WidgetWidth);
    m_box->viewport()->installEventFilter(this);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(3);
    layout->addWidget(m_box, 1);
    if (captions == Captions::None) return;

    // Two rows of five when the window is narrow would hide nothing either; one row is what the
    // physician knows, and the window's minimum width keeps every caption whole.
    auto* buttons = new QGridLayout;
    buttons->setSpacing(0);
    for (int i = 0; i < 10; ++i) {
        const JumpButton& jump = kJumpButtons[i];
        auto* button = new QPushButton(
            QString::fromUtf8(captions == Captions::Short ? jump.shortCaption : jump.longCaption), this);
        button->setObjectName(jump.name);
        button->setAutoDefault(false);
        // The style's 80-pixel least width would not let ten buttons share the window's width; the
        // caption itself is the limit.
        button->setMinimumWidth(captionWidth(button));
        buttons->addWidget(button, 0, i);
        connect(button, &QPushButton::clicked, this, [this, i] { search(jumpSearchText(i)); });
    }
    layout->addLayout(buttons);
}

void DescriptionBox::showProduct(const rovanel::StartupTables& tables, rovanel::ProductRecord record)
{
    m_box->clear();
    renderInto(m_box, rovanel::buildDescription(tables, record).document);  // a failure shows nothing
}

void DescriptionBox::clear() { m_box->clear(); }

void DescriptionBox::addBelowText(QWidget* widget)
{
    if (auto* column = qobject_cast<QVBoxLayout*>(layout())) column->insertWidget(1, widget);
}

bool DescriptionBox::search(const QString& text) { return searchRtf(m_box, text); }

QString DescriptionBox::jumpSearchText(int button)
{
    if (button < 0 || button >= 10) return {};
    return fromCp1250(rovanel::kJumpSearchTexts[button]);
}

bool DescriptionBox::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_box->viewport() && event->type() == QEvent::MouseButtonPress &&
        static_cast<QMouseEvent*>(event)->button() == Qt::RightButton) {
        rovanel::Message notice;
        notice.text =
            toCp1250(QStringLiteral("Változás: Receptnyomtatás a -Részletes lista- menüpont alatt."));
        showMessage(this, notice);
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace rovanel::forms
