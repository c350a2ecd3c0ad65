#include "jxrxobject.h"

#include "ktheap.h"

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

CJxRxObject::~CJxRxObject() = default;

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
