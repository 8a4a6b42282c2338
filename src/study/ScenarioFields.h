#pragma once

// Internal to study/: the figures that scenarios change, by the names that their texts use.

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "study/ScenarioText.h"

namespace quarnel02 {

/// A figure that a difference may be about, and the values that it takes.
struct ScenarioField {
    std::string_view Name;
    ScenarioTarget Target;
    FigureKind Kind;
    bool OfResource;
    double Low;
    double High;
    bool AboveLow;  ///< `Low` itself is not allowed
    bool Whole;     ///< only whole numbers
};

std::span<const ScenarioField> ScenarioFields();

/// The field that a difference is about.
const ScenarioField& FieldOf(const Difference& difference);

/// Whether two names differ in nothing but the case of ASCII letters.
bool EqualNames(std::string_view a, std::string_view b);

/// `text` without blanks, tabs and carriage returns around it.
std::string_view Trimmed(std::string_view text);

/// What errors call things.
struct ScenarioWords {
    std::string Who;       ///< they begin with it
    std::string Name;      ///< of the field
    std::string NewValue;  ///< what is typed for a new value
};

/// Reads what a field is set to or changed by.
class ScenarioValueReader {
  public:
    ScenarioValueReader(const ScenarioField& field, ScenarioWords words)
        : m_field(field), m_words(std::move(words)) {}

    /// "+10%", with blanks anywhere. Throws TypeMismatch.
    [[nodiscard]] double Share(std::string_view text) const;
    /// "80,000"; none for the limit "none". Throws TypeMismatch.
    [[nodiscard]] std::optional<double> Value(std::string_view text) const;

  private:
    [[noreturn]] void Refuse(const std::string& why) const;
    [[nodiscard]] double Number(std::string_view text) const;

    const ScenarioField& m_field;
    ScenarioWords m_words;
};

}  // namespace quarnel02
