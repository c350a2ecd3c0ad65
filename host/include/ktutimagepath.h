#pragma once

#include "kthost_export.h"

#include <QString>

/**
 * Full path of the host image @p name ("plot/plotstyle_fillstyle.bmp",
 * "Arrow/open.svg", ...).
 *
 * With @p allowOverride the override directories are searched first: the one
 * set with ktutSetImageDirectory(), then the environment variable
 * @c KT_IMAGE_DIR. Otherwise, and when no override holds the image, the image
 * embedded in KtHost is used. A name that exists nowhere (or that would leave
 * the image directory) gives a path for which QFile::exists() is false.
 */
KTHOST_EXPORT QString ktutGetImageFullPath(const QString& name, bool allowOverride = true);

/// Sets the application's image override directory; an empty path removes it.
KTHOST_EXPORT void ktutSetImageDirectory(const QString& dir);
/// The directory set with ktutSetImageDirectory().
KTHOST_EXPORT QString ktutImageDirectory();
