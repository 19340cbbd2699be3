#include "views/forms/Rvlist.h"

#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPixmap>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "app/UserPaths.h"
#include "app/UserSettings.h"
#include "app/forms/Help.h"
#include "app/forms/ShowMessage.h"
#include "db/AtcCode.h"
#include "db/Cp1250.h"
#include "db/DataFile.h"
#include "db/ProductIndex.h"
#include "db/SameAtc.h"
#include "db/SharedState.h"
#include "views/forms/kit/DescriptionBox.h"
#include "views/forms/kit/Lists.h"
#include "views/forms/kit/NameList.h"
#include "views/forms/kit/Text.h"
#include "views/forms/kit/WindowGeometry.h"

namespace
{

// The picture prefixes and their files. The second file has no prefix of its own: with a one-entry list
// "r2.jpg" is never shown, as intended.
constexpr const char* kPicturePrefix = "C08";
constexpr const char* kPictureFile = "r1.jpg";
// The picture stands this far below the shortened description.
constexpr int kPictureGap = 10;

constexpr int kHelpContext = 500;

}  // namespace

TGylist::TGylist(rovanel::SharedState& state, QWidget* parent) : QWidget(parent, Qt::Window), m_state(state)
{
    setObjectName("TGylist");  // "Gylist" is the name list's
    setWindowTitle(QString::fromUtf8("Leírások"));

    m_medicines = new QRadioButton(QString::fromUtf8("Gyógyszerek"), this);
    m_medicines->setObjectName("RBGyogyszer");
    m_nutrition = new QRadioButton(QString::fromUtf8("Tápszerek"), this);
    m_nutrition->setObjectName("RBTapszer");
    m_hideDeleted = new QCheckBox(QString::fromUtf8("Törzskönyvből törölt kiszerlés nem kell"), this);
    m_hideDeleted->setObjectName("TTNemKell");
    auto* recept = new QPushButton(QString::fromUtf8("&Recept"), this);
    recept->setObjectName("ReceptBtn");
    recept->setEnabled(false);  // until the prescription window is attached
    connect(recept, &QPushButton::clicked, this, &TGylist::ReceptClick);
    m_gylist = new rovanel::forms::NameList("Gylist", this);
    m_gylist->setMaxVisibleItems(30);

    m_leiras =
        new rovanel::forms::DescriptionBox("Leiras1", rovanel::forms::DescriptionBox::Captions::Short, this);
    m_picture = new QLabel(this);
    m_picture->setObjectName("RgImage1");
    m_picture->setAlignment(Qt::AlignCenter);
    m_picture->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    m_picture->hide();
    m_leiras->addBelowText(m_picture);

    m_levels = rovanel::forms::nameLines("AzonAtc", this);  // a long level name elided, whole in its tooltip
    auto* order = new QGroupBox(this);
    order->setObjectName("NamePriceGroupBox");
    m_priceOrder = new QRadioButton(QString::fromUtf8("Ár szerint"), order);
    m_priceOrder->setObjectName("PriceOrder");
    m_priceOrder->setChecked(true);
    m_nameOrder = new QRadioButton(QString::fromUtf8("Név szerint rendezve"), order);
    m_nameOrder->setObjectName("NameOrder");
    m_sameAtc = rovanel::forms::nameLines("AzonAtcNev", this);

    // The deleted-packages switch stands with the description it trims; in the right column its caption
    // alone would set the window's least width past a 1366-pixel screen at 150 % (910 pixels).
    auto* groups = new QHBoxLayout;
    groups->addWidget(m_medicines);
    groups->addWidget(m_nutrition);
    groups->addWidget(m_hideDeleted);
    groups->addStretch();
    groups->addWidget(recept);
    auto* left = new QVBoxLayout;
    left->addLayout(groups);
    left->addWidget(m_gylist);
    left->addWidget(m_leiras, 1);

    // The two orders one under the other: side by side they too would widen the window past 910 pixels.
    auto* orderLayout = new QVBoxLayout(order);
    orderLayout->setContentsMargins(8, 2, 8, 2);
    orderLayout->addWidget(m_priceOrder);
    orderLayout->addWidget(m_nameOrder);
    auto* right = new QVBoxLayout;
    right->addWidget(m_levels, 1);
    right->addWidget(order);
    right->addWidget(m_sameAtc, 3);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 6, 8, 8);
    layout->addLayout(left, 8);
    layout->addLayout(right, 5);
    rovanel::forms::rememberGeometry(this, QSize(1000, 566));

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
    m_state.hideDeleted = rovanel::readHideDeleted(rovanel::userIniPath(), m_state.tables.dataDirectory);
    m_hideDeleted->setChecked(m_state.hideDeleted);
    m_pictureDisplay = false;
    QApplication::restoreOverrideCursor();
    m_shown = true;
}

