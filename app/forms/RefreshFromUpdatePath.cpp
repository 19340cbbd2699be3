#include "app/forms/RefreshFromUpdatePath.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <cstdio>
#include <cstdlib>

#include "app/DatabaseRefresh.h"
#include "app/forms/ShowMessage.h"

namespace
{

void restartWithDetailedList()
{
    const QString program =
        QCoreApplication::applicationDirPath() + "/" + QString::fromStdString(rovanel::refreshProgramName());
    QProcess::startDetached(program, {"-r"}, QDir::currentPath());
    std::fflush(nullptr);
    std::_Exit(0);
}

Restarter& restarter()
{
    static Restarter current = restartWithDetailedList;
    return current;
}

}  // namespace

Restarter setRestarter(Restarter replacement)
{
    Restarter previous = std::move(restarter());
    restarter() = replacement ? std::move(replacement) : Restarter(restartWithDetailedList);
    return previous;
}

void RefreshFromUpdatePath(QWidget* owner, bool manual)
{
    const std::filesystem::path data = QDir::currentPath().toStdString();
    const rovanel::RefreshCheck check = rovanel::checkRefresh(data, rovanel::pathToUpdate(data));
    if (!check.newer) {
        if (manual) showMessage(owner, rovanel::refreshNothingNewMessage());
        return;
    }
    showMessage(owner, rovanel::refreshStartingMessage());
    rovanel::RefreshOptions options;
    options.programName = rovanel::refreshProgramName();
    options.setProgramAsideAsOld = rovanel::programIsSetAsideAsOld();
    const rovanel::RefreshInstall installed = rovanel::installRefresh(data, check, options);
    if (installed.failure) {
        showMessage(owner, *installed.failure);
        return;
    }
    showMessage(owner, rovanel::refreshDoneMessage());
    restarter()();
}
