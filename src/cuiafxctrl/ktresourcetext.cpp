#include "ktresourcetext.h"

#include "ktstringconversion.h"

#include <CJxServiceDictionary>
#include <CJxSystem>
#include <KtUiLanguageSvr>

QString ktutResourceText(const wchar_t* key, const wchar_t* defaultText)
{
    CJxServiceDictionary* services = CJxSystem::instance()->getServiceDictionary();
    const KtString serviceName(KT_UI_LANGUAGE_SERVICE_NAME);

    KtString text(defaultText);
    // Presence is tested first and the service fetched again for use; the
    // second look-up can still come back empty if the service went away.
    if (services->hasService(serviceName)) {
        if (auto* language = KtUiLanguageSvr::cast(services->getService(serviceName)))
            text = language->getText(key, defaultText);
    }
    return ktutKtStringToQString(text);
}
