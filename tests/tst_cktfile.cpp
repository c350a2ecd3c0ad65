#include <CKtFile>

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <climits>

namespace {

std::wstring wide(const QString& text)
{
    return text.toStdWString();
}

QString qt(const KtString& text)
{
    return QString::fromWCharArray(text.c_str(), text.length());
}

} // namespace

class tst_CKtFile : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;

    QString fileWith(const QString& name, const QByteArray& content)
    {
        const QString path = m_dir.filePath(name);
        QFile file(path);
        file.open(QIODevice::WriteOnly);
        file.write(content);
        return path;
    }

private Q_SLOTS:
    void openFlags_data()
    {
        QTest::addColumn<uint>("flags");
        QTest::addColumn<bool>("exists");
        QTest::addColumn<bool>("opened");
        QTest::addColumn<int>("mode");

        QTest::newRow("0 read") << 0u << true << true << 0x1;
        QTest::newRow("0 read, missing") << 0u << false << false << 0x0;
        QTest::newRow("1 write") << 1u << true << true << 0x2;
        QTest::newRow("2 read-write") << 2u << true << true << 0x3;
        QTest::newRow("3 as 2") << 3u << true << true << 0x3;
        QTest::newRow("0x4001 text write") << 0x4001u << true << true << 0x12;
        QTest::newRow("0x2002 ignored") << 0x2002u << true << true << 0x3;
    }

    void openFlags()
    {
        QFETCH(uint, flags);
        QFETCH(bool, exists);
        QFETCH(bool, opened);
        QFETCH(int, mode);

        const QString name = QStringLiteral("flags-%1").arg(QTest::currentDataTag());
        const QString path = exists ? fileWith(name, "x") : m_dir.filePath(name);
        CKtFile file;
        QCOMPARE(file.Open(wide(path).c_str(), flags), opened);
        QCOMPARE(int(file.openMode()), mode);
        QCOMPARE(file.fileName(), path);
    }

    void seek_data()
    {
        QTest::addColumn<qint64>("offset");
        QTest::addColumn<uint>("from");
        QTest::addColumn<qint64>("expected");

        // From position 5 in a 10-byte file; a refused seek stays at 5.
        QTest::newRow("begin 9") << qint64(9) << 0u << qint64(9);
        QTest::newRow("begin 10 refused") << qint64(10) << 0u << qint64(5);
        QTest::newRow("begin -3 is relative") << qint64(-3) << 0u << qint64(2);
        QTest::newRow("current +5 refused") << qint64(5) << 1u << qint64(5);
        QTest::newRow("current -5") << qint64(-5) << 1u << qint64(0);
        QTest::newRow("current -6 refused") << qint64(-6) << 1u << qint64(5);
        QTest::newRow("end 0 to the end") << qint64(0) << 2u << qint64(10);
        QTest::newRow("end 1 refused") << qint64(1) << 2u << qint64(5);
        QTest::newRow("end -10") << qint64(-10) << 2u << qint64(0);
        QTest::newRow("end -11 refused") << qint64(-11) << 2u << qint64(5);
        QTest::newRow("origin 3") << qint64(1) << 3u << qint64(5);
        QTest::newRow("current, largest offset") << std::numeric_limits<qint64>::max() << 1u << qint64(5);
        QTest::newRow("end, smallest offset") << std::numeric_limits<qint64>::min() << 2u << qint64(5);
    }

    void seek()
    {
        QFETCH(qint64, offset);
        QFETCH(uint, from);
        QFETCH(qint64, expected);

        CKtFile file(wide(fileWith(QStringLiteral("ten"), QByteArray(10, 't'))).c_str(), 0);
        file.seek(5);
        QCOMPARE(file.Seek(offset, from), qulonglong(expected));
        QCOMPARE(file.GetPosition(), qulonglong(expected));
    }

    void lengthAndEnds()
    {
        CKtFile file(wide(fileWith(QStringLiteral("len"), QByteArray(10, 'l'))).c_str(), 2);
        file.SetLength(3);
        file.SetLength(50); // beyond the end: nothing moves
        QCOMPARE(file.GetPosition(), 3ull);
        QCOMPARE(file.GetLength(), 10ull); // neither cut nor grown
        QSignalSpy aboutToClose(&file, &QIODevice::aboutToClose);
        file.Abort(); // only announces: the file stays open where it was
        QVERIFY(aboutToClose.count() == 1 && file.isOpen());
        QCOMPARE(file.GetPosition(), 3ull);
        QVERIFY(file.SeekToEnd());
        QCOMPARE(file.GetPosition(), 10ull);
        file.SeekToBegin();
        QCOMPARE(file.GetPosition(), 0ull);

        // On an empty file 0 is not inside the file, so SeekToBegin stays at 0.
        CKtFile empty(wide(m_dir.filePath(QStringLiteral("empty"))).c_str(), 2);
        empty.SeekToBegin();
        QCOMPARE(empty.GetPosition(), 0ull);
    }

    void names()
    {
        // path -> name, title (cut at the first dot), full path
        const std::pair<QString, QStringList> cases[] = {{"/d/x.tar.gz", {"x.tar.gz", "x", "/d/x.tar.gz"}},
            {"sub/a.b", {"a.b", "a", QDir::current().absoluteFilePath("sub/a.b")}}, {"", {"", "", ""}}};
        for (const auto& [path, names] : cases) {
            CKtFile file;
            file.SetFilePath(wide(path).c_str());
            QCOMPARE((QStringList{qt(file.GetFileName()), qt(file.GetFileTitle()), qt(file.GetFilePath())}),
                names);
        }
    }

    void nonAsciiPathsAndStatus()
    {
        const QString name = QStringLiteral("\u56fe\u7eb8 plan ") + QString::fromUtf8("\xF0\x9F\x98\x80.bin");
        const QString path = m_dir.filePath(name);
        CKtFileStatus status;
        status.m_attribute = 0x5a;
        {
            CKtFile file(wide(path).c_str(), 1);
            file.Write("data", 4);
            QVERIFY(file.Flush());
            QCOMPARE(qt(file.GetFileName()), name);
            QCOMPARE(qt(file.GetFilePath()), path);
            QVERIFY(file.GetStatus(status));
        }
        QCOMPARE(status.m_size, qint64(4));
        QVERIFY(status.m_mtime.isValid());
        QCOMPARE(QString::fromUtf8(status.m_szFullName), path);
        QCOMPARE(status.m_attribute, quint8(0x5a));

        const QString renamed = m_dir.filePath(QStringLiteral("\u2192") + name);
        CKtFile::Rename(wide(path).c_str(), wide(renamed).c_str());
        QVERIFY(QFile::exists(renamed));
        CKtFile::Remove(wide(renamed).c_str());
        QVERIFY(!QFile::exists(renamed));

        // A missing file still gives true, with invalid times and size 0.
        QVERIFY(CKtFile::GetStatus(wide(path).c_str(), status));
        QCOMPARE(status.m_size, qint64(0));
        QVERIFY(!status.m_mtime.isValid());
        QCOMPARE(QString::fromUtf8(status.m_szFullName), path);

        // A name longer than the array is cut, on a character boundary.
        const QString deep = m_dir.path() + QStringLiteral("/\u00e9").repeated(3000);
        QVERIFY(CKtFile::GetStatus(wide(deep).c_str(), status));
        const QByteArray full(status.m_szFullName);
        QVERIFY(full.size() < int(sizeof status.m_szFullName));
        QVERIFY(QString::fromUtf8(full).toUtf8() == full);
    }

    void pathsOfNonCharacters_data()
    {
        QTest::addColumn<int>("unit"); // between "a" and "b" in the file name
        QTest::newRow("surrogate") << 0xD800;
        QTest::newRow("past U+10FFFF") << 0x110000;
        QTest::newRow("negative") << -1;
    }

    void pathsOfNonCharacters()
    {
        QFETCH(int, unit);
        // The name would become "a\uFFFDb" on its way to Qt: the name of a file that is there, and
        // that a path holding U+FFFD itself opens.
        const QString target = fileWith(QStringLiteral("a\uFFFDb"), "keep");
        QVERIFY(CKtFile(wide(target).c_str(), 0).isOpen());
        std::wstring path = wide(m_dir.filePath(QStringLiteral("a")));
        path += wchar_t(unit);
        path += L'b';

        CKtFile file(path.c_str(), 2);
        QVERIFY(!file.isOpen());
        QVERIFY(!file.Open(path.c_str(), 1));
        QVERIFY(file.GetFilePath().isEmpty());
        CKtFileStatus status;
        QVERIFY(!CKtFile::GetStatus(path.c_str(), status));
        CKtFile::Rename(path.c_str(), wide(m_dir.filePath(QStringLiteral("other"))).c_str());
        CKtFile::Remove(path.c_str());
        QVERIFY(QFile::exists(target));
    }

    void readWriteCounts()
    {
        const QString path = fileWith(QStringLiteral("rw"), "abcdef");
        CKtFile file(wide(path).c_str(), 0);
        QVERIFY(!file.Open(nullptr, 0)); // keeps the name, and the file stays open for the reads below
        QCOMPARE(file.fileName(), path);
        char buffer[16] = {};
        QCOMPARE(file.Read(buffer, 4), 4u);
        QCOMPARE(QByteArray(buffer, 4), QByteArray("abcd"));
        QCOMPARE(file.Read(buffer, 16), 2u);
        QCOMPARE(file.Read(nullptr, 16), 0u);
        file.Write("zz", 2); // read-only: the device refuses, nothing is reported
        QCOMPARE(QFileInfo(file.fileName()).size(), qint64(6));

        // No name opens nothing; the closed device's -1 is passed on as it is.
        CKtFile unnamed(nullptr, 1);
        QVERIFY(unnamed.fileName().isEmpty());
        QCOMPARE(unnamed.Read(buffer, 4), 0xFFFFFFFFu);
    }
};

QTEST_GUILESS_MAIN(tst_CKtFile)
#include "tst_cktfile.moc"
