// The one set of faults.

#include "host/rx/faults.h"

namespace kdhost {

Faults& faults() {
    static Faults instance;
    return instance;
}

}  // namespace kdhost
