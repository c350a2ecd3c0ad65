#pragma once

#include "ktcmdqtutils_export.h"

#include <KtString>
#include <QString>

/**
 * @file
 * Conversions between the host's wide strings and QString. Both directions go
 * through UTF-8, so every control sees the same text for the same input.
 */

/// QString to KtString through UTF-8.
KTCMDQTUTILS_EXPORT KtString ktutQStringToKtString(const QString& str);

/**
 * Wide string to QString: the result of KtString(str), its utf8Ptr(), then
 * QString::fromUtf8. Text of valid code points skips the round trip, which
 * would give it back unchanged. A null pointer gives an empty string.
 */
KTCMDQTUTILS_EXPORT QString ktutWideToQString(const wchar_t* str);

/**
 * True when every character of the NUL-terminated @p str is a Unicode code
 * point (0 to 0x10FFFF, no surrogate); false for a null pointer. Paths that
 * fail this would all turn into U+FFFD and name the same file.
 */
KTCMDQTUTILS_EXPORT bool ktutIsWellFormedWide(const wchar_t* str);

/**
 * Wide string to QString taken as raw UTF-32 (QString::fromUcs4), without the
 * round trip through KtString; a null pointer gives a null string. The
 * toolbar reads its image paths and button texts this way.
 */
KTCMDQTUTILS_EXPORT QString ktutUcs4ToQString(const wchar_t* str);

/// KtString to QString: its utf8Ptr() up to the first NUL, through QString::fromUtf8.
KTCMDQTUTILS_EXPORT QString ktutKtStringToQString(const KtString& str);
