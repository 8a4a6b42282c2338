#pragma once

namespace quarnel02 {

/// Goes on as the program quarnel02-report, with the same arguments. It is part of the desktop
/// package and stands beside this one. Throws FileNotFound, with what to install, where it does
/// not, and FileAccess where it cannot be started; else it does not return.
[[noreturn]] void HandOverToReport(char* arguments[]);

}  // namespace quarnel02
