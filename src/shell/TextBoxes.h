#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "basic/Immovable.h"

namespace quarnel02 {

/// The text boxes of the main form that procedures read or fill.
enum class TextBox : std::int8_t {
    txtResources,
    txtTasks,
    txtDays,
    txtACF,
    txtLaborCost,
    txtTransTime,
    txtPenalty,
    txtProduct,
    txtVolume,
    txtProb
};
inline constexpr std::size_t kTextBoxes = 10;

/// The texts of the main form's boxes.
class TextBoxes : Immovable {
  public:
    virtual ~TextBoxes() = default;

    [[nodiscard]] virtual std::string Text(TextBox box) const = 0;
    virtual void SetText(TextBox box, const std::string& text) = 0;
};

}  // namespace quarnel02
