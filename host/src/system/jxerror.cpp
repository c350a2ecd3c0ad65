#include "jxerror.h"

const char* ktErrorName(KtErrorStatus status)
{
    switch (status) {
    case KtError_OK:
        return "KtError_OK";
    case KtError_NotThatKindOfClass:
        return "KtError_NotThatKindOfClass";
    case KtError_InvalidInput:
        return "KtError_InvalidInput";
    case KtError_OutOfMemory:
        return "KtError_OutOfMemory";
    case KtError_KeyNotFound:
        return "KtError_KeyNotFound";
    case KtError_DuplicateKey:
        return "KtError_DuplicateKey";
    case KtError_NullObjectPointer:
        return "KtError_NullObjectPointer";
    case KtError_NotOpenForRead:
        return "KtError_NotOpenForRead";
    case KtError_NotOpenForWrite:
        return "KtError_NotOpenForWrite";
    case KtError_WasOpenForRead:
        return "KtError_WasOpenForRead";
    case KtError_WasOpenForWrite:
        return "KtError_WasOpenForWrite";
    case KtError_WasErased:
        return "KtError_WasErased";
    case KtError_FileNotFound:
        return "KtError_FileNotFound";
    case KtError_NotImplemented:
        return "KtError_NotImplemented";
    }
    return "KtError_Unknown";
}

CJxError::CJxError(KtErrorStatus status) noexcept
    : m_status(status)
{ }

const char* CJxError::what() const noexcept
{
    return ktErrorName(m_status);
}
