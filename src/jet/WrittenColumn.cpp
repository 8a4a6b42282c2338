#include "jet/WrittenColumn.h"

namespace quarnel02::jet {

RowLayout::RowLayout(std::span<const WrittenColumn> columns) {
    for (const WrittenColumn& column : columns) {
        // A Yes/No stands among the bits for Null.
        const bool has_bytes = IsFixed(column) && column.Type != TypeCode::YesNo;
        Places.push_back({has_bytes ? FixedLength : 0, VariableCount});
        FixedLength += has_bytes ? column.Length : 0;
        VariableCount += IsFixed(column) ? 0U : 1U;
    }
}

}  // namespace quarnel02::jet
