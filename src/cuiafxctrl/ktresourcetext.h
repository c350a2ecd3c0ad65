#pragma once

#include "ktcmdqtutils_export.h"

#include <QString>

/// @file
/// Look-up of the visible texts of the widgets in the host's language service.

/**
 * Text of the resource key @p key from the host's language service
 * "KtUiLanguageSvr", or @p defaultText when no such service is registered.
 *
 * The service is looked up afresh on every call; nothing is cached, so a
 * service registered later is seen by the next call.
 */
KTCMDQTUTILS_EXPORT QString ktutResourceText(const wchar_t* key, const wchar_t* defaultText);
