// SPDX-License-Identifier: MIT
#include "KxAfx.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cwchar>

#include <QString>

namespace {

void writeTrace(const char *format, va_list arguments)
{
    if (format)
        std::vfprintf(stderr, format, arguments);
}

// Composed in memory and written as bytes: a stream that has once taken wide text refuses narrow text.
void writeTrace(const wchar_t *format, va_list arguments)
{
    if (!format)
        return;
    wchar_t *text = nullptr;
    std::size_t length = 0;
    std::FILE *memory = open_wmemstream(&text, &length);
    if (!memory)
        return;
    std::vfwprintf(memory, format, arguments);
    std::fclose(memory);
    std::fputs(QString::fromWCharArray(text, static_cast<int>(length)).toLocal8Bit().constData(), stderr);
    std::free(text);
}

} // namespace

void KxAssertFailed(const char *file, int line) noexcept
{
    std::fprintf(stderr, "assertion failed in file %s in line %d\n", file, line);
    std::abort();
}

void KxTrace(const char *format, ...) noexcept
{
    va_list arguments;
    va_start(arguments, format);
    writeTrace(format, arguments);
    va_end(arguments);
}

void KxTrace(const wchar_t *format, ...) noexcept
{
    va_list arguments;
    va_start(arguments, format);
    writeTrace(format, arguments);
    va_end(arguments);
}

void KxTrace(DWORD, UINT, const char *format, ...) noexcept
{
    va_list arguments;
    va_start(arguments, format);
    writeTrace(format, arguments);
    va_end(arguments);
}

void KxTrace(DWORD, UINT, const wchar_t *format, ...) noexcept
{
    va_list arguments;
    va_start(arguments, format);
    writeTrace(format, arguments);
    va_end(arguments);
}
