#pragma once

#include <string>

namespace quarnel02::test {

/// Examples as they are shipped beside the programs.
inline const std::string kPump = std::string(QUARNEL02_PROGRAMS) + "/examples/pump.mdb";
inline const std::string kWorked = std::string(QUARNEL02_PROGRAMS) + "/examples/worked-example.mdb";

}  // namespace quarnel02::test
