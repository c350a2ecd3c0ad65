#include <KtString>

#include <QtTest>

#include <cwchar>

using Units = QVector<int>; // wchar_t units: signed, 4 bytes
static const QString fffd(QChar::ReplacementCharacter), feff(QChar(0xFEFF));

// A run of U+FFFD counts as one: how many stand for one bad sequence is Qt's business.
static QVector<uint> units(const KtString& s)
{
    QVector<uint> v;
    for (int i = 0; i < s.length(); ++i)
        if (s.at(i) != 0xFFFD || v.isEmpty() || v.last() != 0xFFFD)
            v.append(uint(s.at(i)));
    return v;
}

// Byte for byte Qt's own encoding of the expected text, so well-formed too.
static void verifyUtf8(const KtString& s, const QString& expected)
{
    const char* p = s.utf8Ptr();
    QVERIFY(p && p[s.utf8Length()] == 0);
    QCOMPARE(QByteArray(p, s.utf8Length()), expected.toUtf8());
}

class TestKtString : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wide_data()
    {
        QTest::addColumn<Units>("input"); // none: a null pointer
        QTest::addColumn<int>("count"); // -2: the one-argument constructor
        QTest::addColumn<QString>("expected"); // the UTF-8 view
        // Lone surrogates: see the library's conventions test.
        const Units nuls{'a', 0, 'b', 0};
        QTest::newRow("null") << Units() << -2 << "";
        QTest::newRow("stops at NUL") << nuls << -2 << "a";
        QTest::newRow("count keeps NULs") << nuls << 3 << QString::fromLatin1("a\0b", 3);
        QTest::newRow("negative count") << nuls << -1 << "a";
        QTest::newRow("leading U+FEFF, range") << Units{0xFEFF, 0xFEFF, 0x1F600, 0x10FFFF, 0x110000,
            0x7FFFFFFF, -1} << 7 << feff + feff + QString::fromUcs4(U"😀\U0010FFFF") + fffd + fffd + fffd;
    }
    void wide()
    {
        QFETCH(Units, input);
        QFETCH(int, count);
        QFETCH(QString, expected);
        const std::wstring w(input.cbegin(), input.cend());
        const wchar_t* str = input.isEmpty() ? nullptr : w.c_str();
        const KtString s = count == -2 ? KtString(str) : KtString(str, count);
        verifyUtf8(s, expected);
        const int n = !str ? 0 : count >= 0 ? count : int(std::wcslen(str));
        QCOMPARE(units(s), QVector<uint>(w.cbegin(), w.cbegin() + n)); // only the view replaces
        QVERIFY(s.c_str()[s.length()] == 0 && s.at(s.length()) == 0 && s.at(-1) == 0);
    }

    void narrow_data()
    {
        QTest::addColumn<QByteArray>("utf8");
        QTest::addColumn<QString>("expected");
        QTest::newRow("leading U+FEFF, code points")
            << QByteArray("\xef\xbb\xbf\xef\xbb\xbf\xe4\xb8\xad\xf0\x9f\x98\x80") << feff + feff + "中😀";
        QTest::newRow("invalid, truncated") << QByteArray("a\xff!\xe4\xb8") << "a" + fffd + "!" + fffd;
        QTest::newRow("overlong, surrogate") << QByteArray("\xc0\xafx\xed\xa0\x80") << fffd + "x" + fffd;
        QTest::newRow("embedded NUL") << QByteArray("a\0b", 3) << QString::fromLatin1("a\0b", 3);
    }
    void narrow()
    {
        QFETCH(QByteArray, utf8);
        QFETCH(QString, expected);
        const KtString s = utf8.contains('\0') ? KtString(utf8.constData(), utf8.size(), KtString::UTF8)
                                               : KtString(utf8.constData(), KtString::UTF8);
        QCOMPARE(units(s), expected.toUcs4()); // by code point: no surrogate units
        QVERIFY(KtString(static_cast<const char*>(nullptr), KtString::UTF8).isEmpty());
    }

    void utf8ViewFollowsChanges()
    {
        KtString s(L"abc");
        QCOMPARE(s.utf8Ptr(), "abc");
        KtString copy = s;
        verifyUtf8(copy.append(L"中"), "abc中");
        verifyUtf8(s.append(L'\x1F600').append(s), "abc😀abc😀"); // appending itself
        s.data()[0] = L'x';
        KtString moved(std::move(s));
        verifyUtf8(s.append(L"y"), "y"); // moved-from: empty and usable
        verifyUtf8(moved.assign(moved), "xbc😀abc😀");
        moved.clear();
        verifyUtf8(moved, QString());
    }

    void format()
    {
        KtString s(L"old");
        const std::wstring longText(3000, L'w');
        QCOMPARE(s.format(L"<%ls>%d", longText.c_str(), -7), 3004);
        QVERIFY(s == (L"<" + longText + L">-7").c_str());
        QCOMPARE(s.format(nullptr), -1);
        QVERIFY(s.isEmpty());
        // A narrow argument that is no multibyte text cannot be rendered: no endless growing.
        QCOMPARE(s.assign(L"old").format(L"%s", "\xff\xfe"), -1);
        QVERIFY(s.isEmpty());
    }

    void buffer_data()
    {
        QTest::addColumn<int>("minLength"); // of a buffer for "abc"
        QTest::addColumn<QString>("written"); // at the buffer's start, '|' for NUL
        QTest::addColumn<int>("release");
        QTest::addColumn<QString>("expected");
        QTest::newRow("grow, to terminator") << 10 << "hello|" << -1 << "hello";
        QTest::newRow("full, no NUL") << 4 << "wxyz" << -1 << "wxyz";
        QTest::newRow("NUL within text") << 2 << "X|" << -1 << "X";
        QTest::newRow("explicit, negative minimum") << -5 << "" << 2 << "ab";
        QTest::newRow("clamped") << 5 << "abcde" << 100 << "abcde";
    }
    void buffer()
    {
        QFETCH(int, minLength);
        QFETCH(QString, written);
        QFETCH(int, release);
        QFETCH(QString, expected);
        KtString s(L"abc");
        s.utf8Ptr(); // a view that must not outlive the buffer session
        const std::wstring w = written.replace('|', QChar()).toStdWString();
        std::wmemcpy(s.getBuffer(minLength), w.data(), w.size());
        s.releaseBuffer(release);
        QCOMPARE(int(s.c_str()[s.length()]), 0);
        verifyUtf8(s, expected);
    }
};

QTEST_APPLESS_MAIN(TestKtString)
#include "tst_ktstring.moc"
