#pragma once

// Internal to jet/.

#include <stdexcept>
#include <string>

#include "jet/Value.h"
#include "jet/WrittenColumn.h"

namespace quarnel02::jet {

/// Why a column does not take a value: "has 300 characters, and the column takes 255. Shorten it."
class FieldFault : public std::runtime_error {
  public:
    FieldFault(bool wrongType, const std::string& why)
        : std::runtime_error(why), m_wrongType(wrongType) {}
    [[nodiscard]] bool IsWrongType() const { return m_wrongType; }

  private:
    bool m_wrongType;
};

/// The bytes of a value that is not Null. A Binary takes a text as its bytes, a DateTime a number
/// of days. Throws FieldFault.
std::string EncodeField(const WrittenColumn& column, const Value& value, bool compress);

}  // namespace quarnel02::jet
