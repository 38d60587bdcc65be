// Files that fail: every call of the system by which the program opens, reads, writes, settles or renames files of one
// folder is counted, and one of them can be made to fail, whoever makes it: the host, the module or the libraries.
#pragma once

#include <string>

namespace kdtest {

/// While it lives, the calls on files below the folder count. One at a time.
class FileFaults {
public:
    /// Absolute, without a slash at its end.
    explicit FileFaults(const std::string& folder);
    ~FileFaults();
    FileFaults(const FileFaults&) = delete;
    FileFaults& operator=(const FileFaults&) = delete;

    /// The n-th call from now fails, once; 0 is none. A write that fails has written half of its bytes first, as on a
    /// full disk.
    static void arm(int number);
    /// What is left of the number: 0 once the call has failed.
    static int left();
};

}  // namespace kdtest
