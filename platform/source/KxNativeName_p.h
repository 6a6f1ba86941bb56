// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

/// A file's name in the forms that Qt and the operating system take. An invalid one has left its reason in
/// GetLastError().
class KxNativeName
{
public:
    explicit KxNativeName(const wchar_t *name);

    bool isValid() const { return !m_bytes.isEmpty(); }
    const char *path() const { return m_bytes.constData(); }

private:
    QByteArray m_bytes;
};

bool kxIsUtf8Locale();

/// The text of a name, or the null string when it is null, empty or no text: a surrogate or a value above
/// 0x10FFFF is in it.
QString kxNameFromWide(const wchar_t *name);
