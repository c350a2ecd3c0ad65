// The byte encoding of CKtArchive: typed values, length prefixes and strings.
#include "cktarchive.h"
#include "cktarchive_p.h"

#include <algorithm>
#include <cstring>
#include <cwchar>
#include <limits>
#include <new>
#include <vector>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

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

CKtArchiveState::LinePart CKtArchiveState::readLine(
    wchar_t* buffer, unsigned int stop, bool keepLineEnd, CKtArchive* archive)
{
    LinePart part;
    if (!buffer || stop == 0 || !loading())
        return part;
    unsigned int& stored = part.stored;
    while (stored < stop) {
        // Characters whose 4 compared bytes are all in the buffer are read in
        // place, in one tight loop: the same 2 bytes consumed and 4 compared as
        // loadCharacter(), without a call per character.
        const std::ptrdiff_t inBuffer = m_lpBufCur ? m_lpBufMax - m_lpBufCur : 0;
        if (inBuffer >= 4) {
            const unsigned char* cur = m_lpBufCur;
            const std::size_t n = std::min<std::size_t>(stop - stored, std::size_t(inBuffer - 2) / 2);
            std::size_t k = 0;
#if defined(__SSE2__)
            // Eight characters at a time while none of them can end the line or
            // be a NUL: character k is the 32 bits of units k and k + 1, and only
            // values up to 13 (unit k + 1 zero, unit k at most 13) need a look.
            // Units k + 1 .. k + 8 must be in the buffer: n - 1 >= k + 8.
            const __m128i zero = _mm_setzero_si128();
            const __m128i thirteen = _mm_set1_epi16(13);
            for (; k + 9 <= n; k += 8) {
                const __m128i lo = _mm_loadu_si128(reinterpret_cast<const __m128i*>(cur + 2 * k));
                const __m128i hi = _mm_loadu_si128(reinterpret_cast<const __m128i*>(cur + 2 * k + 2));
                const __m128i small = _mm_cmpeq_epi16(_mm_subs_epu16(lo, thirteen), zero);
                if (_mm_movemask_epi8(_mm_and_si128(small, _mm_cmpeq_epi16(hi, zero))))
                    break;
                _mm_storeu_si128(reinterpret_cast<__m128i*>(buffer + stored), _mm_unpacklo_epi16(lo, hi));
                _mm_storeu_si128(reinterpret_cast<__m128i*>(buffer + stored + 4), _mm_unpackhi_epi16(lo, hi));
                stored += 8;
            }
#endif
            for (; k < n; ++k) {
                quint32 raw;
                std::memcpy(&raw, cur + 2 * k, 4);
                if (raw <= 13) {
                    if (raw == 10 || raw == 13)
                        break;
                    if (raw == 0 && part.firstNul < 0)
                        part.firstNul = int(stored);
                }
                buffer[stored++] = wchar_t(raw);
            }
            m_lpBufCur = const_cast<unsigned char*>(cur) + 2 * k;
            if (k == n)
                continue;
        }
        wchar_t ch = 0;
        if (!loadCharacter(ch, archive)) {
            // The end of the data ends the line: past it there would only be the
            // stale bytes of the buffer, and never a line feed to stop at.
            if (stored == 0)
                return part;
            break;
        }
        if (ch == 10 || ch == 13) {
            // A carriage return takes the next character with it, taken to be the line feed.
            if (ch == 13 && !loadCharacter(ch, archive))
                break;
            if (keepLineEnd)
                buffer[stored++] = ch;
            else if (stored == 0)
                return part;
            break;
        }
        if (ch == 0 && part.firstNul < 0)
            part.firstNul = int(stored);
        buffer[stored++] = ch;
    }
    buffer[stored] = 0;
    part.line = true;
    return part;
}

wchar_t* CKtArchive::ReadString(wchar_t* buffer, unsigned int max)
{
    // The sign of max chooses whether the line end is kept.
    const bool keepLineEnd = static_cast<int>(max) < 0;
    return d->readLine(buffer, keepLineEnd ? 0u - max : max, keepLineEnd, this).line ? buffer : nullptr;
}

bool CKtArchive::ReadString(KtString& text)
{
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
        const CKtArchiveState::LinePart part = d->readLine(chars + length, Part, true, this);
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
