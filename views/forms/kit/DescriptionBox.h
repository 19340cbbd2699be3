// DescriptionBox: a product's description in a read-only rich-text box with a row of ten jump buttons
// to its headings (JumpAtc ... JumpMer), and the change notice on a right click. The drug list window
// and the shared description window use it; the ingredient window uses the box alone.
#pragma once

#include <QWidget>
#include <cstdint>

#include "db/ProductRecord.h"

class QPushButton;
class QTextEdit;

namespace rovanel
{
struct StartupTables;
}

namespace rovanel::forms
{

class DescriptionBox : public QWidget
{
    Q_OBJECT
public:
    // The buttons' captions: the drug list's short ones ("&Hatóa.") or the shared window's ("&Hatóanyag").
    enum class Captions { Short, Long, None };

    DescriptionBox(const char* boxName, Captions captions, QWidget* parent = nullptr);

    [[nodiscard]] QTextEdit* box() const { return m_box; }

    // Empties the box, then writes product `record`'s description into it; a record that cannot be
    // described leaves what was built (nothing for the "no product" record).
    void showProduct(const rovanel::StartupTables& tables, rovanel::ProductRecord record);
    void clear();

    // Puts `widget` between the box and the buttons (the drug list's ATC picture): while it is shown,
    // the box gives up its height.
    void addBelowText(QWidget* widget);

    // SearchRtf (see StyledText.h); the jump buttons call it with their search texts.
    bool search(const QString& text);

    // The least width at which a button shows its whole caption.
    [[nodiscard]] static int captionWidth(const QPushButton* button);

    // The jump buttons' search texts in button order, in Unicode.
    [[nodiscard]] static QString jumpSearchText(int button);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QTextEdit* m_box = nullptr;
};

}  // namespace rovanel::forms
