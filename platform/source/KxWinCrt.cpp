// SPDX-License-Identifier: MIT
#include "KxWinCrt.h"

#include "KxNativeName_p.h"

#include <sys/stat.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <cwctype>
#include <string>

namespace {

/// Sets errno. \return the same, for the caller to pass on
errno_t failWith(errno_t error)
{
    errno = error;
    return error;
}

/// The same, with an empty text left in a buffer of `size`.
errno_t failEmpty(wchar_t *buffer, std::size_t size, errno_t error)
{
    if (size > 0)
        *buffer = 0;
    return failWith(error);
}

wint_t lowered(wchar_t c)
{
    return std::towlower(static_cast<wint_t>(c));
}

int lowered(char c)
{
    return std::tolower(static_cast<unsigned char>(c));
}

template<class Character>
int compareNoCase(const Character *first, const Character *second, std::size_t count)
{
    if (!first || !second) {
        errno = EINVAL;
        return _NLSCMPERROR;
    }
    for (; count > 0; --count, ++first, ++second) {
        const auto a = lowered(*first);
        const auto b = lowered(*second);
        if (a != b)
            return a < b ? -1 : 1;
        if (*first == 0)
            break;
    }
    return 0;
}

/// The whole formatted text, whatever its length. \return false when an argument cannot be converted
bool formatWhole(std::wstring *text, const wchar_t *format, va_list arguments)
{
    wchar_t *buffer = nullptr;
    std::size_t length = 0;
    std::FILE *stream = open_wmemstream(&buffer, &length);
    if (!stream)
        return false;
    const int written = std::vfwprintf(stream, format, arguments);
    std::fclose(stream);
    if (written >= 0)
        text->assign(buffer, length);
    std::free(buffer);
    return written >= 0;
}

} // namespace

// ---- comparing and copying ------------------------------------------------------------------------------

int _wcsicmp(const wchar_t *first, const wchar_t *second)
{
    return compareNoCase(first, second, SIZE_MAX);
}

int _stricmp(const char *first, const char *second)
{
    return compareNoCase(first, second, SIZE_MAX);
}

int _wcsnicmp(const wchar_t *first, const wchar_t *second, std::size_t count)
{
    return compareNoCase(first, second, count);
}

int _strnicmp(const char *first, const char *second, std::size_t count)
{
    return compareNoCase(first, second, count);
}

wchar_t *_wcsdup(const wchar_t *text)
{
    return text ? wcsdup(text) : nullptr;
}

errno_t wcscpy_s(wchar_t *target, std::size_t size, const wchar_t *source)
{
    if (!target)
        return failWith(EINVAL);
    if (!source)
        return failEmpty(target, size, EINVAL);
    const std::size_t length = wcsnlen(source, size);
    if (length == size)
        return failEmpty(target, size, ERANGE);
    std::wmemcpy(target, source, length + 1);
    return 0;
}

errno_t wcsncpy_s(wchar_t *target, std::size_t size, const wchar_t *source, std::size_t count)
{
    if (!target || size == 0)
        return failWith(EINVAL);
    if (!source)
        return failEmpty(target, size, EINVAL);
    std::size_t length = wcsnlen(source, std::min(count, size));
    const bool isCut = length == size;
    if (isCut && count != _TRUNCATE)
        return failEmpty(target, size, ERANGE);
    if (isCut)
        --length;
    std::wmemcpy(target, source, length);
    target[length] = 0;
    return isCut ? STRUNCATE : 0;
}

errno_t wcscat_s(wchar_t *target, std::size_t size, const wchar_t *source)
{
    if (!target)
        return failWith(EINVAL);
    if (!source)
        return failEmpty(target, size, EINVAL);
    if (size == 0)
        return failWith(ERANGE);
    const std::size_t used = wcsnlen(target, size);
    if (used == size)
        return failWith(EINVAL);
    const errno_t result = wcscpy_s(target + used, size - used, source);
    if (result != 0)
        *target = 0;
    return result;
}

// ---- formatting -----------------------------------------------------------------------------------------

int vswprintf_s(wchar_t *buffer, std::size_t size, const wchar_t *format, va_list arguments)
{
    if (!buffer || size == 0) {
        errno = EINVAL;
        return -1;
    }
    if (!format) {
        failEmpty(buffer, size, EINVAL);
        return -1;
    }
    const int before = errno;
    errno = 0;
    const int length = std::vswprintf(buffer, size, format, arguments);
    if (length < 0)
        failEmpty(buffer, size, errno == EILSEQ ? EILSEQ : ERANGE);
    else
        errno = before;
    return length;
}

int swprintf_s(wchar_t *buffer, std::size_t size, const wchar_t *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const int length = vswprintf_s(buffer, size, format, arguments);
    va_end(arguments);
    return length;
}

