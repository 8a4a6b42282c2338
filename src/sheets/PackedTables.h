#pragma once

#include <array>
#include <memory>
#include <string>

#include "sheets/InputTables.h"

namespace quarnel02 {

/// The rows of a table in few bytes: a row of Matrix takes ten to thirty. Unpacked, they are the
/// same bit for bit.
std::string Packed(const TableRows& rows);
TableRows Unpacked(const std::string& packed);

/// Input tables kept in few bytes. Tables that are as in another such snapshot are shared with it.
class PackedTables {
  public:
    /// `like` is a snapshot that the tables may be like.
    explicit PackedTables(const InputTables& tables, const PackedTables* like = nullptr);

    [[nodiscard]] InputTables Tables() const;

    /// Bytes that are not shared with `like`; all of them without one.
    [[nodiscard]] std::size_t BytesBeside(const PackedTables* like) const;

  private:
    static constexpr std::size_t kTables = 6;
    std::array<std::shared_ptr<const std::string>, kTables> m_tables;
};

}  // namespace quarnel02
