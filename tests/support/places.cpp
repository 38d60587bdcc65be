// The two roots, which the build defines for this file alone.
#include "tests/support/places.h"

namespace kdtest {

std::string sourceFile(const char* relative) {
    return std::string(KD_SOURCE_DIRECTORY "/") + relative;
}

QString sourcePath(const char* relative) {
    return QString::fromStdString(sourceFile(relative));
}

std::string builtFile(const char* relative) {
    return std::string(KD_BINARY_DIRECTORY "/") + relative;
}

QString builtPath(const char* relative) {
    return QString::fromStdString(builtFile(relative));
}

}  // namespace kdtest
