// KtString fed with arbitrary bytes, read once as UTF-8 and once as raw wchar_t units.
#include "fuzzcheck.h"
#include "ktstring.h"

#include <QByteArray>
#include <QString>
#include <QTextCodec>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <cwchar>
#include <string>
#include <vector>

namespace {

bool isScalarValue(wchar_t ch)
{
    return ch >= 0 && ch <= 0x10FFFF && (ch < 0xD800 || ch > 0xDFFF);
}

// The UTF-8 view is terminated, as long as utf8Length() says, and well-formed.
void checkUtf8View(const KtString& s)
{
    const char* p = s.utf8Ptr();
    FUZZ_CHECK(p);
    const int n = s.utf8Length();
    FUZZ_CHECK(n >= 0 && p[n] == '\0' && std::strlen(p) <= std::size_t(n));
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    QTextCodec::codecForMib(106)->toUnicode(p, n, &state); // 106: UTF-8
    FUZZ_CHECK(state.invalidChars == 0 && state.remainingChars == 0);
}

int sign(int v)
{
    return (v > 0) - (v < 0);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size > (1u << 20))
        return 0;
    const char* bytes = reinterpret_cast<const char*>(data);

    // Decoded text holds only Unicode scalar values, and its UTF-8 view reads back unchanged.
    const KtString narrow(bytes, int(size), KtString::UTF8);
    for (int i = 0; i < narrow.length(); ++i)
        FUZZ_CHECK(isScalarValue(narrow.at(i)));
    checkUtf8View(narrow);
    FUZZ_CHECK(KtString(narrow.utf8Ptr(), narrow.utf8Length(), KtString::UTF8) == narrow);
    const std::string terminated(bytes, size);
    const KtString upToNul(terminated.c_str(), KtString::UTF8);
    FUZZ_CHECK(upToNul.length() <= narrow.length());
    checkUtf8View(upToNul);

    // Raw units are kept as they are; the view turns each bad unit into one U+FFFD.
    std::vector<wchar_t> units(size / sizeof(wchar_t));
    if (!units.empty())
        std::memcpy(units.data(), data, units.size() * sizeof(wchar_t));
    const int count = int(units.size());
    const KtString wide(units.data(), count);
    FUZZ_CHECK(wide.length() == count && wide.at(count) == 0 && wide.at(-1) == 0);
    FUZZ_CHECK(units.empty() || std::memcmp(wide.c_str(), units.data(), units.size() * sizeof(wchar_t)) == 0);
    checkUtf8View(wide);
    const KtString back(wide.utf8Ptr(), wide.utf8Length(), KtString::UTF8);
    FUZZ_CHECK(back.length() == count);
    for (int i = 0; i < count; ++i)
        FUZZ_CHECK(back.at(i) == (isScalarValue(units[i]) ? units[i] : wchar_t(0xFFFD)));

    // Comparison is a consistent order.
    FUZZ_CHECK(sign(wide.compare(narrow)) == -sign(narrow.compare(wide)));
    FUZZ_CHECK((wide < narrow) == (narrow > wide) && (wide == narrow) == (narrow == wide));
    FUZZ_CHECK(KtString(wide).compare(wide) == 0);

    // Appending keeps both parts, and the view follows.
    KtString joined(wide);
    joined.utf8Ptr();
    joined.append(narrow).append(L'\0').append(upToNul.c_str());
    FUZZ_CHECK(joined.length() == count + narrow.length() + 1 + upToNul.length());
    for (int i = 0; i < narrow.length(); ++i)
        FUZZ_CHECK(joined.at(count + i) == narrow.at(i));
    checkUtf8View(joined);

    // A buffer filled with the raw units, released up to its first terminator.
    KtString buffered(narrow);
    wchar_t* buf = buffered.getBuffer(count);
    FUZZ_CHECK(buf);
    if (count)
        std::memcpy(buf, units.data(), units.size() * sizeof(wchar_t));
    std::vector<wchar_t> expected(units);
    for (int i = count; i < narrow.length(); ++i)
        expected.push_back(narrow.at(i));
    buffered.releaseBuffer(-1);
    int firstNul = 0;
    while (firstNul < int(expected.size()) && expected[std::size_t(firstNul)] != 0)
        ++firstNul;
    FUZZ_CHECK(buffered.length() == firstNul);
    FUZZ_CHECK(std::wmemcmp(buffered.c_str(), expected.data(), std::size_t(firstNul)) == 0);
    checkUtf8View(buffered);
    buffered.getBuffer(count / 2);
    buffered.releaseBuffer(count);
    FUZZ_CHECK(buffered.length() <= std::max(firstNul, count / 2));

    // Wide text passed through format() comes back up to its first terminator.
    KtString formatted;
    const int written = formatted.format(L"%ls|%d", wide.c_str(), count);
    FUZZ_CHECK(written == -1 || written == formatted.length());
    const std::size_t head = std::wcslen(wide.c_str());
    FUZZ_CHECK(written == -1 || std::wmemcmp(formatted.c_str(), wide.c_str(), head) == 0);
    return 0;
}
