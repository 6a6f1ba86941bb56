// SPDX-License-Identifier: MIT
#include "KxWinString.h"

#include <QtCore/QChar>

#include <cerrno>
#include <climits>
#include <clocale>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <string>

#include <locale.h>

namespace {

bool isDigit(wchar_t c)
{
    return c >= L'0' && c <= L'9';
}

const wchar_t *skipBlanks(const wchar_t *text)
{
    while (QChar::isSpace(static_cast<uint>(*text)))
        ++text;
    return text;
}

/// Reads a number between two limits. Counts down from 0, where there is room for one more.
long readInteger(const wchar_t *text, long least, long greatest)
{
    if (!text) {
        errno = EINVAL;
        return 0;
    }
    text = skipBlanks(text);
    const bool isNegative = *text == L'-';
    if (isNegative || *text == L'+')
        ++text;
    const long limit = isNegative ? least : -greatest;
    long negated = 0;
    for (; isDigit(*text); ++text) {
        const long digit = *text - L'0';
        if (negated < (limit + digit) / 10) {
            errno = ERANGE;
            return isNegative ? least : greatest;
        }
        negated = negated * 10 - digit;
    }
    return isNegative ? negated : -negated;
}

void appendDigits(std::string &number, const wchar_t *&text)
{
    for (; isDigit(*text); ++text)
        number += static_cast<char>(*text);
}

/// What leads `text` of a number's characters, in the C locale's form. It need not be a whole number yet, but
/// there is nothing in it that strtod() would read as hexadecimal, infinite or no number.
std::string leadingNumber(const wchar_t *text)
{
    std::string number;
    text = skipBlanks(text);
    if (*text == L'-' || *text == L'+')
        number += static_cast<char>(*text++);
    appendDigits(number, text);
    if (*text == L'.') {
        number += '.';
        appendDigits(number, ++text);
    }
    if (*text == L'e' || *text == L'E') {
        number += 'e';
        ++text;
        if (*text == L'-' || *text == L'+')
            number += static_cast<char>(*text++);
        appendDigits(number, text);
    }
    return number;
}

} // namespace

int _wtoi(const wchar_t *text)
{
    return static_cast<int>(readInteger(text, INT_MIN, INT_MAX));
}

long _wtol(const wchar_t *text)
{
    return readInteger(text, LONG_MIN, LONG_MAX);
}

double _wtof(const wchar_t *text)
{
    if (!text) {
        errno = EINVAL;
        return 0;
    }
    static const locale_t classic = newlocale(LC_ALL_MASK, "C", nullptr);
    return strtod_l(leadingNumber(text).c_str(), nullptr, classic);
}

wchar_t *_wcsinc(const wchar_t *current)
{
    return current ? const_cast<wchar_t *>(current) + 1 : nullptr;
}

unsigned int _wcsnextc(const wchar_t *text)
{
    return text ? static_cast<unsigned int>(*text) : 0;
}

int swprintf(wchar_t *buffer, const wchar_t *format, ...)
{
    if (!buffer || !format)
        return -1;
    va_list arguments;
    va_start(arguments, format);
    const int written = vswprintf(buffer, INT_MAX, format, arguments);
    va_end(arguments);
    if (written < 0)
        *buffer = 0;
    return written < 0 ? -1 : written;
}

int memcpy_s(void *target, std::size_t size, const void *source, std::size_t count)
{
    if (count == 0)
        return 0;
    if (!target)
        return errno = EINVAL;
    if (!source || count > size) {
        std::memset(target, 0, size);
        return errno = source ? ERANGE : EINVAL;
    }
    std::memmove(target, source, count);
    return 0;
}
