// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// Win32's types, and what goes with them: basic types and handles (KxWinBasicTypes.h), records
/// (KxWinRecords.h), constants (KxWinConstants.h and the headers it names), generic-text names
/// (KxWinText.h), the text functions that Microsoft's C library has beyond the standard's (KxWinCrt.h); and
/// here the functions that take the place of Windows' macros.

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <type_traits>

#include "KxWinBasicTypes.h"
#include "KxWinCommonControls.h"
#include "KxWinConstants.h"
#include "KxWinCrt.h"
#include "KxWinFileDialog.h"
#include "KxWinOle.h"
#include "KxWinRecords.h"
#include "KxWinText.h"

// ---------------------------------------------------------------------------------------------------------
// Packing: functions here, macros on Windows; those of numbers are constant expressions
// ---------------------------------------------------------------------------------------------------------

template<class Number>
constexpr WORD LOWORD(Number value)
{
    return static_cast<WORD>(static_cast<DWORD_PTR>(value) & 0xFFFFu);
}

template<class Number>
constexpr WORD HIWORD(Number value)
{
    return static_cast<WORD>((static_cast<DWORD_PTR>(value) >> 16) & 0xFFFFu);
}

template<class Number>
constexpr BYTE LOBYTE(Number value)
{
    return static_cast<BYTE>(static_cast<DWORD_PTR>(value) & 0xFFu);
}

template<class Number>
constexpr BYTE HIBYTE(Number value)
{
    return static_cast<BYTE>((static_cast<DWORD_PTR>(value) >> 8) & 0xFFu);
}

/// Pointers that carry numbers.
template<class Target>
WORD LOWORD(Target *value)
{
    return LOWORD(reinterpret_cast<DWORD_PTR>(value));
}

template<class Target>
WORD HIWORD(Target *value)
{
    return HIWORD(reinterpret_cast<DWORD_PTR>(value));
}

template<class Low, class High>
constexpr WORD MAKEWORD(Low low, High high)
{
    return static_cast<WORD>(LOBYTE(low) | (LOBYTE(high) << 8));
}

template<class Low, class High>
constexpr LONG MAKELONG(Low low, High high)
{
    return static_cast<LONG>(static_cast<DWORD>(LOWORD(low)) | (static_cast<DWORD>(LOWORD(high)) << 16));
}

template<class Low, class High>
constexpr WPARAM MAKEWPARAM(Low low, High high)
{
    return static_cast<DWORD>(MAKELONG(low, high));
}

/// As in Windows the upper 32 bits are 0, whatever the sign of the high word.
template<class Low, class High>
constexpr LPARAM MAKELPARAM(Low low, High high)
{
    return static_cast<DWORD>(MAKELONG(low, high));
}

template<class Low, class High>
constexpr LRESULT MAKELRESULT(Low low, High high)
{
    return static_cast<DWORD>(MAKELONG(low, high));
}

constexpr int GET_X_LPARAM(LPARAM lParam)
{
    return static_cast<short>(LOWORD(lParam));
}

constexpr int GET_Y_LPARAM(LPARAM lParam)
{
    return static_cast<short>(HIWORD(lParam));
}

constexpr short GET_WHEEL_DELTA_WPARAM(WPARAM wParam)
{
    return static_cast<short>(HIWORD(wParam));
}

constexpr WORD GET_KEYSTATE_WPARAM(WPARAM wParam)
{
    return LOWORD(wParam);
}

/// Of each part the low byte counts, as on Windows.
template<class Red, class Green, class Blue>
constexpr COLORREF RGB(Red red, Green green, Blue blue)
{
    return static_cast<COLORREF>(static_cast<BYTE>(red))
        | (static_cast<COLORREF>(static_cast<BYTE>(green)) << 8)
        | (static_cast<COLORREF>(static_cast<BYTE>(blue)) << 16);
}

template<class Red, class Green, class Blue>
constexpr COLORREF PALETTERGB(Red red, Green green, Blue blue)
{
    return 0x02000000u | RGB(red, green, blue);
}

constexpr COLORREF PALETTEINDEX(WORD index)
{
    return 0x01000000u | index;
}

constexpr BYTE GetRValue(COLORREF color)
{
    return LOBYTE(color);
}

constexpr BYTE GetGValue(COLORREF color)
{
    return HIBYTE(color);
}

constexpr BYTE GetBValue(COLORREF color)
{
    return LOBYTE(color >> 16);
}

constexpr bool SUCCEEDED(HRESULT result)
{
    return result >= 0;
}

constexpr bool FAILED(HRESULT result)
{
    return result < 0;
}

