#include "ktuipropertyobject.h"

void KtUiPropertyObject::set(const QString& key, const QVariant& value)
{
    m_values.insert(key, value);
}

QVariant KtUiPropertyObject::get(const QString& key, const QVariant& defaultValue) const
{
    return m_values.value(key, defaultValue);
}

bool KtUiPropertyObject::contains(const QString& key) const
{
    return m_values.contains(key);
}

void KtUiPropertyObject::remove(const QString& key)
{
    m_values.remove(key);
}

QVariantMap KtUiPropertyObject::values() const
{
    return m_values;
}
