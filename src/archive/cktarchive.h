#pragma once

#include "ktcmdqtutils_export.h"

#include <KtString>

#include <QtGlobal>

#include <cstddef>
#include <cstring>
#include <memory>

class CKtFile;
class CKtArchivePrivate;

/**
 * @brief The classic fields of a CKtArchive's state record, in their classic order.
 *
 * Data only. The record as a whole is CKtArchivePrivate (cktarchive_p.h),
 * which extends this with the archive's own bookkeeping and holds all of its
 * code; these fields are public so that the archive's inline operators can
 * move a value through the buffer without a call. Nothing but the archive
 * reads or writes them.
 */
struct CKtArchiveState
{
    CKtArchiveState() = default;
    CKtArchiveState(const CKtArchiveState&) = delete;
    CKtArchiveState& operator=(const CKtArchiveState&) = delete;

    int m_bDirectBuffer = 0; ///< the file lends its own buffers
    int m_bBlocking = 0; ///< 2 when the file's reads block, else 0
    KtString m_strFileName; ///< the file's path when the archive was made
    CKtFile* m_pFile = nullptr; ///< the file; null once closed or aborted
    unsigned int m_nMode = 0; ///< bit 0: loading; bit 1: the destructor does not flush
    int m_bUserBuf = 0; ///< the buffer is not the archive's to free
    unsigned int m_nBufSize = 0; ///< buffer size in bytes
    unsigned char* m_lpBufCur = nullptr; ///< next byte to read or write
    unsigned char* m_lpBufMax = nullptr; ///< end of the data (loading) or of the room (storing)
    unsigned char* m_lpBufStart = nullptr; ///< start of the buffer
};

/// Frees a state record as the CKtArchivePrivate it is.
struct KTCMDQTUTILS_EXPORT CKtArchiveStateDeleter
{
    /// Deletes @p state, which is always a CKtArchivePrivate.
    void operator()(CKtArchiveState* state) const;
};

/**
 * @brief A one-direction buffered byte stream over a CKtFile, with the
 * foundation-class archive encoding.
 *
 * An archive is made for loading (mode bit 0 set) or storing; mode bit 1 keeps
 * the destructor from flushing. Values are stored in native (little-endian)
 * byte order without padding. Strings are written with 4-byte characters and
 * read with 2-byte characters; that asymmetry is part of the format.
 *
 * The archive never owns its file: Close() flushes and detaches, the file stays
 * open. Every file access goes through CKtFile's virtual operations.
 *
 * @see @ref archive
 */
class KTCMDQTUTILS_EXPORT CKtArchive
{
public:
    /**
     * Builds an archive on @p file. Buffers below 128 bytes become 128 bytes
     * allocated by the archive; from 128 up a caller @p buffer is used as is
     * (and never freed), otherwise the archive allocates one, unless the file
     * lends its own buffers.
     */
    CKtArchive(CKtFile* file, unsigned int mode, int bufferSize = 4096, void* buffer = nullptr);
    /// Closes (unless mode bit 1 is set), then aborts.
    ~CKtArchive();

    CKtArchive(const CKtArchive&) = delete;
    CKtArchive& operator=(const CKtArchive&) = delete;

    /// 1 when made for loading, else 0.
    int IsLoading() const;
    /// 1 when made for storing, else 0.
    int IsStoring() const;

    /**
     * Loading: copies up to @p count bytes to @p buffer and returns how many
     * were delivered. Whole multiples of the buffer size go straight from the
     * file to @p buffer.
     */
    unsigned int Read(void* buffer, unsigned int count);
    /// Storing: appends @p count bytes; whole multiples of the buffer size go straight to the file.
    void Write(const void* buffer, unsigned int count);
    /// Storing: hands buffered bytes to the file. Loading: moves the file back over unread bytes.
    void Flush();
    /// Loading: keeps the unread bytes and reads at least @p bytesNeeded more behind them if it can.
    void FillBuffer(unsigned int bytesNeeded);
    /// Flush(), then detach from the file. The file is not closed.
    void Close();
    /// Detach without flushing; an archive-allocated buffer is freed.
    void Abort();

    /// @name Storing values
    /// In native byte order, no padding; ignored by an archive made for loading.
    /// @{

    CKtArchive& operator<<(unsigned char value) { return put(value); } ///< One byte.
    CKtArchive& operator<<(char value) { return put(static_cast<unsigned char>(value)); } ///< One byte.
    /// One byte, 0 or 1.
    CKtArchive& operator<<(bool value) { return put(static_cast<unsigned char>(value ? 1 : 0)); }
    CKtArchive& operator<<(unsigned short value) { return put(value); } ///< 2 bytes.
    /// The low 16 bits of the character.
    CKtArchive& operator<<(wchar_t value) { return put(static_cast<quint16>(value)); }
    CKtArchive& operator<<(int value) { return put(value); } ///< 4 bytes.
    CKtArchive& operator<<(unsigned int value) { return put(value); } ///< 4 bytes.
    /// The low 32 bits.
    CKtArchive& operator<<(long value) { return put(static_cast<quint32>(value)); }
    CKtArchive& operator<<(float value) { return put(value); } ///< 4 bytes, IEEE single.
    CKtArchive& operator<<(double value) { return put(value); } ///< 8 bytes, IEEE double.
    CKtArchive& operator<<(long long value) { return put(value); } ///< 8 bytes.
    CKtArchive& operator<<(unsigned long long value) { return put(value); } ///< 8 bytes.
    /// Length prefix (no marker), then 4 bytes per character.
    CKtArchive& operator<<(const KtString& value);
    /// @}

