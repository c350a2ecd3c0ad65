#pragma once

/// Kt: the host's database and document namespace.
namespace Kt {

/// Result of host database and document operations; eOk (0) is success.
enum ErrorStatus : int {
    eOk = 0,
    eNotImplemented = 1,
    eInvalidInput = 3,
    eOutOfMemory = 4,
    eKeyNotFound = 5,
    eDuplicateKey = 6,
    eInvalidSymbolTableName = 7,
    eNullObjectId = 8,
    eUnknownObjectId = 9,
    eWasErased = 10,
    eWasOpenForRead = 11,
    eWasOpenForWrite = 12,
    eNotOpenForWrite = 13,
    eWasNotOpen = 14,
    eFileNotFound = 15,
    eInvalidFileFormat = 16,
    eInvalidPassword = 17,
    eFileAccessError = 18,
    eNotApplicable = 19,
    eNullObjectPointer = 20,
    eRenderFailed = 21,
    eNotThatKindOfClass = 22,
};

} // namespace Kt
