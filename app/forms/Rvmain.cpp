#include "app/forms/Rvmain.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QLabel>
#include <QLayout>
#include <QMenu>
#include <QMenuBar>
#include <QPixmap>
#include <QPushButton>
#include <QShortcutEvent>
#include <QShowEvent>
#include <QTimer>

#include "app/DatabaseAge.h"
#include "app/RegistrySettings.h"
#include "app/UserPaths.h"
#include "app/forms/Help.h"
#include "app/forms/RefreshFromUpdatePath.h"
#include "app/forms/ShowMessage.h"
#include "app/forms/UpgradeCheck.h"
#include "db/Cp1250.h"
#include "db/DataFile.h"
#include "views/forms/kit/Text.h"

using rovanel::forms::fromCp1250;

namespace
{

constexpr int kClientWidth = 638;
constexpr int kClientHeight = 400;
constexpr int kMainHelpContext = 100;

// A menu item whose shortcut another item shares. Qt fires neither of two items with one shortcut;
// Rovanel's menu fires the first enabled one in menu order, and this item hands the key press to the
// main window so that it can do so (kept on purpose, see tst_Rvmain).
class MenuItem : public QAction
{
public:
    MenuItem(const QString& text, QObject* parent, std::function<void(QAction*)> ambiguous)
        : QAction(text, parent), m_ambiguous(std::move(ambiguous))
    {
    }

protected:
    bool event(QEvent* event) override
    {
        if (event->type() == QEvent::Shortcut && static_cast<QShortcutEvent*>(event)->isAmbiguous()) {
            m_ambiguous(this);
            return true;
        }
        return QAction::event(event);
    }

private:
    std::function<void(QAction*)> m_ambiguous;
};

}  // namespace

TMain::TMain(const QStringList& arguments, QWidget* parent)
    : QMainWindow(parent), m_arguments(arguments), m_registry(rovanel::openUserRegistry())
{
    setObjectName("Main");
    setWindowTitle("Rovanel");
    setFont(QFont("MS Sans Serif", 8));
    setHelpContext(this, kMainHelpContext);

    auto* client = new QWidget(this);
    client->setObjectName("Client");
    client->setFixedSize(kClientWidth, kClientHeight);
    setCentralWidget(client);

    RG1 = new QLabel(client);
    RG1->setObjectName("RG1");
    RG1->setGeometry(0, 0, kClientWidth, kClientHeight);
    RG1->setAlignment(Qt::AlignCenter);
    RG1->setVisible(false);

    Tovabb = new QPushButton(QString::fromUtf8("Tovább"), client);
    Tovabb->setObjectName("Tovabb");
    Tovabb->setGeometry(544, 352, 75, 25);
    connect(Tovabb, &QPushButton::clicked, this, &TMain::TovabbClick);

    MainMenu1 = menuBar();
    MainMenu1->setObjectName("MainMenu1");
    buildMenu();

    Timer1 = new QTimer(this);
    Timer1->setObjectName("Timer1");
    Timer1->setInterval(60000);
    connect(Timer1, &QTimer::timeout, this, &TMain::Timer1Timer);
    Timer1->start();
    m_upgradeCheck = new UpgradeCheck(*this);

    FormCreate();

    // Single fixed border: the window keeps the size of its menu and client area.
    layout()->setSizeConstraint(QLayout::SetFixedSize);
    setWindowFlag(Qt::WindowMaximizeButtonHint, false);
}

TMain::~TMain() = default;

