// A listener that writes down what it is told of an object.
#pragma once

#include <string>

#include "kd/db/object.h"

namespace kdtest {

struct Witness : KdDbObjectReactor {
    void modified(const KdDbObject*) override { told += 'm'; }
    void erased(const KdDbObject*, bool erasing) override { told += erasing ? 'e' : 'b'; }
    std::string told;  ///< a letter each: modified, erased, brought back
};

}  // namespace kdtest
