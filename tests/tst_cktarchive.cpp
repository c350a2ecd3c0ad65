#include "memorylendingfile.h"

#include <CKtArchive>
#include <CKtFile>

#include <QTemporaryDir>
#include <QtTest>

#include <functional>
#include <tuple>
#include <vector>

namespace {

using Counts = std::vector<unsigned int>;

QByteArray hex(const char* text)
{
    return QByteArray::fromHex(text);
}

/// @p size bytes counting up by @p step.
QByteArray ramp(int size, int step = 1)
{
    QByteArray bytes(size, '\0');
    for (int i = 0; i < size; ++i)
        bytes[i] = char(i * step);
    return bytes;
}

/// The bytes WriteString gives for @p text: 4 bytes per character.
QByteArray wide(const std::wstring& text)
{
    return QByteArray(reinterpret_cast<const char*>(text.data()), int(text.size() * sizeof(wchar_t)));
}

/// What ReadString stores for @p line written with WriteString and ended by a line
/// feed: each character, then the zero unit carrying the next character in its high half.
QVector<uint> readBackValues(const std::wstring& line)
{
    QVector<uint> values;
    for (std::size_t i = 0; i < line.size(); ++i)
        values << uint(line[i]) << (uint(i + 1 < line.size() ? line[i + 1] : L'\n') << 16);
    return values;
}

/// Ways to load (file capabilities, buffer size): read into a large or a small buffer, or lent buffers.
const std::pair<unsigned int, int> loadWays[] = {{0, 4096}, {0, 128}, {1, 128}};

/// A loading archive over @p bytes in memory; a file of no capabilities is read through Read().
struct Loader
{
    explicit Loader(const QByteArray& bytes, unsigned int capabilities = 0, int bufferSize = 4096)
        : file(bytes, capabilities)
        , ar(&file, 1, bufferSize)
    { }
    MemoryLendingFile file;
    CKtArchive ar;
};

using Values = std::tuple<unsigned char, char, bool, unsigned short, wchar_t, int, unsigned int, long, float,
    double, long long, unsigned long long>;

} // namespace

class tst_CKtArchive : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    int m_serial = 0;

    QString newPath() { return m_dir.filePath(QStringLiteral("f%1.bin").arg(++m_serial)); }

    /// The bytes an archive on a fresh file holds after @p fill and its destruction.
    QByteArray stored(
        const std::function<void(CKtArchive&)>& fill, int bufferSize = 4096, void* buffer = nullptr)
    {
        const QString path = newPath();
        {
            CKtFile file(path.toStdWString().c_str(), 1);
            CKtArchive ar(&file, 0, bufferSize, buffer);
            fill(ar);
        }
        return CKtFile(path.toStdWString().c_str(), 0).readAll();
    }

