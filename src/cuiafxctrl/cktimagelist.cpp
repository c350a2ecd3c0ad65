#include "cktimagelist.h"

namespace KtImageListOps {

CKtImageList replace(CKtImageList& current, const CKtImageList& list)
{
    CKtImageList previous = current;
    if (&current != &list)
        current = list;
    return previous;
}

void append(CKtImageList& current, const QPixmap& image)
{
    current.append(image);
}

void clear(CKtImageList& current)
{
    // QVector::clear() keeps the capacity of an unshared vector.
    current.clear();
}

bool hasImages(const CKtImageList& list, int nImage, int nSelectedImage)
{
    // Negative indices are treated as "no image" rather than read out of range.
    return nImage >= 0 && nSelectedImage >= 0 && nImage < list.size() && nSelectedImage < list.size();
}

QIcon makeIcon(const CKtImageList& list, int nImage, int nSelectedImage)
{
    QIcon icon;
    icon.addPixmap(list.at(nImage), QIcon::Normal, QIcon::Off);
    icon.addPixmap(list.at(nSelectedImage), QIcon::Selected, QIcon::Off);
    return icon;
}

} // namespace KtImageListOps
