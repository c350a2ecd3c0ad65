#pragma once

#include "kthost_export.h"

#include <QString>
#include <QVariant>
#include <QVariantMap>

/**
 * @brief Values by key exchanged with a host dialog.
 *
 * A value is any QVariant: strings, numbers, and arrays (a QVariantList of
 * QVariantMap objects, each an object with its own keys).
 */
class KTHOST_EXPORT KtUiPropertyObject
{
public:
    KtUiPropertyObject() = default;

    void set(const QString& key, const QVariant& value);
    /// The value of @p key, or @p defaultValue when there is none.
    QVariant get(const QString& key, const QVariant& defaultValue = {}) const;
    bool contains(const QString& key) const;
    void remove(const QString& key);
    /// Every value by key.
    QVariantMap values() const;

private:
    QVariantMap m_values;
};
