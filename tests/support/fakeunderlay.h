#pragma once

// Underlay documents made up by the tests: pages whose images have a chosen
// pixel layout, can block until released, or throw like a failing host.

#include <CJxError>
#include <KtDbUnderlayFile>
#include <QImage>
#include <QSemaphore>

#include <atomic>
#include <memory>
#include <vector>

/// An image object over a buffer of its own, with whatever format it claims.
class FakeImage : public KtDbUnderlayImage
{
public:
    FakeImage(const KtDbPixelFormat& format, int width, int height, int bytesPerLine, unsigned char fill)
        : m_format(format)
        , m_width(width)
        , m_height(height)
        , m_bytesPerLine(bytesPerLine)
        , m_bits(std::size_t(std::max(0, bytesPerLine * height)), fill)
    {
        // Fill 0 writes the bytes 10 20 30 40 over and over, so that each channel can be told apart.
        if (!fill)
            for (std::size_t i = 0; i < m_bits.size(); ++i)
                m_bits[i] = (unsigned char)(0x10 * (1 + i % 4));
    }
    KtDbPixelFormat pixelFormat() const override { return m_format; }
    int width() const override { return m_width; }
    int height() const override { return m_height; }
    int bytesPerLine() const override { return m_bytesPerLine; }
    const unsigned char* bits() const override { return m_bits.data(); }

private:
    KtDbPixelFormat m_format;
    int m_width, m_height, m_bytesPerLine;
    std::vector<unsigned char> m_bits;
};

inline KtDbPixelFormat pixelFormat(int r, int g, int b, int a, int bits)
{
    KtDbPixelFormat f;
    f.redPosition = r;
    f.greenPosition = g;
    f.bluePosition = b;
    f.alphaPosition = a;
    f.redBits = f.greenBits = f.blueBits = 8;
    f.alphaBits = bits == 32 ? 8 : 0;
    f.bitsPerPixel = bits;
    return f;
}

/// A page that makes its image on demand: 4 x 2 pixels of @p format, bytes @p fill.
class FakePage : public KtDbUnderlayItem
{
public:
    explicit FakePage(
        const KtDbPixelFormat& format = pixelFormat(16, 8, 0, 24, 32), unsigned char fill = 0x80)
        : format(format)
        , fill(fill)
    { }

    KtString name() const override { return KtString(L"fake"); }
    KtDbUnderlayImage* image() const override { return make(-1); }
    Kt::ErrorStatus getImage(KtDbUnderlayImage*& result, int maxSize) const override
    {
        result = make(maxSize);
        return result ? Kt::eOk : Kt::eRenderFailed;
    }

    KtDbPixelFormat format;
    unsigned char fill;
    bool fails = false;
    bool throws = false;
    QSemaphore* gate = nullptr; ///< when set, each image waits for one release of it
    mutable std::atomic<int> lastMaxSize{0}; ///< -1: image() was asked; else getImage()'s size

private:
    KtDbUnderlayImage* make(int maxSize) const
    {
        lastMaxSize = maxSize;
        if (gate)
            gate->acquire();
        if (throws)
            throw CJxError(KtError_InvalidInput);
        if (fails)
            return nullptr;
        const int bytes = format.bitsPerPixel / 8;
        return new FakeImage(format, 4, 2, ((4 * bytes) + 3) & ~3, fill);
    }
};

/// A document of fake pages; the item of a page listed in @p missing cannot be had.
class FakeDocument : public KtDbUnderlayFile
{
public:
    explicit FakeDocument(int pages, std::vector<int> missing = {})
        : m_missing(std::move(missing))
    {
        for (int i = 0; i < pages; ++i)
            m_pages.push_back(std::make_unique<FakePage>());
    }
    int getItemCount() const override { return int(m_pages.size()); }
    Kt::ErrorStatus getItem(int index, KtDbUnderlayItem*& item) override
    {
        item = nullptr;
        if (index < 0 || index >= getItemCount() || std::count(m_missing.begin(), m_missing.end(), index))
            return Kt::eInvalidInput;
        item = m_pages[std::size_t(index)].get();
        return Kt::eOk;
    }
    void setPreviewSize(const QSize&) override { }
    QSize previewSize() const override { return QSize(256, 256); }
    FakePage& page(int index) { return *m_pages[std::size_t(index)]; }

private:
    std::vector<std::unique_ptr<FakePage>> m_pages;
    std::vector<int> m_missing;
};
