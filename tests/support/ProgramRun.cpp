#include "support/ProgramRun.h"

#include <QProcessEnvironment>
#include <csignal>
#include <stdexcept>

namespace quarnel02::test {

namespace {

constexpr int kNoEnd = -1;  ///< of patience

QProcessEnvironment Changed(const Environment& changes) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const auto& [name, value] : changes) {
        if (value.empty()) {
            environment.remove(QString::fromStdString(name));
        } else {
            environment.insert(QString::fromStdString(name), QString::fromStdString(value));
        }
    }
    return environment;
}

}  // namespace

ProgramRun::ProgramRun(const std::vector<std::string>& words, const Environment& environment,
                       const std::filesystem::path& out) {
    QStringList arguments;
    for (const std::string& word : words) {
        arguments << QString::fromStdString(word);
    }
    m_process.setProcessEnvironment(Changed(environment));
    m_process.setStandardInputFile(QProcess::nullDevice());
    if (!out.empty()) {
        m_process.setStandardOutputFile(QString::fromStdString(out.string()));
    }
    const QString program = arguments.takeFirst();
    m_process.start(program, arguments);
    if (!m_process.waitForStarted(kNoEnd)) {
        throw std::runtime_error(words.front() + " does not start");
    }
}

ProgramRun::~ProgramRun() {
    if (IsRunning()) {
        m_process.kill();
        m_process.waitForFinished(kNoEnd);
    }
}

bool ProgramRun::IsRunning() {
    return m_process.state() != QProcess::NotRunning && !m_process.waitForFinished(0);
}

void ProgramRun::Send(int signal) const {
    ::kill(static_cast<pid_t>(m_process.processId()), signal);
}

ProgramResult ProgramRun::Result() {
    if (m_process.state() != QProcess::NotRunning) {
        m_process.waitForFinished(kNoEnd);
    }
    const bool by_itself = m_process.exitStatus() == QProcess::NormalExit;
    return {by_itself ? m_process.exitCode() : -1, m_process.readAllStandardOutput().toStdString(),
            m_process.readAllStandardError().toStdString()};
}

}  // namespace quarnel02::test
