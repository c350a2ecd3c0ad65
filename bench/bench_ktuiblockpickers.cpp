// The block pickers' look-ups in the drawing's block table beside a QHash of
// the same names, from 100 to 100 000 blocks, and DXF output of a drawing of
// 10 000 blocks beside writing as many bytes with QFile in 64 KiB pieces.

#include "ratioreporter.h"

#include <KtApDocManager>
#include <KtDbArc>
#include <KtDbBlockTable>
#include <KtDbBlockTableRecord>
#include <KtDbCircle>
#include <KtDbDatabase>
#include <KtDbLine>
#include <KtDbPolyline>
#include <KtDbSolid>
#include <KtUiArrowComboBox>
#include <QFile>
#include <QHash>
#include <QTemporaryDir>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace {

const int Lookups = 1000;

std::wstring blockName(int i)
{
    return L"Block" + std::to_wstring(i);
}

/// A document holding @p count blocks, each with @p entities entities; made once per size.
KtApDocument* drawingOf(int count, int entities)
{
    static std::map<std::pair<int, int>, KtApDocument*> drawings;
    KtApDocument*& document = drawings[{count, entities}];
    if (document)
        return document;
    document = ktDocManagerPtr()->newDocument();
    KtDbBlockTable* table = nullptr;
    document->database()->getSymbolTable(table, KtDb::kForWrite);
    for (int i = 0; i < count; ++i) {
        auto* block = new KtDbBlockTableRecord;
        block->setName(blockName(i).c_str());
        KtDbObjectId id;
        for (int e = 0; e < entities; e += 5) {
            const double x = i % 100, y = i / 100;
            block->appendKtDbEntity(id, new KtDbLine(KtGePoint3d(x, y, 0), KtGePoint3d(x + 1, y + 0.5, 0)));
            auto* circle = new KtDbCircle;
            circle->setCenter(KtGePoint3d(x, y, 0));
            circle->setRadius(0.25);
            block->appendKtDbEntity(id, circle);
            auto* arc = new KtDbArc;
            arc->setRadius(0.5);
            arc->setEndAngle(1.5);
            block->appendKtDbEntity(id, arc);
            auto* polyline = new KtDbPolyline;
            polyline->addVertexAt(0, KtGePoint2d(x, y), 1.0, 0.1, 0.1);
            polyline->addVertexAt(1, KtGePoint2d(x + 1, y), 0.0, 0.1, 0.2);
            polyline->setClosed(true);
            block->appendKtDbEntity(id, polyline);
            auto* solid = new KtDbSolid;
            solid->setPointAt(1, KtGePoint3d(1, 0, 0));
            solid->setPointAt(2, KtGePoint3d(0, 1, 0));
            solid->setPointAt(3, KtGePoint3d(1, 1, 0));
            block->appendKtDbEntity(id, solid);
        }
        table->add(id, block);
        block->close();
    }
    table->close();
    return document;
}

/// The names looked up: spread over the whole table, half of them upper-cased, one in ten missing.
std::vector<std::wstring> probes(int count)
{
    std::vector<std::wstring> names;
    for (int i = 0; i < Lookups; ++i) {
        std::wstring name
            = i % 10 == 9 ? L"Missing" + std::to_wstring(i) : blockName(int(i * 7919LL % count));
        if (i % 2)
            name[0] = L'b';
        names.push_back(name);
    }
    return names;
}

void BM_KtHasBlock(benchmark::State& state)
{
    KtApDocument* document = drawingOf(int(state.range(0)), 0);
    const std::vector<std::wstring> names = probes(int(state.range(0)));
    int found = 0;
    for (auto _ : state) {
        for (const std::wstring& name : names)
            found += KtUiArrowComboBox::hasBlock(name.c_str(), document->database());
    }
    benchmark::DoNotOptimize(found);
    state.SetItemsProcessed(state.iterations() * Lookups);
}

