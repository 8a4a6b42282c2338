#pragma once

#include <stdexcept>
#include <string>

namespace quarnel02 {

/// What went wrong, for callers that react to one kind of failure only.
enum class ErrorKind {
    Overflow,             ///< a value does not fit its type
    TypeMismatch,         ///< a text is not a number
    DivisionByZero,       ///< a divisor is 0
    InvalidUseOfNull,     ///< a number was asked of an empty field
    SubscriptOutOfRange,  ///< there are more items than a table has places for
    NoCurrentRecord,      ///< a record set was read or moved without a row to stand on
    UpdateWithoutEdit,    ///< a field was written outside Edit or AddNew
    ReadOnlyRecordSet,    ///< a join, an aggregate or a DISTINCT set was to be changed
    FieldNotFound,        ///< a record set has no such field
    ObjectClosed,         ///< a database or record set was used after it was closed
    FileNotFound,         ///< a file does not exist
    FileAccess,           ///< a file cannot be read, written, created or replaced
    NotAModel,            ///< a file is not a model database, or is damaged
    DatabaseLocked,       ///< another program holds the database
    DatabaseFailure       ///< any other failure that the store reports
};

/// The one type of run-time error. what() is a single line that names the field or file
/// concerned, says what failed and, where something can be done, what to do.
class RunTimeError : public std::runtime_error {
  public:
    RunTimeError(ErrorKind kind, const std::string& message)
        : std::runtime_error(message), m_kind(kind) {}

    [[nodiscard]] ErrorKind Kind() const noexcept { return m_kind; }

  private:
    ErrorKind m_kind;
};

}  // namespace quarnel02
