#include <QApplication>
#include <QLocale>
#include <QLockFile>
#include <QStandardPaths>
#include <clocale>
#include <exception>
#include <iostream>
#include <string_view>

#include "app/ApplicationDirectory.h"
#include "app/QtPaths.h"
#include "app/frmMain.h"
#include "app/frmSplash.h"
#include "basic/Version.h"
#include "editors/Dialogs.h"

namespace {

using namespace quarnel02;

std::filesystem::path ChooseApplicationDirectory() {
    return PrepareApplicationDirectory(
        ToPath(QCoreApplication::applicationDirPath()),
        ToPath(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)));
}

/// Two programs on one working copy would overwrite each other's model.
bool Lock(QLockFile& lock, const std::filesystem::path& directory) {
    lock.setStaleLockTime(0);
    if (lock.tryLock(0)) {
        return true;
    }
    const bool running = lock.error() == QLockFile::LockFailedError;
    ShowMessageBox(
        nullptr,
        running ? "Quarnel02 is already running on " + PathText(directory) +
                      ". Use the window that is open, or close it first."
                : PathText(directory) + " cannot be written to. Allow writing to this directory.",
        running ? MessageIcon::Information : MessageIcon::Critical);
    return false;
}

int Run() {
    const std::filesystem::path directory = ChooseApplicationDirectory();
    QLockFile lock(ToQString(directory / "quarnel02.lock"));
    if (!Lock(lock, directory)) {
        return 1;
    }
    frmMain window(directory);
    if (!window.StartUp()) {
        return 1;
    }
    window.show();
    (new frmSplash(&window))->ShowOverParent();
    return QApplication::exec();
}

/// Answered before the toolkit looks for a screen.
bool AsksForVersion(int argc, char** argv) {
    return argc == 2 && std::string_view(argv[1]) == "--version";
}

}  // namespace

int main(int argc, char** argv) {
    if (AsksForVersion(argc, argv)) {
        std::cout << "quarnel02 " << Version() << '\n';
        return 0;
    }
    QLocale::setDefault(QLocale::c());
    const QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    QCoreApplication::setApplicationName(QStringLiteral("quarnel02"));
    QCoreApplication::setApplicationVersion(QString::fromLatin1(Version()));
    QGuiApplication::setDesktopFileName(QStringLiteral("quarnel02"));
    try {
        return Run();
    } catch (const std::exception& error) {
        ShowMessageBox(nullptr, error.what(), MessageIcon::Critical);
        return 1;
    }
}
