#pragma once

// Internal to jet/.

#include <functional>
#include <span>

#include "jet/Pages.h"
#include "jet/TableDefinition.h"
#include "jet/TextDecoder.h"
#include "jet/Value.h"

namespace quarnel02::jet {

/// Reads the tables of a file, and in all no more than a model can hold. The calls throw Damage or
/// Refusal.
class TableReader {
  public:
    TableReader(const Pages& pages, const TextDecoder& texts) : m_pages(&pages), m_texts(&texts) {}

    [[nodiscard]] TableDefinition Definition(std::size_t page) const {
        return ReadTableDefinition(*m_pages, *m_texts, page);
    }

    /// The given columns of every row, in the order of the file.
    void ReadRows(const TableDefinition& table, std::span<const std::size_t> columns,
                  const std::function<void(const Row&)>& action);

  private:
    /// Calls `action` with every row that is not deleted.
    template <class Action>
    void ForEachStored(const TableDefinition& table, Action action) const;
    void Count(const Value& value);

    const Pages* m_pages;
    const TextDecoder* m_texts;
    std::size_t m_content = 0;  ///< bytes read so far
};

}  // namespace quarnel02::jet
