// TGylist: the main description window ("Leírások"). The physician picks a medicine or nutrition product
// by name, reads its description with jump buttons to its sections, and sees the product's ATC levels
// and the products of the chosen level, ordered by daily price or by name.
#pragma once

#include <QWidget>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

class QLabel;
class QListWidget;
class QRadioButton;
class QCheckBox;

namespace rovanel
{
struct SharedState;
}

namespace rovanel::forms
{
class DescriptionBox;
class NameList;
}  // namespace rovanel::forms

class TGylist : public QWidget
{
    Q_OBJECT
public:
    explicit TGylist(rovanel::SharedState& state, QWidget* parent = nullptr);

    // The ATC picture switch: off after the first showing (and nothing turns it on in the program); while
    // it is on, a product of a "C08" code shows "r1.jpg" below a shortened description.
    void setPictureDisplay(bool on) { m_pictureDisplay = on; }

    // Opens the prescription window for a product record (-1 when the cursor stands on no package); the
    // "Recept" button calls it with the product under the cursor.
    using PrescriptionOpener = std::function<void(std::int32_t record)>;
    void setPrescriptionOpener(PrescriptionOpener opener);
    void ReceptClick();

    // Scrolls Leiras1 to the first occurrence of `text`, as the jump buttons do.
    void SearchRtf(const QString& text);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void FormShow();
    void fillNames();
    void GylistChange(int index);
    void TTNemKellClick(bool checked);
    void AzonAtcClick(int row);
    void AzonAtcNevClick(int row);
    void sameAtcFill(bool levels);
    void showAtcPicture();
    void clearProduct();
    [[nodiscard]] bool medicinesShown() const;

    rovanel::SharedState& m_state;
    PrescriptionOpener m_openPrescription;
    bool m_shown = false;
    bool m_pictureDisplay = false;
    bool m_filling = false;
    std::string m_atcCode;          // the current ATC code (product code of the chosen item)
    std::size_t m_levelLength = 0;  // prefix length of the chosen level

    rovanel::forms::NameList* m_gylist = nullptr;
    QRadioButton* m_medicines = nullptr;
    QRadioButton* m_nutrition = nullptr;
    QCheckBox* m_hideDeleted = nullptr;
    rovanel::forms::DescriptionBox* m_leiras = nullptr;
    QListWidget* m_levels = nullptr;
    QListWidget* m_sameAtc = nullptr;
    QRadioButton* m_priceOrder = nullptr;
    QRadioButton* m_nameOrder = nullptr;
    QLabel* m_picture = nullptr;
};
