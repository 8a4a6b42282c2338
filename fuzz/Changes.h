#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quarnel02::fuzz {

/// A file, and the places in it that hold something or stand next to what does.
struct ChangeableFile {
    explicit ChangeableFile(std::string content);

    /// The file with the changes that the bytes say: of every four, two are a place and two what is
    /// put there; where the place's highest bit is set, only one.
    [[nodiscard]] std::string With(std::string_view changes) const;

    std::string Content;
    std::vector<std::size_t> Places;
};

}  // namespace quarnel02::fuzz
