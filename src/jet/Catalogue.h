#pragma once

// Internal to jet/.

#include <vector>

#include "jet/DatabaseObject.h"
#include "jet/TableReader.h"

namespace quarnel02::jet {

/// An object of the catalogue, and where a table's definition begins.
struct CatalogueEntry {
    DatabaseObject Object;
    std::size_t DefinitionPage = 0;
};

/// The objects that a user, not Access itself, made. Throws Damage or Refusal.
std::vector<CatalogueEntry> ReadCatalogue(TableReader& tables);

}  // namespace quarnel02::jet