bool TGylist::medicinesShown() const { return m_medicines->isChecked(); }

// The list opens with no product named: a name stands in the edit line only over its description.
void TGylist::fillNames()
{
    const auto group = medicinesShown() ? rovanel::NameGroup::Medicines : rovanel::NameGroup::Nutrition;
    m_gylist->setNames(rovanel::nameListFill(m_state.tables, group));
    m_leiras->clear();
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

// The setting is the user's; the database folder is never written (docs/decisions/user-settings.md).
void TGylist::TTNemKellClick(bool checked)
{
    m_state.hideDeleted = checked;
    if (!rovanel::writeHideDeleted(rovanel::userIniPath(), checked))
        showMessage(this, {rovanel::utf8ToCp1250("A beállítás nem menthető: " +
                                                 rovanel::userIniPath().string() + " nem írható."),
                           "", rovanel::MessageIcon::Stop, false});
}

void TGylist::setPrescriptionOpener(PrescriptionOpener opener)
{
    m_openPrescription = std::move(opener);
    findChild<QPushButton*>("ReceptBtn")->setEnabled(static_cast<bool>(m_openPrescription));
}

void TGylist::ReceptClick()
{
    if (!m_openPrescription) return;
    const int position = m_gylist->currentIndex();
    const rovanel::NameGroup group =
        medicinesShown() ? rovanel::NameGroup::Medicines : rovanel::NameGroup::Nutrition;
    m_openPrescription(position < 0 ? -1 : rovanel::recordOfListPosition(m_state.tables, group, position));
}

void TGylist::GylistChange(int index)
{
    if (!medicinesShown()) clearProduct();
    if (index < 0) return;  // typing leaves no item chosen
    const auto group = medicinesShown() ? rovanel::NameGroup::Medicines : rovanel::NameGroup::Nutrition;
    m_leiras->showProduct(m_state.tables, rovanel::recordOfListPosition(m_state.tables, group, index));
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
        rovanel::forms::setLines(m_levels, found.lines);
        m_levelLength = found.levelLength;
    }
    const auto order = m_nameOrder->isChecked() ? rovanel::SameAtcOrder::Name : rovanel::SameAtcOrder::Price;
    rovanel::SameAtcList list =
        rovanel::sameAtcProducts(m_state.tables, m_atcCode, m_levelLength, order, m_state.hideDeleted);
    rovanel::forms::setLines(m_sameAtc, list.lines);
    m_state.found.assign(std::move(list.found));
    m_filling = false;
}

void TGylist::AzonAtcClick(int row)
{
    if (m_filling || row < 0 || static_cast<std::size_t>(row) >= rovanel::kAtcLevelLengths.size()) return;
    m_levelLength = rovanel::kAtcLevelLengths[static_cast<std::size_t>(row)];
    sameAtcFill(false);
}

// The picked product's name goes into the edit line above its description; the lists stay as they are.
void TGylist::AzonAtcNevClick(int row)
{
    if (m_filling || row < 0) return;
    const rovanel::ProductRecord record = m_state.found.recordAt(row);
    m_leiras->showProduct(m_state.tables, record);
    const auto& names = m_state.tables.productNames;
    if (medicinesShown() && record >= 0 && record < m_gylist->count())
        m_gylist->setCurrentIndex(record);  // medicines: item index = record number
    else if (record >= 0 && static_cast<std::size_t>(record) < names.size())
        m_gylist->setEditText(rovanel::forms::fromCp1250(names[static_cast<std::size_t>(record)]));
}

void TGylist::SearchRtf(const QString& text) { m_leiras->search(text); }

void TGylist::showAtcPicture()
{
    if (m_atcCode.rfind(kPicturePrefix, 0) == 0) {
        const QPixmap picture(QString::fromStdString(
            rovanel::dataFilePath(m_state.tables.dataDirectory, kPictureFile).string()));
        m_picture->setPixmap(picture);
        m_picture->setContentsMargins(0, kPictureGap - m_leiras->layout()->spacing(), 0, 0);
        m_picture->show();
    } else {
        m_picture->hide();
    }
}
