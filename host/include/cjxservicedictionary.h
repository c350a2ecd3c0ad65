#pragma once

#include "kthost_export.h"
#include "ktstring.h"

#include <map>
#include <mutex>

class CJxRxObject;

/**
 * @brief The host's registry of services, by name and by number.
 *
 * Services are host objects registered by the code that owns them; the
 * dictionary does not own them. The owner unregisters a service before
 * destroying it. Look-ups are thread-safe.
 */
class KTHOST_EXPORT CJxServiceDictionary
{
public:
    CJxServiceDictionary();
    ~CJxServiceDictionary();

    CJxServiceDictionary(const CJxServiceDictionary&) = delete;
    CJxServiceDictionary& operator=(const CJxServiceDictionary&) = delete;

    /// Registers @p service under @p name. Fails (false) for an empty name, a null service or a taken name.
    bool registerService(const KtString& name, CJxRxObject* service);
    /// Registers @p service under number @p id. Fails for a null service or a taken number.
    bool registerService(int id, CJxRxObject* service);
    /// Removes the service of that name; false when there was none.
    bool unregisterService(const KtString& name);
    bool unregisterService(int id);
    /// Removes every registration of @p service, by name and by number; returns how many.
    int unregisterService(const CJxRxObject* service);

    bool hasService(const KtString& name) const;
    bool hasService(int id) const;
    /// The service of that name, or null.
    CJxRxObject* getService(const KtString& name) const;
    /// The service of that number, or null.
    CJxRxObject* getService(int id) const;

private:
    mutable std::mutex m_mutex;
    std::map<KtString, CJxRxObject*> m_byName;
    std::map<int, CJxRxObject*> m_byId;
};
