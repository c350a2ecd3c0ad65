#pragma once

#include "kthost_export.h"

#include <cstddef>

/**
 * Allocates @p size bytes on the host heap. Raises CJxError(KtError_OutOfMemory)
 * when the memory cannot be had. A size of 0 gives a unique, freeable block.
 */
KTHOST_EXPORT void* ktHeapAlloc(std::size_t size);
/// Frees a block from ktHeapAlloc(); null is ignored.
KTHOST_EXPORT void ktHeapFree(void* p) noexcept;
/// Number of host heap blocks currently allocated (for leak checks in tests).
KTHOST_EXPORT long long ktHeapLiveBlocks() noexcept;