int _vsnwprintf(wchar_t *buffer, std::size_t count, const wchar_t *format, va_list arguments)
{
    if (!format || (!buffer && count > 0)) {
        errno = EINVAL;
        return -1;
    }
    std::wstring text;
    if (!formatWhole(&text, format, arguments))
        return -1;
    if (buffer)
        std::wmemcpy(buffer, text.c_str(), std::min(count, text.size() + 1));
    return buffer && text.size() > count ? -1 : static_cast<int>(text.size());
}

int _snwprintf(wchar_t *buffer, std::size_t count, const wchar_t *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const int length = _vsnwprintf(buffer, count, format, arguments);
    va_end(arguments);
    return length;
}

int _vsnwprintf_s(wchar_t *buffer, std::size_t size, std::size_t count,
                  const wchar_t *format, va_list arguments)
{
    if (format && !buffer && size == 0 && count == 0)
        return 0;
    if (count != _TRUNCATE && count >= size)
        return vswprintf_s(buffer, size, format, arguments);
    if (!buffer || size == 0) {
        errno = EINVAL;
        return -1;
    }
    if (!format) {
        failEmpty(buffer, size, EINVAL);
        return -1;
    }
    std::wstring text;
    if (!formatWhole(&text, format, arguments)) {
        *buffer = 0;
        return -1;
    }
    const std::size_t length = std::min({text.size(), count, size - 1});
    std::wmemcpy(buffer, text.c_str(), length);
    buffer[length] = 0;
    return length < text.size() ? -1 : static_cast<int>(length);
}

int _snwprintf_s(wchar_t *buffer, std::size_t size, std::size_t count, const wchar_t *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const int length = _vsnwprintf_s(buffer, size, count, format, arguments);
    va_end(arguments);
    return length;
}

// ---- reading --------------------------------------------------------------------------------------------

namespace {

/// One conversion of a format, `%` first.
struct Conversion {
    bool isSuppressed = false;
    std::size_t width = 0; ///< 0 when there is none.
    std::wstring modifier; ///< hh, h, l, ll, ...
    std::wstring letter; ///< The conversion's letter, or the whole set of `%[`.

    bool isWide() const { return letter == L"C" || letter == L"S" || modifier == L"l"; }
    bool isText() const { return std::wcschr(L"sS[", letter[0]) != nullptr; }
    bool isCharacters() const { return letter == L"c" || letter == L"C"; }
    bool takesSize() const { return isText() || isCharacters(); }

    std::wstring toFormat(const wchar_t *allocation = L"") const
    {
        const std::wstring digits = width > 0 ? std::to_wstring(width) : std::wstring();
        return (isSuppressed ? L"%*" : L"%") + digits + allocation + modifier + letter + L"%n";
    }
};

/// Reads a conversion at `format`, which goes behind it. \return false when it is none that is served
bool readConversion(const wchar_t *&format, Conversion *conversion)
{
    ++format;
    conversion->isSuppressed = *format == L'*';
    if (conversion->isSuppressed)
        ++format;
    for (; *format >= L'0' && *format <= L'9'; ++format) {
        const std::size_t width = conversion->width * 10 + static_cast<std::size_t>(*format - L'0');
        conversion->width = std::min<std::size_t>(width, INT_MAX);
    }
    while (*format != 0 && std::wcschr(L"hlLqjzt", *format))
        conversion->modifier += *format++;
    if (*format == 0 || !std::wcschr(L"diouxXaAeEfFgGpncCsS[", *format))
        return false;
    const wchar_t *begin = format++;
    if (*begin == L'[') {
        if (*format == L'^')
            ++format;
        if (*format == L']')
            ++format;
        while (*format != 0 && *format != L']')
            ++format;
        if (*format++ == 0)
            return false;
    }
    conversion->letter.assign(begin, format);
    return true;
}

enum class Outcome { Stored, Skipped, Mismatch, InputEnd };

/// Reads a text one conversion after the other, so that each can be told its own buffer.
class Scanner
{
public:
    explicit Scanner(const wchar_t *text) : m_begin(text), m_cursor(text) {}

    void addLiteral(wchar_t c) { m_literal += c; }

    /// `target` is null for a suppressed conversion; `size` is that of a text's buffer.
    Outcome read(const Conversion &conversion, void *target, std::size_t size);

private:
    Outcome scan(const std::wstring &format, void *target);
    Outcome readConsumed(const Conversion &conversion, void *target);
    template<class Character>
    Outcome readText(const Conversion &conversion, Character *target, std::size_t size);

