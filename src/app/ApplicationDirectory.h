#pragma once

#include <filesystem>

namespace quarnel02 {

/// The directory of the template, the working copy and the reports: that of the program when it
/// holds "blank.seq" and can be written to, else `dataDirectory`, which is made, and given the
/// template, when needed. The template then comes from the program's directory, from
/// "../share/quarnel02" beside it, or from the schema that the program carries.
/// Throws FileAccess when the directory or the template cannot be made.
std::filesystem::path PrepareApplicationDirectory(const std::filesystem::path& programDirectory,
                                                  const std::filesystem::path& dataDirectory);

/// The example models that came with the program: beside it, or in "../share/quarnel02"; empty when
/// there are none.
std::filesystem::path ExamplesDirectory(const std::filesystem::path& programDirectory);

}  // namespace quarnel02
