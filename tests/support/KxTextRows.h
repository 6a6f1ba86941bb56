// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QMetaType>
#include <QtCore/QString>
#include <QtTest/QtTest>

#include <functional>
#include <locale>
#include <stdexcept>
#include <string>

/// \file
/// Data rows whose first column is the call itself, and locales that show which one was asked.

using TextCall = std::function<std::wstring()>;
using NumberCall = std::function<qint64()>;
Q_DECLARE_METATYPE(TextCall)
Q_DECLARE_METATYPE(NumberCall)

inline const wchar_t *const noText = nullptr;
inline const char *const noNarrowText = nullptr;

/// Every element, NULs too.
inline QString shown(const std::wstring &text)
{
    return QString::fromWCharArray(text.data(), int(text.size()));
}

/// The whole literal, with the NULs inside it.
template<size_t N>
std::wstring whole(const wchar_t (&literal)[N])
{
    return std::wstring(literal, N - 1);
}

/// A row of the columns TextCall "call" and QString "expected".
inline void textRow(const char *promise, TextCall call, const std::wstring &expected)
{
    QTest::newRow(promise) << std::move(call) << shown(expected);
}

/// A row of the columns NumberCall "call" and qint64 "expected".
inline void numberRow(const char *promise, NumberCall call, qint64 expected)
{
    QTest::newRow(promise) << std::move(call) << expected;
}

/// Makes a locale the global one for the life of the object.
class GlobalLocale
{
public:
    explicit GlobalLocale(const std::locale &locale) : m_previous(std::locale::global(locale)) {}
    ~GlobalLocale() { std::locale::global(m_previous); }
    GlobalLocale(const GlobalLocale &) = delete;
    GlobalLocale &operator=(const GlobalLocale &) = delete;

private:
    std::locale m_previous;
};

inline std::locale unicodeLocale()
{
    return std::locale("C.UTF-8");
}

/// An underscore is the only blank, '!' cannot be mapped, 'q' becomes '1' in upper and 'Q' becomes '2' in
/// lower case.
class OddCharacters : public std::ctype<wchar_t>
{
protected:
    using std::ctype<wchar_t>::do_is;
    using std::ctype<wchar_t>::do_toupper;
    using std::ctype<wchar_t>::do_tolower;

    bool do_is(mask kind, wchar_t c) const override { return (kind & space) != 0 && c == L'_'; }

    wchar_t do_toupper(wchar_t c) const override
    {
        if (c == L'!')
            throw std::runtime_error("no upper case");
        return c == L'q' ? L'1' : std::ctype<wchar_t>::do_toupper(c);
    }

    wchar_t do_tolower(wchar_t c) const override
    {
        if (c == L'!')
            throw std::runtime_error("no lower case");
        return c == L'Q' ? L'2' : std::ctype<wchar_t>::do_tolower(c);
    }
};

inline std::locale oddLocale()
{
    return std::locale(std::locale::classic(), new OddCharacters);
}
