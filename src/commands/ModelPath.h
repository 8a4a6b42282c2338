#pragma once

#include <string>

namespace quarnel02 {

/// `directory` + the platform's separator + `file`, as the recent-file list writes a path.
std::string ModelPath(const std::string& directory, const std::string& file);

/// Whether a file of that path exists; a directory is none, nor is what cannot be reached.
bool FileExists(const std::string& path);

/// The text to the right of the last directory separator ("\", and "/" where the platform has
/// it), searched backwards down to the first character: a path without any separator loses its
/// first character.
std::string FileNamePart(const std::string& path);

/// The text to the left of that separator; "" for a path without any.
std::string DirectoryPart(const std::string& path);

}  // namespace quarnel02
