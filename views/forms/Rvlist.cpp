#include "views/forms/Rvlist.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QMouseEvent>
#include <QPixmap>
#include <QPushButton>
#include <QRadioButton>
#include <QTextEdit>

#include "app/HideDeletedSetting.h"
#include "app/forms/Help.h"
#include "db/AtcCode.h"
#include "db/Cp1250.h"
#include "db/DataFile.h"
#include "db/DescriptionBuilder.h"
#include "db/ProductIndex.h"
#include "db/SameAtc.h"
#include "db/SharedState.h"
#include "db/StyledDocument.h"
#include "views/forms/RichText.h"

namespace
{

struct JumpButton {
    const char* name;
    const char* caption;
};

constexpr JumpButton kJumpButtons[10] = {
    {"JumpAtc", "&Atc"},       {"JumpHa", "&Hatóa."},         {"JumpJav", "&Javallatok"},
    {"JumpAdag", "A&dagolás"}, {"JumpBetegnek", "&Betegnek"}, {"JumpEll", "&Ellenjav."},
    {"JumpMh", "&Mellékh."},   {"JumpOv", "Ó&vatosan"},       {"JumpTil", "&Tilos"},
    {"JumpMer", "&Mérgezés"},
};

// The picture prefixes and their files. The second file has no prefix of its own: with a one-entry list
// "r2.jpg" is never shown, as intended.
constexpr const char* kPicturePrefix = "C08";
constexpr const char* kPictureFile = "r1.jpg";

constexpr int kHelpContext = 500;
constexpr int kLeirasHeight = 470;

QString unicode(std::string_view cp1250) { return QString::fromUtf8(rovanel::cp1250ToUtf8(cp1250)); }

}  // namespace

TGylist::TGylist(rovanel::SharedState& state, QWidget* parent) : QWidget(parent, Qt::Window), m_state(state)
{
    setObjectName("TGylist");  // "Gylist" is the name list's
    setWindowTitle(QString::fromUtf8("Leírások"));
    resize(1000, 566);

    m_medicines = new QRadioButton(QString::fromUtf8("Gyógyszerek"), this);
    m_medicines->setObjectName("RBGyogyszer");
    m_medicines->setGeometry(8, 6, 110, 22);
    m_nutrition = new QRadioButton(QString::fromUtf8("Tápszerek"), this);
    m_nutrition->setObjectName("RBTapszer");
    m_nutrition->setGeometry(120, 6, 100, 22);
    m_hideDeleted = new QCheckBox(QString::fromUtf8("Törzskönyvből törölt kiszerlés nem kell"), this);
    m_hideDeleted->setObjectName("TTNemKell");
    m_hideDeleted->setGeometry(616, 6, 376, 22);

    m_gylist = new QComboBox(this);
    m_gylist->setObjectName("Gylist");
    m_gylist->setGeometry(8, 32, 600, 24);
    m_gylist->setMaxVisibleItems(30);

    m_leiras = new QTextEdit(this);
    m_leiras->setObjectName("Leiras1");
    m_leiras->setGeometry(8, 60, 600, kLeirasHeight);
    QFont arial("Arial");
    arial.setPixelSize(16);
    m_leiras->setFont(arial);
    m_leiras->setReadOnly(true);
    m_leiras->viewport()->installEventFilter(this);

    m_picture = new QLabel(this);
    m_picture->setObjectName("RgImage1");
    m_picture->setGeometry(8, 60, 600, 0);
    m_picture->setAlignment(Qt::AlignCenter);
    m_picture->hide();

    for (int i = 0; i < 10; ++i) {
        auto* button = new QPushButton(QString::fromUtf8(kJumpButtons[i].caption), this);
        button->setObjectName(kJumpButtons[i].name);
        button->setGeometry(8 + 60 * i, 536, 60, 22);
        connect(button, &QPushButton::clicked, this, [this, i] { SearchRtf(jumpSearchText(i)); });
    }

    m_levels = new QListWidget(this);
    m_levels->setObjectName("AzonAtc");
    m_levels->setGeometry(616, 32, 376, 110);
    auto* order = new QGroupBox(this);
    order->setObjectName("NamePriceGroupBox");
    order->setGeometry(616, 144, 376, 36);
    m_priceOrder = new QRadioButton(QString::fromUtf8("Ár szerint"), order);
    m_priceOrder->setObjectName("PriceOrder");
    m_priceOrder->setGeometry(8, 8, 120, 22);
    m_priceOrder->setChecked(true);
    m_nameOrder = new QRadioButton(QString::fromUtf8("Név szerint rendezve"), order);
    m_nameOrder->setObjectName("NameOrder");
    m_nameOrder->setGeometry(140, 8, 200, 22);
    m_sameAtc = new QListWidget(this);
    m_sameAtc->setObjectName("AzonAtcNev");
    m_sameAtc->setGeometry(616, 184, 376, 374);

    connect(m_medicines, &QRadioButton::clicked, this, [this] { fillNames(); });
    connect(m_nutrition, &QRadioButton::clicked, this, [this] {
        fillNames();
        clearProduct();
    });
    connect(m_hideDeleted, &QCheckBox::clicked, this, &TGylist::TTNemKellClick);
    connect(m_gylist, qOverload<int>(&QComboBox::activated), this, &TGylist::GylistChange);
    connect(m_levels, &QListWidget::currentRowChanged, this, &TGylist::AzonAtcClick);
    connect(m_sameAtc, &QListWidget::currentRowChanged, this, &TGylist::AzonAtcNevClick);
    connect(m_priceOrder, &QRadioButton::clicked, this, [this] { sameAtcFill(false); });
    connect(m_nameOrder, &QRadioButton::clicked, this, [this] { sameAtcFill(false); });
    setHelpContext(this, kHelpContext);
}

