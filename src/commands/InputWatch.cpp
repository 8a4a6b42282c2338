#include "commands/InputWatch.h"

#include <chrono>
#include <utility>

#include "model/Database.h"
#include "model/InputDigest.h"

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

/// The coarsest time stamp of a file system in use (FAT): two writes within it may look like one.
constexpr std::chrono::seconds kCoarsestStamp{2};

}  // namespace

InputWatch::InputWatch(fs::path model) : m_model(std::move(model)) {}

InputWatch::Stamp InputWatch::StampNow() const {
    return {fs::last_write_time(m_model), fs::file_size(m_model)};
}

/// The file is looked at by its status alone: opening and closing it would drop the store's locks.
std::uint64_t InputWatch::Digest() {
    const auto now = fs::file_time_type::clock::now();
    const Stamp stamp = StampNow();
    if (!m_digest || !m_settled || stamp != m_stamp) {
        m_digest.reset();
        m_digest = InputDigest(Database::Open(m_model));
        m_stamp = stamp;
        m_settled = now - stamp.Time > kCoarsestStamp;
    }
    return *m_digest;
}

}  // namespace quarnel02
