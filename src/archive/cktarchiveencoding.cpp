// The byte encoding of CKtArchive: typed values, length prefixes and strings.
#include "cktarchive.h"
#include "cktarchive_p.h"

#include <algorithm>
#include <cstring>
#include <cwchar>
#include <limits>
#include <new>
#include <vector>

namespace {

// Strings longer than the stack array are read piece by piece, each piece no
// larger than what the buffer and the file can still give (at least the first
// piece, growing with what arrived where the file cannot tell, at most the
// last piece): a length prefix that claims more than the file holds costs at
// most one first piece.
constexpr unsigned long long FirstPiece = 1u << 12;
constexpr unsigned long long LastPiece = 1u << 20;

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
    Q_D(CKtArchive);
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
    Q_D(CKtArchive);
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
                const unsigned long long supply = std::max({FirstPiece, d->supply(), got});
                // Whole characters only (bytes - got is even, so rounding up stays inside it).
                unsigned long long piece = std::min({bytes - got, LastPiece, supply});
                piece += piece & 1u;
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

wchar_t* CKtArchive::ReadString(wchar_t* buffer, unsigned int max)
{
    Q_D(CKtArchive);
    // The sign of max chooses whether the line end is kept.
    const bool keepLineEnd = static_cast<int>(max) < 0;
    return d->readLine(buffer, keepLineEnd ? 0u - max : max, keepLineEnd).line ? buffer : nullptr;
}

bool CKtArchive::ReadString(KtString& text)
{
    Q_D(CKtArchive);
    // Parts of up to 128 characters, line end kept, each appended at the end of
    // the text. The text's buffer grows geometrically and the length is kept
    // here, so a long line costs time in proportion to its length. The text's
    // own storage is written over from the start and cut to the line at the
    // end: a loop reading line after line into one string neither allocates
    // nor clears memory for a line no longer than one before it.
    constexpr unsigned int Part = 128;
    int length = 0;
    int capacity = 0;
    wchar_t* chars = nullptr;
    bool gotLine = false;
    for (;;) {
        if (capacity - length < int(Part) + 1) {
            capacity = std::max(length + int(Part) + 1, capacity * 2);
            chars = text.getBuffer(capacity);
        }
        const CKtArchivePrivate::LinePart part = d->readLine(chars + length, Part, true);
        if (!part.line)
            break;
        gotLine = true;
        // A NUL read from the data ends the text there, as a terminator would.
        const unsigned int partLength = part.firstNul >= 0 ? unsigned(part.firstNul) : part.stored;
        length += int(partLength);
        if (partLength < Part || chars[length - 1] == L'\n')
            break;
    }
    if (length > 0 && chars[length - 1] == L'\n')
        --length;
    text.releaseBuffer(length);
    return gotLine;
}
