#pragma once

// Underlay documents made up by the tests: pages whose images have a chosen
// pixel layout, can block until released, or throw like a failing host.

#include <CJxError>
#include <KtDbUnderlayFile>
#include <QSemaphore>

#include <atomic>
#include <memory>
#include <vector>

/// A 4 x 2 image object over a buffer of its own, with whatever format it claims. Its bytes
/// are 10 20 30 40 over and over, so that each channel can be told apart.
struct FakeImage final : KtDbUnderlayImage
{
    explicit FakeImage(const KtDbPixelFormat& format)
        : m_format(format)
        , m_bits(std::size_t(bytesPerLine() * height()))
    {
        for (std::size_t i = 0; i < m_bits.size(); ++i)
            m_bits[i] = (unsigned char)(0x10 * (1 + i % 4));
    }
    KtDbPixelFormat pixelFormat() const override { return m_format; }
    int width() const override { return 4; }
    int height() const override { return 2; }
    int bytesPerLine() const override { return (width() * m_format.bitsPerPixel / 8 + 3) & ~3; }
    const unsigned char* bits() const override { return m_bits.data(); }

    KtDbPixelFormat m_format;
    std::vector<unsigned char> m_bits;
};

/// 8 bits each for red, green, blue (and alpha in 32 bits) at the given bit positions.
inline KtDbPixelFormat pixelFormat(int r, int g, int b, int a, int bits)
{
    return {r, 8, g, 8, b, 8, a, bits == 32 ? 8 : 0, bits};
}

/// A page that makes its image of @p format on demand.
struct FakePage : KtDbUnderlayItem
{
    explicit FakePage(const KtDbPixelFormat& format = pixelFormat(16, 8, 0, 24, 32))
        : format(format)
    { }

    KtString name() const override { return KtString(L"fake"); }
    KtDbUnderlayImage* image() const override { return make(-1); }
    Kt::ErrorStatus getImage(KtDbUnderlayImage*& result, int maxSize) const override
    {
        result = make(maxSize);
        return result ? Kt::eOk : Kt::eRenderFailed;
    }

    KtDbPixelFormat format;
    bool fails = false;
    bool throws = false;
    QSemaphore* gate = nullptr; ///< when set, each image waits for one release of it
    mutable std::atomic<int> lastMaxSize{0}; ///< -1: image() was asked; else getImage()'s size

    KtDbUnderlayImage* make(int maxSize) const
    {
        lastMaxSize = maxSize;
        if (gate)
            gate->acquire();
        if (throws)
            throw CJxError(KtError_InvalidInput);
        return fails ? nullptr : new FakeImage(format);
    }
};

/// A document of fake pages; the item of a page listed in @p missing cannot be had.
struct FakeDocument : KtDbUnderlayFile
{
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

    std::vector<std::unique_ptr<FakePage>> m_pages;
    std::vector<int> m_missing;
};
