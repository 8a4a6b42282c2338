#pragma once

// Internal to jet/.

#include "jet/Bytes.h"

namespace quarnel02::jet {

/// The real number nearest to a stored amount of money (8 bytes, four decimal places).
double CurrencyOf(Bytes field);

/// The real number nearest to a stored decimal number (17 bytes): a sign, then four 32-bit digits,
/// the highest first. Throws Damage for more decimal places than there can be.
double DecimalOf(Bytes field, unsigned scale);

inline constexpr std::size_t kDecimalBytes = 17;

}  // namespace quarnel02::jet
