#pragma once

#include "kthost_export.h"

#include <QByteArray>

#include <cstddef>
#include <string>

/**
 * @brief The host's wide string: 4-byte @c wchar_t characters with a UTF-8 view.
 *
 * Characters are kept as UTF-32 code units. Conversions to and from UTF-8 go
 * through Qt; malformed input (invalid UTF-8, lone surrogates, values above
 * U+10FFFF) is replaced, never trusted.
 */
class KTHOST_EXPORT KtString
{
public:
    /// Encodings of narrow input; value 0 is UTF-8.
    enum Encoding {
        UTF8 = 0,
        Latin1 = 1,
        Local8Bit = 2,
    };

    KtString();
    /// Copies up to the terminator; a null pointer gives an empty string.
    KtString(const wchar_t* str);
    /// Copies @p count characters (embedded NULs kept); a negative count reads up to the terminator.
    KtString(const wchar_t* str, int count);
    /// Decodes NUL-terminated narrow text in @p encoding; a null pointer gives an empty string.
    KtString(const char* str, Encoding encoding);
    /// Decodes @p length bytes of narrow text (negative: up to the terminator).
    KtString(const char* str, int length, Encoding encoding);
    KtString(const KtString& other);
    KtString(KtString&& other) noexcept;
    KtString& operator=(const KtString& other);
    KtString& operator=(KtString&& other) noexcept;
    KtString& operator=(const wchar_t* str);
    ~KtString();

    /// Number of characters, not counting the terminator.
    int length() const;
    bool isEmpty() const;

    /// The NUL-terminated characters; valid until the string changes.
    const wchar_t* c_str() const;
    const wchar_t* constData() const { return c_str(); }
    /// Writable characters (length() of them plus the terminator).
    wchar_t* data();
    /// The character at @p index; 0 when @p index is out of range.
    wchar_t at(int index) const;
    wchar_t operator[](int index) const { return at(index); }

    /// NUL-terminated UTF-8 form; valid until the string changes.
    const char* utf8Ptr() const;
    /// Length in bytes of utf8Ptr().
    int utf8Length() const;

    KtString& assign(const wchar_t* str);
    KtString& assign(const wchar_t* str, int count);
    KtString& assign(const KtString& other);
    KtString& append(const wchar_t* str);
    KtString& append(const KtString& other);
    KtString& append(wchar_t ch);
    void clear();

    /**
     * printf-style formatting with the C library's wide rules (@c %ls for
     * wide strings, @c %s for narrow ones). Replaces the content and returns
     * the new length, or -1 (leaving the string empty) when the format cannot
     * be rendered.
     */
    int format(const wchar_t* fmt, ...);

    /**
     * Writable buffer of at least @p minLength characters plus a terminator.
     * The current text is kept. Call releaseBuffer() when done.
     */
    wchar_t* getBuffer(int minLength);
    /**
     * Ends a getBuffer() session: @p newLength characters are kept, or with -1
     * the characters up to the first terminator in the buffer.
     */
    void releaseBuffer(int newLength = -1);

    /// Code-unit comparison: negative, 0 or positive.
    int compare(const KtString& other) const;
    int compare(const wchar_t* other) const;

    friend bool operator==(const KtString& a, const KtString& b) { return a.compare(b) == 0; }
    friend bool operator!=(const KtString& a, const KtString& b) { return a.compare(b) != 0; }
    friend bool operator<(const KtString& a, const KtString& b) { return a.compare(b) < 0; }
    friend bool operator>(const KtString& a, const KtString& b) { return a.compare(b) > 0; }
    friend bool operator<=(const KtString& a, const KtString& b) { return a.compare(b) <= 0; }
    friend bool operator>=(const KtString& a, const KtString& b) { return a.compare(b) >= 0; }
    friend bool operator==(const KtString& a, const wchar_t* b) { return a.compare(b) == 0; }
    friend bool operator!=(const KtString& a, const wchar_t* b) { return a.compare(b) != 0; }

private:
    void changed() { m_utf8Valid = false; }

    std::wstring m_data;
    mutable QByteArray m_utf8;
    mutable bool m_utf8Valid = false;
};
