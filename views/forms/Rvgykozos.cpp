#include "views/forms/Rvgykozos.h"

#include <QVBoxLayout>

#include "app/forms/Help.h"
#include "db/SharedState.h"
#include "views/forms/kit/DescriptionBox.h"
#include "views/forms/kit/WindowGeometry.h"

namespace
{

constexpr int kHelpContext = 510;

}  // namespace

TGyKozos::TGyKozos(rovanel::SharedState& state, QWidget* parent) : QWidget(parent, Qt::Window), m_state(state)
{
    setObjectName("GyKozos");
    setFont(QFont("MS Sans Serif", 8));
    setAutoFillBackground(true);
    QPalette palette = this->palette();
    palette.setColor(QPalette::Window, QColor(0xC0, 0xDC, 0xC0));  // clMoneyGreen
    setPalette(palette);

    m_description = new rovanel::forms::DescriptionBox("GyKozosLeiro",
                                                       rovanel::forms::DescriptionBox::Captions::Long, this);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(m_description);
    rovanel::forms::rememberGeometry(this, QSize(721, 572), QPoint(3, 44));
    setHelpContext(this, kHelpContext);
}

void TGyKozos::showProduct(rovanel::ProductRecord record, const QString& caption)
{
    m_description->showProduct(m_state.tables, record);
    setWindowTitle(caption);
    show();
}

void TGyKozos::SearchRtf(const QString& text) { m_description->search(text); }
