#pragma once

#include <QString>
#include <cstdint>
#include <optional>

class QLineEdit;

namespace quarnel02 {

// What is typed into the boxes of the study window.

/// A whole annual volume from 1 on. Throws TypeMismatch or Overflow, which name the field.
int TypedVolume(const QString& text, const char* field);

/// A station limit; none for an empty text, "--" and a number below 1. Throws as TypedVolume does.
std::optional<std::int16_t> TypedLimit(const QString& text);

/// "--" without one.
QString LimitText(std::optional<std::int16_t> limit);

/// A box for a figure is as wide as its largest values.
void LimitWidth(QLineEdit& box);

}  // namespace quarnel02
