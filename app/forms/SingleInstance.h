// One Rovanel per user. A second start while a main window whose caption holds "Rovanel" and "Lezárva"
// exists brings that window to the front and ends with exit code 0 before it creates any window.
// Windows: the top-level windows are enumerated and their captions compared.
// Elsewhere: the running main window answers on a local socket named per user (and per settings
// folder), listening only while its caption holds both words (docs/decisions/single-instance.md).
#pragma once

#include <QObject>
#include <QString>

class QLocalServer;
class QWidget;

// Looks for a running main window; when found, asks it to come to the front and returns true. The
// caller then ends with exit code 0.
[[nodiscard]] bool raiseRunningInstance();

// The local socket name of the current user (not used on Windows).
[[nodiscard]] QString singleInstanceServerName();

// Lets later starts find `mainWindow`: it answers while its caption holds "Rovanel" and "Lezárva".
class SingleInstanceAnswer : public QObject
{
    Q_OBJECT
public:
    explicit SingleInstanceAnswer(QWidget* mainWindow);
    [[nodiscard]] bool isListening() const;

private:
    void captionChanged();
    void answer();

    QWidget* m_window;
    QLocalServer* m_server = nullptr;
};
