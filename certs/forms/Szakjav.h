// Tszj: the specialist recommendation window ("Szakorvosi javaslat készítése"). Three editable grids
// (patient `bg`, physician `og`, recommended drugs `gg`), filled from the prescription window through
// fill(); "Javaslatot nyomtat" prints the page TQRf, "Előkép" previews it and "PDF" saves it.
#pragma once

#include <QWidget>

#include "certs/SpecialistRecommendation.h"

namespace rovanel
{
struct SharedState;
}

class QTableWidget;

class Tszj : public QWidget
{
    Q_OBJECT
public:
    explicit Tszj(rovanel::SharedState& state, QWidget* parent = nullptr);

    // The fill operation, as the prescription window's "RpSzakJav" starts it: headings, patient and
    // physician values and the current drug as a new line. A message (missing atcnrend.dat) is shown.
    void fill(const rovanel::RecommendationHandover& handover);

    // The grids as they stand (the user may have edited any cell).
    [[nodiscard]] rovanel::RecommendationGrids grids() const;

public slots:
    void DelLineClick();
    void DelLastLineClick();
    void PrintSzakjavClick();
    void SzjPreviewClick();
    void SzjPdfClick();
    void SzjKilepClick();

private:
    void showGrids(const rovanel::RecommendationGrids& grids);
    [[nodiscard]] rovanel::PrintLayout page() const;

    rovanel::SharedState& m_state;
    QTableWidget* m_bg = nullptr;
    QTableWidget* m_og = nullptr;
    QTableWidget* m_gg = nullptr;
};
