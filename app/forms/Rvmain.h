// TMain: the main window, the only one that exists at all times. It loads the start-up tables, makes sure
// the registry settings exist, titles itself with the database's closing date and age warning, shows
// the title picture and carries the menu that opens every other window.
//
// Windows built by other units are created once by the program's entry (app/forms/rvw32_main.cpp), in
// their order after TMain, kept there for the whole run, and handed over here:
//
//     auto Gylist = std::make_unique<TGylist>(Main->state());
//     Main->attachWindow(TMain::Window::Gylist, Gylist.get());  // enables "Leírások", which shows it
//
// A menu item stays disabled until its window is attached. The prescription window attaches its
// permanent-drug list instead (attachPermanentDrugs), which enables "Állandó gyógyszerek listája".
#pragma once

#include <QMainWindow>
#include <QStringList>
#include <array>
#include <functional>
#include <memory>
#include <string>

#include "db/SharedState.h"

class QAction;
class QLabel;
class QMenu;
class QMenuBar;
class QPushButton;
class QTimer;
class UpgradeCheck;

namespace rovanel
{
class RegistryStore;
}

class TMain : public QMainWindow
{
    Q_OBJECT
public:
    // The windows the menu opens, named after their form classes.
    enum class Window {
        RefForm,     // "&Részletes lista"        RefMenu
        Gylist,      // "&Leírások"               LeirMenu
        Kh,          // "&Kölcsönhatás - ATC"     KhMenu
        HaForm,      // "&Hatóanyag"              HaMenu
        Mh,          // "&Mellékhatás"            Mellkhats1
        FoNoForm,    // "&FoNo"                   FoNo1
        MagiForm,    // "Saját Magi"              SajtMagi1
        KgyForm,     // "Köz&gyógy igazolás"      Kzgygyigazols1 (no ShowPic)
        Rend,        // "&Rendeletek"             Rendeletek1
        BnoForm,     // "&Bno"                    Bno1
        Segedeszk,   // "&Segédeszköz"            Segdeszkz1
        RvSettings,  // "Beá&llítások"            Belltsok1 (no ShowPic)
        szj,         // specialist recommendation: N1Click, no menu item
    };

    // `arguments` is the command line without the program name; only the first one counts
    // ("-gy", "-r" or "-a", case-sensitive). The data directory is the working directory.
    explicit TMain(const QStringList& arguments, QWidget* parent = nullptr);
    ~TMain() override;

    // Shared state the other windows get through their constructors.
    [[nodiscard]] rovanel::SharedState& state() { return m_state; }
    [[nodiscard]] rovanel::RegistryStore& registry() { return *m_registry; }

    // Makes the menu item of `which` show `form` (modeless; brought up again when already open).
    void attachWindow(Window which, QWidget* form);
    [[nodiscard]] QWidget* attachedWindow(Window which) const;

    // The prescription window's list-filling for the permanent drugs: called with true by the menu item
    // (set the list mode to 3 first), with false by the "-a" start.
    using PermanentDrugs = std::function<void(bool setPermanentListMode)>;
    void attachPermanentDrugs(PermanentDrugs fill);

    // Handlers, named as the form's events.
    void FormCreate();
    void FormShow();
    void FormClose();
    void ShowPic();
    void TovabbClick();
    void Timer1Timer();
    void N1Click();
    void RefMenuClick();
    void LeirMenuClick();
    void KhMenuClick();
    void HaMenuClick();
    void Mellkhats1Click();
    void FoNo1Click();
    void SajtMagi1Click();
    void Kzgygyigazols1Click();
    void AllandoGyClick();
    void Rendeletek1Click();
    void Bno1Click();
    void Segdeszkz1Click();
    void Belltsok1Click();
    void Vge1Click();
    void FrissitesClick();

    // The update notice check (app/forms/UpgradeCheck.h); `done` runs when it has ended.
    void CheckUpgrade(bool manual, std::function<void()> done = {});
    void HttpChkClick();  // an automatic run; no control is bound to it
    [[nodiscard]] UpgradeCheck& upgradeCheck() { return *m_upgradeCheck; }

    // Flags of the update notice check, both false after FormShow.
    bool UpgChecked = false;
    bool UpgRunning = false;
    // Number of "rg*.jpg" pictures in the data directory, less one; kept for a title-picture slideshow.
    int PicCount = -1;
    // First line of zaras.inf (Windows-1250), read by the age check.
    std::string ClosingDate;

signals:
    // The main window was closed: the application ends.
    void closed();

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void buildMenu();
    void checkDatabaseAge();
    void loadPicture(const char* name);
    void showWindow(Window which, bool withPicture);
    void resolveAmbiguousShortcut(QAction* pressed);

    QStringList m_arguments;
    rovanel::SharedState m_state;
    std::unique_ptr<rovanel::RegistryStore> m_registry;
    std::array<QWidget*, 13> m_windows{};
    std::array<QAction*, 13> m_windowItems{};
    PermanentDrugs m_permanentDrugs;

    QLabel* RG1 = nullptr;
    QPushButton* Tovabb = nullptr;
    QMenuBar* MainMenu1 = nullptr;
    QTimer* Timer1 = nullptr;
    QAction* AllandoGy = nullptr;
    UpgradeCheck* m_upgradeCheck = nullptr;
    QList<QAction*> m_menuOrder;  // every item with a shortcut, in menu order
};