    const wchar_t *m_begin;
    const wchar_t *m_cursor;
    std::wstring m_literal; ///< What stands in the format before the next conversion.
};

Outcome Scanner::read(const Conversion &conversion, void *target, std::size_t size)
{
    if (target && conversion.letter == L"n")
        return readConsumed(conversion, target);
    if (target && conversion.isText()) {
        return conversion.isWide() ? readText(conversion, static_cast<wchar_t *>(target), size)
                                   : readText(conversion, static_cast<char *>(target), size);
    }
    if (target && conversion.isCharacters() && std::max<std::size_t>(conversion.width, 1) > size)
        return Outcome::Mismatch;
    return scan(conversion.toFormat(), target);
}

Outcome Scanner::scan(const std::wstring &format, void *target)
{
    int length = -1;
    const int stored = target ? std::swscanf(m_cursor, (m_literal + format).c_str(), target, &length)
                              : std::swscanf(m_cursor, (m_literal + format).c_str(), &length);
    m_literal.clear();
    if (length >= 0)
        m_cursor += length;
    if (stored == EOF)
        return Outcome::InputEnd;
    if (length < 0)
        return Outcome::Mismatch;
    return target ? Outcome::Stored : Outcome::Skipped;
}

/// `%n`: how far the reading has come.
Outcome Scanner::readConsumed(const Conversion &conversion, void *target)
{
    const Outcome outcome = scan(L"%n", nullptr);
    if (outcome != Outcome::Skipped)
        return outcome;
    const std::ptrdiff_t consumed = m_cursor - m_begin;
    if (conversion.modifier == L"hh")
        *static_cast<signed char *>(target) = static_cast<signed char>(consumed);
    else if (conversion.modifier == L"h")
        *static_cast<short *>(target) = static_cast<short>(consumed);
    else if (conversion.modifier.empty())
        *static_cast<int *>(target) = static_cast<int>(consumed);
    else
        *static_cast<long *>(target) = consumed;
    return outcome;
}

template<class Character>
Outcome Scanner::readText(const Conversion &conversion, Character *target, std::size_t size)
{
    Character *text = nullptr;
    const Outcome outcome = scan(conversion.toFormat(L"m"), &text);
    const bool fits = text && std::char_traits<Character>::length(text) < size;
    if (fits)
        std::char_traits<Character>::copy(target, text, std::char_traits<Character>::length(text) + 1);
    else if (text && size > 0)
        *target = 0;
    std::free(text);
    return outcome == Outcome::Stored && !fits ? Outcome::Mismatch : outcome;
}

} // namespace

int swscanf_s(const wchar_t *text, const wchar_t *format, ...)
{
    if (!text || !format) {
        errno = EINVAL;
        return EOF;
    }
    Scanner scanner(text);
    int stored = 0;
    bool isFirst = true;
    Outcome outcome = Outcome::Skipped;
    va_list arguments;
    va_start(arguments, format);
    while (*format != 0 && (outcome == Outcome::Stored || outcome == Outcome::Skipped)) {
        const bool isPercent = format[0] == L'%' && format[1] == L'%';
        if (*format != L'%' || isPercent) {
            scanner.addLiteral(*format++);
            if (isPercent)
                scanner.addLiteral(*format++);
            continue;
        }
        Conversion conversion;
        if (!readConversion(format, &conversion))
            break;
        void *target = conversion.isSuppressed ? nullptr : va_arg(arguments, void *);
        const std::size_t size = target && conversion.takesSize() ? va_arg(arguments, unsigned int) : 0;
        if (!target && !conversion.isSuppressed) {
            errno = EINVAL;
            break;
        }
        outcome = scanner.read(conversion, target, size);
        if (outcome == Outcome::Stored)
            ++stored;
        else if (outcome == Outcome::InputEnd && isFirst)
            stored = EOF;
        isFirst = isFirst && conversion.letter == L"n";
    }
    va_end(arguments);
    return stored;
}

// ---- files ----------------------------------------------------------------------------------------------

namespace {

/// fopen()'s mode for Microsoft's; empty when it is none.
std::string nativeMode(const wchar_t *mode)
{
    if (!mode || *mode == 0 || !std::wcschr(L"rwa", *mode))
        return std::string();
    std::string native(1, static_cast<char>(*mode));
    for (++mode; *mode != 0; ++mode) {
        if (std::wcschr(L"+bx", *mode))
            native += static_cast<char>(*mode);
        else if (*mode == L'N')
            native += 'e';
        else if (!std::wcschr(L"tcnSRTD ", *mode))
            return std::string();
    }
    return native;
}

bool isDirectory(std::FILE *file)
{
    struct stat status;
    return fstat(fileno(file), &status) == 0 && S_ISDIR(status.st_mode);
}

} // namespace

std::FILE *_wfopen(const wchar_t *name, const wchar_t *mode)
{
    const KxNativeName nativeName(name);
    const std::string native = nativeMode(mode);
    if (!nativeName.isValid() || native.empty()) {
        errno = EINVAL;
        return nullptr;
    }
    std::FILE *file = std::fopen(nativeName.path(), native.c_str());
    if (file && isDirectory(file)) {
        std::fclose(file);
        file = nullptr;
        errno = EACCES;
    }
    return file;
}

errno_t _wfopen_s(std::FILE **file, const wchar_t *name, const wchar_t *mode)
{
    if (!file)
        return failWith(EINVAL);
    *file = _wfopen(name, mode);
    return *file ? 0 : errno;
}
