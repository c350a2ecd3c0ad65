#include "jxrxobject.h"

#include "ktheap.h"

#include <map>
#include <mutex>
#include <utility>

namespace {

// Protocol extensions by (class, protocol); the class descriptions themselves stay immutable.
std::mutex g_extensionsMutex;
std::map<std::pair<const CJxRxClass*, const CJxRxClass*>, CJxRxObject*>& extensions()
{
    static std::map<std::pair<const CJxRxClass*, const CJxRxClass*>, CJxRxObject*> map;
    return map;
}

} // namespace

CJxRxClass::CJxRxClass(const wchar_t* name, const CJxRxClass* parent)
    : m_name(name)
    , m_parent(parent)
{ }

bool CJxRxClass::isDerivedFrom(const CJxRxClass* other) const
{
    if (!other)
        return false;
    for (const CJxRxClass* cls = this; cls; cls = cls->m_parent) {
        if (cls == other)
            return true;
    }
    return false;
}

CJxRxObject* CJxRxClass::queryX(const CJxRxClass* protocol) const
{
    if (!protocol)
        return nullptr;
    std::lock_guard<std::mutex> lock(g_extensionsMutex);
    for (const CJxRxClass* cls = this; cls; cls = cls->m_parent) {
        const auto it = extensions().find({cls, protocol});
        if (it != extensions().end())
            return it->second;
    }
    return nullptr;
}

CJxRxObject* CJxRxClass::addX(const CJxRxClass* protocol, CJxRxObject* extension) const
{
    if (!protocol)
        return nullptr;
    std::lock_guard<std::mutex> lock(g_extensionsMutex);
    auto& map = extensions();
    const auto key = std::make_pair(this, protocol);
    const auto it = map.find(key);
    CJxRxObject* previous = it != map.end() ? it->second : nullptr;
    if (extension)
        map[key] = extension;
    else if (it != map.end())
        map.erase(it);
    return previous;
}

CJxRxObject::~CJxRxObject() = default;

CJxRxObject* CJxRxObject::queryX(const CJxRxClass* protocol) const
{
    return isA()->queryX(protocol);
}

const CJxRxClass* CJxRxObject::desc()
{
    static const CJxRxClass s_desc(L"CJxRxObject", nullptr);
    return &s_desc;
}

const CJxRxClass* CJxRxObject::isA() const
{
    return desc();
}

bool CJxRxObject::isKindOf(const CJxRxClass* cls) const
{
    return isA()->isDerivedFrom(cls);
}

void* CJxRxObject::operator new(std::size_t size)
{
    return ktHeapAlloc(size);
}

void CJxRxObject::operator delete(void* p) noexcept
{
    ktHeapFree(p);
}

void* CJxRxObject::operator new[](std::size_t size)
{
    return ktHeapAlloc(size);
}

void CJxRxObject::operator delete[](void* p) noexcept
{
    ktHeapFree(p);
}
