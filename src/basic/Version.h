#pragma once

namespace quarnel02 {

/// The version of this build, the same in every program: "0.2.0".
const char* Version() noexcept;

}  // namespace quarnel02
