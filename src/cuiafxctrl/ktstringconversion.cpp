#include "ktstringconversion.h"

#include <algorithm>
#include <cstring>
#include <cwchar>
#include <limits>

KtString ktutQStringToKtString(const QString& str)
{
    const QByteArray utf8 = str.toUtf8();
    return KtString(utf8.constData(), KtString::UTF8);
}

namespace {

bool isCodePoint(wchar_t ch)
{
    return ch >= 0 && ch <= 0x10FFFF && !(ch >= 0xD800 && ch <= 0xDFFF);
}

} // namespace

bool ktutIsWellFormedWide(const wchar_t* str)
{
    if (!str)
        return false;
    for (; *str; ++str) {
        if (!isCodePoint(*str))
            return false;
    }
    return true;
}

QString ktutWideToQString(const wchar_t* str)
{
    // Text made only of valid code points (and no byte order mark, which the
    // readers may drop) comes back unchanged from the UTF-8 round trip, so it is
    // converted directly; everything else goes through the host's UTF-8 view,
    // which decides what malformed units become.
    if (str && *str) {
        const std::size_t length = std::wcslen(str);
        const bool plain
            = std::all_of(str, str + length, [](wchar_t ch) { return isCodePoint(ch) && ch != 0xFEFF; });
        if (plain && length <= std::size_t(std::numeric_limits<int>::max()))
            return QString::fromWCharArray(str, int(length));
    }
    return ktutKtStringToQString(KtString(str));
}

QString ktutUcs4ToQString(const wchar_t* str)
{
    static_assert(sizeof(wchar_t) == sizeof(uint), "wide strings are UTF-32");
    // fromUcs4() with a length of -1 scans for the terminator, so a null pointer must stay out.
    return str ? QString::fromUcs4(reinterpret_cast<const uint*>(str), -1) : QString();
}

QString ktutKtStringToQString(const KtString& str)
{
    const char* p = str.utf8Ptr();
    return QString::fromUtf8(p, p ? int(std::strlen(p)) : -1);
}
