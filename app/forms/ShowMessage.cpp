#include "app/forms/ShowMessage.h"

#include <QApplication>
#include <QMessageBox>
#include <utility>

#include "db/Cp1250.h"

namespace
{

QString fromCp1250(const std::string& text) { return QString::fromUtf8(rovanel::cp1250ToUtf8(text)); }

void showMessageBox(QWidget* owner, const rovanel::Message& message)
{
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    switch (message.icon) {
        case rovanel::MessageIcon::None:
            break;
        case rovanel::MessageIcon::Information:
            icon = QMessageBox::Information;
            break;
        case rovanel::MessageIcon::Warning:
            icon = QMessageBox::Warning;
            break;
        case rovanel::MessageIcon::Stop:
            icon = QMessageBox::Critical;
            break;
    }
    const QString caption =
        message.caption.empty() ? QApplication::applicationDisplayName() : fromCp1250(message.caption);
    QMessageBox box(icon, caption, fromCp1250(message.text), QMessageBox::Ok,
                    message.taskModal ? nullptr : owner);
    if (message.taskModal) box.setWindowModality(Qt::ApplicationModal);
    box.exec();
}

MessageShower& currentShower()
{
    static MessageShower shower = showMessageBox;
    return shower;
}

}  // namespace

void showMessage(QWidget* owner, const rovanel::Message& message) { currentShower()(owner, message); }

MessageShower setMessageShower(MessageShower shower)
{
    MessageShower previous = std::move(currentShower());
    currentShower() = shower ? std::move(shower) : MessageShower(showMessageBox);
    return previous;
}
