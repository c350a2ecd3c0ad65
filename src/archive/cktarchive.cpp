// Construction, buffering and the block transfers of CKtArchive. The typed
// encodings are in cktarchiveencoding.cpp.
#include "cktarchive.h"
#include "cktarchive_p.h"
#include "cktfile.h"
#include "cktfile_p.h"

#include <algorithm>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace {

constexpr unsigned int MinimumBufferSize = 128;

enum BufferCommand : unsigned int {
    LendReadBuffer = 0,
    LendWriteBuffer = 1,
    CommitWritten = 2,
    QueryCapabilities = 3,
};

/// The file's Read, with a count above the request (a device error) taken as nothing read.
unsigned int readFile(CKtFile* file, unsigned char* into, unsigned int count)
{
    const unsigned int got = file->Read(into, count);
    return got <= count ? got : 0;
}

} // namespace

unsigned int CKtArchivePrivate::bufferPtr(
    unsigned int command, unsigned int count, void** start, void** max) const
{
    return m_bFileLends ? m_pFile->GetBufferPtr(command, count, start, max) : 0;
}

long long CKtArchivePrivate::lend(unsigned int command)
{
    void* start = nullptr;
    void* max = nullptr;
    const unsigned int length = bufferPtr(command, m_nBufSize, &start, &max);
    const auto* first = static_cast<unsigned char*>(start);
    const auto* last = static_cast<unsigned char*>(max);
    // A buffer whose length does not match its pointers, or a write buffer of
    // another size than the archive's, is refused: the archive then keeps the
    // buffer it had, so that its position never points into another one.
    if (last < first || length != std::size_t(last - first) || (length && !first))
        return -1;
    if (command == LendWriteBuffer && length != m_nBufSize)
        return -1;
    m_lpBufStart = static_cast<unsigned char*>(start);
    m_lpBufMax = m_lpBufEnd = static_cast<unsigned char*>(max);
    return length;
}

void CKtArchiveStateDeleter::operator()(CKtArchiveState* state) const
{
    delete static_cast<CKtArchivePrivate*>(state);
}

CKtArchive::CKtArchive(CKtFile* file, unsigned int mode, int bufferSize, void* buffer)
    : d_ptr(new CKtArchivePrivate(this))
{
    Q_D(CKtArchive);
    if (file) {
        d->m_strFileName = file->GetFilePath();
        d->m_bFileLends = ktFileOverridesGetBufferPtr(file);
    }
    d->m_lpBufStart = static_cast<unsigned char*>(buffer);
    d->m_pFile = file;
    d->m_nMode = mode;
    d->m_bUserBuf = 1;
    d->m_bDirectBuffer = 0;
    if (file)
        d->m_bBlocking = int(d->bufferPtr(QueryCapabilities, 0, nullptr, nullptr) & 2u);

    unsigned int size;
    if (bufferSize >= int(MinimumBufferSize) && buffer) {
        d->m_nBufSize = unsigned(bufferSize);
        size = d->m_nBufSize;
    } else {
        d->m_nBufSize = std::max(unsigned(std::max(bufferSize, 0)), MinimumBufferSize);
        d->m_lpBufStart = nullptr;
        if (file)
            d->m_bDirectBuffer = int(d->bufferPtr(QueryCapabilities, 0, nullptr, nullptr) & 1u);
        if (d->m_bDirectBuffer) {
            size = 0;
        } else {
            // Zeroed, so that reading past the data gives the same bytes every time.
            d->m_lpBufStart = new unsigned char[d->m_nBufSize]();
            d->m_bUserBuf = 0;
            d->m_bOwnsBuffer = true;
            size = d->m_nBufSize;
        }
    }
    d->m_lpBufMax = d->m_lpBufEnd = d->m_lpBufStart ? d->m_lpBufStart + size : nullptr;
    d->m_lpBufCur = d->loading() ? d->m_lpBufMax : d->m_lpBufStart;
}

CKtArchive::~CKtArchive()
{
    Q_D(CKtArchive);
    if (d->m_pFile && !(d->m_nMode & 2u))
        Close();
    Abort();
}

int CKtArchive::IsLoading() const
{
    Q_D(const CKtArchive);
    return d->loading() ? 1 : 0;
}

int CKtArchive::IsStoring() const
{
    Q_D(const CKtArchive);
    return d->loading() ? 0 : 1;
}

