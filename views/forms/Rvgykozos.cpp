#include "views/forms/Rvgykozos.h"

#include <QEvent>
#include <QMouseEvent>
#include <QPushButton>
#include <QTextEdit>

#include "app/forms/Help.h"
#include "db/DescriptionBuilder.h"
#include "db/SharedState.h"
#include "db/StyledDocument.h"
#include "views/forms/RichText.h"

namespace
{

struct JumpButton {
    const char* name;
    const char* caption;
};

// In the row's order; each searches the jump text of the same position.
constexpr JumpButton kJumpButtons[10] = {
    {"JumpAtc", "&Atc"},        {"JumpHa", "&Hatóanyag"},      {"JumpJav", "&Javallatok"},
    {"JumpAdag", "A&dagolás"},  {"JumpBetegnek", "&Betegnek"}, {"JumpEll", "&Ellenjavallat"},
    {"JumpMh", "&Mellékhatás"}, {"JumpOv", "Ó&vatosan"},       {"JumpTil", "&Tilos"},
    {"JumpMer", "&Mérgezés"},
};
constexpr int kJumpLefts[10] = {0, 71, 142, 213, 284, 355, 426, 497, 568, 640};
constexpr int kHelpContext = 510;

}  // namespace

TGyKozos::TGyKozos(rovanel::SharedState& state, QWidget* parent) : QWidget(parent, Qt::Window), m_state(state)
{
    setObjectName("GyKozos");
    setGeometry(3, 44, 721, 572);
    setMinimumSize(721, 572);
    setFont(QFont("MS Sans Serif", 8));
    setAutoFillBackground(true);
    QPalette palette = this->palette();
    palette.setColor(QPalette::Window, QColor(0xC0, 0xDC, 0xC0));  // clMoneyGreen
    setPalette(palette);

    m_leiro = new QTextEdit(this);
    m_leiro->setObjectName("GyKozosLeiro");
    m_leiro->setGeometry(0, 0, 713, 513);
    QFont arial("Arial");
    arial.setPixelSize(16);
    m_leiro->setFont(arial);
    m_leiro->setReadOnly(true);
    m_leiro->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    m_leiro->viewport()->installEventFilter(this);

    for (int i = 0; i < 10; ++i) {
        auto* button = new QPushButton(QString::fromUtf8(kJumpButtons[i].caption), this);
        button->setObjectName(kJumpButtons[i].name);
        button->setGeometry(kJumpLefts[i], 516, 71, 22);
        connect(button, &QPushButton::clicked, this, [this, i] { SearchRtf(jumpSearchText(i)); });
    }
    setHelpContext(this, kHelpContext);
}

void TGyKozos::showProduct(rovanel::ProductRecord record, const QString& caption)
{
    m_leiro->clear();
    renderInto(m_leiro, rovanel::buildDescription(m_state.tables, record).document);
    setWindowTitle(caption);
    m_leiro->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    show();
}

void TGyKozos::SearchRtf(const QString& text) { searchRtf(m_leiro, text); }

bool TGyKozos::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_leiro->viewport() && event->type() == QEvent::MouseButtonPress &&
        static_cast<QMouseEvent*>(event)->button() == Qt::RightButton) {
        showPrescriptionNotice(this);
        return true;
    }
    return QWidget::eventFilter(watched, event);
}
