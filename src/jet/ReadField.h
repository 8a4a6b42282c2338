#pragma once

// Internal to jet/.

#include "jet/Pages.h"
#include "jet/RowFields.h"
#include "jet/TableDefinition.h"
#include "jet/TextDecoder.h"
#include "jet/Value.h"

namespace quarnel02::jet {

/// A column's value in a row. The column is neither Computed nor Other. Throws Damage or Refusal.
Value ReadField(const Pages& pages, const TextDecoder& texts, const RowFields& row,
                const StoredColumn& column);

}  // namespace quarnel02::jet
