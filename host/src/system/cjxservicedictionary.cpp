#include "cjxservicedictionary.h"

CJxServiceDictionary::CJxServiceDictionary() = default;
CJxServiceDictionary::~CJxServiceDictionary() = default;

bool CJxServiceDictionary::registerService(const KtString& name, CJxRxObject* service)
{
    if (name.isEmpty() || !service)
        return false;
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_byName.emplace(name, service).second;
}

bool CJxServiceDictionary::registerService(int id, CJxRxObject* service)
{
    if (!service)
        return false;
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_byId.emplace(id, service).second;
}

bool CJxServiceDictionary::unregisterService(const KtString& name)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_byName.erase(name) > 0;
}

bool CJxServiceDictionary::unregisterService(int id)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_byId.erase(id) > 0;
}

int CJxServiceDictionary::unregisterService(const CJxRxObject* service)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    int removed = 0;
    for (auto it = m_byName.begin(); it != m_byName.end();) {
        if (it->second == service) {
            it = m_byName.erase(it);
            ++removed;
        } else {
            ++it;
        }
    }
    for (auto it = m_byId.begin(); it != m_byId.end();) {
        if (it->second == service) {
            it = m_byId.erase(it);
            ++removed;
        } else {
            ++it;
        }
    }
    return removed;
}

bool CJxServiceDictionary::hasService(const KtString& name) const
{
    return getService(name) != nullptr;
}

bool CJxServiceDictionary::hasService(int id) const
{
    return getService(id) != nullptr;
}

CJxRxObject* CJxServiceDictionary::getService(const KtString& name) const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    const auto it = m_byName.find(name);
    return it == m_byName.end() ? nullptr : it->second;
}

CJxRxObject* CJxServiceDictionary::getService(int id) const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    const auto it = m_byId.find(id);
    return it == m_byId.end() ? nullptr : it->second;
}
