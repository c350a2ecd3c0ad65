#pragma once

#include <CKtFile>

#include <QByteArray>

#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

/**
 * A file kept in memory that lends its own memory to CKtArchive through
 * GetBufferPtr: read buffers are views of the content, write buffers are room
 * behind the committed end. Read, Write and Seek work on the same bytes, so an
 * archive may mix direct transfers with lent buffers.
 */
class MemoryLendingFile : public CKtFile
{
public:
    explicit MemoryLendingFile(const QByteArray& content = {}, unsigned int capabilities = 1)
        : m_bytes(content)
        , m_size(content.size())
        , m_capabilities(capabilities)
    { }

    /// The committed bytes.
    QByteArray content() const { return m_bytes.left(int(m_size)); }
    /// How often each GetBufferPtr command (0 to 3) was given.
    std::array<int, 4> commands{};
    /// Added to the length of every lent buffer, so that it no longer matches its pointers.
    int lengthSkew = 0;
    /// The counts asked of Read and of Write, in order.
    std::vector<unsigned int> reads;
    std::vector<unsigned int> writes;

    unsigned int GetBufferPtr(unsigned int command, unsigned int count, void** start, void** max) override
    {
        if (command < commands.size())
            ++commands[command];
        switch (command) {
        case 0: {
            const qint64 length = std::min<qint64>(count, m_size - m_position);
            *start = m_bytes.data() + m_position;
            *max = m_bytes.data() + m_position + length;
            m_position += length;
            return unsigned(length + lengthSkew);
        }
        case 1:
            reserve(m_position + count);
            *start = m_bytes.data() + m_position;
            *max = m_bytes.data() + m_position + count;
            return unsigned(count + lengthSkew);
        case 2:
            m_position += count;
            m_size = std::max(m_size, m_position);
            return 0;
        case 3:
            return m_capabilities;
        default:
            return 0;
        }
    }

    unsigned int Read(void* buffer, unsigned int count) override
    {
        reads.push_back(count);
        const qint64 length = std::max<qint64>(0, std::min<qint64>(count, m_size - m_position));
        if (length)
            std::memcpy(buffer, m_bytes.constData() + m_position, std::size_t(length));
        m_position += length;
        return unsigned(length);
    }

    void Write(const void* buffer, unsigned int count) override
    {
        writes.push_back(count);
        if (!count)
            return;
        reserve(m_position + count);
        std::memcpy(m_bytes.data() + m_position, buffer, count);
        m_position += count;
        m_size = std::max(m_size, m_position);
    }

    unsigned long long Seek(long long offset, unsigned int from) override
    {
        const qint64 base = from == 0 ? 0 : from == 1 ? m_position : m_size;
        if (from <= 2 && base + offset >= 0 && base + offset <= m_size)
            m_position = base + offset;
        return static_cast<unsigned long long>(m_position);
    }

    unsigned long long GetPosition() const override { return static_cast<unsigned long long>(m_position); }
    unsigned long long GetLength() const override { return static_cast<unsigned long long>(m_size); }

private:
    void reserve(qint64 size)
    {
        if (m_bytes.size() < size)
            m_bytes.resize(int(std::max<qint64>(size, 2 * m_bytes.size())));
    }

    QByteArray m_bytes;
    qint64 m_position = 0;
    qint64 m_size = 0;
    unsigned int m_capabilities;
};
