#include "ktuilanguagesvr.h"

#include "cjxservicedictionary.h"
#include "cjxsystem.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

KT_DEFINE_RX_MEMBERS(KtUiLanguageSvr, CJxRxObject)
KT_DEFINE_RX_MEMBERS(KtUiCatalogueLanguageSvr, KtUiLanguageSvr)

KtUiLanguageSvr::~KtUiLanguageSvr() = default;

KtUiCatalogueLanguageSvr::KtUiCatalogueLanguageSvr() = default;

KtUiCatalogueLanguageSvr::~KtUiCatalogueLanguageSvr()
{
    // A service must not outlive its registration.
    CJxSystem::instance()->getServiceDictionary()->unregisterService(this);
}

bool KtUiCatalogueLanguageSvr::loadFromData(const QByteArray& json)
{
    QJsonParseError error{};
    const QJsonDocument doc = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError || !doc.isObject())
        return false;

    const QJsonObject root = doc.object();
    const QJsonValue texts = root.value(QStringLiteral("texts"));
    const QJsonObject entries = texts.isObject() ? texts.toObject() : root;
    if (texts.isObject() && root.value(QStringLiteral("language")).isString())
        m_language = root.value(QStringLiteral("language")).toString();

    for (auto it = entries.constBegin(); it != entries.constEnd(); ++it) {
        if (it.value().isString())
            m_texts.insert(it.key(), it.value().toString());
    }
    return true;
}

bool KtUiCatalogueLanguageSvr::loadFromFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    return loadFromData(file.readAll());
}

bool KtUiCatalogueLanguageSvr::loadBuiltIn(const QString& language)
{
    if (language.isEmpty() || language.contains(QLatin1Char('/')))
        return false;
    return loadFromFile(QStringLiteral(":/kthost/lang/%1.json").arg(language));
}

void KtUiCatalogueLanguageSvr::insert(const QString& key, const QString& text)
{
    m_texts.insert(key, text);
}

void KtUiCatalogueLanguageSvr::clear()
{
    m_texts.clear();
    m_language.clear();
}

int KtUiCatalogueLanguageSvr::count() const
{
    return m_texts.size();
}

bool KtUiCatalogueLanguageSvr::contains(const QString& key) const
{
    return m_texts.contains(key);
}

QString KtUiCatalogueLanguageSvr::language() const
{
    return m_language;
}

KtString KtUiCatalogueLanguageSvr::getText(const wchar_t* key, const wchar_t* defaultText) const
{
    if (key) {
        const auto it = m_texts.constFind(QString::fromWCharArray(key));
        if (it != m_texts.constEnd()) {
            const std::wstring text = it->toStdWString();
            return KtString(text.c_str(), int(text.size()));
        }
    }
    return KtString(defaultText);
}

bool KtUiCatalogueLanguageSvr::registerWithHost()
{
    return CJxSystem::instance()->getServiceDictionary()->registerService(
        KtString(KT_UI_LANGUAGE_SERVICE_NAME), this);
}

void KtUiCatalogueLanguageSvr::unregisterFromHost()
{
    CJxServiceDictionary* services = CJxSystem::instance()->getServiceDictionary();
    if (services->getService(KtString(KT_UI_LANGUAGE_SERVICE_NAME)) == this)
        services->unregisterService(KtString(KT_UI_LANGUAGE_SERVICE_NAME));
}
