#include "cktfile.h"
#include "cktfile_p.h"

#include "ktstringconversion.h"

#include <QFileInfo>

#include <atomic>
#include <cstdint>
#include <cstring>
#include <utility>

namespace {

// Under the Itanium C++ ABI a pointer to a virtual member function holds
// 1 + the byte offset of its slot in the vtable, and the object's first word
// points at its vtable. The slot of GetBufferPtr in CKtFile's own vtable is
// recorded by the constructors (the object has CKtFile's vtable while their
// bodies run); a file whose slot differs has replaced the function.
//
// C++ itself offers no way to ask this. A member function pointer compares
// equal for the base and every override (it names the slot, not the
// function), typeid tells the class but not whether that class replaced this
// one function, and asking the function means calling the base implementation,
// which the archive must never do. So the ABI is read directly, and the
// static_asserts below stop a build where that reading would not hold.
static_assert(sizeof(void*) == sizeof(std::uintptr_t), "flat pointers expected");

using BufferPtrFunction = unsigned int (CKtFile::*)(unsigned int, unsigned int, void**, void**);

std::atomic<const void*> s_baseBufferSlot{nullptr};

const void* bufferSlotOf(const CKtFile* file)
{
    const BufferPtrFunction function = &CKtFile::GetBufferPtr;
    struct
    {
        std::uintptr_t pointer;
        std::ptrdiff_t adjustment;
    } representation;
    static_assert(sizeof(representation) == sizeof(function), "Itanium member function pointers expected");
    std::memcpy(&representation, &function, sizeof representation);
    const void* const* vtable;
    std::memcpy(&vtable, static_cast<const void*>(file), sizeof vtable);
    return vtable[(representation.pointer - 1) / sizeof(void*)];
}

void rememberBaseSlot(const CKtFile* file)
{
    if (!s_baseBufferSlot.load(std::memory_order_relaxed))
        s_baseBufferSlot.store(bufferSlotOf(file), std::memory_order_relaxed);
}

QIODevice::OpenMode openModeOf(unsigned int flags)
{
    QIODevice::OpenMode mode;
    switch (flags & 3u) {
    case 0:
        mode = QIODevice::ReadOnly;
        break;
    case 1:
        mode = QIODevice::WriteOnly;
        break;
    default:
        mode = QIODevice::ReadWrite;
        break;
    }
    if (flags & 0x4000u)
        mode |= QIODevice::Text;
    return mode;
}

// A wide path whose characters are not all code points would turn into
// U+FFFD on the way to Qt and could name another file: it names none.
bool isUsablePath(const wchar_t* path)
{
    return ktutIsWellFormedWide(path);
}

void fillStatus(const QFileInfo& info, CKtFileStatus& status)
{
    status.m_ctime = info.birthTime();
    status.m_mtime = info.lastModified();
    status.m_atime = info.lastRead();
    status.m_size = info.size();
    const QByteArray fullName = info.absoluteFilePath().toUtf8();
    // Cut at a character boundary should a path ever outgrow the array.
    int length = fullName.size();
    if (length >= int(sizeof status.m_szFullName)) {
        length = int(sizeof status.m_szFullName) - 1;
        while (length > 0 && (uchar(fullName.at(length)) & 0xC0) == 0x80)
            --length;
    }
    std::memcpy(status.m_szFullName, fullName.constData(), std::size_t(length));
    status.m_szFullName[length] = '\0';
}

} // namespace

bool ktFileOverridesGetBufferPtr(const CKtFile* file)
{
    return bufferSlotOf(file) != s_baseBufferSlot.load(std::memory_order_relaxed);
}

CKtFile::CKtFile()
{
    rememberBaseSlot(this);
}

CKtFile::CKtFile(const wchar_t* name, unsigned int flags)
{
    rememberBaseSlot(this);
    CommonInit(name, flags);
}

CKtFile::~CKtFile() = default;

