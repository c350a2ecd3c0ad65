// KtPdfPageListWidget beside the plain Poppler way of making page thumbnails.
//
// Preview: setInfo() until hasFinishedPreview(), for a 200-page text PDF and
// a 50-page vector-heavy PDF (both written here with QPdfWriter), beside one
// worker thread that loads the same file with Poppler, renders every page at
// the same size (82 x 102, aspect kept) with the same hints and turns each
// image into a pixmap, handing it to the GUI thread.
//
// SetInfo1000Pages: how long setInfo() takes to return for 1 000 pages (the
// list filled with placeholders), beside loading the file with Poppler and
// filling a QListWidget with 1 000 labelled items with an icon.
//
// Stall: the longest gap between the ticks of a 1 ms timer on the GUI thread
// while a 200-page preview renders (reported as the iteration's time).

#include "ratioreporter.h"

#include <KtPdfPageListWidget>

#include <QElapsedTimer>
#include <QEventLoop>
#include <QListWidget>
#include <QPainter>
#include <QPainterPath>
#include <QPdfWriter>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>
#include <poppler-qt5.h>

#include <algorithm>
#include <cmath>
#include <memory>

namespace {

const QSize kBox(82, 102);

QTemporaryDir& scratch()
{
    static QTemporaryDir dir;
    return dir;
}

QString textPdf(int pages)
{
    const QString path = scratch().filePath(QStringLiteral("text-%1.pdf").arg(pages));
    if (QFile::exists(path))
        return path;
    QPdfWriter writer(path);
    writer.setResolution(300);
    QPainter painter(&writer);
    painter.setFont(QFont(QStringLiteral("Serif"), 10));
    const QString line = QStringLiteral("The quick brown fox jumps over the lazy dog, page %1, line %2.");
    for (int p = 0; p < pages; ++p) {
        if (p)
            writer.newPage();
        for (int l = 0; l < 60; ++l)
            painter.drawText(QPointF(100, 150 + 50 * l), line.arg(p + 1).arg(l + 1));
    }
    return path;
}

QString vectorPdf(int pages)
{
    const QString path = scratch().filePath(QStringLiteral("vector-%1.pdf").arg(pages));
    if (QFile::exists(path))
        return path;
    QPdfWriter writer(path);
    writer.setResolution(300);
    QPainter painter(&writer);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int p = 0; p < pages; ++p) {
        if (p)
            writer.newPage();
        // A few thousand strokes and curves per page, like a dense drawing.
        for (int i = 0; i < 3000; ++i) {
            painter.setPen(QPen(QColor::fromHsv((i * 7 + p * 13) % 360, 200, 180), 1 + i % 4));
            const double a = i * 0.37 + p;
            painter.drawLine(QPointF(1200 + 1000 * std::cos(a), 1700 + 1000 * std::sin(a)),
                QPointF(1200 + 600 * std::cos(a * 1.7), 1700 + 600 * std::sin(a * 2.3)));
            if (i % 10 == 0) {
                QPainterPath path;
                path.moveTo(200 + i % 2000, 300);
                path.cubicTo(400 + i % 1500, 900, 1200, 2800 - i % 900, 2200, 3000);
                painter.drawPath(path);
            }
        }
    }
    return path;
}

void ktPreview(benchmark::State& state, const QString& file)
{
    KtPdfPageListWidget list;
    for (auto _ : state) {
        QEventLoop loop;
        QObject::connect(&list, &KtPdfPageListWidget::hasFinishedPreview, &loop, &QEventLoop::quit);
        if (list.setInfo(file) <= 0) {
            state.SkipWithError("no pages");
            break;
        }
        loop.exec();
    }
}

// The plain way: one worker renders and converts, the GUI thread takes the pixmaps.
class PlainRenderer : public QThread
{
public:
    explicit PlainRenderer(const QString& file, QListWidget* list = nullptr)
        : m_file(file)
        , m_list(list)
    { }
    QList<QPixmap> received;

protected:
    void run() override
    {
        std::unique_ptr<Poppler::Document> document(Poppler::Document::load(m_file));
        if (!document)
            return;
        document->setRenderHint(Poppler::Document::Antialiasing, true);
        document->setRenderHint(Poppler::Document::TextAntialiasing, true);
        for (int i = 0; i < document->numPages(); ++i) {
            std::unique_ptr<Poppler::Page> page(document->page(i));
            const QSizeF points = page->pageSizeF();
            const double scale = std::min(kBox.width() / points.width(), kBox.height() / points.height());
            const QPixmap pixmap = QPixmap::fromImage(page->renderToImage(72 * scale, 72 * scale));
            QMetaObject::invokeMethod(
                qApp,
                [this, pixmap, i] {
                    received << pixmap;
                    if (m_list && m_list->item(i))
                        m_list->item(i)->setIcon(QIcon(pixmap));
                },
                Qt::QueuedConnection);
        }
    }

private:
    QString m_file;
    QListWidget* m_list;
};

