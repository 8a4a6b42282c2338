#pragma once

#include <filesystem>

namespace quarnel02 {

/// Makes the empty model at `file` from the schema that the program carries, whole or not at all.
/// Throws what MakeEmptyModel throws, or FileAccess.
void MakeTemplate(const std::filesystem::path& file);

/// Makes the template anew when what stands at `file` is no sound model. A missing template is left
/// missing. Throws what MakeTemplate throws.
void RepairTemplate(const std::filesystem::path& file);

}  // namespace quarnel02
