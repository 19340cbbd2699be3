#include "views/forms/kit/MagistralHandover.h"

#include <QPlainTextEdit>
#include <QTextEdit>

#include "views/forms/kit/Text.h"

namespace rovanel::forms
{

void MagistralHandover::handOverOnRightButton(QTextEdit* box, std::function<std::string()> name)
{
    handOver(box->viewport(), std::move(name), [box] { return box->toPlainText(); });
}

void MagistralHandover::handOverOnRightButton(QPlainTextEdit* box, std::function<std::string()> name)
{
    handOver(box->viewport(), std::move(name), [box] { return box->toPlainText(); });
}

void MagistralHandover::handOver(QWidget* area, std::function<std::string()> name,
                                 std::function<QString()> text)
{
    onRightButtonPress(area, [this, name = std::move(name), text = std::move(text)] {
        if (m_handover) m_handover(name(), toCp1250(text()), "999999999");
    });
}

}  // namespace rovanel::forms