void TGylist::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (!m_shown) FormShow();
}

void TGylist::FormShow()
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    m_medicines->setChecked(true);
    fillNames();
    m_hideDeleted->setChecked(rovanel::readHideDeletedSetting(m_state));
    m_pictureDisplay = false;
    QApplication::restoreOverrideCursor();
    m_shown = true;
}

bool TGylist::medicinesShown() const { return m_medicines->isChecked(); }

void TGylist::fillNames()
{
    const auto group = medicinesShown() ? rovanel::NameGroup::Medicines : rovanel::NameGroup::Nutrition;
    QStringList names;
    for (const std::string& name : rovanel::nameListFill(m_state.tables, group)) names << unicode(name);
    m_gylist->clear();
    m_gylist->addItems(names);
    if (!names.isEmpty()) m_gylist->setCurrentIndex(0);
    m_gylist->setFocus();
}

void TGylist::clearProduct()
{
    m_filling = true;
    m_levels->clear();
    m_sameAtc->clear();
    m_filling = false;
    m_leiras->clear();
}

void TGylist::TTNemKellClick(bool checked)
{
    (void)rovanel::writeHideDeletedSetting(m_state, checked);  // unwritten: the choice holds for this run
}

void TGylist::GylistChange(int index)
{
    if (!medicinesShown()) clearProduct();
    if (index < 0) return;  // typing leaves no item chosen
    const auto group = medicinesShown() ? rovanel::NameGroup::Medicines : rovanel::NameGroup::Nutrition;
    m_leiras->hide();
    renderInto(m_leiras, rovanel::buildDescription(
                             m_state.tables, rovanel::recordOfListPosition(m_state.tables, group, index))
                             .document);
    m_leiras->show();
    // The code table is indexed by the item index, not the record number, for both groups (kept so).
    const auto& codes = m_state.tables.productCodes;
    m_atcCode = static_cast<std::size_t>(index) < codes.size() ? codes[static_cast<std::size_t>(index)] : "";
    if (m_pictureDisplay) showAtcPicture();
    if (medicinesShown()) sameAtcFill(true);
}

void TGylist::sameAtcFill(bool levels)
{
    m_filling = true;
    if (m_gylist->currentIndex() < 0) {
        m_levels->clear();
        m_sameAtc->clear();
        m_filling = false;
        return;
    }
    if (levels) {
        const rovanel::AtcLevels found = rovanel::atcLevels(m_state.tables, m_atcCode);
        m_levels->clear();
        for (const std::string& line : found.lines) m_levels->addItem(unicode(line));
        m_levelLength = found.levelLength;
    }
    const auto order = m_nameOrder->isChecked() ? rovanel::SameAtcOrder::Name : rovanel::SameAtcOrder::Price;
    rovanel::SameAtcList list =
        rovanel::sameAtcProducts(m_state.tables, m_atcCode, m_levelLength, order, m_state.hideDeleted);
    QStringList lines;
    lines.reserve(static_cast<qsizetype>(list.lines.size()));
    for (const std::string& line : list.lines) lines << unicode(line);
    m_sameAtc->clear();
    m_sameAtc->addItems(lines);
    m_state.found.assign(std::move(list.found));
    m_filling = false;
}

void TGylist::AzonAtcClick(int row)
{
    if (m_filling || row < 0 || static_cast<std::size_t>(row) >= rovanel::kAtcLevelLengths.size()) return;
    m_levelLength = rovanel::kAtcLevelLengths[static_cast<std::size_t>(row)];
    sameAtcFill(false);
}

void TGylist::AzonAtcNevClick(int row)
{
    if (m_filling || row < 0) return;
    m_leiras->clear();
    renderInto(m_leiras, rovanel::buildDescription(m_state.tables, m_state.found.recordAt(row)).document);
}

void TGylist::SearchRtf(const QString& text) { searchRtf(m_leiras, text); }

void TGylist::showAtcPicture()
{
    if (m_atcCode.rfind(kPicturePrefix, 0) == 0) {
        const QPixmap picture(QString::fromStdString(
            rovanel::dataFilePath(m_state.tables.dataDirectory, kPictureFile).string()));
        m_leiras->resize(m_leiras->width(), kLeirasHeight - (picture.height() + 10));
        m_picture->setPixmap(picture);
        m_picture->setGeometry(8, 60 + m_leiras->height() + 10, 600, picture.height());
        m_picture->show();
    } else {
        m_leiras->resize(m_leiras->width(), kLeirasHeight);
        m_picture->hide();
    }
}

bool TGylist::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_leiras->viewport() && event->type() == QEvent::MouseButtonPress &&
        static_cast<QMouseEvent*>(event)->button() == Qt::RightButton) {
        showPrescriptionNotice(this);
        return true;
    }
    return QWidget::eventFilter(watched, event);
}
