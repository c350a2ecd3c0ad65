#pragma once

// Reads a fuzz input as a stream of small values; past the end every value is 0.

#include <QApplication>
#include <QFontMetrics>

#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstring>

class FuzzInput
{
public:
    FuzzInput(const uint8_t* data, std::size_t size)
        : m_data(data)
        , m_size(size)
    { }

    bool atEnd() const { return m_pos >= m_size; }
    uint8_t byte() { return m_pos < m_size ? m_data[m_pos++] : 0; }
    /// A 32-bit value, the full range included (negative, INT_MAX, INT_MIN).
    int32_t int32()
    {
        uint32_t v = 0;
        for (int i = 0; i < 4; ++i)
            v |= uint32_t(byte()) << (8 * i);
        int32_t result;
        std::memcpy(&result, &v, sizeof result);
        return result;
    }
    /// Mostly small numbers, sometimes an extreme one: the first byte chooses.
    int32_t index()
    {
        static const int32_t extremes[]
            = {INT32_MAX, INT32_MAX - 1, INT32_MIN, INT32_MIN + 1, 1 << 30, 100000000, 1 << 22, -1, -2, 4096};
        const uint8_t b = byte();
        if (b < 0xF0)
            return int32_t(b) - 8;
        return extremes[b % (sizeof extremes / sizeof extremes[0])];
    }

private:
    const uint8_t* m_data;
    std::size_t m_size;
    std::size_t m_pos = 0;
};

/// The application object widgets need, made once per process on the offscreen platform.
inline void ensureFuzzApplication()
{
    static int argc = 1;
    static char name[] = "fuzz";
    static char* argv[] = {name, nullptr};
    static QApplication* app = [] {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        auto* application = new QApplication(argc, argv);
        // Fonts are set up on first use; done here, that happens once, outside any input.
        QFontMetrics(QApplication::font()).horizontalAdvance(QStringLiteral("warm up"));
        return application;
    }();
    (void)app;
}
