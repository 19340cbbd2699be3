// rvw32: the Rovanel program. Claims the user's instance first of all (a second start brings the running
// program to the front and ends), creates every window once (the main window first), and runs until the
// main window closes. The data directory, found first (app/DataRoot.h), is the working directory.
#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <cstdio>
#include <memory>

#include "app/forms/DataRootStart.h"
#include "app/forms/Msgdlg.h"
#include "app/forms/RefreshFromUpdatePath.h"
#include "app/forms/Rvmain.h"
#include "app/forms/Settingsform.h"
#include "app/forms/SingleInstance.h"
#include "app/forms/UpgradeCheck.h"
#include "catalogues/forms/Fono.h"
#include "catalogues/forms/Rvmagi.h"
#include "catalogues/forms/Se.h"
#include "certs/forms/Kgy.h"
#include "certs/forms/Szakjav.h"
#include "pricelist/forms/Rvref.h"
#include "rx/forms/Rvbno.h"
#include "rx/forms/Rvrp.h"
#include "views/forms/Rvgykozos.h"
#include "views/forms/Rvha.h"
#include "views/forms/Rvkh.h"
#include "views/forms/Rvlist.h"
#include "views/forms/Rvmh.h"
#include "views/forms/Rvrend.h"

int main(int argc, char** argv)
{
    QElapsedTimer started;
    started.start();

    QApplication app(argc, argv);
    QApplication::setApplicationName("Rovanel");
    // Before anything can show a box: a running Rovanel comes to the front instead; nothing opens here.
    const std::unique_ptr<SingleInstance> instance = SingleInstance::claim();
    if (!instance) return 0;
    // The database: without one the start-up message says where Rovanel looked, and the program ends.
    QStringList arguments = QApplication::arguments().mid(1);
    if (!enterDataRoot(arguments)) return 1;
    // Closing the main window ends the program, whatever other windows are open.
    app.setQuitOnLastWindowClosed(false);
    // A newer database in the practice's update directory is installed before any window exists; the
    // program then starts again with "-r" and this run ends here.
    RefreshFromUpdatePath(nullptr, false);

    // The windows, in their order of creation, each kept here until the program ends and handed to the
    // main window, whose menu opens it. The order: TMain, TGylist, TKh, TGyKozos, THaForm, TRend, TMh,
    // TRp, TBnoForm, TSegedeszk, TFoNoForm, TMagiForm, TRefForm, TKgyForm, TMsgDlg, TRvSettings, Tszj,
    // TQRf, TRp2, TRp3. A window joins with two lines in its place in that order, for example:
    //     auto Gylist = std::make_unique<TGylist>(Main->state());
    //     Main->attachWindow(TMain::Window::Gylist, Gylist.get());
    auto Main = std::make_unique<TMain>(arguments);
    QObject::connect(Main.get(), &TMain::closed, &app, &QCoreApplication::quit);
    auto Gylist = std::make_unique<TGylist>(Main->state());
    Main->attachWindow(TMain::Window::Gylist, Gylist.get());
    auto Kh = std::make_unique<TKh>(Main->state());
    Main->attachWindow(TMain::Window::Kh, Kh.get());
    // The one shared description viewer of the windows that list drugs.
    auto GyKozos = std::make_unique<TGyKozos>(Main->state());
    const auto showDescription = [viewer = GyKozos.get()](std::int32_t record, const QString& caption) {
        viewer->showProduct(record, caption);
    };
    Kh->setDescriptionViewer(showDescription);
    auto HaForm = std::make_unique<THaForm>(Main->state());
    Main->attachWindow(TMain::Window::HaForm, HaForm.get());
    auto Rend = std::make_unique<TRend>(Main->state());
    Main->attachWindow(TMain::Window::Rend, Rend.get());
    auto Mh = std::make_unique<TMh>(Main->state());
    Main->attachWindow(TMain::Window::Mh, Mh.get());
    Mh->setDescriptionViewer(showDescription);
    auto Rp = std::make_unique<TRp>(Main->state(), std::filesystem::current_path());
    Rp->setRegistry(&Main->registry());
    Main->attachPermanentDrugs(
        [form = Rp.get()](bool setListMode) { form->showPermanentDrugs(setListMode); });
    Gylist->setPrescriptionOpener([form = Rp.get()](std::int32_t record) {
        form->setSource(3);
        (void)form->openForPackage(record);
    });
    auto BnoForm = std::make_unique<TBnoForm>(std::filesystem::current_path());
    Main->attachWindow(TMain::Window::BnoForm, BnoForm.get());
    auto RefForm = std::make_unique<TRefForm>(Main->state(), Main->registry());
    Main->attachWindow(TMain::Window::RefForm, RefForm.get());
    RefForm->setDescriptionViewer(showDescription);
    auto KgyForm = std::make_unique<TKgyForm>(Main->state());
    Main->attachWindow(TMain::Window::KgyForm, KgyForm.get());
    auto szj = std::make_unique<Tszj>(Main->state());
    Main->attachWindow(TMain::Window::szj, szj.get());
    Rp->setRecommendationOpener([form = szj.get()](const rovanel::RecommendationHandover& handover) {
        form->show();
        form->raise();
        form->fill(handover);
    });
    auto MsgDlg = std::make_unique<TMsgDlg>(Main->registry());
    Main->upgradeCheck().setNoticeWindow(MsgDlg.get());
    auto RvSettings = std::make_unique<TRvSettings>(*Main, Main->registry());
    Main->attachWindow(TMain::Window::RvSettings, RvSettings.get());
    auto Segedeszk = std::make_unique<TSegedeszk>(Main->state());
    Main->attachWindow(TMain::Window::Segedeszk, Segedeszk.get());
    auto FoNoForm = std::make_unique<TFoNoForm>(Main->state());
    Main->attachWindow(TMain::Window::FoNoForm, FoNoForm.get());
    auto MagiForm = std::make_unique<TMagiForm>(Main->state());
    Main->attachWindow(TMain::Window::MagiForm, MagiForm.get());
    const auto handover = [form = Rp.get()](const std::string& name, const std::string& text,
                                            const std::string& productCode) {
        form->addItem(name, text, productCode);
    };
    FoNoForm->setPrescriptionHandover(handover);
    MagiForm->setPrescriptionHandover(handover);

    instance->setMainWindow(Main.get());
    Main->show();

    // ROVANEL_STARTUP_TIMING=1: report the time from start to the shown main window, then end.
    if (qEnvironmentVariableIsSet("ROVANEL_STARTUP_TIMING")) {
        QTimer::singleShot(0, &app, [&] {
            std::printf("rvw32: main window shown after %lld ms\n",
                        static_cast<long long>(started.elapsed()));
            std::fflush(stdout);
            Main->close();
        });
    }
    return app.exec();
}
