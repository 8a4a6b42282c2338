#pragma once

#include <string>

#include "basic/Immovable.h"

namespace quarnel02::test {

/// How a file system fails.
struct Failing {
    int At;      ///< the call, from 1, among all that change files or open them
    int Code;    ///< the error that it ends with
    bool Stays;  ///< every later one fails too, as on a disk that is full
};

/// While the object lives, the program's calls to open, write, flush, name, rename, close and
/// remove files are counted, and one of them, or all from one on, fails. Flushes are not carried
/// out, so that thousands of cases take seconds.
class FailingCalls : Immovable {
  public:
    explicit FailingCalls(const Failing& failing);
    ~FailingCalls();

    /// Whether any call has failed; none does any more.
    static bool Stop();
    /// The call that failed first: "rename".
    static std::string Failed();
};

/// While the object lives, memory is asked for in vain once, at that request from 1, or from it on.
class FailingMemory : Immovable {
  public:
    FailingMemory(int at, bool stays);
    ~FailingMemory();

    /// Whether any request was in vain; none is any more.
    static bool Stop();
};

}  // namespace quarnel02::test