void qtPreview(benchmark::State& state, const QString& file)
{
    for (auto _ : state) {
        PlainRenderer renderer(file);
        QEventLoop loop;
        QObject::connect(&renderer, &QThread::finished, &loop, &QEventLoop::quit);
        renderer.start();
        loop.exec();
        renderer.wait();
        QCoreApplication::processEvents(); // the last hand-overs
        if (renderer.received.isEmpty())
            state.SkipWithError("no pages");
    }
}

void BM_KtPreviewText200(benchmark::State& state)
{
    ktPreview(state, textPdf(200));
}
void BM_QtPreviewText200(benchmark::State& state)
{
    qtPreview(state, textPdf(200));
}
void BM_KtPreviewVector50(benchmark::State& state)
{
    ktPreview(state, vectorPdf(50));
}
void BM_QtPreviewVector50(benchmark::State& state)
{
    qtPreview(state, vectorPdf(50));
}

void BM_KtSetInfo1000Pages(benchmark::State& state)
{
    const QString file = textPdf(1000);
    KtPdfPageListWidget list;
    for (auto _ : state) {
        const int pages = list.setInfo(file);
        state.PauseTiming();
        list.stopPreview();
        QCoreApplication::processEvents();
        if (pages != 1000)
            state.SkipWithError("wrong page count");
        state.ResumeTiming();
    }
}

void BM_QtSetInfo1000Pages(benchmark::State& state)
{
    const QString file = textPdf(1000);
    QListWidget list;
    list.setViewMode(QListView::IconMode);
    QPixmap placeholder(kBox);
    placeholder.fill(Qt::white);
    const QIcon icon(placeholder);
    for (auto _ : state) {
        std::unique_ptr<Poppler::Document> document(Poppler::Document::load(file));
        list.clear();
        for (int i = 0; i < document->numPages(); ++i) {
            std::unique_ptr<Poppler::Page> page(document->page(i));
            auto* item = new QListWidgetItem(icon, page->label());
            item->setData(Qt::UserRole, i);
            list.addItem(item);
        }
        if (list.count() != 1000)
            state.SkipWithError("wrong page count");
    }
}

// The longest gap between ticks of a 1 ms timer while @p start runs a preview.
template <class Start, class Finished>
double longestStall(Start start, Finished finished)
{
    QElapsedTimer clock;
    qint64 last = 0;
    qint64 longest = 0;
    QTimer tick;
    tick.setTimerType(Qt::PreciseTimer);
    tick.setInterval(1);
    QObject::connect(&tick, &QTimer::timeout, [&] {
        const qint64 now = clock.nsecsElapsed();
        longest = std::max(longest, now - last);
        last = now;
    });
    clock.start();
    tick.start();
    start();
    while (!finished())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return double(longest) * 1e-9;
}

void BM_KtStall200(benchmark::State& state)
{
    const QString file = textPdf(200);
    for (auto _ : state) {
        KtPdfPageListWidget list;
        list.show();
        bool done = false;
        QObject::connect(&list, &KtPdfPageListWidget::hasFinishedPreview, [&done] { done = true; });
        state.SetIterationTime(longestStall([&] { list.setInfo(file); }, [&] { return done; }));
    }
}

void BM_QtStall200(benchmark::State& state)
{
    const QString file = textPdf(200);
    for (auto _ : state) {
        // The plain list: 200 items up front, each icon set as its pixmap arrives.
        QListWidget list;
        list.setViewMode(QListView::IconMode);
        list.setIconSize(kBox);
        for (int i = 0; i < 200; ++i)
            list.addItem(new QListWidgetItem(QString::number(i + 1)));
        list.show();
        PlainRenderer renderer(file, &list);
        bool done = false;
        QObject::connect(&renderer, &QThread::finished, [&done] { done = true; });
        state.SetIterationTime(longestStall([&] { renderer.start(); }, [&] { return done; }));
        renderer.wait();
        QCoreApplication::processEvents();
    }
}

} // namespace

#define KT_PREVIEW_CASE(fn, name)                                                                            \
    BENCHMARK(fn)->Name(name)->Unit(benchmark::kMillisecond)->Iterations(1)->Repetitions(3)->UseRealTime()

KT_PREVIEW_CASE(BM_KtPreviewText200, "Kt/PreviewText200");
KT_PREVIEW_CASE(BM_QtPreviewText200, "Qt/PreviewText200");
KT_PREVIEW_CASE(BM_KtPreviewVector50, "Kt/PreviewVector50");
KT_PREVIEW_CASE(BM_QtPreviewVector50, "Qt/PreviewVector50");
BENCHMARK(BM_KtSetInfo1000Pages)->Name("Kt/SetInfo1000Pages")->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(BM_QtSetInfo1000Pages)->Name("Qt/SetInfo1000Pages")->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(BM_KtStall200)
    ->Name("Kt/LongestStall200")
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(3)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_QtStall200)
    ->Name("Qt/LongestStall200")
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(3)
    ->Unit(benchmark::kMillisecond);

int main(int argc, char** argv)
{
    ktbench::RatioReporter reporter(1.10);
    return ktbench::runBenchmarks(argc, argv, reporter);
}
