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
    return combo.itemIcon(row).pixmap(size).toImage().convertToFormat(QImage::Format_ARGB32);
}
