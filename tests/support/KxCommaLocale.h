// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QtGlobal>

#include <clocale>
#include <cstring>

/// Numbers of the C library have a decimal comma for the life of the object. The locale is one that the build
/// makes, in KX_TEST_LOCALES.
class CommaLocale
{
public:
    CommaLocale() : m_before(std::setlocale(LC_NUMERIC, nullptr))
    {
        // Only for this call: glibc loses memory in newlocale() where LOCPATH is set.
        qputenv("LOCPATH", KX_TEST_LOCALES);
        std::setlocale(LC_NUMERIC, "de_DE.UTF-8");
        qunsetenv("LOCPATH");
    }
    ~CommaLocale() { std::setlocale(LC_NUMERIC, m_before.constData()); }
    CommaLocale(const CommaLocale &) = delete;
    CommaLocale &operator=(const CommaLocale &) = delete;

    /// Check it first: without the comma a test would show nothing.
    bool isActive() const { return std::strcmp(std::localeconv()->decimal_point, ",") == 0; }

private:
    QByteArray m_before;
};
