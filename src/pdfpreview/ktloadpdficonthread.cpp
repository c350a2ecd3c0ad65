#include "ktloadpdficonthread.h"

#include "ktmutexautolock.h"

#include <KtDbUnderlayItem>
#include <QImage>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <cstring>

namespace {

// A growable array of pointers: data, physical length, logical length, growth step.
struct PointerArray
{
    void** data = nullptr;
    int physical = 0;
    int logical = 0;
    int growBy = 8;

    ~PointerArray() { std::free(data); }

    void setSize(int size)
    {
        size = std::max(size, 0);
        if (size > physical) {
            const int wanted = std::max(size, physical + growBy);
            void** grown = static_cast<void**>(std::realloc(data, sizeof(void*) * std::size_t(wanted)));
            if (!grown)
                return; // no memory: the array keeps its length
            std::fill(grown + physical, grown + wanted, nullptr);
            data = grown;
            physical = wanted;
        } else if (size > logical) {
            std::fill(data + logical, data + size, nullptr);
        }
        logical = size;
    }
};

// The formats the image objects describe, by the positions and sizes of their channels.
QImage::Format formatOf(const KtDbPixelFormat& f)
{
    const bool eightBits = f.redBits == 8 && f.greenBits == 8 && f.blueBits == 8 && f.alphaBits == 8;
    if (f.bitsPerPixel == 32 && eightBits && f.alphaPosition == 24 && f.greenPosition == 8) {
        if (f.redPosition == 0 && f.bluePosition == 16)
            return QImage::Format_RGBX8888;
        if (f.redPosition == 16 && f.bluePosition == 0)
            return QImage::Format_ARGB32;
    }
    return QImage::Format_RGB888;
}

} // namespace

class KtLoadPdfIconThread::Private
{
public:
    Private()
    {
        pthread_mutexattr_t attributes;
        pthread_mutexattr_init(&attributes);
        pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_RECURSIVE);
        pthread_mutex_init(&mutex, &attributes);
        pthread_mutexattr_destroy(&attributes);
    }
    ~Private() { pthread_mutex_destroy(&mutex); }

    PointerArray items;
    // Written by the GUI thread, read by the loop between pages.
    std::atomic<bool> stop{false};
    int type = 0;
    pthread_mutex_t mutex;
};

KtLoadPdfIconThread::KtLoadPdfIconThread(QObject* parent)
    : QThread(parent)
    , d(std::make_unique<Private>())
{ }

KtLoadPdfIconThread::~KtLoadPdfIconThread()
{
    // A thread object must not go while its loop runs.
    d->stop = true;
    wait();
}

void KtLoadPdfIconThread::setType(int type)
{
    d->type = type;
}

int KtLoadPdfIconThread::getType() const
{
    return d->type;
}

void KtLoadPdfIconThread::setItemCount(int count)
{
    d->items.setSize(count);
    d->stop = false;
}

void KtLoadPdfIconThread::setItem(int index, void* item)
{
    if (index >= 0 && index < d->items.logical)
        d->items.data[index] = item;
    d->stop = false;
}

void KtLoadPdfIconThread::clear()
{
    d->items.logical = 0;
}

pthread_mutex_t* KtLoadPdfIconThread::getMutex()
{
    return &d->mutex;
}

void KtLoadPdfIconThread::stop()
{
    d->stop = true;
}

void KtLoadPdfIconThread::run()
{
    const int count = d->items.logical;
    if (count >= 1 && !d->stop) {
        for (int index = 0;; ++index) {
            const QPixmap image = getImage(d->items.data[index]);
            {
                KtMutexAutoLock lock(&d->mutex);
                Q_EMIT sendPageQPixmap(image, index);
            }
            if (index + 1 >= count || d->stop)
                break;
        }
    }
    // Emitted under the mutex too, the loop's last step: whoever takes the
    // mutex after wait() or before handling what was posted is ordered after
    // everything the loop did, also for tools that cannot see Qt's own locks.
    KtMutexAutoLock lock(&d->mutex);
    Q_EMIT finishedPreview();
}

QPixmap KtLoadPdfIconThread::getImage(void* item)
{
    QPixmap result;
    if (d->stop || !item)
        return result;

    KtDbUnderlayImage* image = nullptr;
    try {
        const auto* page = static_cast<const KtDbUnderlayItem*>(item);
        if (d->type != 0)
            page->getImage(image, 256);
        else
            image = page->image();
    } catch (...) {
        // A host error while rendering: this page has no image.
        image = nullptr;
    }
    if (!image)
        return result;

    const QImage::Format format = formatOf(image->pixelFormat());
    const int width = image->width();
    const int height = image->height();
    const int bytesPerLine = image->bytesPerLine();
    // An image whose rows cannot hold its pixels in the chosen format is not read.
    const int bytesPerPixel = format == QImage::Format_RGB888 ? 3 : 4;
    if (image->bits() && width > 0 && height > 0 && bytesPerLine >= qint64(width) * bytesPerPixel) {
        const QImage view(image->bits(), width, height, bytesPerLine, format);
        result = QPixmap::fromImage(view);
    }
    image->release();
    return result;
}
