// SPDX-License-Identifier: MIT
#include "KxStdStr.h"

#include "KxAfxGlobal.h"
#include "KxPlatformBase.h"

#include <memory>

namespace {

constexpr int formatAllowance = 1024;
constexpr int resourceTextRoom = 1024;

bool liesWithin(const std::wstring &string, const wchar_t *text)
{
    const std::less_equal<const wchar_t *> notAfter;
    return notAfter(string.c_str(), text) && notAfter(text, string.c_str() + string.size());
}

/// What vswprintf() leaves in a zero-filled buffer, up to the first zero. Kept apart: only output that did
/// not fit can tell whether the buffer was filled with zeros before.
void formatOverflowing(std::wstring &result, std::size_t room, const wchar_t *format, va_list arguments)
{
    std::wstring buffer(room, L'\0');
    ssvsprintf(buffer.data(), room - 1, format, arguments);
    result.assign(buffer.c_str());
}

void formatText(std::wstring &result, const wchar_t *format, va_list arguments)
{
    if (!format)
        format = L"";
    const std::size_t room = std::wcslen(format) + formatAllowance;

    wchar_t onStack[2 * formatAllowance];
    std::unique_ptr<wchar_t[]> onHeap;
    wchar_t *buffer = onStack;
    if (room > std::size(onStack)) {
        onHeap.reset(new wchar_t[room]);
        buffer = onHeap.get();
    }

    va_list again;
    va_copy(again, arguments);
    if (ssvsprintf(buffer, room - 1, format, arguments) >= 0)
        result.assign(buffer);
    else
        formatOverflowing(result, room, format, again);
    va_end(again);
}

template<class Change>
bool changeOrRestore(CString &text, Change change)
{
    CString before = text;
    try {
        change(text);
        return false;
    } catch (...) {
        text.swap(before);
        return true;
    }
}

} // namespace

wchar_t *StdCodeCvt(wchar_t *destination, int destinationLength, const char *source, int sourceLength,
                    const std::locale &locale)
{
    if (!destination || destinationLength <= 0)
        return destination;
    destination[0] = 0;
    if (source && sourceLength > 0) {
        using Conversion = std::codecvt<wchar_t, char, std::mbstate_t>;
        std::mbstate_t state = {};
        const char *sourceNext = source;
        wchar_t *destinationNext = destination;
        std::use_facet<Conversion>(locale).in(state, source, source + sourceLength, sourceNext, destination,
                                              destination + destinationLength, destinationNext);
        *std::min(destinationNext, destination + destinationLength - 1) = 0;
    }
    return destination;
}

void ssasn(std::wstring &target, const std::wstring &source)
{
    if (target.c_str() != source.c_str())
        target.assign(source);
}

void ssasn(std::wstring &target, const wchar_t *source)
{
    if (!source)
        target.erase();
    else if (liesWithin(target, source))
        target = target.substr(std::size_t(source - target.c_str()));
    else
        target.assign(source);
}

void ssasn(std::wstring &target, const char *source)
{
    const int length = sslen(source);
    target.resize(length ? std::size_t(length) + 1 : 0);
    if (length)
        target.resize(std::size_t(sslen(StdCodeCvt(target.data(), length + 1, source, length, std::locale()))));
}

void ssadd(std::wstring &target, const std::wstring &source)
{
    target += source;
}

void ssadd(std::wstring &target, const wchar_t *source)
{
    if (!source)
        return;
    if (liesWithin(target, source) && target.capacity() <= std::size_t(sslen(source)) + target.size())
        target.append(std::wstring(source));
    else
        target.append(source);
}

int ssicmp(const wchar_t *left, const wchar_t *right)
{
    if (!left)
        left = L"";
    if (!right)
        right = L"";
    static const auto &classic = std::use_facet<std::ctype<wchar_t>>(std::locale::classic());
    wchar_t lowerLeft;
    wchar_t lowerRight;
    do {
        lowerLeft = classic.tolower(*left++);
        lowerRight = classic.tolower(*right++);
    } while (lowerLeft == lowerRight && lowerLeft != 0);
    return static_cast<int>(static_cast<unsigned int>(lowerLeft) - static_cast<unsigned int>(lowerRight));
}

int ssvsprintf(wchar_t *buffer, std::size_t count, const wchar_t *format, va_list arguments)
{
    return std::vswprintf(buffer, count, format, arguments);
}

template<>
void CStdStr<wchar_t>::FormatV(const wchar_t *format, va_list arguments)
{
    formatText(*this, format, arguments);
}

template<>
void CStdStr<wchar_t>::Format(const wchar_t *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    FormatV(format, arguments);
    va_end(arguments);
}

template<>
void CStdStr<wchar_t>::Format(unsigned int formatId, ...)
{
    CStdStr format;
    format.LoadStringW(formatId);
    va_list arguments;
    va_start(arguments, formatId);
    FormatV(format, arguments);
    va_end(arguments);
}

template<>
void CStdStr<wchar_t>::AppendFormatV(const wchar_t *format, va_list arguments)
{
    CStdStr text;
    text.FormatV(format, arguments);
    *this += text;
}

template<>
void CStdStr<wchar_t>::AppendFormat(unsigned int formatId, ...)
{
    CStdStr format;
    format.LoadStringW(formatId);
    va_list arguments;
    va_start(arguments, formatId);
    AppendFormatV(format, arguments);
    va_end(arguments);
}

template<>
void CStdStr<wchar_t>::AppendFormat(const wchar_t *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    AppendFormatV(format, arguments);
    va_end(arguments);
}

template<>
bool CStdStr<wchar_t>::LoadStringW(HINSTANCE module, unsigned int id)
{
    wchar_t buffer[resourceTextRoom];
    const int length = ::LoadStringW(module ? module : AfxGetResourceHandle(), id, buffer, resourceTextRoom);
    assign(buffer);
    return length > 0;
}

template<>
bool CStdStr<wchar_t>::LoadStringW(unsigned int id)
{
    return LoadStringW(nullptr, id);
}

template class CStdStr<wchar_t>;

wchar_t *_tkxstrcpy(wchar_t *destination, const wchar_t *source)
{
    if (destination && source) {
        const std::size_t length = std::wcslen(source);
        std::copy(source, source + length, destination);
        destination[length] = 0;
    }
    return destination;
}

bool KxErrorEat::strMakeUpper(CString &text)
{
    return changeOrRestore(text, [](CString &changed) { changed.MakeUpper(); });
}

bool KxErrorEat::strMakeLower(CString &text)
{
    return changeOrRestore(text, [](CString &changed) { changed.MakeLower(); });
}
