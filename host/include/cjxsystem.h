#pragma once

#include "kthost_export.h"

#include <cstddef>

class CJxServiceDictionary;

/**
 * @brief The host system object: the entry to the host's services.
 *
 * One instance per process, created on first use.
 */
class KTHOST_EXPORT CJxSystem
{
public:
    static CJxSystem* instance();

    /// The registry of the host's services.
    CJxServiceDictionary* getServiceDictionary();

    /// Host heap allocation, as ktHeapAlloc().
    void* heapAlloc(std::size_t size);
    /// Frees a host heap block, as ktHeapFree().
    void heapFree(void* p);

    CJxSystem(const CJxSystem&) = delete;
    CJxSystem& operator=(const CJxSystem&) = delete;

private:
    CJxSystem();
    ~CJxSystem();
    CJxServiceDictionary* m_services;
};
