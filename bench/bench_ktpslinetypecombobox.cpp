// The plot-style combos beside plain QComboBox work.
//
// Construct: a KtPsLineTypeComboBox beside a QComboBox filled with 32 rows of
// icon and text from pixmaps prepared in advance. The first combo of an
// application draws the 31 dash patterns, which every later one shares;
// DrawLinePatterns is that one-time cost.
//
// Idle: one shown, idle KtPsTrueColorComboBox beside one shown, idle
// QComboBox over 2 s of event loop. The colour combo asks for another paint
// at the end of every paint, so it repaints for as long as it is visible.
// The time reported is the process CPU time spent in those 2 s; the counters
// give paints per second and the share of one core. Run it under a real X
// server (QT_QPA_PLATFORM=xcb under xvfb-run) for the figures of a desktop;
// the offscreen platform paints into memory only.

#include "ratioreporter.h"

#include <KtPsLineTypeComboBox>
#include <KtPsTrueColorComboBox>

#include <QComboBox>
#include <QElapsedTimer>
#include <QEvent>
#include <QEventLoop>
#include <QIcon>
#include <QPainter>
#include <QPixmap>
#include <QTimer>

#include <ctime>
#include <memory>
#include <vector>

using namespace TORV_PLOT_SPECIALLY_SPCAE;

namespace {

struct PreparedRows
{
    std::vector<QPixmap> pixmaps;
    std::vector<QString> texts;
};

// 32 pictures of a plain line and 32 texts, made once, outside any timing.
const PreparedRows& preparedRows()
{
    static const PreparedRows rows = [] {
        PreparedRows r;
        for (int i = 0; i < 32; ++i) {
            QPixmap pixmap(80, 20);
            pixmap.fill(Qt::transparent);
            QPainter painter(&pixmap);
            painter.drawLine(0, 10, 80, 10);
            painter.end();
            r.pixmaps.push_back(pixmap);
            r.texts.push_back(QStringLiteral("Line type %1").arg(i));
        }
        return r;
    }();
    return rows;
}

void BM_KtConstructLineTypeCombo(benchmark::State& state)
{
    for (auto _ : state) {
        KtPsLineTypeComboBox combo;
        if (combo.count() != 32) {
            state.SkipWithError("wrong row count");
            break;
        }
    }
}

void BM_QtConstructPreparedCombo(benchmark::State& state)
{
    const PreparedRows& rows = preparedRows();
    for (auto _ : state) {
        QComboBox combo;
        combo.setIconSize(QSize(80, 20));
        for (int i = 0; i < 32; ++i)
            combo.addItem(QIcon(rows.pixmaps[i]), rows.texts[i], QVariant(i));
        if (combo.count() != 32) {
            state.SkipWithError("wrong row count");
            break;
        }
    }
}

// What the first combo of an application pays on top: the 31 pictures, which
// later combos share.
void BM_KtDrawLinePatterns(benchmark::State& state)
{
    KtPsLineTypeComboBox combo;
    for (auto _ : state) {
        for (int i = 0; i < 31; ++i) {
            QPixmap pixmap(80, 20);
            pixmap.fill(Qt::transparent);
            combo.createLineType(pixmap, i, 80, 20);
            QIcon icon(pixmap);
            benchmark::DoNotOptimize(icon);
        }
    }
}

class PaintCounter : public QObject
{
public:
    int paints = 0;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            ++paints;
        return QObject::eventFilter(watched, event);
    }
};

double processCpuSeconds()
{
    timespec ts{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &ts);
    return double(ts.tv_sec) + double(ts.tv_nsec) * 1e-9;
}

void runIdle(benchmark::State& state, QComboBox& combo)
{
    PaintCounter counter;
    combo.installEventFilter(&counter);
    combo.resize(200, 24);
    combo.show();
    QEventLoop settle;
    QTimer::singleShot(300, &settle, &QEventLoop::quit);
    settle.exec();

    for (auto _ : state) {
        counter.paints = 0;
        QElapsedTimer clock;
        const double cpu0 = processCpuSeconds();
        clock.start();
        QEventLoop loop;
        QTimer::singleShot(2000, &loop, &QEventLoop::quit);
        loop.exec();
        const double cpu = processCpuSeconds() - cpu0;
        const double wall = double(clock.nsecsElapsed()) * 1e-9;
        state.SetIterationTime(cpu);
        state.counters["paints_per_s"] = counter.paints / wall;
        state.counters["cpu_share"] = cpu / wall;
    }
    combo.hide();
}

void BM_KtIdleTrueColorCombo(benchmark::State& state)
{
    KtPsTrueColorComboBox combo;
    combo.setCurrentIndex(1);
    runIdle(state, combo);
}

void BM_QtIdleCombo(benchmark::State& state)
{
    QComboBox combo;
    combo.addItem(QStringLiteral("Red"));
    runIdle(state, combo);
}

} // namespace

BENCHMARK(BM_KtConstructLineTypeCombo)->Name("Kt/ConstructLineTypeCombo")->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_QtConstructPreparedCombo)->Name("Qt/ConstructLineTypeCombo")->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_KtDrawLinePatterns)->Name("Kt/DrawLinePatterns")->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_KtIdleTrueColorCombo)
    ->Name("Kt/IdleColourCombo2s")
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(3)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_QtIdleCombo)
    ->Name("Qt/IdleColourCombo2s")
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(3)
    ->Unit(benchmark::kMillisecond);

int main(int argc, char** argv)
{
    ktbench::RatioReporter reporter(3.0);
    return ktbench::runBenchmarks(argc, argv, reporter);
}
