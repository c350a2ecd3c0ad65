#pragma once

#include "kthost_export.h"

#include <exception>

/// Error codes of host operations.
enum KtErrorStatus {
    KtError_OK = 0,
    KtError_NotThatKindOfClass = 1,
    KtError_InvalidInput = 2,
    KtError_OutOfMemory = 3,
    KtError_KeyNotFound = 4,
    KtError_DuplicateKey = 5,
    KtError_NullObjectPointer = 6,
    KtError_NotOpenForRead = 7,
    KtError_NotOpenForWrite = 8,
    KtError_WasOpenForRead = 9,
    KtError_WasOpenForWrite = 10,
    KtError_WasErased = 11,
    KtError_FileNotFound = 12,
    KtError_NotImplemented = 13,
};

/// Human-readable name of an error code ("KtError_NotThatKindOfClass", ...).
KTHOST_EXPORT const char* ktErrorName(KtErrorStatus status);

/**
 * @brief A host error raised as a C++ exception.
 *
 * Host operations that fail for a programming error (a cast to the wrong class,
 * an object used in the wrong open mode) throw this; the code says which.
 */
class KTHOST_EXPORT CJxError : public std::exception
{
public:
    explicit CJxError(KtErrorStatus status) noexcept;
    KtErrorStatus status() const noexcept { return m_status; }
    const char* what() const noexcept override;

private:
    KtErrorStatus m_status;
};
