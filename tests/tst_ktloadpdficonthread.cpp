// Tests of KtLoadPdfIconThread and KtMutexAutoLock: the loop and its signals,
// stopping, the pixel formats of page images, host errors, the mutex.

#include "fakeunderlay.h"

#include <KtLoadPdfIconThread>
#include <KtMutexAutoLock>
#include <QSignalSpy>
#include <QtTest>

#include <atomic>
#include <memory>
#include <thread>

namespace {

// Whether another thread could take @p mutex right now.
bool lockedElsewhere(pthread_mutex_t* mutex)
{
    bool busy = false;
    std::thread([&] {
        busy = pthread_mutex_trylock(mutex) != 0;
        if (!busy)
            pthread_mutex_unlock(mutex);
    }).join();
    return busy;
}

// Records what @p thread emits while alive, counted in the loader's thread.
struct Recorder : QObject
{
    QList<int> indexes;
    QList<QPixmap> images;
    std::atomic<int> pages{0}, finished{0};
    explicit Recorder(KtLoadPdfIconThread& thread)
    {
        const auto page = [this](const QPixmap& image, int index) {
            indexes << index;
            images << image;
            ++pages;
        };
        connect(&thread, &KtLoadPdfIconThread::sendPageQPixmap, this, page, Qt::DirectConnection);
        connect(
            &thread, &KtLoadPdfIconThread::finishedPreview, this, [this] { ++finished; },
            Qt::DirectConnection);
    }
};

// Runs @p thread to its end and collects what it emitted.
std::unique_ptr<Recorder> runToEnd(KtLoadPdfIconThread& thread)
{
    auto run = std::make_unique<Recorder>(thread);
    thread.start();
    thread.wait();
    KtMutexAutoLock(thread.getMutex()).unlock(); // after the loop's end, as the widget does
    return run;
}

} // namespace

class TestKtLoadPdfIconThread : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyPageInOrder()
    {
        FakeDocument document(10);
        document.page(3).fails = true;
        document.page(6).throws = true;
        KtLoadPdfIconThread thread(nullptr);
        thread.setItemCount(3); // grows past the growth step below, keeping its entries
        thread.setItem(0, &document.page(0));
        thread.setItemCount(10);
        for (int i = 1; i < 10; ++i)
            thread.setItem(i == 8 ? 99 : i, i == 5 ? nullptr : &document.page(i));
        // Each image is emitted under the mutex, which the emitting thread may take again.
        pthread_mutex_t* mutex = thread.getMutex();
        int held = 0;
        connect(
            &thread, &KtLoadPdfIconThread::sendPageQPixmap, &thread,
            [&](const QPixmap&, int) {
                held += lockedElsewhere(mutex) ? 1 : 0;
                KtMutexAutoLock again(mutex);
            },
            Qt::DirectConnection);
        const auto run = runToEnd(thread);
        QVERIFY(run->indexes == (QList<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9}) && run->finished == 1);
        QVERIFY(held == 10 && !lockedElsewhere(mutex));
        // A null item (5, and 8 whose setItem missed the array), a failed and a throwing page: empty images.
        for (int i = 0; i < 10; ++i)
            QCOMPARE(run->images.at(i).isNull(), i == 3 || i == 5 || i == 6 || i == 8);
        QCOMPARE(document.page(0).lastMaxSize.load(), -1); // type 0 asks image()

        thread.setType(7);
        thread.setItemCount(1);
        QCOMPARE(runToEnd(thread)->indexes.size(), 1);
        QCOMPARE(document.page(0).lastMaxSize.load(), 256); // other types ask getImage(out, 256)
        // Emptied, or given a negative count, the loop ends at once and still says so.
        thread.clear();
        auto none = runToEnd(thread);
        QVERIFY(none->indexes.isEmpty() && none->finished == 1);
        thread.setItemCount(-5);
        none = runToEnd(thread);
        QVERIFY(none->indexes.isEmpty() && none->finished == 1);

        // The scoped lock also unlocks early, by hand, and takes a null mutex as nothing to lock.
        KtMutexAutoLock lock(mutex);
        QVERIFY(lockedElsewhere(mutex));
        lock.unlock();
        QVERIFY(!lockedElsewhere(mutex));
        KtMutexAutoLock nothing(nullptr);
    }

    void stopAndPageImages()
    {
        FakeDocument document(5);
        QSemaphore gate;
        KtLoadPdfIconThread thread;
        thread.setItemCount(5);
        for (int i = 0; i < 5; ++i) {
            document.page(i).gate = &gate;
            thread.setItem(i, &document.page(i));
        }
        Recorder counted(thread);
        thread.start();
        gate.release(); // page 0
        QTRY_COMPARE(counted.pages.load(), 1);
        QTRY_COMPARE(document.page(1).lastMaxSize.load(), -1); // page 1 is waiting
        thread.stop();
        gate.release();
        QVERIFY(thread.wait(5000));
        KtMutexAutoLock(thread.getMutex()).unlock();
        QVERIFY(counted.pages == 2 && counted.finished == 1); // the page in progress, nothing after it
        // Stopped, nothing starts; filling the array clears the flag again.
        QVERIFY(thread.getImage(&document.page(0)).isNull());
        thread.setItemCount(1);
        gate.release();
        QVERIFY(!thread.getImage(&document.page(0)).isNull());

        // Each pixel's bytes in memory are 10 20 30 40 (32 bits) or 10 20 30 (24 bits, at x = 0). RGBX8888
        // ignores alpha; every layout but it and ARGB32 is read as RGB888, a BGR one in 24 bits too.
        const std::pair<KtDbPixelFormat, QColor> cases[]
            = {{pixelFormat(0, 8, 16, 24, 32), QColor(0x10, 0x20, 0x30)},
                {pixelFormat(16, 8, 0, 24, 32), QColor(0x30, 0x20, 0x10, 0x40)},
                {pixelFormat(16, 8, 0, 0, 24), QColor(0x10, 0x20, 0x30)},
                {pixelFormat(24, 16, 8, 0, 32), QColor(0x10, 0x20, 0x30)}};
        for (const auto& [format, color] : cases) {
            FakePage page(format);
            const QImage image = thread.getImage(&page).toImage();
            QCOMPARE(image.size(), QSize(4, 2));
            QVERIFY2(image.pixelColor(0, 0).rgba() == color.rgba(), qPrintable(color.name(QColor::HexArgb)));
        }
    }
};

QTEST_MAIN(TestKtLoadPdfIconThread)
#include "tst_ktloadpdficonthread.moc"