unsigned int CKtArchive::Read(void* buffer, unsigned int count)
{
    Q_D(CKtArchive);
    if (!d->m_pFile || !buffer || count == 0 || !d->loading())
        return 0;
    auto* out = static_cast<unsigned char*>(buffer);

    // What the buffer holds.
    const unsigned int first = unsigned(std::clamp<std::ptrdiff_t>(d->available(), 0, std::ptrdiff_t(count)));
    if (first)
        std::memcpy(out, d->m_lpBufCur, first);
    d->m_lpBufCur += first;
    if (first == count)
        return first;
    if (d->m_lpBufCur != d->m_lpBufMax)
        return 0;

    // Whole buffers straight from the file into the caller's memory.
    const unsigned int rest = count - first;
    const unsigned int whole = rest - rest % d->m_nBufSize;
    unsigned int got = 0;
    while (got < whole) {
        const unsigned int n = readFile(d->m_pFile, out + first + got, whole - got);
        if (n == 0)
            break;
        got += n;
    }
    const unsigned int left = rest - got;
    if (got < whole || left == 0)
        return first + got;
    if (left >= d->m_nBufSize)
        return 0;

    // The remainder through a fresh buffer.
    if (d->m_bDirectBuffer) {
        if (d->lend(LendReadBuffer) < 0)
            return 0;
        d->m_lpBufCur = d->m_lpBufStart;
    } else if (d->m_lpBufStart) {
        const unsigned int asked = d->m_bBlocking ? left : d->m_nBufSize;
        unsigned int total = 0;
        unsigned int last;
        do {
            last = readFile(d->m_pFile, d->m_lpBufStart + total, asked - total);
            total += last;
        } while (last > 0 && total < asked && total < left);
        d->m_lpBufCur = d->m_lpBufStart;
        d->m_lpBufMax = d->m_lpBufStart + total;
    } else {
        return first + got;
    }
    const unsigned int second = unsigned(std::clamp<std::ptrdiff_t>(d->available(), 0, std::ptrdiff_t(left)));
    if (second)
        std::memcpy(out + first + got, d->m_lpBufCur, second);
    d->m_lpBufCur += second;
    return count - (left - second);
}

void CKtArchive::Write(const void* buffer, unsigned int count)
{
    Q_D(CKtArchive);
    if (!d->m_pFile || count == 0 || !buffer || d->loading())
        return;
    const auto* in = static_cast<const unsigned char*>(buffer);

    const unsigned int first
        = d->m_lpBufCur ? unsigned(std::clamp<std::ptrdiff_t>(d->available(), 0, std::ptrdiff_t(count))) : 0;
    if (first)
        std::memcpy(d->m_lpBufCur, in, first);
    if (d->m_lpBufCur)
        d->m_lpBufCur += first;
    if (first == count)
        return;

    Flush();
    const unsigned int rest = count - first;
    const unsigned int tail = rest % d->m_nBufSize;
    const unsigned int whole = rest - tail;
    d->m_pFile->Write(in + first, whole);

    if (d->m_bDirectBuffer) {
        if (d->lend(LendWriteBuffer) != d->m_nBufSize)
            return;
        d->m_lpBufCur = d->m_lpBufStart;
        if (tail >= d->m_nBufSize)
            return;
    } else if (tail >= d->m_nBufSize || !d->m_lpBufStart || d->m_lpBufCur != d->m_lpBufStart) {
        return;
    }
    if (tail)
        std::memcpy(d->m_lpBufCur, in + first + whole, tail);
    d->m_lpBufCur += tail;
}

void CKtArchive::Flush()
{
    Q_D(CKtArchive);
    if (!d->m_pFile)
        return;
    if (d->loading()) {
        // Give the unread bytes back, so that the file stands where the reader does.
        if (d->m_lpBufCur != d->m_lpBufMax)
            d->m_pFile->Seek(d->m_lpBufCur - d->m_lpBufMax, 1);
        d->m_lpBufCur = d->m_lpBufMax;
        return;
    }
    if (d->m_bDirectBuffer) {
        if (d->m_lpBufCur != d->m_lpBufStart)
            d->bufferPtr(CommitWritten, unsigned(d->m_lpBufCur - d->m_lpBufStart), nullptr, nullptr);
        if (d->lend(LendWriteBuffer) == d->m_nBufSize)
            d->m_lpBufCur = d->m_lpBufStart;
        return;
    }
    if (d->m_lpBufCur != d->m_lpBufStart) {
        d->m_pFile->Write(d->m_lpBufStart, unsigned(d->m_lpBufCur - d->m_lpBufStart));
        d->m_lpBufCur = d->m_lpBufStart;
    }
}

void CKtArchive::FillBuffer(unsigned int bytesNeeded)
{
    Q_D(CKtArchive);
    if (!d->m_pFile || !d->loading())
        return;
    // After an over-read the position stands behind the data: nothing is held then.
    const std::ptrdiff_t held = std::max<std::ptrdiff_t>(d->available(), 0);

    if (d->m_bDirectBuffer) {
        if (d->available() != 0)
            d->m_pFile->Seek(-d->available(), 1);
        if (!d->m_bFileLends) {
            if (d->m_lpBufMax == d->m_lpBufStart)
                d->m_lpBufCur = d->m_lpBufStart;
            return;
        }
        if (d->lend(LendReadBuffer) >= 0)
            d->m_lpBufCur = d->m_lpBufStart;
        return;
    }

    if (!d->m_lpBufStart || d->m_lpBufCur <= d->m_lpBufStart)
        return; // nothing consumed since the last fill
    if (held > 0)
        std::memmove(d->m_lpBufStart, d->m_lpBufCur, std::size_t(held));
    d->m_lpBufCur = d->m_lpBufStart;
    d->m_lpBufMax = d->m_lpBufStart + held;

    const unsigned int room = d->m_nBufSize - unsigned(held);
    unsigned int request = (d->m_bBlocking && room >= bytesNeeded) ? bytesNeeded : room;
    const unsigned long long wanted = 0ull + bytesNeeded + unsigned(held);
    unsigned long long total = unsigned(held);
    while (request > 0) {
        const unsigned int n = readFile(d->m_pFile, d->m_lpBufMax, request);
        if (n == 0)
            break;
        d->m_lpBufMax += n;
        total += n;
        request -= n;
        if (total >= wanted)
            break;
    }
}

