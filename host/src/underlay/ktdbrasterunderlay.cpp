// Service 423: multi-page raster images as underlay documents, one page per
// frame of anything QImageReader reads (multi-page TIFF, animated GIF, ...).
#include "cjxservicedictionary.h"
#include "cjxsystem.h"
#include "ktdbqimageunderlayimage_p.h"
#include "ktdbunderlay.h"

#include <QDateTime>
#include <QFileInfo>
#include <QImageReader>
#include <QPainter>
#include <QPair>

#include <map>
#include <memory>
#include <mutex>
#include <vector>

namespace {

QString qtString(const KtString& text)
{
    return QString::fromWCharArray(text.c_str(), text.length());
}

class RasterDocument;

class RasterPage : public KtDbUnderlayItem
{
public:
    RasterPage(const RasterDocument* document, int index)
        : m_document(document)
        , m_index(index)
    { }

    KtString name() const override
    {
        const std::wstring number = std::to_wstring(m_index + 1);
        return KtString(number.c_str());
    }
    KtDbUnderlayImage* image() const override;
    Kt::ErrorStatus getImage(KtDbUnderlayImage*& result, int maxSize) const override;

private:
    KtDbUnderlayImage* render(const QSize& box) const;

    const RasterDocument* m_document;
    int m_index;
};

class RasterDocument : public KtDbUnderlayFile
{
public:
    explicit RasterDocument(const QString& path)
        : m_path(path)
        , m_stamp(stampOf(path))
    {
        QImageReader reader(path);
        if (reader.canRead()) {
            // Readers that cannot count their frames have at least the one they can read.
            const int frames = reader.imageCount();
            for (int i = 0; i < std::max(frames, 1); ++i)
                m_pages.push_back(std::make_unique<RasterPage>(this, i));
        }
    }

    int getItemCount() const override { return int(m_pages.size()); }
    Kt::ErrorStatus getItem(int index, KtDbUnderlayItem*& item) override
    {
        item = nullptr;
        if (index < 0 || index >= getItemCount())
            return Kt::eInvalidInput;
        item = m_pages[std::size_t(index)].get();
        return Kt::eOk;
    }
    void setPreviewSize(const QSize& size) override { m_previewSize = size; }
    QSize previewSize() const override { return m_previewSize; }
    const QString& path() const { return m_path; }
    /// Size and modification time of the file when it was opened.
    static QPair<qint64, qint64> stampOf(const QString& path)
    {
        const QFileInfo info(path);
        return {info.size(), info.lastModified().toMSecsSinceEpoch()};
    }
    bool isCurrent() const { return m_stamp == stampOf(m_path); }

private:
    QString m_path;
    QPair<qint64, qint64> m_stamp;
    std::vector<std::unique_ptr<RasterPage>> m_pages;
    QSize m_previewSize{256, 256};
};

KtDbUnderlayImage* RasterPage::image() const
{
    return render(m_document->previewSize());
}

Kt::ErrorStatus RasterPage::getImage(KtDbUnderlayImage*& result, int maxSize) const
{
    result = render(QSize(maxSize, maxSize));
    return result ? Kt::eOk : Kt::eRenderFailed;
}

KtDbUnderlayImage* RasterPage::render(const QSize& box) const
{
    if (box.isEmpty())
        return nullptr;
    // A reader of its own: pages may be rendered on any thread.
    QImageReader reader(m_document->path());
    if (m_index > 0 && !reader.jumpToImage(m_index)) {
        for (int i = 0; i < m_index; ++i) {
            if (reader.read().isNull())
                return nullptr;
        }
    }
    const QImage frame = reader.read();
    if (frame.isNull())
        return nullptr;
    // Smoothly scaled with a painter on this thread (QImage::scaled() would
    // hand the work to Qt's worker pool).
    QImage scaled(fitInside(QSizeF(frame.size()), box), QImage::Format_RGBA8888);
    scaled.fill(Qt::transparent);
    QPainter painter(&scaled);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(scaled.rect(), frame);
    painter.end();
    return new KtDbQImageUnderlayImage(scaled, true);
}

class RasterDocumentService : public KtDbUnderlayDocumentService
{
public:
    KtDbUnderlayFile* openDocument(const KtString& path) override
    {
        const QString name = QFileInfo(qtString(path)).absoluteFilePath();
        std::lock_guard<std::mutex> lock(m_mutex);
        std::unique_ptr<RasterDocument>& document = m_documents[name];
        if (document && !document->isCurrent()) {
            // The file changed: a new document, while the old one stays valid
            // for whoever still renders its pages.
            m_retired.push_back(std::move(document));
        }
        if (!document)
            document = std::make_unique<RasterDocument>(name);
        return document.get();
    }

private:
    std::mutex m_mutex;
    std::map<QString, std::unique_ptr<RasterDocument>> m_documents;
    std::vector<std::unique_ptr<RasterDocument>> m_retired;
};

// Registered while KtHost is loaded.
struct RasterServiceRegistration
{
    RasterDocumentService* service = new RasterDocumentService;
    RasterServiceRegistration()
    {
        CJxSystem::instance()->getServiceDictionary()->registerService(KtDbRasterDocumentServiceId, service);
    }
    ~RasterServiceRegistration()
    {
        CJxSystem::instance()->getServiceDictionary()->unregisterService(service);
        delete service;
    }
};
const RasterServiceRegistration g_rasterService;

} // namespace
