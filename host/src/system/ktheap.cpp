#include "ktheap.h"

#include "jxerror.h"

#include <atomic>
#include <cstdlib>

namespace {
std::atomic<long long> g_liveBlocks{0};
}

void* ktHeapAlloc(std::size_t size)
{
    void* p = std::malloc(size ? size : 1);
    if (!p)
        throw CJxError(KtError_OutOfMemory);
    g_liveBlocks.fetch_add(1, std::memory_order_relaxed);
    return p;
}

void ktHeapFree(void* p) noexcept
{
    if (!p)
        return;
    g_liveBlocks.fetch_sub(1, std::memory_order_relaxed);
    std::free(p);
}

long long ktHeapLiveBlocks() noexcept
{
    return g_liveBlocks.load(std::memory_order_relaxed);
}
