#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace quarnel02::bench {

/// What one run of a program cost.
struct CommandCost {
    double Milliseconds = 0;   ///< from its start to its end
    double PeakMegabytes = 0;  ///< of memory
    int Files = 0;             ///< made in directories below `temporary`; 0 unless they are counted
};

/// Runs a program with `temporary` as its TMPDIR, its output thrown away. The peak is at least the
/// memory that this process had itself when it started the program.
/// Throws std::runtime_error when the program does not start or does not end with status 0.
CommandCost Run(const std::vector<std::string>& words, const std::filesystem::path& temporary);

/// The same, watching the directories that the program makes directly in `temporary`; this slows
/// it down.
CommandCost RunCountingFiles(const std::vector<std::string>& words,
                             const std::filesystem::path& temporary);

}  // namespace quarnel02::bench
