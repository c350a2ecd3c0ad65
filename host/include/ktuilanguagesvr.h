#pragma once

#include "jxrxobject.h"
#include "kthost_export.h"
#include "ktstring.h"

#include <QHash>
#include <QString>

class QByteArray;

/// Name under which the language service is registered with the host.
#define KT_UI_LANGUAGE_SERVICE_NAME L"KtUiLanguageSvr"

/**
 * @brief The host's language service: the text of a resource key.
 *
 * Registered in the host's service dictionary under "KtUiLanguageSvr".
 * Callers pass the key and a default text that stands when the key is unknown.
 */
class KTHOST_EXPORT KtUiLanguageSvr : public CJxRxObject
{
    KT_DECLARE_RX_MEMBERS(KtUiLanguageSvr)

public:
    ~KtUiLanguageSvr() override;

    /// The text of @p key, or @p defaultText (empty when null) when the key is unknown.
    virtual KtString getText(const wchar_t* key, const wchar_t* defaultText) const = 0;
};

/**
 * @brief Language service backed by a JSON catalogue.
 *
 * A catalogue is a JSON object mapping keys to texts:
 * @code
 * { "language": "en", "texts": { "IDS_PLOTSTYLEOPTIONCMD_6": "Solid", ... } }
 * @endcode
 * A plain object of key/text pairs is accepted as well. Entries whose value is
 * not a string are skipped. Loading more catalogues adds to and overrides
 * earlier entries.
 */
class KTHOST_EXPORT KtUiCatalogueLanguageSvr : public KtUiLanguageSvr
{
    KT_DECLARE_RX_MEMBERS(KtUiCatalogueLanguageSvr)

public:
    KtUiCatalogueLanguageSvr();
    ~KtUiCatalogueLanguageSvr() override;

    /// Adds the entries of a catalogue; false (nothing added) when @p json is not a JSON object.
    bool loadFromData(const QByteArray& json);
    /// Adds a catalogue from a file or a Qt resource path (":/...").
    bool loadFromFile(const QString& path);
    /// Adds the catalogue of @p language ("en") embedded in KtHost.
    bool loadBuiltIn(const QString& language);

    void insert(const QString& key, const QString& text);
    void clear();
    int count() const;
    bool contains(const QString& key) const;
    /// The catalogue's "language" value, empty when none was given.
    QString language() const;

    KtString getText(const wchar_t* key, const wchar_t* defaultText) const override;

    /// Registers this service under "KtUiLanguageSvr"; false when another one is registered.
    bool registerWithHost();
    /// Removes this service from the host if it is the one registered.
    void unregisterFromHost();

private:
    QHash<QString, QString> m_texts;
    QString m_language;
};
