#include "ktdbpdfunderlay_p.h"

#include "ktdbqimageunderlayimage_p.h"

#include <QFileInfo>
#include <QImage>
#include <poppler-qt5.h>

#include <algorithm>

namespace {

QString qtString(const KtString& text)
{
    return QString::fromWCharArray(text.c_str(), text.length());
}

KtString ktString(const QString& text)
{
    const std::wstring wide = text.toStdWString();
    return KtString(wide.c_str(), int(wide.size()));
}

} // namespace

KtDbPdfPage::KtDbPdfPage(const KtDbPdfFile* file, int index, const KtString& name)
    : m_file(file)
    , m_index(index)
    , m_name(name)
{ }

KtString KtDbPdfPage::name() const
{
    return m_name;
}

KtDbUnderlayImage* KtDbPdfPage::image() const
{
    return render(m_file->previewSize());
}

Kt::ErrorStatus KtDbPdfPage::getImage(KtDbUnderlayImage*& result, int maxSize) const
{
    result = render(QSize(maxSize, maxSize));
    return result ? Kt::eOk : Kt::eRenderFailed;
}

KtDbUnderlayImage* KtDbPdfPage::render(const QSize& box) const
{
    if (box.isEmpty())
        return nullptr;
    const std::unique_ptr<Poppler::Page> page(m_file->document()->page(m_index));
    if (!page)
        return nullptr;
    // The page (in points, 72 per inch) scaled to fit the box, aspect ratio kept.
    const QSizeF points = page->pageSizeF();
    const QSize pixels = fitInside(points, box);
    const double dpiX = 72.0 * pixels.width() / std::max(points.width(), 1e-6);
    const double dpiY = 72.0 * pixels.height() / std::max(points.height(), 1e-6);
    const QImage image = page->renderToImage(dpiX, dpiY);
    if (image.isNull())
        return nullptr;
    return new KtDbQImageUnderlayImage(image);
}

namespace {

// Poppler reports what it finds wrong in a file through qDebug by default; a
// host library reports through its results only.
void ignorePopplerMessage(const QString&, const QVariant&)
{ }

} // namespace

Kt::ErrorStatus KtDbPdfFile::open(const KtString& path, const KtString& password, KtDbPdfFile*& file)
{
    static const bool quiet = [] {
        Poppler::setDebugErrorFunction(ignorePopplerMessage, QVariant());
        return true;
    }();
    Q_UNUSED(quiet)
    file = nullptr;
    const QString name = qtString(path);
    if (name.isEmpty() || !QFileInfo(name).isFile())
        return Kt::eFileNotFound;
    std::unique_ptr<Poppler::Document> document(Poppler::Document::load(name));
    if (!document)
        return Kt::eInvalidFileFormat;
    // Asked first: counting the pages of a locked document is not safe.
    if (document->isLocked()) {
        const QByteArray secret = qtString(password).toUtf8();
        if (secret.isEmpty() || document->unlock(secret, secret) || document->isLocked())
            return Kt::eInvalidPassword;
    }
    if (document->numPages() < 0)
        return Kt::eInvalidFileFormat;
    document->setRenderHint(Poppler::Document::Antialiasing, true);
    document->setRenderHint(Poppler::Document::TextAntialiasing, true);
    file = new KtDbPdfFile(std::move(document));
    return Kt::eOk;
}

KtDbPdfFile::KtDbPdfFile(std::unique_ptr<Poppler::Document> document)
    : m_document(std::move(document))
{
    m_pages.resize(std::size_t(std::max(0, m_document->numPages())));
}

KtDbPdfFile::~KtDbPdfFile() = default;

int KtDbPdfFile::getItemCount() const
{
    return int(m_pages.size());
}

Kt::ErrorStatus KtDbPdfFile::getItem(int index, KtDbUnderlayItem*& item)
{
    item = nullptr;
    if (index < 0 || index >= getItemCount())
        return Kt::eInvalidInput;
    std::unique_ptr<KtDbPdfPage>& page = m_pages[std::size_t(index)];
    if (!page) {
        const std::unique_ptr<Poppler::Page> pdfPage(m_document->page(index));
        if (!pdfPage)
            return Kt::eInvalidFileFormat;
        const QString label = pdfPage->label();
        page = std::make_unique<KtDbPdfPage>(
            this, index, ktString(label.isEmpty() ? QString::number(index + 1) : label));
    }
    item = page.get();
    return Kt::eOk;
}

void KtDbPdfFile::setPreviewSize(const QSize& size)
{
    m_previewSize = size;
}

QSize KtDbPdfFile::previewSize() const
{
    return m_previewSize;
}
