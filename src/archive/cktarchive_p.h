#pragma once

#include "cktarchive.h"

#include <QtGlobal>

#include <cstddef>
#include <cstring>

/**
 * State of a CKtArchive. The classic fields come first and in their classic
 * order; the last three keep every access inside memory the archive may touch.
 */
class CKtArchiveState
{
public:
    int m_bDirectBuffer = 0;
    int m_bBlocking = 0;
    KtString m_strFileName;
    CKtFile* m_pFile = nullptr;
    unsigned int m_nMode = 0;
    int m_bUserBuf = 0;
    unsigned int m_nBufSize = 0;
    unsigned char* m_lpBufCur = nullptr;
    unsigned char* m_lpBufMax = nullptr;
    unsigned char* m_lpBufStart = nullptr;

    /// End of the memory behind m_lpBufStart: the own or caller buffer, or the lent one.
    unsigned char* m_lpBufEnd = nullptr;
    /// The file replaces CKtFile::GetBufferPtr, so the protocol may be used.
    bool m_bFileLends = false;
    /// The archive allocated m_lpBufStart and frees it.
    bool m_bOwnsBuffer = false;

    bool loading() const { return m_nMode & 1u; }

    /// Bytes between the read or write position and m_lpBufMax; negative after an over-read.
    std::ptrdiff_t available() const { return m_lpBufMax - m_lpBufCur; }

    /// The file's GetBufferPtr, or 0 when it is the base implementation.
    unsigned int bufferPtr(unsigned int command, unsigned int count, void** start, void** max) const;
    /// Asks the file for a buffer (command 0 or 1); returns its length, or -1 when refused.
    long long lend(unsigned int command);

    /// Stores @p size bytes of @p value, flushing first when they do not fit.
    void store(const void* value, std::size_t size, CKtArchive* archive)
    {
        if (Q_UNLIKELY(!m_lpBufCur || available() < std::ptrdiff_t(size))) {
            archive->Flush();
            if (!m_lpBufCur || m_lpBufEnd - m_lpBufCur < std::ptrdiff_t(size))
                return; // no room can be had: the value is dropped
        }
        std::memcpy(m_lpBufCur, value, size);
        m_lpBufCur += size;
    }

    /**
     * Consumes @p consumed bytes and copies @p width bytes from the read position
     * into @p value, filling the buffer first when fewer than @p consumed are left.
     * Past the end of the data the bytes are whatever the buffer holds; past the
     * end of the memory they read as 0 and the position stays at that end.
     * Without any buffer (an aborted archive) @p value is left as it is.
     * Returns false when the consumed bytes were not all data.
     */
    bool load(void* value, std::size_t consumed, std::size_t width, CKtArchive* archive)
    {
        if (Q_LIKELY(m_lpBufCur && available() >= std::ptrdiff_t(width))) {
            std::memcpy(value, m_lpBufCur, width);
            m_lpBufCur += consumed;
            return true;
        }
        return loadSlow(value, consumed, width, archive);
    }
    bool loadSlow(void* value, std::size_t consumed, std::size_t width, CKtArchive* archive);

    /// The next character for ReadString: 2 bytes consumed, 4 bytes compared.
    bool loadCharacter(wchar_t& ch, CKtArchive* archive)
    {
        quint32 raw = 0;
        const bool data = load(&raw, 2, 4, archive);
        ch = wchar_t(raw);
        return data;
    }

    /**
     * One line into @p buffer (see CKtArchive::ReadString). With @p stopAtEnd the
     * end of the data ends the line, and a line that would start past it gives null.
     */
    wchar_t* readLine(wchar_t* buffer, unsigned int max, bool stopAtEnd, CKtArchive* archive);
};
