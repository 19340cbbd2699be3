#include "certs/forms/Szakjav.h"

#include <QDate>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "app/IniFile.h"
#include "app/UserPaths.h"
#include "app/forms/Help.h"
#include "app/forms/ShowMessage.h"
#include "db/Cp1250.h"
#include "db/SharedState.h"
#include "rx/forms/PrintRenderer.h"
#include "views/forms/kit/Lists.h"
#include "views/forms/kit/Text.h"
#include "views/forms/kit/WindowGeometry.h"

namespace
{

QTableWidget* grid(QWidget* parent, const char* name, int columns, int rows)
{
    auto* table = new QTableWidget(rows, columns, parent);
    table->setObjectName(name);
    table->horizontalHeader()->hide();
    table->verticalHeader()->hide();
    table->setSelectionMode(QAbstractItemView::ContiguousSelection);
    table->setEditTriggers(QAbstractItemView::AllEditTriggers);
    return table;
}

template <std::size_t Columns, std::size_t Rows>
void toTable(QTableWidget* table, const std::array<std::array<std::string, Columns>, Rows>& cells)
{
    for (std::size_t row = 0; row < Rows; ++row)
        for (std::size_t column = 0; column < Columns; ++column)
            table->setItem(static_cast<int>(row), static_cast<int>(column),
                           new QTableWidgetItem(rovanel::forms::fromCp1250(cells[row][column])));
}

template <std::size_t Columns, std::size_t Rows>
void fromTable(const QTableWidget* table, std::array<std::array<std::string, Columns>, Rows>& cells)
{
    for (std::size_t row = 0; row < Rows; ++row)
        for (std::size_t column = 0; column < Columns; ++column) {
            const QTableWidgetItem* item = table->item(static_cast<int>(row), static_cast<int>(column));
            cells[row][column] = item ? rovanel::utf8ToCp1250(item->text().toStdString()) : std::string();
        }
}

}  // namespace

Tszj::Tszj(rovanel::SharedState& state, QWidget* parent) : QWidget(parent), m_state(state)
{
    setObjectName("szj");
    setWindowTitle(QStringLiteral("Szakorvosi javaslat készítése"));
    setHelpContext(this, 620);
    rovanel::forms::rememberGeometry(this, QSize(900, 560));
    m_bg = grid(this, "bg", 2, 6);
    m_og = grid(this, "og", 2, 6);
    m_gg = grid(this, "gg", 9, 10);
    for (QTableWidget* person : {m_bg, m_og})
        person->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    m_gg->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    rovanel::RecommendationGrids empty;
    rovanel::writeRecommendationHeadings(empty, "");
    showGrids(empty);

    const auto button = [this](const char* name, const QString& caption, void (Tszj::*handler)()) {
        auto* pushButton = new QPushButton(caption, this);
        pushButton->setObjectName(name);
        connect(pushButton, &QPushButton::clicked, this, handler);
        return pushButton;
    };
    auto* people = new QHBoxLayout;
    people->addWidget(m_bg);
    people->addWidget(m_og);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(button("DelLine", QStringLiteral("Első sort töröl"), &Tszj::DelLineClick));
    buttons->addWidget(button("DelLastLine", QStringLiteral("Utolsó sort töröl"), &Tszj::DelLastLineClick));
    buttons->addStretch();
    buttons->addWidget(
        button("PrintSzakjav", QStringLiteral("Javaslatot nyomtat"), &Tszj::PrintSzakjavClick));
    buttons->addWidget(button("SzjPreview", QStringLiteral("Előkép"), &Tszj::SzjPreviewClick));
    buttons->addWidget(button("SzjPdf", QStringLiteral("PDF"), &Tszj::SzjPdfClick));
    buttons->addWidget(button("SzjKilep", QStringLiteral("Kilép"), &Tszj::SzjKilepClick));
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(people, 2);
    layout->addWidget(m_gg, 3);
    layout->addLayout(buttons);
}

void Tszj::showGrids(const rovanel::RecommendationGrids& grids)
{
    toTable(m_bg, grids.bg);
    toTable(m_og, grids.og);
    toTable(m_gg, grids.gg);
}

rovanel::RecommendationGrids Tszj::grids() const
{
    rovanel::RecommendationGrids grids;
    fromTable(m_bg, grids.bg);
    fromTable(m_og, grids.og);
    fromTable(m_gg, grids.gg);
    return grids;
}

void Tszj::fill(const rovanel::RecommendationHandover& handover)
{
    rovanel::RecommendationGrids current = grids();
    const std::filesystem::path directory = m_state.tables.dataDirectory;
    const std::filesystem::path patientIni = rovanel::readProfileString(
        rovanel::settingsFilePath(directory), rovanel::kSettingsSection, "BetegAdatokIniPath", "");
    const auto message =
        rovanel::fillRecommendation(current, handover, directory, m_state.tables.atcGroupCodes, patientIni);
    showGrids(current);
    if (message) showMessage(this, *message);
}

void Tszj::DelLineClick()
{
    rovanel::RecommendationGrids current = grids();
    rovanel::deleteFirstDrugLine(current);
    toTable(m_gg, current.gg);
}

void Tszj::DelLastLineClick()
{
    rovanel::RecommendationGrids current = grids();
    rovanel::deleteLastDrugLine(current);
    toTable(m_gg, current.gg);
}

rovanel::PrintLayout Tszj::page() const
{
    return rovanel::recommendationLayout(
        grids(), QDate::currentDate().toString(QStringLiteral("yyyy.MM.dd.")).toStdString());
}

void Tszj::PrintSzakjavClick() { rovanel::forms::printLayoutNow(this, page()); }

void Tszj::SzjPreviewClick() { rovanel::forms::previewLayout(this, page()); }

void Tszj::SzjPdfClick()
{
    rovanel::forms::saveLayoutPdfAsked(this, page(), QStringLiteral("szakorvosi-javaslat.pdf"));
}

void Tszj::SzjKilepClick() { close(); }
