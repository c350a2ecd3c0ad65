// The byte encoding of CKtArchive: typed values, length prefixes and strings.
#include "cktarchive.h"
#include "cktarchive_p.h"

#include <algorithm>
#include <cwchar>
#include <limits>
#include <new>
#include <vector>

namespace {

// Strings longer than this are read piece by piece, so that a length prefix
// claiming more than the file holds never allocates for it.
constexpr unsigned long long StringPiece = 1u << 20;

} // namespace

CKtArchive& AfxWriteStringLength_Q(CKtArchive& ar, unsigned long length, int unicode)
{
    if (unicode)
        ar << static_cast<unsigned char>(0xFF) << static_cast<unsigned short>(0xFFFE);
    if (length < 0xFF) {
        ar << static_cast<unsigned char>(length);
    } else if (length < 0xFFFE) {
        ar << static_cast<unsigned char>(0xFF) << static_cast<unsigned short>(length);
    } else {
        ar << static_cast<unsigned char>(0xFF) << static_cast<unsigned short>(0xFFFF);
        if (length < 0xFFFFFFFFul)
            ar << static_cast<unsigned int>(length);
        else
            ar << static_cast<unsigned int>(0xFFFFFFFFu) << static_cast<unsigned long long>(length);
    }
    return ar;
}

namespace {

/// The prefix after its first byte was 255 and a 16-bit value @p word was read.
unsigned long long readLongLength(CKtArchive& ar, unsigned short word)
{
    if (word < 0xFFFF)
        return word;
    unsigned int dword = 0;
    ar >> dword;
    if (dword < 0xFFFFFFFFu)
        return dword;
    unsigned long long qword = 0;
    ar >> qword;
    return qword;
}

} // namespace

unsigned long long AfxReadStringLength_Q(CKtArchive& ar, int& charSize)
{
    charSize = 1;
    unsigned char byte = 0;
    ar >> byte;
    if (byte < 0xFF)
        return byte;
    unsigned short word = 0;
    ar >> word;
    if (word == 0xFFFE) {
        charSize = 2;
        ar >> byte;
        if (byte < 0xFF)
            return byte;
        ar >> word;
    }
    return readLongLength(ar, word);
}

CKtArchive& CKtArchive::operator<<(const KtString& value)
{
    if (d->loading())
        return *this;
    const unsigned int n = unsigned(value.length());
    if (n < 0xFF) {
        *this << static_cast<unsigned char>(n);
    } else if (n < 0xFFFE) {
        *this << static_cast<unsigned char>(0xFF) << static_cast<unsigned short>(n);
    } else {
        *this << static_cast<unsigned char>(0xFF) << static_cast<unsigned short>(0xFFFF) << n;
    }
    Write(value.c_str(), n * unsigned(sizeof(wchar_t)));
    return *this;
}

CKtArchive& CKtArchive::operator>>(KtString& value)
{
    if (!d->loading())
        return *this;
    int charSize = 0;
    // The prefix is read as by AfxReadStringLength_Q; only the count matters.
    const unsigned int length = static_cast<unsigned int>(AfxReadStringLength_Q(*this, charSize));
    // Beyond INT_MAX characters no string can hold them and their byte count no
    // longer fits the 32-bit transfer: that is a short read as well.
    if (length > unsigned(std::numeric_limits<int>::max()))
        return *this;
    const unsigned long long bytes = 2ull * length;

    try {
        // Short strings go through the stack; long ones grow with what actually
        // arrives, a piece at a time.
        quint16 small[256];
        std::vector<quint16> large;
        quint16* units = small;
        if (length > std::size(small)) {
            unsigned long long got = 0;
            while (got < bytes) {
                const unsigned long long piece = std::min(bytes - got, StringPiece);
                large.resize(std::size_t((got + piece) / 2));
                const unsigned int n
                    = Read(reinterpret_cast<unsigned char*>(large.data()) + got, unsigned(piece));
                got += n;
                if (n < piece)
                    return *this; // short read: the string keeps its old value
            }
            units = large.data();
        } else if (Read(small, unsigned(bytes)) < bytes) {
            return *this;
        }

        KtString result;
        if (length) {
            wchar_t* chars = result.getBuffer(int(length));
            std::transform(units, units + length, chars, [](quint16 unit) { return wchar_t(unit); });
            result.releaseBuffer(int(length));
        }
        value = std::move(result);
    } catch (const std::bad_alloc&) {
        // A string the memory cannot hold is not read: the target keeps its value.
    }
    return *this;
}

void CKtArchive::WriteString(const wchar_t* text)
{
    if (text)
        Write(text, unsigned(std::wcslen(text) * sizeof(wchar_t)));
}

wchar_t* CKtArchiveState::readLine(wchar_t* buffer, unsigned int max, bool stopAtEnd, CKtArchive* archive)
{
    const bool keepLineEnd = static_cast<int>(max) < 0;
    const unsigned int stop = keepLineEnd ? 0u - max : max;
    if (!buffer || stop == 0 || !loading())
        return nullptr;
    unsigned int stored = 0;
    while (stored < stop) {
        wchar_t ch = 0;
        if (!loadCharacter(ch, archive) && stopAtEnd) {
            if (stored == 0)
                return nullptr;
            break;
        }
        if (ch == 10 || ch == 13) {
            // A carriage return takes the next character with it, taken to be the line feed.
            if (ch == 13 && !loadCharacter(ch, archive) && stopAtEnd)
                break;
            if (keepLineEnd)
                buffer[stored++] = ch;
            else if (stored == 0)
                return nullptr;
            break;
        }
        buffer[stored++] = ch;
    }
    buffer[stored] = 0;
    return buffer;
}

wchar_t* CKtArchive::ReadString(wchar_t* buffer, unsigned int max)
{
    return d->readLine(buffer, max, false, this);
}

bool CKtArchive::ReadString(KtString& text)
{
    constexpr int Part = 128;
    text = KtString();
    int length = 0;
    wchar_t* chars = text.getBuffer(Part);
    bool gotLine = false;
    for (;;) {
        // The end of the data ends the line: past it there would only be the
        // stale bytes of the buffer, and never a line feed to stop at.
        const wchar_t* part = d->readLine(chars + length, 0u - unsigned(Part), true, this);
        text.releaseBuffer(-1);
        if (!part)
            break;
        gotLine = true;
        const int partLength = text.length() - length;
        if (partLength < Part || text.at(text.length() - 1) == L'\n')
            break;
        length = text.length();
        chars = text.getBuffer(length + Part);
    }
    const int total = text.length();
    if (total > 0 && text.at(total - 1) == L'\n') {
        text.getBuffer(total - 1);
        text.releaseBuffer(total - 1);
    }
    return gotLine;
}
