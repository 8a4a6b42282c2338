#pragma once

#include <filesystem>
#include <memory>
#include <string_view>

#include "basic/Immovable.h"
#include "model/RecordSet.h"

namespace quarnel02 {

class Connection;
struct Session;

/// A handle on an open model database. Copies of a handle are the same opening; openings of one
/// file share its connection. For use on one thread.
class Database {
  public:
    /// A closed handle.
    Database() = default;

    /// Opens the file. Throws FileNotFound, NotAModel, DatabaseLocked or FileAccess.
    static Database Open(const std::filesystem::path& path);

    /// Opens the rows that the SQL text selects. Throws ObjectClosed on a closed handle and
    /// DatabaseFailure for a text that the store does not understand.
    [[nodiscard]] RecordSet OpenRecordSet(std::string_view sql) const;

    /// Closes this opening and every record set opened through it. When the last opening of a
    /// file closes, everything written is on the disk in that one file.
    void Close() noexcept;
    [[nodiscard]] bool IsOpen() const noexcept;

  private:
    friend class Transaction;
    friend class RowWriter;
    friend void DeleteAllRows(const Database& database, std::string_view table);

    /// The session of an open handle. Throws ObjectClosed on a closed one.
    [[nodiscard]] const std::shared_ptr<Session>& OpenSession() const;

    std::shared_ptr<Session> m_session;
};

/// A group of writes that happen as a whole or not at all: without Commit they are undone when
/// the object goes. There is one at a time for all openings of a file.
class Transaction : Immovable {
  public:
    /// Waits a few seconds for other programs. Throws DatabaseLocked, ObjectClosed, and
    /// DatabaseFailure inside another one.
    explicit Transaction(const Database& database);
    ~Transaction();

    /// Makes the writes last. Throws what the store reports; the writes are then undone.
    void Commit();

  private:
    Database m_database;
    std::shared_ptr<Connection> m_connection;  ///< kept, so that a closed session is undone too
    bool m_open = true;
};

}  // namespace quarnel02
