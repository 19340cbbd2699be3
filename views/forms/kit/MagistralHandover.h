// MagistralHandover: how the FoNo and own-magistral windows hand an item to the prescription window. A
// right-button press on the item's text box hands over the item's name and the box's whole text under
// the magistral code "999999999"; nothing happens until a prescription window is attached.
#pragma once

#include <QString>
#include <functional>
#include <string>

#include "views/forms/kit/Lists.h"

class QPlainTextEdit;
class QTextEdit;

namespace rovanel::forms
{

class MagistralHandover
{
public:
    // The prescription window's item-adding operation.
    void setPrescriptionHandover(PrescriptionHandover handover) { m_handover = std::move(handover); }

protected:
    // Hands over on every right-button press on `box`; `name()` (Windows-1250) is read at the press.
    void handOverOnRightButton(QTextEdit* box, std::function<std::string()> name);
    void handOverOnRightButton(QPlainTextEdit* box, std::function<std::string()> name);

private:
    void handOver(QWidget* area, std::function<std::string()> name, std::function<QString()> text);

    PrescriptionHandover m_handover;  // none until a prescription window is attached
};

}  // namespace rovanel::forms
