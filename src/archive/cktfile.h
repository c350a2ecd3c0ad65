#pragma once

#include "ktcmdqtutils_export.h"

#include <KtString>
#include <QDateTime>
#include <QFile>

/**
 * @brief Status record filled by CKtFile::GetStatus().
 *
 * The caller owns it. GetStatus() never writes @c m_attribute.
 *
 * @see @ref archive
 */
struct KTCMDQTUTILS_EXPORT CKtFileStatus
{
    QDateTime m_ctime; ///< creation (birth) time
    QDateTime m_mtime; ///< last modification
    QDateTime m_atime; ///< last read access
    qint64 m_size = 0; ///< size in bytes
    quint8 m_attribute = 0; ///< left as the caller set it
    /// Absolute path as NUL-terminated UTF-8; long enough for any Linux path.
    char m_szFullName[4096] = {};
};

/**
 * @brief A QFile with the foundation-class file interface.
 *
 * Paths are wide strings; flag words select the open mode (access bits 0-1,
 * 0x4000 for text); seek origins are 0 (begin), 1 (current) and 2 (end).
 * CKtArchive reaches the file only through the virtual operations, so a
 * subclass may replace any of them, for example to lend a direct buffer
 * through GetBufferPtr().
 *
 * @see @ref archive
 */
class KTCMDQTUTILS_EXPORT CKtFile : public QFile
{
    Q_OBJECT

public:
    /// A closed file with no name.
    CKtFile();
    /// Opens @p name with @p flags through CommonInit(); a failure leaves the file closed.
    CKtFile(const wchar_t* name, unsigned int flags);
    ~CKtFile() override;

    /// The device position.
    virtual unsigned long long GetPosition() const;
    /// Last component of the file name, extension included.
    virtual KtString GetFileName() const;
    /// Last component cut before its first dot ("a.tar.gz" gives "a").
    virtual KtString GetFileTitle() const;
    /// The file name made absolute against the current directory.
    virtual KtString GetFilePath() const;
    /// Sets the file name only: nothing is opened or closed. A path that is not all code points leaves no
    /// name.
    virtual void SetFilePath(const wchar_t* path);
    /**
     * Sets the file name and opens it: access bits 0 read, 1 write, 2 and 3
     * read-write; bit 0x4000 adds text mode. Every other bit is ignored. A null
     * @p name returns false and keeps the current name. A name with characters
     * that are no Unicode code points (surrogates, values past U+10FFFF or
     * negative) opens nothing: the file is closed, left without a name, and
     * false is returned.
     */
    virtual bool Open(const wchar_t* name, unsigned int flags);
    /**
     * Moves the position by @p offset from the beginning (0), the current
     * position (1) or the end (2), only when the target lies inside the file
     * (from the end, up to the very end). Size and position are taken as 32-bit
     * values. Returns the position after the step; a refused move returns the
     * unchanged position.
     */
    virtual unsigned long long Seek(long long offset, unsigned int from);
    /// Seek(length, 0): moves the position; the file is neither grown nor cut.
    virtual void SetLength(unsigned long long length);
    /// The file size.
    virtual unsigned long long GetLength() const;
    /// Reads up to @p count bytes; returns the device's count (an error reads as 0xFFFFFFFF).
    virtual unsigned int Read(void* buffer, unsigned int count);
    /// Writes @p count bytes; the outcome is not reported.
    virtual void Write(const void* buffer, unsigned int count);
    /// Emits aboutToClose() and nothing else: the file stays open.
    virtual void Abort();
    /// Flushes the device buffer.
    virtual bool Flush();
    /// Closes the device.
    virtual void Close();
    /**
     * Direct-buffer protocol of CKtArchive: 3 asks for capabilities (1 direct
     * buffer, 2 blocking reads), 0 and 1 lend a read or write buffer through
     * @p start and @p max and return its length, 2 commits @p count written bytes.
     * This implementation offers nothing, returns 0 and touches nothing;
     * CKtArchive recognises it and does not call it.
     */
    virtual unsigned int GetBufferPtr(unsigned int command, unsigned int count, void** start, void** max);

    /// Opens @p name through the virtual Open(); does nothing for a null name.
    void CommonInit(const wchar_t* name, unsigned int flags);
    /// Seek(0, 0).
    void SeekToBegin();
    /// Moves to the end of the file; the device's result is returned.
    bool SeekToEnd();
    /// Fills @p status from the file name; returns true, even for a missing file.
    bool GetStatus(CKtFileStatus& status) const;

    /**
     * Fills @p status for @p path; returns true, even for a missing file. A path
     * that is not all code points fills nothing and returns false.
     */
    static bool GetStatus(const wchar_t* path, CKtFileStatus& status);
    /// Renames a file; the outcome is not reported. Paths that are not all code points touch nothing.
    static void Rename(const wchar_t* oldName, const wchar_t* newName);
    /// Removes a file; the outcome is not reported. A path that is not all code points touches nothing.
    static void Remove(const wchar_t* name);
};
