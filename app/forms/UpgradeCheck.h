// The update notice check of the main window (CheckUpgrade): an HTTP GET of the notice file that never
// blocks the window, its progress lines for the settings window's ChkMemo, and what the core makes of
// the reply (app/UpdateNotice.h): the title suffix, the notice window, the messages of a manual run.
// The main window's flags UpgChecked and UpgRunning keep it to one run at a time and once per program
// run; the settings window's test clears UpgChecked to run it again.
#pragma once

#include <QByteArray>
#include <QObject>
#include <functional>
#include <optional>

class QNetworkAccessManager;
class TMain;
class TMsgDlg;

namespace rovanel
{
struct ProxySetting;
}

class UpgradeCheck : public QObject
{
    Q_OBJECT
public:
    // The whole request, from sending to the last byte, ends after this time.
    static constexpr int kTimeoutMs = 5000;
    // Only three short lines are read; a longer reply is cut here and the connection dropped.
    static constexpr qint64 kReplyLimit = 64 * 1024;

    explicit UpgradeCheck(TMain& main);

    // The notice window the check fills and shows; without one the title alone tells.
    void setNoticeWindow(TMsgDlg* notice) { m_notice = notice; }

    // CheckUpgrade: returns at once; `done` runs when the check has ended (at once when it does not run
    // because it already ran or is running).
    void run(bool manual, std::function<void()> done);

    // One GET of `url` through `proxy`; `done` gets the reply body, or nothing when the request failed,
    // timed out or was answered with an error status.
    void get(const QString& url, const rovanel::ProxySetting& proxy,
             std::function<void(std::optional<QByteArray> body)> done);

signals:
    // One progress line ("Kapcsolódás", "Adat érkezett", "Rendben", ...).
    void progress(const QString& line);

private:
    void finish(bool manual, const std::string& url, const std::optional<QByteArray>& body);

    TMain& m_main;
    TMsgDlg* m_notice = nullptr;
    QNetworkAccessManager* m_network = nullptr;
};
