#include <QApplication>
#include <QLocale>
#include <QStandardPaths>
#include <clocale>
#include <exception>
#include <iostream>
#include <optional>
#include <string_view>

#include "app/ApplicationDirectory.h"
#include "app/ProgramLock.h"
#include "app/QtPaths.h"
#include "app/SecondStart.h"
#include "app/frmMain.h"
#include "app/frmSplash.h"
#include "basic/FailureText.h"
#include "basic/Version.h"
#include "widgets/Dialogs.h"

namespace {

using namespace quarnel02;

std::filesystem::path ChooseApplicationDirectory() {
    return PrepareApplicationDirectory(
        ToPath(QCoreApplication::applicationDirPath()),
        ToPath(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)));
}

/// What the user is told when the program runs already and does not take the file.
std::string AlreadyRunningText(HandedOver answer, const std::filesystem::path& directory,
                               const std::optional<std::filesystem::path>& given) {
    const std::string not_opened = given ? PathText(*given) + " was not opened. " : "";
    return answer == HandedOver::Refused
               ? not_opened +
                     "Quarnel02 is already running and is busy: finish what it asks, or "
                     "wait for its design, then open the file with File, Open."
               : not_opened + "Quarnel02 is already running on " + PathText(directory) +
                     ". Use the window that is open, or close it first.";
}

/// Status of a start that leaves the work to the program that runs already.
int LeaveToTheOther(const std::filesystem::path& directory,
                    const std::optional<std::filesystem::path>& given) {
    const HandedOver answer = HandOver(directory, given.value_or(std::filesystem::path()));
    if (answer == HandedOver::Taken || (answer == HandedOver::Refused && !given)) {
        return 0;
    }
    ShowMessageBox(nullptr, AlreadyRunningText(answer, directory, given), MessageIcon::Information);
    return 1;
}

int SayNotWritable(const ProgramLock& lock) {
    ShowMessageBox(nullptr,
                   PathText(lock.File()) +
                       " cannot be written. Allow writing to this directory, and remove what "
                       "stands in place of the file.",
                   MessageIcon::Critical);
    return 1;
}

/// A full path, so that the recent-file list finds it from anywhere.
std::optional<std::filesystem::path> GivenFile(const QStringList& arguments) {
    if (arguments.size() < 2) {
        return std::nullopt;
    }
    return std::filesystem::absolute(ToPath(arguments[1])).lexically_normal();
}

int Run(const std::optional<std::filesystem::path>& given) {
    const std::filesystem::path directory = ChooseApplicationDirectory();
    ProgramLock lock(directory);
    switch (lock.Take()) {
        case ProgramLock::Result::Running:
            return LeaveToTheOther(directory, given);
        case ProgramLock::Result::NotWritable:
            return SayNotWritable(lock);
        case ProgramLock::Result::Held:
            break;
    }
    frmMain window(directory);
    const SecondStarts others(
        directory, [&](const std::filesystem::path& file) { return window.OpenAnother(file); });
    if (!window.StartUp()) {
        return 1;
    }
    if (given) {
        window.OpenGiven(*given);
    }
    window.show();
    (new frmSplash(&window))->ShowOverParent();
    return QApplication::exec();
}

/// What the toolkit takes is gone from `arguments`.
bool AreUnderstood(const QStringList& arguments) {
    return arguments.size() < 2 ||
           (arguments.size() == 2 && !arguments[1].startsWith(QLatin1Char('-')));
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
    const QStringList arguments = QCoreApplication::arguments();
    if (!AreUnderstood(arguments)) {
        std::cerr << "Usage: quarnel02 [FILE]\nFILE is a model file (.mdb) to begin with.\n";
        return 1;
    }
    try {
        return Run(GivenFile(arguments));
    } catch (const std::exception& error) {
        ShowMessageBox(nullptr, FailureText(error), MessageIcon::Critical);
        return 1;
    }
}