    /// @name Loading values
    /// Past the end of the data a value takes what the buffer still holds; with
    /// no buffer at all it is left unchanged. Ignored by an archive made for storing.
    /// @{

    CKtArchive& operator>>(unsigned char& value) { return get(value); } ///< One byte.
    CKtArchive& operator>>(char& value) { return get(value); } ///< One byte.
    /// Any non-zero byte reads as true.
    CKtArchive& operator>>(bool& value)
    {
        unsigned char byte = value ? 1 : 0;
        get(byte);
        value = byte != 0;
        return *this;
    }
    CKtArchive& operator>>(unsigned short& value) { return get(value); } ///< 2 bytes.
    /**
     * Consumes 2 bytes but fills all 4 bytes of @p value from the read
     * position: the high half comes from the next, still unread, 2 bytes.
     */
    CKtArchive& operator>>(wchar_t& value) { return get(value, 2); }
    CKtArchive& operator>>(int& value) { return get(value); } ///< 4 bytes.
    CKtArchive& operator>>(unsigned int& value) { return get(value); } ///< 4 bytes.
    /**
     * Consumes 4 bytes but fills all 8 bytes of @p value from the read
     * position: the high half comes from the next, still unread, 4 bytes.
     */
    CKtArchive& operator>>(long& value) { return get(value, 4); }
    CKtArchive& operator>>(float& value) { return get(value); } ///< 4 bytes, IEEE single.
    CKtArchive& operator>>(double& value) { return get(value); } ///< 8 bytes, IEEE double.
    CKtArchive& operator>>(long long& value) { return get(value); } ///< 8 bytes.
    CKtArchive& operator>>(unsigned long long& value) { return get(value); } ///< 8 bytes.
    /**
     * Length prefix (a Unicode marker is skipped), then 2 bytes per character,
     * each widened on its own. A short read leaves @p value unchanged.
     */
    CKtArchive& operator>>(KtString& value);
    /// @}

    /// Writes the characters of @p text as 4-byte units: no prefix, terminator or line end.
    void WriteString(const wchar_t* text);
    /**
     * Reads one line of 2-byte characters into @p buffer, which holds |max| + 1
     * characters. @p max is taken as signed: negative keeps the line end, positive
     * drops it and returns null for an empty line. A carriage return swallows the
     * next character. The end of the data ends the line. Returns @p buffer, or
     * null (also when nothing at all was left to read).
     */
    wchar_t* ReadString(wchar_t* buffer, unsigned int max);
    /**
     * Reads a whole line of any length into @p text, without its line feed.
     * Returns false when no line was left to read.
     */
    bool ReadString(KtString& text);

private:
    // The typed operators' fast path is inline; whatever needs the file, or
    // meets the buffer's end, goes through the out-of-line slow path.
    template <typename T>
    CKtArchive& put(T value)
    {
        CKtArchiveState& s = *d_ptr;
        if (Q_LIKELY(!(s.m_nMode & 1u) && s.m_lpBufMax - s.m_lpBufCur >= std::ptrdiff_t(sizeof(T)))) {
            std::memcpy(s.m_lpBufCur, &value, sizeof(T));
            s.m_lpBufCur += sizeof(T);
            return *this;
        }
        return putSlow(&value, sizeof(T));
    }
    template <typename T>
    CKtArchive& get(T& value, std::size_t consumed = sizeof(T))
    {
        CKtArchiveState& s = *d_ptr;
        if (Q_LIKELY((s.m_nMode & 1u) && s.m_lpBufMax - s.m_lpBufCur >= std::ptrdiff_t(sizeof(T)))) {
            std::memcpy(&value, s.m_lpBufCur, sizeof(T));
            s.m_lpBufCur += consumed;
            return *this;
        }
        return getSlow(&value, consumed, sizeof(T));
    }
    CKtArchive& putSlow(const void* value, std::size_t size);
    CKtArchive& getSlow(void* value, std::size_t consumed, std::size_t width);

    CKtArchivePrivate* d_func();
    const CKtArchivePrivate* d_func() const;

    // The one member: the state record, a CKtArchivePrivate.
    std::unique_ptr<CKtArchiveState, CKtArchiveStateDeleter> d_ptr;
};

/**
 * Writes a string length prefix: with @p unicode the marker FF FE FF first, then
 * one byte below 255, FF + 16 bits below 65534, FF FFFF + 32 bits below
 * 0xFFFFFFFF, else FF FFFF FFFFFFFF + 64 bits.
 */
KTCMDQTUTILS_EXPORT CKtArchive& AfxWriteStringLength_Q(CKtArchive& ar, unsigned long length, int unicode);
/// Reads a string length prefix; @p charSize becomes 2 when a Unicode marker was met, else 1.
KTCMDQTUTILS_EXPORT unsigned long long AfxReadStringLength_Q(CKtArchive& ar, int& charSize);
