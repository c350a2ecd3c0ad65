#include "ktstring.h"

#include <QString>

#include <algorithm>
#include <cstdarg>
#include <cstring>
#include <cwchar>

namespace {

// Largest string format() will try to render, in characters.
constexpr std::size_t kFormatLimit = std::size_t(1) << 24;

std::size_t boundedLength(const wchar_t* str)
{
    return str ? std::wcslen(str) : 0;
}

// Qt's UTF-8 and UTF-32 readers take a leading U+FEFF for a byte-order mark and drop it (only
// the first one); in a string it is a character like any other, so it is put back.
QString keepLeadingBom(QString text, bool hadBom)
{
    if (hadBom)
        text.prepend(QChar(0xFEFF));
    return text;
}

std::wstring decode(const char* str, int length, KtString::Encoding encoding)
{
    if (!str)
        return {};
    QString text;
    switch (encoding) {
    case KtString::Latin1:
        text = QString::fromLatin1(str, length);
        break;
    case KtString::Local8Bit:
        text = QString::fromLocal8Bit(str, length);
        break;
    case KtString::UTF8:
    default:
        text = keepLeadingBom(QString::fromUtf8(str, length),
            (length < 0 || length >= 3) && std::strncmp(str, "\xEF\xBB\xBF", 3) == 0);
        break;
    }
    return text.toStdWString();
}

} // namespace

KtString::KtString() = default;

KtString::KtString(const wchar_t* str)
    : m_data(str ? str : L"")
{ }

KtString::KtString(const wchar_t* str, int count)
{
    assign(str, count);
}

KtString::KtString(const char* str, Encoding encoding)
    : m_data(decode(str, -1, encoding))
{ }

KtString::KtString(const char* str, int length, Encoding encoding)
    : m_data(decode(str, length, encoding))
{ }

KtString::KtString(const KtString& other)
    : m_data(other.m_data)
    , m_utf8(other.m_utf8)
    , m_utf8Valid(other.m_utf8Valid)
{ }

KtString::KtString(KtString&& other) noexcept
    : m_data(std::move(other.m_data))
    , m_utf8(std::move(other.m_utf8))
    , m_utf8Valid(other.m_utf8Valid)
{
    other.m_data.clear();
    other.m_utf8Valid = false;
}

KtString& KtString::operator=(const KtString& other)
{
    if (this != &other) {
        m_data = other.m_data;
        m_utf8 = other.m_utf8;
        m_utf8Valid = other.m_utf8Valid;
    }
    return *this;
}

KtString& KtString::operator=(KtString&& other) noexcept
{
    if (this != &other) {
        m_data = std::move(other.m_data);
        m_utf8 = std::move(other.m_utf8);
        m_utf8Valid = other.m_utf8Valid;
        other.m_data.clear();
        other.m_utf8Valid = false;
    }
    return *this;
}

KtString& KtString::operator=(const wchar_t* str)
{
    return assign(str);
}

KtString::~KtString() = default;

int KtString::length() const
{
    return int(m_data.size());
}

bool KtString::isEmpty() const
{
    return m_data.empty();
}

const wchar_t* KtString::c_str() const
{
    return m_data.c_str();
}

wchar_t* KtString::data()
{
    changed();
    return m_data.data();
}

wchar_t KtString::at(int index) const
{
    if (index < 0 || std::size_t(index) >= m_data.size())
        return 0;
    return m_data[std::size_t(index)];
}

const char* KtString::utf8Ptr() const
{
    if (!m_utf8Valid) {
        // Qt's UTF-32 reader trusts its input: a unit above U+10FFFF becomes a
        // made-up pair of UTF-16 units (some decode as real characters) and two
        // separate surrogate units join into one character. Replace those first.
        const auto invalid
            = [](wchar_t ch) { return ch < 0 || ch > 0x10FFFF || (ch >= 0xD800 && ch <= 0xDFFF); };
        QString text;
        if (std::any_of(m_data.begin(), m_data.end(), invalid)) {
            std::wstring units = m_data;
            std::replace_if(units.begin(), units.end(), invalid, wchar_t(0xFFFD));
            text = QString::fromWCharArray(units.data(), int(units.size()));
        } else {
            text = QString::fromWCharArray(m_data.data(), int(m_data.size()));
        }
        m_utf8 = keepLeadingBom(text, !m_data.empty() && m_data[0] == 0xFEFF).toUtf8();
        m_utf8Valid = true;
    }
    return m_utf8.constData();
}

int KtString::utf8Length() const
{
    utf8Ptr();
    return m_utf8.size();
}

KtString& KtString::assign(const wchar_t* str)
{
    return assign(str, -1);
}

KtString& KtString::assign(const wchar_t* str, int count)
{
    if (!str)
        m_data.clear();
    else if (count < 0)
        m_data.assign(str);
    else
        m_data.assign(str, std::size_t(count));
    changed();
    return *this;
}

KtString& KtString::assign(const KtString& other)
{
    return *this = other;
}

KtString& KtString::append(const wchar_t* str)
{
    if (str) {
        m_data.append(str, boundedLength(str));
        changed();
    }
    return *this;
}

KtString& KtString::append(const KtString& other)
{
    m_data.append(other.m_data);
    changed();
    return *this;
}

KtString& KtString::append(wchar_t ch)
{
    m_data.push_back(ch);
    changed();
    return *this;
}

void KtString::clear()
{
    m_data.clear();
    changed();
}

int KtString::format(const wchar_t* fmt, ...)
{
    m_data.clear();
    changed();
    if (!fmt)
        return -1;

    // vswprintf reports a short buffer and a rendering error alike with -1, so
    // grow geometrically up to a bound instead of trusting a size query.
    std::wstring buffer(256, L'\0');
    while (true) {
        va_list args;
        va_start(args, fmt);
        const int written = std::vswprintf(buffer.data(), buffer.size(), fmt, args);
        va_end(args);
        if (written >= 0 && std::size_t(written) < buffer.size()) {
            buffer.resize(std::size_t(written));
            m_data = std::move(buffer);
            return written;
        }
        if (buffer.size() >= kFormatLimit)
            return -1;
        buffer.assign(buffer.size() * 4, L'\0');
    }
}

wchar_t* KtString::getBuffer(int minLength)
{
    const std::size_t wanted = minLength > 0 ? std::size_t(minLength) : 0;
    if (m_data.size() < wanted)
        m_data.resize(wanted, L'\0');
    changed();
    return m_data.data();
}

void KtString::releaseBuffer(int newLength)
{
    const std::size_t capacity = m_data.size();
    std::size_t keep;
    if (newLength < 0) {
        // Up to the first terminator, never past the buffer that was handed out.
        keep = 0;
        while (keep < capacity && m_data[keep] != L'\0')
            ++keep;
    } else {
        keep = std::min(std::size_t(newLength), capacity);
    }
    m_data.resize(keep);
    changed();
}

int KtString::compare(const KtString& other) const
{
    return m_data.compare(other.m_data);
}

int KtString::compare(const wchar_t* other) const
{
    return m_data.compare(other ? other : L"");
}
