#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "commands/NumberedRecords.h"

namespace quarnel02 {

/// Table Resources: a new resource is a manual workstation that is always up.
NumberedTable ResourceTable();

/// What is shown of an equipment class.
struct TypeTexts {
    ResourceType Type;
    std::string_view Label;
    std::string_view Help;
};

/// The class of a stored code, "0" to "3"; nothing for any other text.
std::optional<TypeTexts> TypeOfCode(std::string_view code);

/// The code that stands `step` (1 or -1) further: behind 3 comes 0, before 0 comes 3. An empty
/// code counts as 0. Throws TypeMismatch for a text that is no number.
std::string NextTypeCode(const std::string& code, int step);

}  // namespace quarnel02
