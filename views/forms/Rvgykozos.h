// TGyKozos: the one description viewer the other windows share (interaction check, side-effect search,
// detailed list): a rich-text box and a row of ten jump buttons to the description's headings. Created
// once at start; shown and hidden afterwards.
#pragma once

#include <QWidget>
#include <cstdint>

#include "db/ProductRecord.h"

class QPushButton;
class QTextEdit;

namespace rovanel
{
struct SharedState;
}

class TGyKozos : public QWidget
{
    Q_OBJECT
public:
    explicit TGyKozos(rovanel::SharedState& state, QWidget* parent = nullptr);

    // Shows product `record` (-1: an empty box): clears the box, builds the description into it, takes
    // `caption` (the list entry the user chose) as the window's title, shows the vertical scroll bar and
    // shows the window.
    void showProduct(rovanel::ProductRecord record, const QString& caption);

    // Scrolls GyKozosLeiro to the first occurrence of `text` (see searchRtf in views/forms/RichText.h).
    void SearchRtf(const QString& text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    rovanel::SharedState& m_state;
    QTextEdit* m_leiro = nullptr;
};