void CKtArchive::Close()
{
    Q_D(CKtArchive);
    Flush();
    d->m_pFile = nullptr;
    d->forgetLentBuffer();
}

void CKtArchive::Abort()
{
    Q_D(CKtArchive);
    d->m_pFile = nullptr;
    d->forgetLentBuffer();
    if (d->m_bOwnsBuffer) {
        delete[] d->m_lpBufStart;
        d->m_bOwnsBuffer = false;
        // Nothing may touch the freed memory again.
        d->m_lpBufStart = d->m_lpBufCur = d->m_lpBufMax = d->m_lpBufEnd = nullptr;
    }
}

void CKtArchivePrivate::forgetLentBuffer()
{
    // A lent buffer belongs to the file, which may go away once detached.
    if (m_bDirectBuffer)
        m_lpBufStart = m_lpBufCur = m_lpBufMax = m_lpBufEnd = nullptr;
}

unsigned long long CKtArchivePrivate::supply() const
{
    unsigned long long bytes = available() > 0 ? static_cast<unsigned long long>(available()) : 0;
    if (m_pFile) {
        const unsigned long long length = m_pFile->GetLength();
        const unsigned long long position = m_pFile->GetPosition();
        if (length > position)
            bytes += length - position;
    }
    return bytes;
}

// Consumes @p consumed bytes and copies @p width bytes from the read position
// into @p value, filling the buffer first when fewer than @p consumed are left.
// Past the end of the data the bytes are whatever the buffer holds; past the end
// of the memory they read as 0 and the position stays at that end. Without any
// buffer (an aborted archive) @p value is left as it is. Returns false when the
// consumed bytes were not all data.
bool CKtArchivePrivate::load(void* value, std::size_t consumed, std::size_t width)
{
    if (m_lpBufCur && available() >= std::ptrdiff_t(width)) {
        std::memcpy(value, m_lpBufCur, width);
        m_lpBufCur += consumed;
        return true;
    }
    if (available() < std::ptrdiff_t(consumed))
        q_ptr->FillBuffer(unsigned(std::ptrdiff_t(consumed) - available()));
    if (!m_lpBufCur)
        return false; // no buffer at all: the target keeps its value
    const bool data = available() >= std::ptrdiff_t(consumed);
    // Whatever the buffer holds, but nothing behind the memory it lives in.
    const std::size_t inMemory = std::size_t(m_lpBufEnd - m_lpBufCur);
    const std::size_t copied = std::min(width, inMemory);
    std::memcpy(value, m_lpBufCur, copied);
    std::memset(static_cast<unsigned char*>(value) + copied, 0, width - copied);
    m_lpBufCur += std::min(consumed, inMemory);
    return data;
}

void CKtArchivePrivate::store(const void* value, std::size_t size)
{
    if (!m_lpBufCur || available() < std::ptrdiff_t(size)) {
        q_ptr->Flush();
        if (!m_lpBufCur || m_lpBufEnd - m_lpBufCur < std::ptrdiff_t(size))
            return; // no room can be had: the value is dropped
    }
    std::memcpy(m_lpBufCur, value, size);
    m_lpBufCur += size;
}

CKtArchive& CKtArchive::putSlow(const void* value, std::size_t size)
{
    Q_D(CKtArchive);
    if (!d->loading())
        d->store(value, size);
    return *this;
}

CKtArchive& CKtArchive::getSlow(void* value, std::size_t consumed, std::size_t width)
{
    Q_D(CKtArchive);
    if (d->loading())
        d->load(value, consumed, width);
    return *this;
}

inline bool CKtArchivePrivate::loadCharacter(wchar_t& ch)
{
    // 2 bytes consumed, 4 bytes compared.
    quint32 raw = 0;
    const bool data = load(&raw, 2, 4);
    ch = wchar_t(raw);
    return data;
}

CKtArchivePrivate::LinePart CKtArchivePrivate::readLine(wchar_t* buffer, unsigned int stop, bool keepLineEnd)
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
        if (!loadCharacter(ch)) {
            // The end of the data ends the line: past it there would only be the
            // stale bytes of the buffer, and never a line feed to stop at.
            if (stored == 0)
                return part;
            break;
        }
        if (ch == 10 || ch == 13) {
            // A carriage return takes the next character with it, taken to be the line feed.
            if (ch == 13 && !loadCharacter(ch))
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
