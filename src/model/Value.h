#pragma once

#include <cstdint>
#include <string>
#include <variant>

namespace quarnel02 {

/// A field's value: Null (empty), whole number, real number or text.
using Value = std::variant<std::monostate, std::int64_t, double, std::string>;

inline bool IsNull(const Value& value) {
    return std::holds_alternative<std::monostate>(value);
}

/// What a field takes. A Single is kept as DecimalOfSingle says it, so that a row is found again by
/// the text that was entered: 33.3 is 33.3 and not 33.2999992.
enum class FieldType { Integer, Real, Single, Text };

/// `value` as a field of the given type stores it: texts become numbers, numbers become texts,
/// an integer field rounds half to even. Null stays Null. `field` names the field in errors.
/// Throws TypeMismatch for a text that is no number, Overflow beyond the type's range.
Value ConvertTo(FieldType type, const Value& value, const std::string& field);

}  // namespace quarnel02
