#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <atomic>
#include <chrono>
#include <functional>
#include <optional>
#include <thread>

#include "study/StudyWatch.h"

namespace quarnel02 {

/// How far a piece of work has come.
struct WorkProgress {
    double Share = 0;  ///< done, from 0 to 1
    std::chrono::milliseconds Elapsed{0};
};

/// Work in a thread of its own, values in, values out: one at a time, the newest counts. What comes
/// out is shown in the thread that the object lives in, unless the work was cancelled meanwhile.
class BackgroundWork : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(BackgroundWork)

  public:
    using Show = std::function<void()>;
    /// Runs in the thread; what it returns is called afterwards, outside it. It should look at its
    /// watch, which ends it when it is cancelled.
    using Work = std::function<Show(const StudyWatch&)>;

    explicit BackgroundWork(QObject* parent = nullptr);
    /// Cancels, and waits for the thread.
    ~BackgroundWork() override;

    /// Cancels what runs and begins as soon as it has ended.
    void Start(Work work);
    /// Nothing is shown of what runs or waits.
    void Cancel();
    [[nodiscard]] bool IsRunning() const { return m_thread.joinable(); }
    /// Of the newest work, as it tells its watch; nothing while it waits and when nothing runs.
    [[nodiscard]] WorkProgress Progress() const;

  signals:
    /// The work ended with an exception that says this.
    void Failed(const QString& text);
    /// The thread has ended and nothing waits.
    void Finished();

  private:
    void Begin(Work work);
    void End(const Show& show);

    std::atomic<double> m_share = 0;
    QElapsedTimer m_begun;
    std::jthread m_thread;
    std::optional<Work> m_next;
};

}  // namespace quarnel02
