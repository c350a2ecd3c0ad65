#pragma once

#include "jxerror.h"
#include "kthost_export.h"

#include <cstddef>

class CJxRxObject;

/**
 * @brief Run-time class description of a host object type.
 *
 * Each class derived from CJxRxObject has one static description that names
 * it and points to its parent's description, forming the class tree that
 * isKindOf() and the casts walk.
 */
class KTHOST_EXPORT CJxRxClass
{
public:
    CJxRxClass(const wchar_t* name, const CJxRxClass* parent);

    const wchar_t* name() const { return m_name; }
    const CJxRxClass* parent() const { return m_parent; }
    /// True when this class is @p other or derives from it.
    bool isDerivedFrom(const CJxRxClass* other) const;

    /**
     * The protocol extension of class @p protocol attached to this class or,
     * failing that, to the nearest base class that has one; null when none.
     */
    CJxRxObject* queryX(const CJxRxClass* protocol) const;
    /**
     * Attaches @p extension as this class's protocol extension of class
     * @p protocol (null removes it); returns the one it replaces. The caller
     * keeps ownership. Thread-safe.
     */
    CJxRxObject* addX(const CJxRxClass* protocol, CJxRxObject* extension) const;

private:
    const wchar_t* m_name;
    const CJxRxClass* m_parent;
};

/**
 * @brief Base of host objects: run-time class identity and the host heap.
 *
 * Objects of this hierarchy are allocated on the host heap (operator new and
 * delete go through ktHeapAlloc() and ktHeapFree()).
 */
class KTHOST_EXPORT CJxRxObject
{
public:
    virtual ~CJxRxObject();

    /// The description of CJxRxObject itself.
    static const CJxRxClass* desc();
    /// The description of the object's most derived class.
    virtual const CJxRxClass* isA() const;
    /// True when the object is of class @p cls or of a class derived from it.
    bool isKindOf(const CJxRxClass* cls) const;
    /// The protocol extension of class @p protocol of the object's class (see CJxRxClass::queryX()).
    CJxRxObject* queryX(const CJxRxClass* protocol) const;

    static void* operator new(std::size_t size);
    static void operator delete(void* p) noexcept;
    static void* operator new[](std::size_t size);
    static void operator delete[](void* p) noexcept;

protected:
    CJxRxObject() = default;
};

/// Declares the run-time class members inside a class derived from CJxRxObject.
#define KT_DECLARE_RX_MEMBERS(ClassName)                                                                     \
public:                                                                                                      \
    static const CJxRxClass* desc();                                                                         \
    const CJxRxClass* isA() const override;                                                                  \
    static ClassName* cast(CJxRxObject* object)                                                              \
    {                                                                                                        \
        return object && object->isKindOf(desc()) ? static_cast<ClassName*>(object) : nullptr;               \
    }                                                                                                        \
    static const ClassName* cast(const CJxRxObject* object)                                                  \
    {                                                                                                        \
        return object && object->isKindOf(desc()) ? static_cast<const ClassName*>(object) : nullptr;         \
    }

/// Defines the run-time class members of @p ClassName, derived from @p ParentName.
#define KT_DEFINE_RX_MEMBERS(ClassName, ParentName)                                                          \
    const CJxRxClass* ClassName::desc()                                                                      \
    {                                                                                                        \
        static const CJxRxClass s_desc(L## #ClassName, ParentName::desc());                                  \
        return &s_desc;                                                                                      \
    }                                                                                                        \
    const CJxRxClass* ClassName::isA() const                                                                 \
    {                                                                                                        \
        return desc();                                                                                       \
    }

/**
 * Casts @p object to @p T, raising CJxError(KtError_NotThatKindOfClass) when
 * it is not of that class. A null object gives null.
 */
template <class T>
T* ktRxCheckedCast(CJxRxObject* object)
{
    if (!object)
        return nullptr;
    if (!object->isKindOf(T::desc()))
        throw CJxError(KtError_NotThatKindOfClass);
    return static_cast<T*>(object);
}
