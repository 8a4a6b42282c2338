#include "studies/BackgroundWork.h"

#include <QMetaObject>
#include <exception>
#include <new>
#include <utility>

namespace quarnel02 {

BackgroundWork::BackgroundWork(QObject* parent) : QObject(parent) {}

BackgroundWork::~BackgroundWork() = default;

void BackgroundWork::Start(Work work) {
    if (!IsRunning()) {
        Begin(std::move(work));
        return;
    }
    m_thread.request_stop();
    m_next = std::move(work);
}

void BackgroundWork::Cancel() {
    m_next.reset();
    m_thread.request_stop();
}

WorkProgress BackgroundWork::Progress() const {
    if (!IsRunning() || m_next) {
        return {};
    }
    return {m_share, std::chrono::milliseconds(m_begun.elapsed())};
}

void BackgroundWork::Begin(Work work) {
    m_share = 0;
    m_begun.start();
    m_thread = std::jthread([this, work = std::move(work)](const std::stop_token& stop) {
        const auto failed = [this](const char* text) {
            return [this, text = QString::fromUtf8(text)] { emit Failed(text); };
        };
        Show show;
        try {
            show = work(StudyWatch(stop, [this](double share) { m_share = share; }));
        } catch (const std::bad_alloc&) {
            show = failed("There is not enough memory for this study.");
        } catch (const std::exception& error) {
            show = failed(error.what());
        }
        QMetaObject::invokeMethod(
            this, [this, show = std::move(show)] { End(show); }, Qt::QueuedConnection);
    });
}

void BackgroundWork::End(const Show& show) {
    const bool stopped = m_thread.get_stop_token().stop_requested();
    m_thread.join();
    m_thread = {};
    if (m_next) {
        Begin(*std::exchange(m_next, std::nullopt));
        return;
    }
    if (!stopped && show) {
        show();
    }
    emit Finished();
}

}  // namespace quarnel02
