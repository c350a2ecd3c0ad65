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
class MissingImages
{
public:
    MissingImages()
    {
        ktutSetImageDirectory(m_dir.path());
        ktutSetEmbeddedImagesEnabled(false);
    }
    ~MissingImages()
    {
        ktutSetEmbeddedImagesEnabled(true);
        ktutSetImageDirectory(QString());
    }

private:
    QTemporaryDir m_dir;
};

/// While alive, the English catalogue is the host's language service.
class EnglishTexts
{
public:
    EnglishTexts()
    {
        m_service.loadBuiltIn(QStringLiteral("en"));
        m_registered = m_service.registerWithHost();
    }
    ~EnglishTexts() { m_service.unregisterFromHost(); }
    bool registered() const { return m_registered; }

private:
    KtUiCatalogueLanguageSvr m_service;
    bool m_registered = false;
};

/// The picture of @p row as a 32-bit image of @p size (null when the row has no icon).
inline QImage iconImage(const QComboBox& combo, int row, const QSize& size)
{
    const QIcon icon = combo.itemIcon(row);
    if (icon.isNull())
        return {};
    return icon.pixmap(size).toImage().convertToFormat(QImage::Format_ARGB32);
}

/// Tile @p k (26 x 13) of the embedded bitmap strip @p name.
inline QImage stripTile(const QString& name, int k)
{
    return QImage(QStringLiteral(":/kthost/images/") + name)
        .copy(0, 13 * k, 26, 13)
        .convertToFormat(QImage::Format_ARGB32);
}

/// Whether every pixel of @p image is fully transparent.
inline bool isTransparent(const QImage& image)
{
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) != 0)
                return false;
    return true;
}
