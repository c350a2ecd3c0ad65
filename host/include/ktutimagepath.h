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

/**
 * Whether the images embedded in KtHost stand behind the override directories
 * (the default). With false an image that no override directory holds is
 * missing, as in a host installation whose image folder lacks the file.
 */
KTHOST_EXPORT void ktutSetEmbeddedImagesEnabled(bool enabled);
KTHOST_EXPORT bool ktutEmbeddedImagesEnabled();

/// Sets the application's image override directory; an empty path removes it.
KTHOST_EXPORT void ktutSetImageDirectory(const QString& dir);
/// The directory set with ktutSetImageDirectory().
KTHOST_EXPORT QString ktutImageDirectory();
