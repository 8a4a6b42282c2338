#include "app/ReportLauncher.h"

#include <QDesktopServices>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>
#include <utility>

#include "app/QtPaths.h"
#include "app/frmReport.h"
#include "basic/Files.h"
#include "basic/RunTimeError.h"

namespace quarnel02 {

namespace {

bool StartDetached(const QString& program, const QString& file) {
    const QString path = QStandardPaths::findExecutable(program);
    return !path.isEmpty() && QProcess::startDetached(path, {file});
}

/// Whether the desktop names a program for text files. Without one the toolkit would still report
/// that it has opened the file.
bool HasTextEditor() {
#ifdef Q_OS_UNIX
    constexpr int patience = 3000;  // ms
    QProcess query;
    query.start(QStringLiteral("xdg-mime"),
                {QStringLiteral("query"), QStringLiteral("default"), QStringLiteral("text/plain")});
    if (!query.waitForFinished(patience) || query.exitCode() != 0) {
        return false;
    }
    const QString entry = QString::fromLocal8Bit(query.readAllStandardOutput()).trimmed();
    return !entry.isEmpty() &&
           !QStandardPaths::locate(QStandardPaths::ApplicationsLocation, entry).isEmpty();
#else
    return true;
#endif
}

bool OpenWithDesktop(const QString& file) {
    return HasTextEditor() && QDesktopServices::openUrl(QUrl::fromLocalFile(file));
}

/// Whoever opened a pipe would wait for somebody to write into it.
void RequireOrdinaryFile(const QString& file) {
    const FileKind kind = KindOfFile(ToPath(file));
    if (kind == FileKind::Directory || kind == FileKind::Special) {
        throw RunTimeError(ErrorKind::FileAccess,
                           NativeText(file) + " is no report but " +
                               (kind == FileKind::Directory ? "a directory." : "a special file.") +
                               " Remove it and solve again.");
    }
}

}  // namespace

ReportLauncher::ReportLauncher(QWidget* parent, WindowMemory* memory)
    : m_ways{StartDetached, OpenWithDesktop,
             [parent, memory](const QString& file) { ShowReport(parent, file, memory); }} {}

ReportLauncher::ReportLauncher(Ways ways) : m_ways(std::move(ways)) {}

void ReportLauncher::Start(const std::string& commandLine) const {
    const QString line = QString::fromStdString(commandLine);
    const auto blank = line.indexOf(QLatin1Char(' '));
    const QString file = line.mid(blank + 1);
    RequireOrdinaryFile(file);
    if (!m_ways.StartProgram(line.left(blank), file) && !m_ways.OpenInEditor(file)) {
        m_ways.View(file);
    }
}

}  // namespace quarnel02
