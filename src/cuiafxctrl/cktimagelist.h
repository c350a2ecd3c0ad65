#pragma once

#include "ktcmdqtutils_export.h"

#include <QIcon>
#include <QPixmap>
#include <QVector>

/**
 * @file
 * The image list of the tree and list controls and its shared operations.
 */

/**
 * @brief The image list of the tree and list controls.
 *
 * An ordered, implicitly shared list of pictures addressed by index from 0.
 * There is no mask, overlay or drag list: one list per control.
 */
using CKtImageList = QVector<QPixmap>;

/**
 * The image-list operations shared by the tree and list controls; each control
 * forwards its GetImageList(), SetImageList(), AppendItemImage() and
 * ClearItemImageList() here.
 */
namespace KtImageListOps {
/// Returns a copy of the previous list and installs @p list (unchanged when it is the same list).
KTCMDQTUTILS_EXPORT CKtImageList replace(CKtImageList& current, const CKtImageList& list);
/// Appends one image.
KTCMDQTUTILS_EXPORT void append(CKtImageList& current, const QPixmap& image);
/// Removes every image; the storage is kept.
KTCMDQTUTILS_EXPORT void clear(CKtImageList& current);
/// True when both indices are below the image count (signed comparison).
KTCMDQTUTILS_EXPORT bool hasImages(const CKtImageList& list, int nImage, int nSelectedImage);
/**
 * Icon of an item: image @p nImage for the normal mode and @p nSelectedImage
 * for the selected mode. Both indices must be valid for @p list.
 */
KTCMDQTUTILS_EXPORT QIcon makeIcon(const CKtImageList& list, int nImage, int nSelectedImage);
} // namespace KtImageListOps
