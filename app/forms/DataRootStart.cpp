#include "app/forms/DataRootStart.h"

#include <QCoreApplication>
#include <QDir>

#include "app/DataRoot.h"
#include "app/forms/ShowMessage.h"

namespace
{

std::filesystem::path toPath(const QString& text) { return std::filesystem::path(text.toStdU16String()); }

}  // namespace

QString installedDataFolder()
{
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + "/../share/rovanel");
}

bool enterDataRoot(QStringList& arguments)
{
    rovanel::DataRootSearch search;
    const qsizetype option = arguments.indexOf("--data");
    if (option >= 0 && option + 1 < arguments.size()) {
        search.commandLine = toPath(arguments.at(option + 1));
        arguments.remove(option, 2);
    }
    if (const QString own = qEnvironmentVariable("ROVANEL_DATA_DIR"); !own.isEmpty())
        search.environment = toPath(own);
    search.workingDirectory = toPath(QDir::currentPath());
    search.userDataDirectory = rovanel::userDataDirectory();
    search.installedData = toPath(installedDataFolder());

    const rovanel::DataRootChoice choice = rovanel::findDataRoot(search);
    if (!choice.directory) {
        showMessage(nullptr, *choice.missing);
        return false;
    }
    return QDir::setCurrent(QString::fromStdU16String(choice.directory->u16string()));
}