void CKtFile::CommonInit(const wchar_t* name, unsigned int flags)
{
    if (name)
        Open(name, flags);
}

unsigned long long CKtFile::GetPosition() const
{
    return static_cast<unsigned long long>(pos());
}

KtString CKtFile::GetFileName() const
{
    return ktutQStringToKtString(QFileInfo(fileName()).fileName());
}

KtString CKtFile::GetFileTitle() const
{
    return ktutQStringToKtString(QFileInfo(fileName()).baseName());
}

KtString CKtFile::GetFilePath() const
{
    return ktutQStringToKtString(QFileInfo(fileName()).absoluteFilePath());
}

void CKtFile::SetFilePath(const wchar_t* path)
{
    setFileName(!path || isUsablePath(path) ? ktutWideToQString(path) : QString());
}

bool CKtFile::Open(const wchar_t* name, unsigned int flags)
{
    if (!name)
        return false;
    if (!isUsablePath(name)) {
        // Refused before Qt sees it; the name is dropped so that nothing
        // refers to the file that the mangled name would have named.
        if (isOpen())
            close();
        setFileName(QString());
        setErrorString(QStringLiteral("The file name holds characters that are not Unicode code points"));
        return false;
    }
    setFileName(ktutWideToQString(name));
    return open(openModeOf(flags));
}

unsigned long long CKtFile::Seek(long long offset, unsigned int from)
{
    if (from > 2)
        return GetPosition();
    // Size and position are deliberately cut to 32 bits.
    const long long size = static_cast<qint32>(this->size());
    const long long position = static_cast<qint32>(pos());
    long long target;
    if (from == 2) {
        if (offset <= 0 && !__builtin_add_overflow(size, offset, &target) && target >= 0)
            seek(target);
    } else if (from == 0 && offset >= 0) {
        if (offset < size)
            seek(offset);
    } else if (!__builtin_add_overflow(position, offset, &target) && target >= 0 && target < size) {
        seek(target);
    }
    return GetPosition();
}

void CKtFile::SeekToBegin()
{
    Seek(0, 0);
}

bool CKtFile::SeekToEnd()
{
    return seek(size());
}

void CKtFile::SetLength(unsigned long long length)
{
    Seek(static_cast<long long>(length), 0);
}

unsigned long long CKtFile::GetLength() const
{
    return static_cast<unsigned long long>(size());
}

unsigned int CKtFile::Read(void* buffer, unsigned int count)
{
    // The device's answer for a closed or write-only file, without its warning.
    if (!isReadable())
        return static_cast<unsigned int>(-1);
    if (!buffer || count == 0)
        return 0;
    return static_cast<unsigned int>(read(static_cast<char*>(buffer), count));
}

void CKtFile::Write(const void* buffer, unsigned int count)
{
    if (buffer && count && isWritable())
        write(static_cast<const char*>(buffer), count);
}

void CKtFile::Abort()
{
    Q_EMIT aboutToClose();
}

bool CKtFile::Flush()
{
    return flush();
}

void CKtFile::Close()
{
    close();
}

unsigned int CKtFile::GetBufferPtr(unsigned int, unsigned int, void**, void**)
{
    return 0;
}

bool CKtFile::GetStatus(CKtFileStatus& status) const
{
    fillStatus(QFileInfo(fileName()), status);
    return true;
}

bool CKtFile::GetStatus(const wchar_t* path, CKtFileStatus& status)
{
    if (path && !isUsablePath(path))
        return false;
    fillStatus(QFileInfo(ktutWideToQString(path)), status);
    return true;
}

void CKtFile::Rename(const wchar_t* oldName, const wchar_t* newName)
{
    if (isUsablePath(oldName) && isUsablePath(newName))
        QFile::rename(ktutWideToQString(oldName), ktutWideToQString(newName));
}

void CKtFile::Remove(const wchar_t* name)
{
    if (isUsablePath(name))
        QFile::remove(ktutWideToQString(name));
}
