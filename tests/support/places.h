// Where the files of this tree and of this build lie. Tests ask here, so that their code is the same in each clone and
// the compiler's cache serves them all.
#pragma once

#include <QString>
#include <string>

namespace kdtest {

/// The absolute path of `relative`, which starts at the root of the sources.
std::string sourceFile(const char* relative);
QString sourcePath(const char* relative);

/// The absolute path of `relative`, which starts at the root of the build.
std::string builtFile(const char* relative);
QString builtPath(const char* relative);

}  // namespace kdtest
