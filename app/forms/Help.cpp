#include "app/forms/Help.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QKeyEvent>
#include <QPointer>
#include <QShortcut>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>
#include <QWidget>
#include <utility>

#include "app/forms/DataRootStart.h"

namespace
{

constexpr const char* kHelpContextProperty = "helpContext";

// One help window for the whole run, made on first use.
void showInHelpBrowser(int context)
{
    static QPointer<QTextBrowser> browser;
    if (!browser) {
        browser = new QTextBrowser;
        browser->setObjectName("HelpBrowser");
        browser->setAttribute(Qt::WA_DeleteOnClose, false);
        browser->setOpenLinks(true);
        browser->setWindowTitle(QString::fromUtf8("Rovanel súgó"));
        browser->resize(560, 480);
        // Escape closes the help, as it closes any viewer the physician opens for a moment.
        auto* close = new QShortcut(QKeySequence(Qt::Key_Escape), browser);
        QObject::connect(close, &QShortcut::activated, browser, &QWidget::close);
        QObject::connect(qApp, &QCoreApplication::aboutToQuit, browser, &QObject::deleteLater);
    }
    const QString page = helpPagePath(context);
    browser->setSearchPaths({QFileInfo(page).absolutePath()});
    browser->setSource(QUrl::fromLocalFile(page));
    browser->show();
    browser->raise();
    browser->activateWindow();
}

HelpOpener& currentOpener()
{
    static HelpOpener opener = showInHelpBrowser;
    return opener;
}

// F1 anywhere: the context of the focused widget or its nearest parent that has one.
class HelpKeyFilter : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_F1 &&
            static_cast<QKeyEvent*>(event)->modifiers() == Qt::NoModifier) {
            for (auto* widget = qobject_cast<QWidget*>(watched); widget; widget = widget->parentWidget())
                if (const int context = helpContext(widget); context != 0) {
                    openHelp(context);
                    return true;
                }
        }
        return QObject::eventFilter(watched, event);
    }
};

void installHelpKey()
{
    static bool installed = false;
    if (installed || !qApp) return;
    qApp->installEventFilter(new HelpKeyFilter(qApp));
    installed = true;
}

}  // namespace

void setHelpContext(QWidget* widget, int context)
{
    widget->setProperty(kHelpContextProperty, context);
    installHelpKey();
}

int helpContext(const QWidget* widget) { return widget->property(kHelpContextProperty).toInt(); }

QString helpPagePath(int context)
{
    // Beside the program in the build tree; in share/rovanel/help when installed.
    QDir folder(QCoreApplication::applicationDirPath() + "/help");
    if (!folder.exists()) folder.setPath(installedDataFolder() + "/help");
    const QString page = folder.filePath(QString::number(context) + ".html");
    return QFileInfo::exists(page) ? page : folder.filePath("index.html");
}

void openHelp(int context) { currentOpener()(context); }

HelpOpener setHelpOpener(HelpOpener opener)
{
    HelpOpener previous = std::move(currentOpener());
    currentOpener() = opener ? std::move(opener) : HelpOpener(showInHelpBrowser);
    return previous;
}
