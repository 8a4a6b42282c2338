#pragma once

// Internal to jet/.

#include <cstdint>
#include <string>
#include <vector>

#include "jet/Value.h"
#include "jet/WriteDefinition.h"
#include "jet/WrittenPages.h"

namespace quarnel02::jet {

/// The system tables of a file with the objects that every file has, to which tables are added.
class WrittenCatalogue {
  public:
    /// `created` in days since 1899-12-30.
    explicit WrittenCatalogue(double created);

    /// A table whose definition stands on that page.
    void AddTable(const std::string& name, std::size_t page);

    /// Fills pages 2 to 15, which are empty. Throws RunTimeError (SubscriptOutOfRange) for more
    /// tables than these hold.
    void Write(WrittenPages& pages) const;

  private:
    struct Object {
        std::int32_t Id;
        std::int32_t Parent;
        std::string Name;
        int Type;
        std::string Owner;
        std::uint32_t Flags;
        std::int32_t Rights;
        bool Inheritable;
    };

    [[nodiscard]] Row ObjectRow(const Object& object) const;
    void WriteObjects(WrittenPages& pages) const;
    void WritePermissions(WrittenPages& pages) const;

    double m_created;
    std::vector<Object> m_objects;
};

}  // namespace quarnel02::jet
