#include "model/Database.h"

#include "basic/ScopeGuard.h"
#include "model/Connection.h"

namespace quarnel02 {

Database Database::Open(const std::filesystem::path& path) {
    Database database;
    database.m_session = std::make_shared<Session>(Session{Connection::To(path)});
    return database;
}

RecordSet Database::OpenRecordSet(std::string_view sql) const {
    return {OpenSession(), std::string(sql)};
}

const std::shared_ptr<Session>& Database::OpenSession() const {
    if (!IsOpen()) {
        throw RunTimeError(ErrorKind::ObjectClosed, "The database is closed.");
    }
    return m_session;
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
    : m_database(database), m_connection(database.OpenSession()->Store) {
    m_connection->Run("BEGIN IMMEDIATE");
}

Transaction::~Transaction() {
    if (m_open) {
        m_connection->Undo();
    }
}

void Transaction::Commit() {
    (void)m_database.OpenSession();
    const FailureGuard undo([this] { m_connection->Undo(); });
    m_open = false;
    m_connection->Run("COMMIT");
}

}  // namespace quarnel02
