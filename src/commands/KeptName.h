#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace quarnel02 {

/// The name of a file of kept work: "Pump 2026-11-21 10-05-33.mdb", with " (2)" and so on behind
/// the time for further ones of the same second.
struct KeptName {
    std::string Product;  ///< as a file name can hold it
    std::string Time;     ///< local time, "2026-11-21 10-05-33"
    int Number = 1;       ///< from 1 within the second
    std::string Extension;

    [[nodiscard]] std::string Text() const;
};

/// What a file name says; none for a file that is not of kept work.
std::optional<KeptName> ReadKeptName(const std::string& name);

/// Local time as a kept name writes it.
std::string KeptTime(std::chrono::system_clock::time_point time);

/// The product as part of a file name on every file system: at most 100 bytes, "_" for characters
/// that one of them refuses, "Untitled" where nothing is left.
std::string KeptProduct(const std::string& product);

}  // namespace quarnel02
