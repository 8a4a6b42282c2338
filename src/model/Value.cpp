#include "model/Value.h"

#include "basic/Numbers.h"

namespace quarnel02 {

namespace {

double ToDouble(const Value& value, const std::string& field) {
    if (const auto* text = std::get_if<std::string>(&value)) {
        return TextToDouble(*text, field);
    }
    if (const auto* whole = std::get_if<std::int64_t>(&value)) {
        return static_cast<double>(*whole);
    }
    return std::get<double>(value);
}

std::string ToText(const Value& value) {
    if (const auto* whole = std::get_if<std::int64_t>(&value)) {
        return NumberText(*whole);
    }
    if (const auto* real = std::get_if<double>(&value)) {
        return NumberText(*real);
    }
    return std::get<std::string>(value);
}

}  // namespace

Value ConvertTo(FieldType type, const Value& value, const std::string& field) {
    if (IsNull(value)) {
        return value;
    }
    switch (type) {
        case FieldType::Integer:
            return std::int64_t{ToInteger(ToDouble(value, field), field)};
        case FieldType::Real:
            return ToDouble(value, field);
        case FieldType::Single:
            return DecimalOfSingle(ToSingle(ToDouble(value, field), field));
        case FieldType::Text:
            break;
    }
    return ToText(value);
}

}  // namespace quarnel02
