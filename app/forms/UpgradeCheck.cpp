#include "app/forms/UpgradeCheck.h"

#include <QNetworkAccessManager>
#include <QNetworkProxy>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>
#include <memory>

#include "app/RegistrySettings.h"
#include "app/UpdateNotice.h"
#include "app/forms/Msgdlg.h"
#include "app/forms/Rvmain.h"
#include "app/forms/ShowMessage.h"
#include "db/Cp1250.h"

namespace
{

QString fromCp1250(const std::string& text) { return QString::fromUtf8(rovanel::cp1250ToUtf8(text)); }

// The line a failed request adds: the stage it failed at.
QString failureLine(QNetworkReply::NetworkError error)
{
    switch (error) {
        case QNetworkReply::HostNotFoundError:
            return QString::fromUtf8("Érvénytelen cím");
        case QNetworkReply::ConnectionRefusedError:
        case QNetworkReply::ProxyConnectionRefusedError:
        case QNetworkReply::ProxyNotFoundError:
            return QString::fromUtf8("Kapcsolódás sikertelen");
        default:
            return QString::fromUtf8("Hiba");
    }
}

// What one request has seen so far.
struct Transfer {
    QByteArray body;
    bool connected = false;
    bool cut = false;  // the reply reached kReplyLimit: what came is kept, the rest dropped
};

}  // namespace

UpgradeCheck::UpgradeCheck(TMain& main) : QObject(&main), m_main(main) {}

void UpgradeCheck::run(bool manual, std::function<void()> done)
{
    if (m_main.UpgChecked || m_main.UpgRunning) {
        if (done) done();
        return;
    }
    m_main.UpgRunning = true;

    rovanel::RegistryStore& registry = m_main.registry();
    const rovanel::StringRead host = rovanel::RegReadString(registry, "\\Software\\Rovanel\\HttpProxy");
    if (host.error) showMessage(&m_main, *host.error);
    const rovanel::StringRead port = rovanel::RegReadString(registry, "\\Software\\Rovanel\\ProxyPort");
    if (port.error) showMessage(&m_main, *port.error);

    const std::string url = rovanel::updateNoticeUrl();
    get(QString::fromStdString(url), rovanel::proxySetting(host.value, port.value),
        [this, manual, url, done = std::move(done)](const std::optional<QByteArray>& body) {
            finish(manual, url, body);
            if (done) done();
        });
}

void UpgradeCheck::finish(bool manual, const std::string& url, const std::optional<QByteArray>& body)
{
    if (!body) {
        if (manual) showMessage(&m_main, rovanel::unreachableMessage(rovanel::hostOfUrl(url)));
        m_main.UpgRunning = false;
        m_main.UpgChecked = true;
        return;
    }
    const rovanel::NoticeOutcome outcome =
        rovanel::evaluateNoticeReply(m_main.registry(), body->toStdString(), m_main.ClosingDate, manual);
    if (!outcome.titleSuffix.empty())
        m_main.setWindowTitle(m_main.windowTitle() + fromCp1250(outcome.titleSuffix));
    for (const rovanel::Message& message : outcome.messages) showMessage(&m_main, message);
    // A registry error ends the check here: UpgRunning stays set and no further check runs in this
    // program run. Kept on purpose, see tst_Settingsform.
    if (outcome.registryFailed) return;
    if (outcome.showNotice && m_notice) m_notice->showNotice(outcome.lines);
    m_main.UpgRunning = false;
    m_main.UpgChecked = true;
}

void UpgradeCheck::get(const QString& url, const rovanel::ProxySetting& proxy,
                       std::function<void(std::optional<QByteArray> body)> done)
{
    // A fresh client per check: no connection is kept between two checks, so each shows every stage.
    if (m_network) m_network->deleteLater();
    m_network = new QNetworkAccessManager(this);
    m_network->setProxy(proxy.host.empty() ? QNetworkProxy(QNetworkProxy::NoProxy)
                                           : QNetworkProxy(QNetworkProxy::HttpProxy, fromCp1250(proxy.host),
                                                           static_cast<quint16>(proxy.port)));

    // The request carries no header fields of its own.
    QNetworkReply* reply = m_network->get(QNetworkRequest(QUrl(url)));
    auto transfer = std::make_shared<Transfer>();

    auto* deadline = new QTimer(reply);
    deadline->setSingleShot(true);
    connect(deadline, &QTimer::timeout, reply, &QNetworkReply::abort);
    deadline->start(kTimeoutMs);

    const auto line = [this](const char* text) { emit progress(QString::fromUtf8(text)); };
    connect(reply, &QNetworkReply::socketStartedConnecting, this, [line] { line("Szerver megvan"); });
    connect(reply, &QNetworkReply::requestSent, this, [line, transfer] {
        if (!transfer->connected) line("Kapcsolódás");
        transfer->connected = true;
        line("Adat elment");
    });
    connect(reply, &QNetworkReply::metaDataChanged, this, [line] { line("Státusz változott"); });
    connect(reply, &QNetworkReply::redirected, this, [line] { line("Átirányítva"); });
    connect(reply, &QNetworkReply::readyRead, this, [line, transfer, reply] {
        if (transfer->cut) return;
        line("Adat érkezett");
        transfer->body += reply->read(kReplyLimit - transfer->body.size());
        if (transfer->body.size() >= kReplyLimit) {
            transfer->cut = true;
            reply->abort();
        }
    });
    connect(reply, &QNetworkReply::errorOccurred, this, [this, transfer](QNetworkReply::NetworkError error) {
        if (!transfer->cut) emit progress(failureLine(error));
    });
    connect(reply, &QNetworkReply::finished, this, [line, transfer, reply, deadline, done = std::move(done)] {
        deadline->stop();
        const bool received = transfer->cut || reply->error() == QNetworkReply::NoError;
        if (received) {
            if (!transfer->cut) transfer->body += reply->read(kReplyLimit - transfer->body.size());
            line("Rendben");
        }
        if (transfer->connected) line("Szétkapcsolás");
        reply->deleteLater();
        done(received ? std::optional<QByteArray>(transfer->body) : std::nullopt);
    });
}
