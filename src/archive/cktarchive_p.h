#pragma once

// Inline helpers of CKtArchiveState shared by the archive's two source files.
#include "cktarchive.h"

inline void CKtArchiveState::store(const void* value, std::size_t size, CKtArchive* archive)
{
    if (!m_lpBufCur || available() < std::ptrdiff_t(size)) {
        archive->Flush();
        if (!m_lpBufCur || m_lpBufEnd - m_lpBufCur < std::ptrdiff_t(size))
            return; // no room can be had: the value is dropped
    }
    std::memcpy(m_lpBufCur, value, size);
    m_lpBufCur += size;
}

inline bool CKtArchiveState::loadCharacter(wchar_t& ch, CKtArchive* archive)
{
    // 2 bytes consumed, 4 bytes compared.
    quint32 raw = 0;
    const bool data = load(&raw, 2, 4, archive);
    ch = wchar_t(raw);
    return data;
}
