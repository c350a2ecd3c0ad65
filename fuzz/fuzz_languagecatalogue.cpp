// Catalogue loading: arbitrary bytes as a JSON catalogue, then look-ups.
#include "fuzzcheck.h"
#include "ktuilanguagesvr.h"

#include <QByteArray>
#include <QString>

#include <sanitizer/lsan_interface.h>

#include <cstdint>
#include <cwchar>
#include <string>

namespace {

// A key's text is the catalogue's when it has the key, the default text otherwise.
void checkLookup(const KtUiCatalogueLanguageSvr& svr, const std::wstring& key)
{
    const KtString text = svr.getText(key.c_str(), L"\x9ED8\x8BA4"); // default text
    const char* p = text.utf8Ptr();
    FUZZ_CHECK(p);
    const QString found = QString::fromUtf8(p, text.utf8Length());
    const QString qkey
        = QString::fromWCharArray(key.c_str(), int(std::wcslen(key.c_str()))); // as getText reads it
    if (!svr.contains(qkey))
        FUZZ_CHECK(found == QStringLiteral("\u9ED8\u8BA4"));
    else
        FUZZ_CHECK(svr.getText(key.c_str(), nullptr) == text);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray json = QByteArray::fromRawData(reinterpret_cast<const char*>(data), int(size));

    // Qt 5.15's JSON parser leaks the earlier value of a duplicate key when that value is a
    // non-empty object or array ({"a":[1],"a":[1]}); its frames cannot be told apart from ours
    // with the fast unwinder, so leak checking is off for the parse only.
    const auto load = [&json](KtUiCatalogueLanguageSvr& svr) {
        __lsan::ScopedDisabler qtParserLeaks;
        return svr.loadFromData(json);
    };

    KtUiCatalogueLanguageSvr svr;
    svr.insert(QStringLiteral("PRE"), QStringLiteral("pre"));
    const bool loaded = load(svr);
    if (!loaded)
        FUZZ_CHECK(svr.count() == 1 && svr.language().isEmpty());
    FUZZ_CHECK(svr.count() >= 1 && svr.contains(QStringLiteral("PRE")));

    // Loading the same catalogue again changes nothing.
    const int count = svr.count();
    const QString language = svr.language();
    FUZZ_CHECK(load(svr) == loaded);
    FUZZ_CHECK(svr.count() == count && svr.language() == language);

    for (const wchar_t* key : {L"PRE", L"language", L"texts", L"IDS_PLOTSTYLEOPTIONCMD_6", L""})
        checkLookup(svr, key);
    // A key taken from the input itself, so that loaded entries are looked up too.
    const QString head = QString::fromUtf8(json.left(24));
    checkLookup(svr, head.toStdWString());
    for (int i = 0; i + 1 < head.size(); ++i) {
        if (head.at(i) == QLatin1Char('"')) {
            const int end = head.indexOf(QLatin1Char('"'), i + 1);
            if (end > i)
                checkLookup(svr, head.mid(i + 1, end - i - 1).toStdWString());
            break;
        }
    }
    FUZZ_CHECK(svr.getText(nullptr, nullptr).isEmpty());
    return 0;
}
