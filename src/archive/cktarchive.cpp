// Construction, buffering and the block transfers of CKtArchive. The typed
// encodings are in cktarchiveencoding.cpp.
#include "cktarchive.h"
#include "cktarchive_p.h"
#include "cktfile.h"
#include "cktfile_p.h"

#include <algorithm>

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

unsigned int CKtArchiveState::bufferPtr(
    unsigned int command, unsigned int count, void** start, void** max) const
{
    return m_bFileLends ? m_pFile->GetBufferPtr(command, count, start, max) : 0;
}

long long CKtArchiveState::lend(unsigned int command)
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

CKtArchive::CKtArchive(CKtFile* file, unsigned int mode, int bufferSize, void* buffer)
    : d(new CKtArchiveState)
{
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
    if (d->m_pFile && !(d->m_nMode & 2u))
        Close();
    Abort();
}

int CKtArchive::IsLoading() const
{
    return d->loading() ? 1 : 0;
}

int CKtArchive::IsStoring() const
{
    return d->loading() ? 0 : 1;
}

unsigned int CKtArchive::Read(void* buffer, unsigned int count)
{
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
    Flush();
    d->m_pFile = nullptr;
    d->forgetLentBuffer();
}

void CKtArchive::Abort()
{
    d->m_pFile = nullptr;
    d->forgetLentBuffer();
    if (d->m_bOwnsBuffer) {
        delete[] d->m_lpBufStart;
        d->m_bOwnsBuffer = false;
        // Nothing may touch the freed memory again.
        d->m_lpBufStart = d->m_lpBufCur = d->m_lpBufMax = d->m_lpBufEnd = nullptr;
    }
}

void CKtArchiveState::forgetLentBuffer()
{
    // A lent buffer belongs to the file, which may go away once detached.
    if (m_bDirectBuffer)
        m_lpBufStart = m_lpBufCur = m_lpBufMax = m_lpBufEnd = nullptr;
}

// Consumes @p consumed bytes and copies @p width bytes from the read position
// into @p value, filling the buffer first when fewer than @p consumed are left.
// Past the end of the data the bytes are whatever the buffer holds; past the end
// of the memory they read as 0 and the position stays at that end. Without any
// buffer (an aborted archive) @p value is left as it is. Returns false when the
// consumed bytes were not all data.
unsigned long long CKtArchiveState::supply() const
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

bool CKtArchiveState::load(void* value, std::size_t consumed, std::size_t width, CKtArchive* archive)
{
    if (m_lpBufCur && available() >= std::ptrdiff_t(width)) {
        std::memcpy(value, m_lpBufCur, width);
        m_lpBufCur += consumed;
        return true;
    }
    if (available() < std::ptrdiff_t(consumed))
        archive->FillBuffer(unsigned(std::ptrdiff_t(consumed) - available()));
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

CKtArchive& CKtArchive::putSlow(const void* value, std::size_t size)
{
    if (!d->loading())
        d->store(value, size, this);
    return *this;
}

CKtArchive& CKtArchive::getSlow(void* value, std::size_t consumed, std::size_t width)
{
    if (d->loading())
        d->load(value, consumed, width, this);
    return *this;
}
