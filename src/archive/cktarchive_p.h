#pragma once

// The state record of CKtArchive. Shared by the archive's two source files;
// not installed.
#include "cktarchive.h"

#include <cstddef>

/**
 * The whole state record of an archive: the classic fields (the base), then
 * what keeps every access inside memory the archive may touch, and all the
 * work on the buffer that more than one operation needs.
 */
class CKtArchivePrivate : public CKtArchiveState
{
public:
    explicit CKtArchivePrivate(CKtArchive* archive)
        : q_ptr(archive)
    { }

    /// End of the memory behind m_lpBufStart: the own or caller buffer, or the lent one.
    unsigned char* m_lpBufEnd = nullptr;
    /// The file replaces CKtFile::GetBufferPtr, so the protocol may be used.
    bool m_bFileLends = false;
    /// The archive allocated m_lpBufStart and frees it.
    bool m_bOwnsBuffer = false;
    /// The archive this record belongs to.
    CKtArchive* const q_ptr;

    bool loading() const { return m_nMode & 1u; }
    /// Bytes between the read or write position and m_lpBufMax; negative after an over-read.
    std::ptrdiff_t available() const { return m_lpBufMax - m_lpBufCur; }

    unsigned int bufferPtr(unsigned int command, unsigned int count, void** start, void** max) const;
    long long lend(unsigned int command);
    void forgetLentBuffer();
    void store(const void* value, std::size_t size);
    bool load(void* value, std::size_t consumed, std::size_t width);
    bool loadCharacter(wchar_t& ch);
    struct LinePart
    {
        bool line = false; ///< false: no line (end of the data, or an empty line dropped)
        unsigned int stored = 0; ///< characters stored, line end included when kept
        int firstNul = -1; ///< where a NUL character was stored first, or -1
    };
    /// One line of up to @p stop characters into @p buffer, terminated.
    LinePart readLine(wchar_t* buffer, unsigned int stop, bool keepLineEnd);
    /// Bytes the buffer and the file can still give; what the file holds counts only when it tells.
    unsigned long long supply() const;
};

inline CKtArchivePrivate* CKtArchive::d_func()
{
    return static_cast<CKtArchivePrivate*>(d_ptr.get());
}

inline const CKtArchivePrivate* CKtArchive::d_func() const
{
    return static_cast<const CKtArchivePrivate*>(d_ptr.get());
}
