#include "ktstringconversion.h"

#include <cstring>

KtString ktutQStringToKtString(const QString& str)
{
    const QByteArray utf8 = str.toUtf8();
    return KtString(utf8.constData(), KtString::UTF8);
}

QString ktutWideToQString(const wchar_t* str)
{
    const KtString wide(str);
    const char* p = wide.utf8Ptr();
    return QString::fromUtf8(p, p ? int(std::strlen(p)) : -1);
}
