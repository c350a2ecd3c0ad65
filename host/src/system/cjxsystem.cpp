#include "cjxsystem.h"

#include "cjxservicedictionary.h"
#include "ktheap.h"

CJxSystem* CJxSystem::instance()
{
    // Never destroyed: services may still be looked up from static destructors.
    static CJxSystem* s_instance = new CJxSystem;
    return s_instance;
}

CJxSystem::CJxSystem()
    : m_services(new CJxServiceDictionary)
{ }

CJxSystem::~CJxSystem()
{
    delete m_services;
}

CJxServiceDictionary* CJxSystem::getServiceDictionary()
{
    return m_services;
}

void* CJxSystem::heapAlloc(std::size_t size)
{
    return ktHeapAlloc(size);
}

void CJxSystem::heapFree(void* p)
{
    ktHeapFree(p);
}