private Q_SLOTS:
    void lengthPrefix_data()
    {
        QTest::addColumn<qulonglong>("length");
        QTest::addColumn<int>("unicode");
        QTest::addColumn<QByteArray>("bytes");

        QTest::newRow("300 marked") << 300ull << 1 << hex("fffeffff2c01");
        QTest::newRow("254") << 254ull << 0 << hex("fe");
        QTest::newRow("255") << 255ull << 0 << hex("ffff00");
        QTest::newRow("65533") << 65533ull << 0 << hex("fffdff");
        QTest::newRow("65534") << 65534ull << 0 << hex("fffffffeff0000");
        QTest::newRow("2^32-1") << 0xFFFFFFFFull << 1 << hex("fffeff ffffffffffffffffffffff 00000000");
        QTest::newRow("2^40") << (1ull << 40) << 0 << hex("ffffffffffffff0000000000010000");
    }

    void lengthPrefix()
    {
        QFETCH(qulonglong, length);
        QFETCH(int, unicode);
        QFETCH(QByteArray, bytes);

        QCOMPARE(stored([&](CKtArchive& ar) { AfxWriteStringLength_Q(ar, length, unicode); }), bytes);
        Loader l(bytes);
        int charSize = 0;
        QCOMPARE(AfxReadStringLength_Q(l.ar, charSize), length);
        QCOMPARE(charSize, unicode ? 2 : 1);
        // operator<< writes the same prefix, without marker, then 4-byte units.
        if (!unicode && length < 100000) {
            const std::wstring text(std::size_t(length), L'x');
            QCOMPARE(stored([&](CKtArchive& ar) { ar << KtString(text.c_str()); }), bytes + wide(text));
        }
    }

    void valuesEncodeAndLoad()
    {
        // In order, little-endian, no padding; wchar_t keeps its low 16 bits, long its low 32.
        const QByteArray one = hex("7f 80 01 3412 00f6 feffffff 78563412 efcdab89 0000c03f 000000000000f8bf "
                                   "0100000000000080 ffffffffffffffff");
        const Values values(0x7f, -128, true, 0x1234, 0x1F600, -2, 0x12345678u, 0x0123456789abcdefL, 1.5f,
            -1.5, static_cast<long long>(0x8000000000000001ull), ~0ull);
        // Enough values to cross the small buffer's end several times; what is loaded
        // and stored again gives the same bytes (the high halves of wide loads: see below).
        auto store = [](CKtArchive& ar, const Values& v) {
            std::apply([&](const auto&... x) { (ar << ... << x); }, v);
        };
        for (const auto& [capabilities, bufferSize] : loadWays) {
            const QByteArray bytes = stored(
                [&](CKtArchive& ar) {
                    for (int i = 0; i < 20; ++i)
                        store(ar, values);
                },
                bufferSize);
            QCOMPARE(bytes.toHex(), one.repeated(20).toHex());

            Loader l(bytes, capabilities, bufferSize);
            const QByteArray again = stored([&](CKtArchive& out) {
                for (int i = 0; i < 20; ++i) {
                    Values got;
                    std::apply([&](auto&... x) { (l.ar >> ... >> x); }, got);
                    store(out, got);
                }
            });
            QCOMPARE(again.toHex(), bytes.toHex());
        }

        // long fills its high half from the 4 bytes after the 4 it consumes; wchar_t reads ahead the
        // same way (see readStringLine).
        Loader l(hex("0100000002000000 02"));
        long lo = 0;
        int next = 0;
        bool flag = false;
        l.ar >> lo >> next >> flag;
        QCOMPARE(quint64(lo), 0x0000000200000001ull); // not sign-extended, the high half read again
        QCOMPARE(next, 2);
        QVERIFY(flag); // any non-zero byte
    }

    void stringOperators_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QVector<uint>>("characters");
        QTest::addColumn<int>("unreadInt");

        // The prefix is AfxReadStringLength_Q's (see lengthPrefix).
        // clang-format off
        QTest::newRow("written 4-byte units") << hex("024100000042000000") << QVector<uint>{0x41, 0} << 0x42;
        QTest::newRow("surrogates stay apart") << hex("023dd800de") << QVector<uint>{0xD83D, 0xDE00} << 0;
        QTest::newRow("257 characters") << QByteArray(hex("ff0101") + QByteArray(514, 'c')) << QVector<uint>(257, 0x6363) << 0;
        QTest::newRow("64-bit length cut to 32 bits") << hex("ffffffffffffff0100000001000000 4100") << QVector<uint>{0x41} << 0;
        QTest::newRow("empty") << hex("00") << QVector<uint>{} << 0;

        // Data ending before the announced length leaves the old value.
        const QVector<uint> old{'o', 'l', 'd'};
        QTest::newRow("two of five") << hex("0541004200") << old << 0;
        QTest::newRow("huge 32-bit length") << hex("ffffffffffff7f41004200") << old << 0;
        QTest::newRow("length wraps when doubled") << hex("ffffff01000080 4100420043004400") << old << 0;
        // clang-format on
    }

    void stringOperators()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QVector<uint>, characters);
        QFETCH(int, unreadInt);

        for (const auto& [capabilities, bufferSize] : loadWays) {
            Loader l(bytes, capabilities, bufferSize);
            KtString text(L"old");
            int rest = 0;
            l.ar >> text >> rest;
            QCOMPARE(QVector<uint>(text.c_str(), text.c_str() + text.length()), characters);
            if (unreadInt)
                QCOMPARE(rest, unreadInt);
        }
    }

    // Characters are compared and stored as the 4 bytes at the read position while
    // only 2 are consumed, so a value carries the next unit in its high half and a
    // line end is seen only where a 10 or 13 unit is followed by a zero unit.
    void readStringLine_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("max");
        QTest::addColumn<bool>("isNull");
        QTest::addColumn<QVector<uint>>("line");
        QTest::addColumn<uint>("nextCharacter"); // 0: past the data, not checked

        const QByteArray abcd = hex("41004200430044000a00"), cr = hex("41000d00000042000a00");
        const QVector<uint> abcdValues{0x420041, 0x430042, 0x440043, 0x0a0044};
        // clang-format off
        QTest::newRow("line") << abcd << 10 << false << abcdValues << 0u;
        QTest::newRow("line end kept") << abcd << -10 << false << (abcdValues + QVector<uint>{10}) << 0u;
        QTest::newRow("maximum reached") << abcd << 2 << false << abcdValues.mid(0, 2) << 0x440043u;
        QTest::newRow("zero maximum") << abcd << 0 << true << QVector<uint>{} << 0x420041u;
        QTest::newRow("empty line") << hex("0a000000") << 10 << true << QVector<uint>{} << 0u;
        QTest::newRow("empty line kept") << hex("0a000000") << -10 << false << QVector<uint>{10} << 0u;
        QTest::newRow("CR before LF unseen") << hex("0d000a000000") << 10 << false << QVector<uint>{0xA000D} << 0u;
        QTest::newRow("CR swallows next") << cr << 10 << false << QVector<uint>{0xd0041} << 0xa0042u;
        QTest::newRow("CR next kept") << cr << -10 << false << QVector<uint>{0xd0041, 0x420000} << 0xa0042u;
        QTest::newRow("CR at the end") << hex("41000d00") << -10 << false << QVector<uint>{0xd0041} << 0u;
        // clang-format on
    }

    void readStringLine()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(int, max);
        QFETCH(bool, isNull);
        QFETCH(QVector<uint>, line);
        QFETCH(uint, nextCharacter);

        Loader l(bytes);
        std::vector<wchar_t> buffer(std::size_t(std::abs(max)) + 1, L'#');
        const wchar_t* result = l.ar.ReadString(buffer.data(), unsigned(max));
        QCOMPARE(result == nullptr, isNull);
        if (!isNull) {
            QCOMPARE(result, buffer.data());
            QCOMPARE(
                QVector<uint>(buffer.begin(), buffer.begin() + line.size() + 1), line + QVector<uint>{0});
        }
        wchar_t next = 0;
        l.ar >> next;
        if (nextCharacter)
            QCOMPARE(uint(next), nextCharacter);
        QVERIFY(!l.ar.ReadString(nullptr, 10));
    }

    void readStringStopsAtTheEnd()
    {
        // "ab\ncd" as WriteString writes it, the last line without a line feed: two lines, then nothing.
        for (unsigned int max : {50u, 0u - 50u, unsigned(INT_MIN)}) {
            Loader l(wide(L"ab\ncd"));
            wchar_t buffer[64];
            int lines = 0;
            while (l.ar.ReadString(buffer, max) && lines < 10)
                ++lines;
            QCOMPARE(lines, 2);
        }
    }

    void readStringWholeLines_data()
    {
        using Lines = QVector<QVector<uint>>;
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<Lines>("lines");

        const std::wstring longLine(200, L'x'), part(64, L'p'), beforeNul = L"abcdefghijklmnopq";
        // clang-format off
        // The zero unit behind the last line feed is a last, empty line.
        QTest::newRow("two lines") << wide(L"ab\nc\n") << Lines{{0x61, 0x620000, 0x62, 0xa0000}, {0x630000, 0x63, 0xa0000}, {}};
        // The trailing zero unit reads as a terminator, which ends the stored text.
        QTest::newRow("no final line feed") << wide(L"ab") << Lines{{0x61, 0x620000, 0x62}};
        QTest::newRow("longer than a part") << wide(longLine + L"\n") << Lines{readBackValues(longLine), {}};
        // 128 values, the last one being 0xa0000.
        QTest::newRow("exactly a part") << wide(part + L"\n") << Lines{readBackValues(part), {}};
        // A NUL ends the text; what follows up to the line feed is read and dropped.
        QTest::newRow("NUL inside") << wide(beforeNul + std::wstring(1, L'\0') + L"rst\nu\n") << Lines{readBackValues(beforeNul).mid(0, 33), {0x750000, 0x75, 0xa0000}, {}};
        QTest::newRow("empty") << QByteArray() << Lines{};
        // The line end in every lane of the eight-character blocks read at once.
        for (int n = 1; n <= 12; ++n) {
            const std::wstring line(std::size_t(n), L'y');
            QTest::addRow("%d characters", n) << wide(line + L"\n") << Lines{readBackValues(line), {}};
        }
        // clang-format on
    }

    void readStringWholeLines()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QVector<QVector<uint>>, lines);

        // A buffer larger than the text: at a buffer's end the high half of a
        // character would come from behind the data (see valuesEncodeAndLoad).
        for (unsigned int capabilities : {0u, 1u}) {
            Loader l(bytes, capabilities);
            QVector<QVector<uint>> got;
            KtString line(L"before");
            while (l.ar.ReadString(line) && got.size() <= lines.size())
                got << QVector<uint>(line.c_str(), line.c_str() + line.length());
            QCOMPARE(got, lines);
            QVERIFY(line.isEmpty());
        }
    }

    void buffersAndBlockTransfers()
    {
        // Below 128 bytes the caller's buffer is ignored and 128 bytes are allocated.
        QByteArray small(100, '\xAA');
        const QByteArray smallOut = stored(
            [&](CKtArchive& ar) {
                ar.Write(QByteArray(127, 'a').constData(), 127);
                ar << static_cast<unsigned char>('b') << static_cast<unsigned char>('c');
                QCOMPARE(small, QByteArray(100, '\xAA'));
            },
            100, small.data());
        QCOMPARE(smallOut, QByteArray(127, 'a') + "bc");

        // From 128 up it is used as is, and never freed (it lives on the stack here).
        unsigned char caller[4096] = {};
        MemoryLendingFile file(QByteArray(), 0);
        CKtArchive withCaller(&file, 0, sizeof caller, caller);
        withCaller << 0x11223344;
        QCOMPARE(caller[0], 0x44);
        withCaller.Write(QByteArray(4092, 'x').constData(), 4092);
        QVERIFY(file.writes.empty());
        withCaller << 'y';
        QCOMPARE(file.writes, Counts({4096}));
        withCaller.Abort(); // detached: the buffered 'y' is lost
        QCOMPARE(file.writes, Counts({4096}));

        // Whole buffers go straight between the file and the caller's memory.
        const QByteArray content = ramp(12000, 7);
        Loader in(content);
        QByteArray got(10000, '\0');
        QCOMPARE(in.ar.Read(got.data(), 10000), 10000u);
        QCOMPARE(in.file.reads, Counts({8192, 4096}));
        QCOMPARE(got, content.left(10000));
        QCOMPARE(in.ar.Read(got.data(), 0), 0u);
        QCOMPARE(in.ar.Read(nullptr, 10), 0u);
        QCOMPARE(in.ar.Read(got.data(), 5000), 2000u); // the file ends
        QCOMPARE(got.left(2000), content.mid(10000));

        MemoryLendingFile out(QByteArray(), 0);
        CKtArchive storing(&out, 0, 128);
        storing.Write(content.constData(), 300);
        QCOMPARE(out.writes, Counts({128, 128}));
        storing.Flush();
        QCOMPARE(out.writes, Counts({128, 128, 44}));
        storing.Write(content.constData(), 0);
        storing.Write(nullptr, 10);
        storing.Write(content.constData() + 300, 128); // fills the empty buffer, no direct write
        QCOMPARE(out.writes.size(), std::size_t(3));
        storing.Close();
        QCOMPARE(out.writes, Counts({128, 128, 44, 128}));
        QCOMPARE(out.content(), content.left(428));
    }

    void destructorModes()
    {
        // Mode 0 stores and flushes, 1 loads and gives the unread bytes back, 2 stores and loses
        // its bytes, 3 loads and leaves the file behind the buffer. mode -> file position
        for (const auto& [mode, filePosition] :
            {std::pair(0u, 3ull), std::pair(1u, 3ull), std::pair(2u, 0ull), std::pair(3u, 5ull)}) {
            const bool loading = mode & 1;
            CKtFile file(newPath().toStdWString().c_str(), 2);
            if (loading) {
                file.write(QByteArray(5, 'r'));
                file.seek(0);
            }
            {
                CKtArchive ar(&file, mode, 4096);
                unsigned char bytes[3] = {1, 2, 3};
                if (loading)
                    ar.Read(bytes, 3);
                else
                    ar.Write(bytes, 3);
                if (mode == 1) // the unread bytes go back once: the destructor's flush finds none
                    ar.Flush();
            }
            QVERIFY2(file.GetPosition() == filePosition, qPrintable(QString::number(mode)));
            QVERIFY(file.isOpen()); // the archive never closes its file
        }
    }

    void lentBuffersCarryTheSameBytes()
    {
        const QByteArray block = ramp(1000);
        auto fill = [&](CKtArchive& ar) {
            ar << 7 << KtString(L"lent");
            ar.Write(block.constData(), block.size());
            ar << 2.5;
            ar.WriteString(L"tail\n");
        };
        const QByteArray expected = stored(fill, 128);
        // Capabilities: a direct buffer (1), with blocking reads (3), blocking reads only (2).
        for (uint capabilities : {1u, 3u, 2u}) {
            MemoryLendingFile out(QByteArray(), capabilities);
            {
                CKtArchive ar(&out, 0, 128);
                fill(ar);
            }
            QCOMPARE(out.content().toHex(), expected.toHex());
            QCOMPARE(out.commands[1] > 0, bool(capabilities & 1));

            Loader in(expected, capabilities, 128);
            int seven = 0;
            in.ar >> seven;
            QCOMPARE(seven, 7);
            QByteArray got(17 + block.size(), '\0'); // the string, then the block
            QCOMPARE(in.ar.Read(got.data(), unsigned(got.size())), unsigned(got.size()));
            QCOMPARE(got, expected.mid(4, got.size()));
            double d = 0;
            in.ar >> d;
            QCOMPARE(d, 2.5);
            QCOMPARE(in.file.commands[0] > 0, bool(capabilities & 1));
        }
    }

    void refusedLentBuffers()
    {
        const QByteArray block = ramp(300);
        // Every write buffer refused: typed values are dropped, whole buffers still
        // go straight to the file.
        MemoryLendingFile out;
        out.lengthSkew = -1;
        {
            CKtArchive ar(&out, 0, 128);
            ar << 1 << 2.0;
            ar.Write(block.constData(), 300);
            ar << KtString(L"dropped");
        }
        QCOMPARE(out.content(), block.left(256));

        // A refused read buffer ends Read with 0, even after a direct transfer.
        Loader in(block, 1, 128);
        in.file.lengthSkew = 1;
        QByteArray got(200, '\0');
        QCOMPARE(in.ar.Read(got.data(), 200), 0u);
        QCOMPARE(got.left(128), block.left(128));
        int untouched = 7;
        in.ar >> untouched;
        QCOMPARE(untouched, 7);
    }

    void wrongDirectionAndDetached()
    {
        Loader l(hex("2a000000"));
        l.ar << 5; // nothing on a loading archive
        KtString text(L"same");
        int n = 0;
        l.ar >> n;
        QCOMPARE(n, 42);

        CKtFile file(newPath().toStdWString().c_str(), 1);
        CKtArchive ar(&file, 0, 128);
        ar >> n >> text;
        QCOMPARE(n, 42);
        QCOMPARE(text, KtString(L"same"));
        wchar_t line[4];
        QVERIFY(!ar.ReadString(line, 3));
        QCOMPARE(ar.Read(line, 4), 0u);
        ar.Close();
        ar.Close();
        ar << 1 << KtString(L"after close");
        ar.Flush();
        ar.Abort();
        ar.Abort();
        ar << 1; // the buffer is gone: nothing is written anywhere
        QCOMPARE(file.GetLength(), 0ull);
    }
};

QTEST_GUILESS_MAIN(tst_CKtArchive)
#include "tst_cktarchive.moc"
