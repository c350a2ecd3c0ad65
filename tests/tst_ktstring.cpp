#include <KtString>

#include <QtTest>

#include <cstring>
#include <cwchar>
#include <string>

using Units = QVector<int>; // wchar_t units: signed, 4 bytes

// By hand: QString::fromWCharArray() would drop a leading U+FEFF.
static QString toQString(const KtString& s)
{
    QString text;
    for (int i = 0; i < s.length(); ++i) {
        const uint ch = uint(s.at(i));
        if (QChar::requiresSurrogates(ch))
            text.append(QChar(QChar::highSurrogate(ch))).append(QChar(QChar::lowSurrogate(ch)));
        else
            text.append(QChar(ushort(ch)));
    }
    return text;
}

// Byte for byte Qt's own encoding of the expected text, so well-formed too.
static void verifyUtf8(const KtString& s, const QString& expected)
{
    const char* p = s.utf8Ptr();
    QVERIFY(p);
    QCOMPARE(int(std::strlen(p)), s.utf8Length());
    QCOMPARE(QByteArray(p), expected.toUtf8());
}

class TestKtString : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wideConstruction_data()
    {
        QTest::addColumn<bool>("null");
        QTest::addColumn<Units>("input");
        QTest::addColumn<int>("count"); // -2: the one-argument constructor
        QTest::addColumn<Units>("expected");
        const Units abc{'a', 'b', 'c', 0}, nuls{'a', 0, 'b', 0, 'c', 0};
        QTest::newRow("null") << true << Units() << -2 << Units();
        QTest::newRow("null, count") << true << Units() << 5 << Units();
        QTest::newRow("terminated") << false << abc << -2 << Units{'a', 'b', 'c'};
        QTest::newRow("stops at NUL") << false << nuls << -2 << Units{'a'};
        QTest::newRow("count keeps NULs") << false << nuls << 5 << Units{'a', 0, 'b', 0, 'c'};
        QTest::newRow("negative count") << false << nuls << -1 << Units{'a'};
        QTest::newRow("non-BMP") << false << Units{0x1F600, 0} << -2 << Units{0x1F600};
    }
    void wideConstruction()
    {
        QFETCH(bool, null);
        QFETCH(Units, input);
        QFETCH(int, count);
        QFETCH(Units, expected);
        const std::wstring units(input.cbegin(), input.cend());
        const wchar_t* str = null ? nullptr : units.c_str();
        const KtString s = count == -2 ? KtString(str) : KtString(str, count);
        QCOMPARE(s.length(), expected.size());
        QCOMPARE(s.isEmpty(), expected.isEmpty());
        for (int i = 0; i < expected.size(); ++i)
            QCOMPARE(int(s.at(i)), expected.at(i));
        QVERIFY(s.c_str()[s.length()] == 0 && s.at(-1) == 0 && s[s.length()] == 0);
    }

    void narrowConstruction_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("length"); // -2: the NUL-terminated constructor
        QTest::addColumn<int>("encoding");
        QTest::addColumn<QString>("expected"); // a run of bad bytes as one U+FFFD
        const QString r(QChar::ReplacementCharacter);
        QTest::newRow("chinese") << QByteArray("\xe4\xb8\xad\xe6\x96\x87") << -2 << 0 << "中文";
        QTest::newRow("emoji is one unit") << QByteArray("\xf0\x9f\x98\x80!") << -2 << 0 << "😀!";
        QTest::newRow("invalid byte") << QByteArray("a\xff"
                                                    "b")
                                      << -2 << 0 << QString("a" + r + "b");
        QTest::newRow("truncated") << QByteArray("a\xe4\xb8") << -2 << 0 << QString("a" + r);
        QTest::newRow("overlong slash") << QByteArray("\xc0\xaf") << -2 << 0 << r;
        QTest::newRow("encoded surrogate") << QByteArray("x\xed\xa0\x80") << -2 << 0 << QString("x" + r);
        QTest::newRow("length stops early") << QByteArray("abc") << 2 << 0 << "ab";
        QTest::newRow("length keeps NUL")
            << QByteArray("a\0b", 3) << 3 << 0 << QString::fromLatin1("a\0b", 3);
        QTest::newRow("leading U+FEFF") << QByteArray("\xef\xbb\xbf"
                                                      "a")
                                        << -2 << 0 << QString(QChar(0xFEFF) + QLatin1Char('a'));
        QTest::newRow("two U+FEFF, length")
            << QByteArray("\xef\xbb\xbf\xef\xbb\xbf") << 6 << 0 << QString(2, QChar(0xFEFF));
        QTest::newRow("latin1") << QByteArray("caf\xe9") << -2 << int(KtString::Latin1) << "café";
    }
    void narrowConstruction()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(int, length);
        QFETCH(int, encoding);
        QFETCH(QString, expected);
        const auto enc = KtString::Encoding(encoding);
        const KtString s
            = length == -2 ? KtString(bytes.constData(), enc) : KtString(bytes.constData(), length, enc);
        // How many replacement characters stand for one bad sequence is the decoder's business.
        QString decoded = toQString(s);
        decoded.replace(QRegularExpression(QStringLiteral("\uFFFD+")), QString(QChar::ReplacementCharacter));
        QCOMPARE(decoded, expected);
        if (!expected.contains(QChar::ReplacementCharacter))
            QCOMPARE(s.length(), expected.toUcs4().size());
        for (int i = 0; i < s.length(); ++i)
            QVERIFY(s.at(i) >= 0 && s.at(i) <= 0x10FFFF && (s.at(i) < 0xD800 || s.at(i) > 0xDFFF));
        QVERIFY(KtString(static_cast<const char*>(nullptr), enc).isEmpty());
    }

    void utf8View_data()
    {
        QTest::addColumn<Units>("units");
        QTest::addColumn<QString>("expected");
        const QString r(QChar::ReplacementCharacter);
        QTest::newRow("chinese") << Units{0x4E2D, 0x6587} << "中文";
        QTest::newRow("emoji") << Units{'a', 0x1F600, 'b'} << "a😀b";
        QTest::newRow("highest code point") << Units{0x10FFFF} << QString::fromUcs4(U"\U0010FFFF");
        QTest::newRow("lone high surrogate") << Units{'a', 0xD800, 'b'} << QString("a" + r + "b");
        QTest::newRow("lone low surrogate") << Units{0xDFFF, 'x'} << QString(r + "x");
        QTest::newRow("surrogate units stay apart") << Units{0xD83D, 0xDE00} << QString(r + r);
        QTest::newRow("above U+10FFFF") << Units{'a', 0x110000, 'b'} << QString("a" + r + "b");
        QTest::newRow("far above") << Units{'a', 0x1000000, 0x7FFFFFFF, 'b'} << QString("a" + r + r + "b");
        QTest::newRow("negative") << Units{-1, 0x4E2D} << QString(r + "中");
        QTest::newRow("leading U+FEFF")
            << Units{0xFEFF, 0xFEFF, 'a'} << QString(QString(2, QChar(0xFEFF)) + "a");
    }
    void utf8View()
    {
        QFETCH(Units, units);
        QFETCH(QString, expected);
        const std::wstring w(units.cbegin(), units.cend());
        const KtString s(w.c_str(), int(w.size()));
        verifyUtf8(s, expected);
        QCOMPARE(s.length(), units.size()); // the view replaces, the string keeps its units
    }

    void utf8ViewFollowsChanges()
    {
        KtString s(L"abc");
        const char* p = s.utf8Ptr();
        KtString copy = s; // reading and copying leave the view in place
        copy.append(L"中");
        QVERIFY(s == L"abc" && s.length() == 3);
        QCOMPARE(p, "abc");
        verifyUtf8(copy, "abc中");
        s.append(L'\x1F600');
        verifyUtf8(s, "abc😀");
        s.data()[0] = L'x';
        verifyUtf8(s, "xbc😀");
        s.getBuffer(1)[1] = L'y';
        s.releaseBuffer();
        verifyUtf8(s, "xyc😀");
        s.clear();
        verifyUtf8(s, QString());
    }

    void assignAndAppend()
    {
        KtString s;
        QCOMPARE(s.assign(L"two\0three", 9).length(), 9);
        QVERIFY(s.assign(static_cast<const wchar_t*>(nullptr)).isEmpty());
        s = L"ab";
        s.append(L"cd").append(static_cast<const wchar_t*>(nullptr)).append(L'e').append(s);
        QVERIFY(s == L"abcdeabcde");
        QCOMPARE(s.append(L'\0').length(), 11);
        KtString other(L"xyz");
        s.assign(other).assign(s);
        other.append(L"!");
        QVERIFY(s == L"xyz");
    }

    void format()
    {
        KtString s(L"old");
        QCOMPARE(s.format(L"%d|%ls|%5.2f|%x", -42, L"中文😀", 3.14159, 255u), 16);
        verifyUtf8(s, "-42|中文😀| 3.14|ff");
        const std::wstring longText(300, L'w');
        QCOMPARE(s.format(L"<%ls>%d", longText.c_str(), 7), 303);
        QCOMPARE(s.length(), 303);
        QVERIFY(s == (L"<" + longText + L">7").c_str());
        QCOMPARE(s.format(nullptr), -1);
        QVERIFY(s.isEmpty());
        s = L"old"; // a narrow argument that is no multibyte text cannot be rendered
        QCOMPARE(s.format(L"%s", "\xff\xfe"), -1);
        QVERIFY(s.isEmpty());
    }

    void buffer_data()
    {
        QTest::addColumn<QString>("initial");
        QTest::addColumn<int>("minLength");
        QTest::addColumn<QString>("written"); // at the buffer's start
        QTest::addColumn<bool>("terminate"); // a NUL after it
        QTest::addColumn<int>("release");
        QTest::addColumn<QString>("expected");
        QTest::newRow("grow, to terminator") << "ab" << 10 << "hello" << true << -1 << "hello";
        QTest::newRow("full, no NUL") << "" << 4 << "wxyz" << false << -1 << "wxyz";
        QTest::newRow("text kept") << "abc" << 2 << "" << false << -1 << "abc";
        QTest::newRow("NUL within text") << "abcdef" << 3 << "XY" << true << -1 << "XY";
        QTest::newRow("explicit, negative minimum") << "abcdef" << -5 << "" << false << 3 << "abc";
        QTest::newRow("explicit keeps NUL")
            << "" << 4 << "ab" << true << 4 << QString::fromLatin1("ab\0\0", 4);
        QTest::newRow("clamped") << "abc" << 5 << "abcde" << false << 100 << "abcde";
    }
    void buffer()
    {
        QFETCH(QString, initial);
        QFETCH(int, minLength);
        QFETCH(QString, written);
        QFETCH(bool, terminate);
        QFETCH(int, release);
        QFETCH(QString, expected);
        KtString s(initial.toStdWString().c_str());
        s.utf8Ptr();
        wchar_t* buf = s.getBuffer(minLength);
        const std::wstring w = written.toStdWString();
        std::wmemcpy(buf, w.data(), w.size());
        if (terminate)
            buf[w.size()] = L'\0';
        s.releaseBuffer(release);
        QCOMPARE(toQString(s), expected);
        QCOMPARE(int(s.c_str()[s.length()]), 0);
        QCOMPARE(QByteArray(s.utf8Ptr(), s.utf8Length()), expected.toUtf8());
    }

    void compare_data()
    {
        QTest::addColumn<QString>("a");
        QTest::addColumn<QString>("b");
        QTest::addColumn<int>("sign");
        QTest::newRow("equal") << "abc"
                               << "abc" << 0;
        QTest::newRow("empty first") << ""
                                     << "a" << -1;
        QTest::newRow("prefix") << "abc"
                                << "ab" << 1;
        QTest::newRow("ascii before CJK") << "z"
                                          << "中" << -1;
        // By UTF-32 unit U+1F600 sorts after U+FFFD; by UTF-16 unit it would not.
        QTest::newRow("non-BMP after BMP") << "😀"
                                           << "\uFFFD" << 1;
        QTest::newRow("embedded NUL") << QString::fromLatin1("a\0b", 3) << "a" << 1;
    }
    void compare()
    {
        QFETCH(QString, a);
        QFETCH(QString, b);
        QFETCH(int, sign);
        const std::wstring wa = a.toStdWString(), wb = b.toStdWString();
        const KtString sa(wa.c_str(), int(wa.size())), sb(wb.c_str(), int(wb.size()));
        const int c = sa.compare(sb);
        QCOMPARE((c > 0) - (c < 0), sign);
        QCOMPARE(sa == sb, sign == 0);
        QCOMPARE(sa < sb, sign < 0);
        QCOMPARE(sa >= sb, sign >= 0);
        QCOMPARE(sa == wb.c_str(), sign == 0);
        QCOMPARE(sa.compare(static_cast<const wchar_t*>(nullptr)) == 0, a.isEmpty());
    }

    void copyAndMove()
    {
        KtString a(L"中文");
        QCOMPARE(a.utf8Length(), 6); // cached views travel with copies and moves
        KtString copy(a);
        a.append(L"!");
        verifyUtf8(copy, "中文");
        KtString moved(std::move(a));
        verifyUtf8(moved, "中文!");
        verifyUtf8(a, QString()); // moved-from: empty and usable
        verifyUtf8(a.append(L"x"), "x");
        KtString target(L"old");
        target.utf8Ptr();
        target = std::move(moved);
        verifyUtf8(target, "中文!");
        verifyUtf8(moved, QString());
        copy = target;
        target.clear();
        verifyUtf8(copy, "中文!");
    }
};

QTEST_APPLESS_MAIN(TestKtString)
#include "tst_ktstring.moc"
