// CKtArchive on CKtFile beside QDataStream on QFile (little-endian, so both
// sides write the same bytes for numbers), and bulk Read/Write beside plain
// QFile::read/write. Files live in the system's temporary directory.
#include "ratioreporter.h"

#include <CKtArchive>
#include <CKtFile>

#include <QDataStream>
#include <QFile>
#include <QTemporaryDir>

#include <memory>
#include <string>
#include <vector>

namespace {

constexpr int NumberCount = 10'000'000;
constexpr int StringCount = 1'000'000;
constexpr qint64 BulkBytes = 256ll << 20;
constexpr unsigned int BulkChunk = 1u << 20;

QTemporaryDir& scratch()
{
    static QTemporaryDir dir;
    return dir;
}

QString scratchFile(const char* name)
{
    return scratch().filePath(QString::fromLatin1(name));
}

std::wstring wide(const QString& path)
{
    return path.toStdWString();
}

void perValue(benchmark::State& state, qint64 values)
{
    state.counters["per value"] = benchmark::Counter(
        double(values), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

template <typename T>
T numberAt(int i)
{
    return static_cast<T>(i) * static_cast<T>(3);
}

template <typename T>
void BM_KtStore(benchmark::State& state)
{
    const QString path = scratchFile("kt-store.bin");
    for (auto _ : state) {
        CKtFile file(wide(path).c_str(), 1);
        {
            CKtArchive ar(&file, 0);
            for (int i = 0; i < NumberCount; ++i)
                ar << numberAt<T>(i);
        }
        file.Close();
    }
    perValue(state, NumberCount);
}

template <typename T>
void BM_QtStore(benchmark::State& state)
{
    const QString path = scratchFile("qt-store.bin");
    for (auto _ : state) {
        QFile file(path);
        file.open(QIODevice::WriteOnly);
        QDataStream ds(&file);
        ds.setByteOrder(QDataStream::LittleEndian);
        for (int i = 0; i < NumberCount; ++i)
            ds << numberAt<T>(i);
        file.close();
    }
    perValue(state, NumberCount);
}

/// A file of the numbers, the same bytes for both readers.
template <typename T>
QString numberFile()
{
    const QString path = scratchFile(sizeof(T) == 4 ? "numbers4.bin" : "numbers8.bin");
    if (!QFile::exists(path)) {
        std::vector<T> values(NumberCount);
        for (int i = 0; i < NumberCount; ++i)
            values[std::size_t(i)] = numberAt<T>(i);
        QFile file(path);
        file.open(QIODevice::WriteOnly);
        file.write(reinterpret_cast<const char*>(values.data()), qint64(values.size() * sizeof(T)));
    }
    return path;
}

template <typename T>
void BM_KtLoad(benchmark::State& state)
{
    const QString path = numberFile<T>();
    for (auto _ : state) {
        CKtFile file(wide(path).c_str(), 0);
        CKtArchive ar(&file, 1);
        T sum = 0;
        for (int i = 0; i < NumberCount; ++i) {
            T value;
            ar >> value;
            sum += value;
        }
        benchmark::DoNotOptimize(sum);
    }
    perValue(state, NumberCount);
}

template <typename T>
void BM_QtLoad(benchmark::State& state)
{
    const QString path = numberFile<T>();
    for (auto _ : state) {
        QFile file(path);
        file.open(QIODevice::ReadOnly);
        QDataStream ds(&file);
        ds.setByteOrder(QDataStream::LittleEndian);
        T sum = 0;
        for (int i = 0; i < NumberCount; ++i) {
            T value;
            ds >> value;
            sum += value;
        }
        benchmark::DoNotOptimize(sum);
    }
    perValue(state, NumberCount);
}

const wchar_t* const SixteenChars = L"layer-0000000016";

void BM_KtStoreString(benchmark::State& state)
{
    const QString path = scratchFile("kt-strings.bin");
    const KtString text(SixteenChars);
    for (auto _ : state) {
        CKtFile file(wide(path).c_str(), 1);
        {
            CKtArchive ar(&file, 0);
            for (int i = 0; i < StringCount; ++i)
                ar << text;
        }
        file.Close();
    }
    perValue(state, StringCount);
}

void BM_QtStoreString(benchmark::State& state)
{
    const QString path = scratchFile("qt-strings.bin");
    const QString text = QString::fromWCharArray(SixteenChars);
    for (auto _ : state) {
        QFile file(path);
        file.open(QIODevice::WriteOnly);
        QDataStream ds(&file);
        ds.setByteOrder(QDataStream::LittleEndian);
        for (int i = 0; i < StringCount; ++i)
            ds << text;
        file.close();
    }
    perValue(state, StringCount);
}

/// Strings as each reader expects them: a length byte and 2-byte units for the
/// archive, QDataStream's own format for Qt.
QString stringFile(bool forArchive)
{
    const QString path = scratchFile(forArchive ? "kt-read-strings.bin" : "qt-read-strings.bin");
    if (!QFile::exists(path)) {
        const QString text = QString::fromWCharArray(SixteenChars);
        QFile file(path);
        file.open(QIODevice::WriteOnly);
        if (forArchive) {
            QByteArray one(1, char(text.size()));
            one.append(reinterpret_cast<const char*>(text.utf16()), text.size() * 2);
            for (int i = 0; i < StringCount; ++i)
                file.write(one);
        } else {
            QDataStream ds(&file);
            ds.setByteOrder(QDataStream::LittleEndian);
            for (int i = 0; i < StringCount; ++i)
                ds << text;
        }
    }
    return path;
}

void BM_KtLoadString(benchmark::State& state)
{
    const QString path = stringFile(true);
    for (auto _ : state) {
        CKtFile file(wide(path).c_str(), 0);
        CKtArchive ar(&file, 1);
        KtString text;
        qint64 total = 0;
        for (int i = 0; i < StringCount; ++i) {
            ar >> text;
            total += text.length();
        }
        benchmark::DoNotOptimize(total);
    }
    perValue(state, StringCount);
}

void BM_QtLoadString(benchmark::State& state)
{
    const QString path = stringFile(false);
    for (auto _ : state) {
        QFile file(path);
        file.open(QIODevice::ReadOnly);
        QDataStream ds(&file);
        ds.setByteOrder(QDataStream::LittleEndian);
        QString text;
        qint64 total = 0;
        for (int i = 0; i < StringCount; ++i) {
            ds >> text;
            total += text.size();
        }
        benchmark::DoNotOptimize(total);
    }
    perValue(state, StringCount);
}

std::vector<char>& chunk()
{
    static std::vector<char> bytes(BulkChunk, '\x5a');
    return bytes;
}

void BM_KtBulkWrite(benchmark::State& state)
{
    const QString path = scratchFile("kt-bulk.bin");
    for (auto _ : state) {
        CKtFile file(wide(path).c_str(), 1);
        {
            CKtArchive ar(&file, 0);
            for (qint64 done = 0; done < BulkBytes; done += BulkChunk)
                ar.Write(chunk().data(), BulkChunk);
        }
        file.Close();
    }
    state.SetBytesProcessed(state.iterations() * BulkBytes);
}

void BM_QtBulkWrite(benchmark::State& state)
{
    const QString path = scratchFile("qt-bulk.bin");
    for (auto _ : state) {
        QFile file(path);
        file.open(QIODevice::WriteOnly);
        for (qint64 done = 0; done < BulkBytes; done += BulkChunk)
            file.write(chunk().data(), BulkChunk);
        file.close();
    }
    state.SetBytesProcessed(state.iterations() * BulkBytes);
}

/// One 256 MiB file read by both sides, so that both read from the same cached pages.
QString bulkFile()
{
    const QString path = scratchFile("bulk-read.bin");
    if (!QFile::exists(path)) {
        QFile file(path);
        file.open(QIODevice::WriteOnly);
        for (qint64 done = 0; done < BulkBytes; done += BulkChunk)
            file.write(chunk().data(), BulkChunk);
    }
    return path;
}

void BM_KtBulkRead(benchmark::State& state)
{
    const QString path = bulkFile();
    std::vector<char> into(BulkChunk);
    for (auto _ : state) {
        CKtFile file(wide(path).c_str(), 0);
        CKtArchive ar(&file, 1);
        qint64 total = 0;
        while (const unsigned int n = ar.Read(into.data(), BulkChunk))
            total += n;
        if (total != BulkBytes)
            state.SkipWithError("short bulk read");
    }
    state.SetBytesProcessed(state.iterations() * BulkBytes);
}

void BM_QtBulkRead(benchmark::State& state)
{
    const QString path = bulkFile();
    std::vector<char> into(BulkChunk);
    for (auto _ : state) {
        QFile file(path);
        file.open(QIODevice::ReadOnly);
        qint64 total = 0;
        qint64 n;
        while ((n = file.read(into.data(), BulkChunk)) > 0)
            total += n;
        if (total != BulkBytes)
            state.SkipWithError("short bulk read");
    }
    state.SetBytesProcessed(state.iterations() * BulkBytes);
}

// One 50 MiB line without a line feed: 2-byte units 'a' (and a zero unit at
// the end), read whole by ReadString(KtString&) beside Read() of the same bytes.
constexpr qint64 LineBytes = 50ll << 20;

const QString& lineFile()
{
    static const QString path = [] {
        const QString p = scratchFile("line.bin");
        QFile file(p);
        file.open(QIODevice::WriteOnly);
        const QByteArray chunk = QByteArray("a\0", 2).repeated(int(BulkChunk / 2));
        for (qint64 written = 0; written < LineBytes; written += chunk.size())
            file.write(chunk);
        return p;
    }();
    return path;
}

// Into one string reused from read to read, as a loop over the lines of a file
// does (and as the Read() case below reuses its buffer); with state.range(0)
// NewString, into a new string each time, which then pays for its memory too.
template <bool NewString>
void BM_KtReadStringLine(benchmark::State& state)
{
    const QString path = lineFile();
    KtString line;
    if (!NewString) {
        // The string of a reading loop has held a line before.
        CKtFile file(wide(path).c_str(), 0);
        CKtArchive ar(&file, 1);
        ar.ReadString(line);
    }
    for (auto _ : state) {
        CKtFile file(wide(path).c_str(), 0);
        CKtArchive ar(&file, 1);
        if (NewString)
            line = KtString();
        if (!ar.ReadString(line) || line.length() != LineBytes / 2)
            state.SkipWithError("wrong line");
    }
    state.SetBytesProcessed(state.iterations() * LineBytes);
}

void BM_KtReadLineBytes(benchmark::State& state)
{
    const QString path = lineFile();
    std::vector<char> into(static_cast<std::size_t>(LineBytes));
    for (auto _ : state) {
        CKtFile file(wide(path).c_str(), 0);
        CKtArchive ar(&file, 1);
        if (ar.Read(into.data(), unsigned(LineBytes)) != LineBytes)
            state.SkipWithError("short read");
    }
    state.SetBytesProcessed(state.iterations() * LineBytes);
}

} // namespace

#define KT_FILE_CASE(fn, name)                                                                               \
    BENCHMARK(fn)                                                                                            \
        ->Name(name)                                                                                         \
        ->Unit(benchmark::kMillisecond)                                                                      \
        ->Iterations(3)                                                                                      \
        ->Repetitions(3)                                                                                     \
        ->ReportAggregatesOnly(true)                                                                         \
        ->UseRealTime()

KT_FILE_CASE(BM_KtStore<int>, "Kt/StoreInt10M");
KT_FILE_CASE(BM_QtStore<qint32>, "Qt/StoreInt10M");
KT_FILE_CASE(BM_KtLoad<int>, "Kt/LoadInt10M");
KT_FILE_CASE(BM_QtLoad<qint32>, "Qt/LoadInt10M");
KT_FILE_CASE(BM_KtStore<double>, "Kt/StoreDouble10M");
KT_FILE_CASE(BM_QtStore<double>, "Qt/StoreDouble10M");
KT_FILE_CASE(BM_KtLoad<double>, "Kt/LoadDouble10M");
KT_FILE_CASE(BM_QtLoad<double>, "Qt/LoadDouble10M");
KT_FILE_CASE(BM_KtStoreString, "Kt/StoreString16x1M");
KT_FILE_CASE(BM_QtStoreString, "Qt/StoreString16x1M");
KT_FILE_CASE(BM_KtLoadString, "Kt/LoadString16x1M");
KT_FILE_CASE(BM_QtLoadString, "Qt/LoadString16x1M");
KT_FILE_CASE(BM_KtBulkWrite, "Kt/BulkWrite256MiB");
KT_FILE_CASE(BM_QtBulkWrite, "Qt/BulkWrite256MiB");
KT_FILE_CASE(BM_KtBulkRead, "Kt/BulkRead256MiB");
KT_FILE_CASE(BM_QtBulkRead, "Qt/BulkRead256MiB");
KT_FILE_CASE(BM_KtReadStringLine<false>, "Kt/ReadStringLine50MiB");
KT_FILE_CASE(BM_KtReadStringLine<true>, "Kt/ReadStringLine50MiBNewString");
KT_FILE_CASE(BM_KtReadLineBytes, "Kt/ReadLineBytes50MiB");

int main(int argc, char** argv)
{
    ktbench::RatioReporter reporter;
    reporter.addComparison("Kt/ReadStringLine50MiB", "Kt/ReadLineBytes50MiB",
        "ReadString(KtString&) of one 50 MiB line beside Read() of the same bytes; goal within 3");
    reporter.addComparison("Kt/ReadStringLine50MiBNewString", "Kt/ReadLineBytes50MiB",
        "the same into a new string each time: its 100 MiB of fresh memory are faulted in on every read");
    return ktbench::runBenchmarks(argc, argv, reporter);
}
