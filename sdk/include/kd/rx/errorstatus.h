// The status values that host operations return. Zero is success; callers test only for zero against
// non-zero, so the names serve those who read a log.
#pragma once

namespace Kdad {

enum ErrorStatus : int {
    eOk = 0,
    eInvalidInput,
    eNullObjectId,
    eUnknownId,
    eWasErased,
    eNotThatKindOfClass,
    eWasOpenForRead,
    eWasOpenForWrite,
    eNotOpenForRead,
    eNotOpenForWrite,
    eAlreadyInDatabase,
    eNotInDatabase,
    eNullObjectPointer,
    eKeyNotFound,
    eDuplicateKey,
    eInvalidKey,
    eInvalidIndex,
    eInvalidContext,
    eCannotBeErased,
    eOnLockedLayer,
    eLockViolation,
    eNoSelection,
    eNotApplicable,
    eOutOfMemory,
    eFileNotFound,
    eFileAccessError,
    eFileCorrupt,
    eFileVersion,
};

}  // namespace Kdad
