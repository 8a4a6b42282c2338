#pragma once

// Internal to jet/.

#include <chrono>
#include <string>

namespace quarnel02::jet {

/// Days since 1899-12-30, as files hold dates.
double DaysOf(std::chrono::system_clock::time_point time);

/// The first page of a Jet 4 file without a password, made on that day.
std::string EncodeHeader(double created);

}  // namespace quarnel02::jet
