#pragma once

// The image object the stand-in's underlay documents hand out: a QImage of
// 32-bit pixels held as it is (QImage rows are always 4-byte aligned).

#include "ktdbunderlay.h"

#include <QImage>

class KtDbQImageUnderlayImage : public KtDbUnderlayImage
{
public:
    /// @p image is converted to ARGB32 (or RGBA8888 when @p rgbaOrder) unless it is one already.
    explicit KtDbQImageUnderlayImage(const QImage& image, bool rgbaOrder = false)
        : m_image(image.convertToFormat(rgbaOrder ? QImage::Format_RGBA8888 : QImage::Format_ARGB32))
    { }

    KtDbPixelFormat pixelFormat() const override
    {
        KtDbPixelFormat f;
        // ARGB32 is a 32-bit word 0xAARRGGBB; RGBA8888 is the bytes R, G, B, A in memory.
        const bool rgba = m_image.format() == QImage::Format_RGBA8888;
        f.redPosition = rgba ? 0 : 16;
        f.greenPosition = 8;
        f.bluePosition = rgba ? 16 : 0;
        f.alphaPosition = 24;
        f.redBits = f.greenBits = f.blueBits = f.alphaBits = 8;
        f.bitsPerPixel = 32;
        return f;
    }
    int width() const override { return m_image.width(); }
    int height() const override { return m_image.height(); }
    int bytesPerLine() const override { return m_image.bytesPerLine(); }
    const unsigned char* bits() const override { return m_image.constBits(); }

private:
    QImage m_image;
};

/// Scales @p page (points or pixels) to fit inside @p box, keeping its aspect ratio; never below 1 x 1.
inline QSize fitInside(const QSizeF& page, const QSize& box)
{
    if (page.width() <= 0 || page.height() <= 0 || box.isEmpty())
        return QSize(1, 1);
    const double scale = std::min(box.width() / page.width(), box.height() / page.height());
    return QSize(std::max(1, int(page.width() * scale + 0.5)), std::max(1, int(page.height() * scale + 0.5)));
}