/// The result code that carries an error number (ERROR_*); numbers below 1 are result codes already.
constexpr HRESULT HRESULT_FROM_WIN32(long error)
{
    return static_cast<HRESULT>(error) <= 0
        ? static_cast<HRESULT>(error)
        : static_cast<HRESULT>((static_cast<DWORD>(error) & 0xFFFFu) | 0x80070000u);
}

constexpr int HRESULT_CODE(HRESULT result)
{
    return LOWORD(result);
}

constexpr int HRESULT_FACILITY(HRESULT result)
{
    return HIWORD(result) & 0x1FFF;
}

constexpr WORD MAKELANGID(WORD primary, WORD sub)
{
    return static_cast<WORD>((sub << 10) | primary);
}

constexpr WORD PRIMARYLANGID(LANGID language)
{
    return language & 0x3FF;
}

constexpr WORD SUBLANGID(LANGID language)
{
    return static_cast<WORD>(language >> 10);
}

constexpr LCID MAKELCID(LANGID language, WORD sortOrder)
{
    return (static_cast<LCID>(sortOrder) << 16) | language;
}

/// The low word of the number, as the name of a resource.
template<class Number>
inline LPWSTR MAKEINTRESOURCEW(Number id)
{
    return reinterpret_cast<LPWSTR>(static_cast<ULONG_PTR>(LOWORD(id)));
}

/// Whether the name of a resource is a number and not a text.
inline bool IS_INTRESOURCE(LPCWSTR name)
{
    return (reinterpret_cast<ULONG_PTR>(name) >> 16) == 0;
}

// ---------------------------------------------------------------------------------------------------------
// Memory, arrays, parameters
// ---------------------------------------------------------------------------------------------------------

inline void ZeroMemory(void *target, SIZE_T bytes)
{
    std::memset(target, 0, bytes);
}

inline void FillMemory(void *target, SIZE_T bytes, BYTE value)
{
    std::memset(target, value, bytes);
}

inline void CopyMemory(void *target, const void *source, SIZE_T bytes)
{
    std::memcpy(target, source, bytes);
}

inline void MoveMemory(void *target, const void *source, SIZE_T bytes)
{
    std::memmove(target, source, bytes);
}

inline void *SecureZeroMemory(void *target, SIZE_T bytes)
{
    volatile auto *byte = static_cast<volatile BYTE *>(target);
    while (bytes-- > 0)
        *byte++ = 0;
    return target;
}

#define RtlZeroMemory ZeroMemory
#define RtlFillMemory FillMemory
#define RtlCopyMemory CopyMemory
#define RtlMoveMemory MoveMemory

/// Never defined: its result's size is the array's number of elements, and a pointer does not compile.
template<class Element, std::size_t Count>
char (&KxCountOf(const Element (&)[Count]))[Count];

/// How many elements an array has, as a constant expression whatever the array is.
#define _countof(array) sizeof(KxCountOf(array))
#define ARRAYSIZE _countof

template<class... Parameter>
constexpr void UNREFERENCED_PARAMETER(const Parameter &...)
{
}

#define DBG_UNREFERENCED_PARAMETER UNREFERENCED_PARAMETER
#define DBG_UNREFERENCED_LOCAL_VARIABLE UNREFERENCED_PARAMETER

// ---------------------------------------------------------------------------------------------------------
// min and max: functions, never macros
// ---------------------------------------------------------------------------------------------------------

using std::max;
using std::min;

template<class Number>
inline constexpr bool KxIsMixable = std::is_arithmetic_v<Number>
    || (std::is_enum_v<Number> && std::is_convertible_v<Number, int>);

/// The smaller of two numbers of different types, in the type that an arithmetic operation on them would
/// have: what the macro of Windows' headers answers. An explicit template argument, `min<int>(a, b)`, asks
/// for std::min.
template<int = 0, class A, class B>
constexpr auto min(A a, B b)
    -> std::enable_if_t<KxIsMixable<A> && KxIsMixable<B> && !std::is_same_v<A, B>, std::common_type_t<A, B>>
{
    using Common = std::common_type_t<A, B>;
    return static_cast<Common>(b) < static_cast<Common>(a) ? static_cast<Common>(b) : static_cast<Common>(a);
}

/// The larger of two numbers of different types; see min().
template<int = 0, class A, class B>
constexpr auto max(A a, B b)
    -> std::enable_if_t<KxIsMixable<A> && KxIsMixable<B> && !std::is_same_v<A, B>, std::common_type_t<A, B>>
{
    using Common = std::common_type_t<A, B>;
    return static_cast<Common>(a) < static_cast<Common>(b) ? static_cast<Common>(b) : static_cast<Common>(a);
}