void TMain::buildMenu()
{
    const auto resolve = [this](QAction* pressed) { resolveAmbiguousShortcut(pressed); };
    const auto item = [&](QWidget* owner, const char* name, const char* caption, int key,
                          void (TMain::*handler)()) {
        auto* action = new MenuItem(QString::fromUtf8(caption), this, resolve);
        action->setObjectName(name);
        if (key != 0) {
            action->setShortcut(QKeySequence(Qt::CTRL | static_cast<Qt::Key>(key)));
            m_menuOrder.append(action);
        }
        connect(action, &QAction::triggered, this, handler);
        owner->addAction(action);
        return action;
    };

    QMenu* Edit1 = MainMenu1->addMenu(QString::fromUtf8("&Gyógyszer"));
    Edit1->setObjectName("Edit1");
    Edit1->menuAction()->setObjectName("Edit1Item");
    const auto windowItem = [&](Window which, QWidget* owner, const char* name, const char* caption, int key,
                                void (TMain::*handler)()) {
        QAction* action = item(owner, name, caption, key, handler);
        action->setEnabled(false);  // until the window it opens exists
        m_windowItems[static_cast<std::size_t>(which)] = action;
    };
    windowItem(Window::RefForm, Edit1, "RefMenu", "&Részletes lista", Qt::Key_R, &TMain::RefMenuClick);
    windowItem(Window::Gylist, Edit1, "LeirMenu", "&Leírások", Qt::Key_L, &TMain::LeirMenuClick);
    windowItem(Window::Kh, Edit1, "KhMenu", "&Kölcsönhatás - ATC", Qt::Key_K, &TMain::KhMenuClick);
    windowItem(Window::HaForm, Edit1, "HaMenu", "&Hatóanyag", Qt::Key_H, &TMain::HaMenuClick);
    windowItem(Window::Mh, Edit1, "Mellkhats1", "&Mellékhatás", Qt::Key_M, &TMain::Mellkhats1Click);
    windowItem(Window::FoNoForm, Edit1, "FoNo1", "&FoNo", Qt::Key_F, &TMain::FoNo1Click);
    windowItem(Window::MagiForm, Edit1, "SajtMagi1", "Saját Magi", Qt::Key_S, &TMain::SajtMagi1Click);
    windowItem(Window::KgyForm, Edit1, "Kzgygyigazols1", "Köz&gyógy igazolás", Qt::Key_G,
               &TMain::Kzgygyigazols1Click);
    AllandoGy = item(Edit1, "AllandoGy", "Állandó gyógyszerek listája", Qt::Key_N, &TMain::AllandoGyClick);
    AllandoGy->setEnabled(false);  // until the prescription window attaches its list
    // Ctrl+R again: both items keep it, as they always had.
    windowItem(Window::Rend, Edit1, "Rendeletek1", "&Rendeletek", Qt::Key_R, &TMain::Rendeletek1Click);
    windowItem(Window::BnoForm, MainMenu1, "Bno1", "&Bno", 0, &TMain::Bno1Click);
    windowItem(Window::Segedeszk, MainMenu1, "Segdeszkz1", "&Segédeszköz", 0, &TMain::Segdeszkz1Click);
    windowItem(Window::RvSettings, MainMenu1, "Belltsok1", "Beá&llítások", 0, &TMain::Belltsok1Click);
    item(MainMenu1, "Frissites", "&Frissítés", 0, &TMain::FrissitesClick);
    item(MainMenu1, "Vge1", "Vége", 0, &TMain::Vge1Click);
}

void TMain::resolveAmbiguousShortcut(QAction* pressed)
{
    for (QAction* action : m_menuOrder)
        if (action->shortcut() == pressed->shortcut() && action->isEnabled()) {
            action->trigger();
            return;
        }
}

void TMain::attachWindow(Window which, QWidget* form)
{
    const auto index = static_cast<std::size_t>(which);
    m_windows[index] = form;
    if (QAction* action = m_windowItems[index]) action->setEnabled(form != nullptr);
}

QWidget* TMain::attachedWindow(Window which) const { return m_windows[static_cast<std::size_t>(which)]; }

void TMain::attachPermanentDrugs(PermanentDrugs fill)
{
    m_permanentDrugs = std::move(fill);
    AllandoGy->setEnabled(static_cast<bool>(m_permanentDrugs));
}

void TMain::FormCreate()
{
    // The menu is absent while the form is being built.
    MainMenu1->setVisible(false);

    // The start-up tables. The hourglass goes back only after a complete load.
    QApplication::setOverrideCursor(Qt::WaitCursor);
    m_state.openDatabase(QDir::currentPath().toStdString(), rovanel::userIniPath());
    if (m_state.tables.reached == rovanel::LoadStep::Complete) QApplication::restoreOverrideCursor();

    if (auto error = rovanel::EnsureRegistryDefaults(*m_registry)) showMessage(this, *error);

    checkDatabaseAge();

    // The stored setting is read and then overruled: FormShow clears the flag again for the update check.
    const rovanel::BoolRead checkUpgrade = rovanel::RegReadBool(*m_registry, "\\Software\\Rovanel\\CheckUpg");
    if (checkUpgrade.error) showMessage(this, *checkUpgrade.error);
    UpgChecked = !checkUpgrade.value;
    UpgChecked = true;

    PicCount = static_cast<int>(QDir::current().entryList({"rg*.jpg"}, QDir::Files).size()) - 1;

    const QString first = m_arguments.value(0);
    if (first == "-gy" || first == "-r" || first == "-a") {
        centralWidget()->setFixedSize(kClientWidth, kClientHeight - RG1->height());
    } else {
        loadPicture("Rg0.jpg");
        RG1->setVisible(true);
    }

    MainMenu1->setVisible(true);
    Tovabb->setVisible(false);
}

