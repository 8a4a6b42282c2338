#pragma once

#include <string>

namespace quarnel02::jet {

enum class ObjectKind {
    Table,
    LinkedTable,  ///< its rows are in another file
    Query,
    Relationship,
    Form,
    Report,
    Macro,
    Module,
    Page,  ///< a data access page
    Other
};

/// Something that a user made in an Access database.
struct DatabaseObject {
    ObjectKind Kind = ObjectKind::Other;
    std::string Name;

    bool operator==(const DatabaseObject&) const = default;
};

}  // namespace quarnel02::jet