void BM_KtGetBlockTableRecordId(benchmark::State& state)
{
    KtApDocument* document = drawingOf(int(state.range(0)), 0);
    ktDocManagerPtr()->setCurDocument(document);
    const std::vector<std::wstring> names = probes(int(state.range(0)));
    quint64 sum = 0;
    for (auto _ : state) {
        for (const std::wstring& name : names)
            sum += KtUiArrowComboBox::GetBlockTableRecordId(name.c_str()).handle();
    }
    benchmark::DoNotOptimize(sum);
    state.SetItemsProcessed(state.iterations() * Lookups);
}

/// The plain Qt way: upper-cased QString keys, looked up with the case folded at the call.
void BM_QtHashLookup(benchmark::State& state)
{
    const int count = int(state.range(0));
    QHash<QString, quint64> hash;
    for (int i = 0; i < count; ++i)
        hash.insert(QString::fromStdWString(blockName(i)).toUpper(), quint64(0x20 + i));
    std::vector<QString> names;
    for (const std::wstring& name : probes(count))
        names.push_back(QString::fromStdWString(name));
    quint64 sum = 0;
    for (auto _ : state) {
        for (const QString& name : names)
            sum += hash.value(name.toUpper());
    }
    benchmark::DoNotOptimize(sum);
    state.SetItemsProcessed(state.iterations() * Lookups);
}

QString dxfPath()
{
    static QTemporaryDir dir;
    return dir.path() + QStringLiteral("/bench.dxf");
}

void BM_KtDxfOut(benchmark::State& state)
{
    KtApDocument* document = drawingOf(10000, 5);
    const std::wstring path = dxfPath().toStdWString();
    for (auto _ : state) {
        if (document->database()->dxfOut(path.c_str()) != Kt::eOk)
            state.SkipWithError("dxfOut failed");
    }
    state.SetBytesProcessed(state.iterations() * QFile(dxfPath()).size());
}

/// The same output to /dev/null: what formatting and walking the drawing cost without the file system.
void BM_KtDxfOutFormatOnly(benchmark::State& state)
{
    KtApDocument* document = drawingOf(10000, 5);
    for (auto _ : state) {
        if (document->database()->dxfOut(L"/dev/null") != Kt::eOk)
            state.SkipWithError("dxfOut failed");
    }
}

void BM_QtWriteSameBytes(benchmark::State& state)
{
    KtApDocument* document = drawingOf(10000, 5);
    const std::wstring path = dxfPath().toStdWString();
    document->database()->dxfOut(path.c_str());
    const qint64 total = QFile(dxfPath()).size();
    const QByteArray piece(64 * 1024, 'x');
    for (auto _ : state) {
        QFile file(dxfPath() + QStringLiteral(".qt"));
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
            state.SkipWithError("cannot write");
        for (qint64 left = total; left > 0; left -= piece.size())
            file.write(piece.constData(), qMin<qint64>(left, piece.size()));
    }
    state.SetBytesProcessed(state.iterations() * total);
}

} // namespace

#define KT_LOOKUP_CASE(fn, name)                                                                             \
    BENCHMARK(fn)->Name(name)->Arg(100)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond)

KT_LOOKUP_CASE(BM_KtHasBlock, "Kt/HasBlock1000x");
KT_LOOKUP_CASE(BM_QtHashLookup, "Qt/HasBlock1000x");
KT_LOOKUP_CASE(BM_KtGetBlockTableRecordId, "Kt/GetBlockTableRecordId1000x");
KT_LOOKUP_CASE(BM_QtHashLookup, "Qt/GetBlockTableRecordId1000x");
BENCHMARK(BM_KtDxfOut)
    ->Name("Kt/DxfOut10kBlocks")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3)
    ->Repetitions(3)
    ->UseRealTime();
BENCHMARK(BM_KtDxfOutFormatOnly)
    ->Name("Kt/DxfOut10kBlocksToDevNull")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3)
    ->Repetitions(3)
    ->UseRealTime();
BENCHMARK(BM_QtWriteSameBytes)
    ->Name("Qt/DxfOut10kBlocks")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3)
    ->Repetitions(3)
    ->UseRealTime();

int main(int argc, char** argv)
{
    ktbench::RatioReporter reporter(3.0);
    return ktbench::runBenchmarks(argc, argv, reporter);
}