void TMain::checkDatabaseAge()
{
    const rovanel::DatabaseAgeCheck check = rovanel::checkDatabaseAge(
        QDir::currentPath().toStdString(), rovanel::utf8ToCp1250(windowTitle().toStdString()), ClosingDate,
        rovanel::currentYearMonth());
    if (!check.checked) return;
    ClosingDate = check.closingDate;
    setWindowTitle(fromCp1250(check.title));
    if (check.warning) showMessage(this, *check.warning);
}

void TMain::loadPicture(const char* name)
{
    const auto path = rovanel::dataFilePath(QDir::currentPath().toStdString(), name);
    QPixmap picture;
    if (!picture.load(QString::fromStdString(path.string()))) {
        // The picture loader's error; start-up goes on without the picture.
        showMessage(this, {rovanel::utf8ToCp1250("A(z) \"" + std::string(name) + "\" kép nem tölthető be."),
                           "Rovanel", rovanel::MessageIcon::Stop, false});
        return;
    }
    RG1->setPixmap(picture);
}

void TMain::showEvent(QShowEvent* event)
{
    QMainWindow::showEvent(event);
    if (!event->spontaneous()) FormShow();
}

void TMain::FormShow()
{
    const QString first = m_arguments.value(0);
    if (first == "-gy") {
        showWindow(Window::Gylist, false);
    } else if (first == "-r") {
        showWindow(Window::RefForm, false);  // the start after a database refresh
    } else if (first == "-a") {
        if (m_permanentDrugs) m_permanentDrugs(false);
    }
    UpgChecked = false;
    UpgRunning = false;
}

void TMain::closeEvent(QCloseEvent* event)
{
    FormClose();
    event->accept();
    emit closed();
}

void TMain::FormClose() { m_state.closeDatabase(); }

void TMain::ShowPic()
{
    // The hook at which a title-picture slideshow over the "rg*.jpg" pictures (PicCount) would go.
}

void TMain::TovabbClick()
{
    MainMenu1->setVisible(true);
    loadPicture("Rg1.jpg");
    RG1->setVisible(true);
    Tovabb->setVisible(false);
}

// Every minute; the check itself runs once per program run.
void TMain::Timer1Timer()
{
    ShowPic();
    CheckUpgrade(false);
}

void TMain::CheckUpgrade(bool manual, std::function<void()> done)
{
    m_upgradeCheck->run(manual, std::move(done));
}
void TMain::HttpChkClick() { CheckUpgrade(false); }

void TMain::showWindow(Window which, bool withPicture)
{
    if (withPicture) ShowPic();
    QWidget* form = attachedWindow(which);
    if (!form) return;
    form->show();
    form->raise();
    form->activateWindow();
}

void TMain::N1Click() { showWindow(Window::szj, false); }
void TMain::RefMenuClick() { showWindow(Window::RefForm, true); }
void TMain::LeirMenuClick() { showWindow(Window::Gylist, true); }
void TMain::KhMenuClick() { showWindow(Window::Kh, true); }
void TMain::HaMenuClick() { showWindow(Window::HaForm, true); }
void TMain::Mellkhats1Click() { showWindow(Window::Mh, true); }
void TMain::FoNo1Click() { showWindow(Window::FoNoForm, true); }
void TMain::SajtMagi1Click() { showWindow(Window::MagiForm, true); }
void TMain::Kzgygyigazols1Click() { showWindow(Window::KgyForm, false); }
void TMain::Rendeletek1Click() { showWindow(Window::Rend, true); }
void TMain::Bno1Click() { showWindow(Window::BnoForm, true); }
void TMain::Segdeszkz1Click() { showWindow(Window::Segedeszk, true); }
void TMain::Belltsok1Click() { showWindow(Window::RvSettings, false); }

void TMain::AllandoGyClick()
{
    if (m_permanentDrugs) m_permanentDrugs(true);
}

void TMain::Vge1Click() { close(); }
void TMain::FrissitesClick() { RefreshFromUpdatePath(this, true); }
