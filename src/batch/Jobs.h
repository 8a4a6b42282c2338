#pragma once

#include <functional>
#include <string>

namespace quarnel02 {

/// What a job has printed, and how it ended.
struct JobResult {
    std::string Out;
    std::string Err;
    int Status = 0;  ///< exit status; 128 + the signal's number when one has ended it
};

/// Runs the jobs 0 to `count` - 1, at most `atOnce` at a time, each as a process of its own, so
/// that one which fails, or even crashes, touches no other. `job` gives the exit status; `done` is
/// called here, in the order of the jobs, as soon as a job and all before it have ended. For a
/// program with a single thread. SIGINT, SIGTERM and SIGHUP end the jobs, which may clean up, and
/// then the program with status 128 + the signal's number; ones that the program was told to ignore
/// stay ignored. Throws FileAccess when a process or its temporary files cannot be made.
void RunJobs(int count, int atOnce, const std::function<int(int)>& job,
             const std::function<void(int, const JobResult&)>& done);

}  // namespace quarnel02
