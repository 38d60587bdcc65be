// The tables themselves.

#include "module/frame/apptables.h"

namespace {
constexpr int kInitialLength = 0;
constexpr int kGrowLength = 8;
}  // namespace

KdArray<_DBX_REGISTER_OBJECT_ENTRY*>& classTable() {
    static KdArray<_DBX_REGISTER_OBJECT_ENTRY*> table(kInitialLength, kGrowLength);
    return table;
}

KdArray<_TVXCOMMAND_ENTRY*>& commandTable() {
    static KdArray<_TVXCOMMAND_ENTRY*> table(kInitialLength, kGrowLength);
    return table;
}

KdArray<_KFSSYMBOL_ENTRY*>& lispFunctionTable() {
    static KdArray<_KFSSYMBOL_ENTRY*> table(kInitialLength, kGrowLength);
    return table;
}
