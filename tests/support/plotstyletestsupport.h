#pragma once

// Helpers shared by the plot-style widget tests.

#include <KtUiCatalogueLanguageSvr>
#include <QComboBox>
#include <QIcon>
#include <QImage>
#include <QTemporaryDir>
#include <ktutimagepath.h>

#include <memory>

/// While alive, no host image can be found: an empty override directory and no embedded images.
struct MissingImages
{
    QTemporaryDir dir;
    MissingImages()
    {
        ktutSetImageDirectory(dir.path());
        ktutSetEmbeddedImagesEnabled(false);
    }
    ~MissingImages()
    {
        ktutSetEmbeddedImagesEnabled(true);
        ktutSetImageDirectory(QString());
    }
};

/// While alive, the English catalogue is the host's language service.
struct EnglishTexts
{
    KtUiCatalogueLanguageSvr service;
    const bool registered = service.loadBuiltIn(QStringLiteral("en")) && service.registerWithHost();
    ~EnglishTexts() { service.unregisterFromHost(); }
};

/// The picture of @p row as a 32-bit image of @p size (null when the row has no icon).
inline QImage iconImage(const QComboBox& combo, int row, const QSize& size)
{
    return combo.itemIcon(row).pixmap(size).toImage().convertToFormat(QImage::Format_ARGB32);
}
