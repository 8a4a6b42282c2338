#include "model/Database.h"

#include <utility>

#include "model/Connection.h"
#include "model/RecordSetImpl.h"

namespace quarnel02 {

namespace {

const std::shared_ptr<Session>& RequireOpen(const std::shared_ptr<Session>& session) {
    if (!session || !session->Store) {
        throw RunTimeError(ErrorKind::ObjectClosed, "The database is closed.");
    }
    return session;
}

}  // namespace

Database Database::Open(const std::filesystem::path& path) {
    Database database;
    database.m_session = std::make_shared<Session>(Session{Connection::To(path)});
    return database;
}

RecordSet Database::OpenRecordSet(std::string_view sql) const {
    return RecordSet(std::make_unique<RecordSet::Impl>(OpenSession(), sql));
}

const std::shared_ptr<Session>& Database::OpenSession() const {
    return RequireOpen(m_session);
}

void Database::Close() noexcept {
    if (m_session) {
        m_session->Store.reset();
        m_session.reset();
    }
}

bool Database::IsOpen() const noexcept {
    return m_session && m_session->Store;
}

Transaction::Transaction(const Database& database)
    : m_session(database.OpenSession()), m_connection(m_session->Store) {
    m_connection->Begin();
}

Transaction::~Transaction() {
    if (m_open) {
        m_connection->End(false);
    }
}

void Transaction::Commit() {
    RequireOpen(m_session);
    m_open = false;
    m_connection->End(true);
}

}  // namespace quarnel02
