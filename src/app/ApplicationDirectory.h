#pragma once

#include <filesystem>

namespace quarnel02 {

/// The directory of the template, the working copy and the reports: that of the program when it
/// holds "blank.seq" and can be written to, else `dataDirectory`, which is made, and given the
/// template, when needed. The template then comes from the program's directory or from
/// "../share/quarnel02" beside it.
/// Throws FileNotFound when there is no template, FileAccess when the directory cannot be made.
std::filesystem::path PrepareApplicationDirectory(const std::filesystem::path& programDirectory,
                                                  const std::filesystem::path& dataDirectory);

}  // namespace quarnel02
