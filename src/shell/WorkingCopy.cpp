#include "shell/WorkingCopy.h"

#include <utility>

namespace quarnel02 {

WorkingCopy::WorkingCopy(std::filesystem::path directory) : m_directory(std::move(directory)) {}

std::filesystem::path WorkingCopy::File(const std::string& name) const {
    return m_directory / name;
}

}  // namespace quarnel02
