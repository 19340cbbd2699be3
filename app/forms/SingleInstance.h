// One Rovanel per user. The program's entry claims the instance before anything else — before the
// main window, its start-up tables and any start-up message box exist — so that a second start, even
// while the first one still shows a start-up box, brings the running program to the front and ends
// with exit code 0 without creating any window (docs/decisions/single-instance.md).
// Windows: a per-user named mutex is the claim; the running main window is found by its caption
// ("Rovanel" and "Lezárva") and brought to the foreground (both in the core, app/InstanceClaim.h).
// Elsewhere: a local socket named per user (and per settings folder) is the claim; the running program
// answers on it by raising its main window, or the message box it is showing.
#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <memory>

class QLocalServer;
class QWidget;
namespace rovanel
{
class InstanceClaim;
}

// The local socket name of the current user (not used on Windows).
[[nodiscard]] QString singleInstanceServerName();

class SingleInstance : public QObject
{
    Q_OBJECT
public:
    // Claims this user's Rovanel. Nothing when another one holds it; that one has then been asked to
    // come to the front, and the caller ends with exit code 0.
    [[nodiscard]] static std::unique_ptr<SingleInstance> claim();
    ~SingleInstance() override;

    // The window a later start brings to the front (while a modal box is open, the box comes first).
    void setMainWindow(QWidget* window) { m_window = window; }

private:
    SingleInstance() = default;
    void answer();

    QPointer<QWidget> m_window;
    QLocalServer* m_server = nullptr;
#if defined(_WIN32)
    std::unique_ptr<rovanel::InstanceClaim> m_claim;
#endif
};
