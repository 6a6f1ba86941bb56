// SPDX-License-Identifier: MIT
#include "KxNativeName_p.h"

#include "KxWinSystem.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTextCodec>

#include <algorithm>
#include <cwchar>

namespace {

bool isCharacter(wchar_t c)
{
    return c >= 0 && c <= 0x10FFFF && (c < 0xD800 || c > 0xDFFF);
}

/// Whether UTF-8 says the name in bytes of the same values, and nothing in it has a meaning to Qt.
bool isPlain(const wchar_t *name)
{
    while (*name > 0 && *name < 0x80 && *name != L':')
        ++name;
    return *name == 0;
}

/// Whether QFile looks for the name somewhere else than where it says.
bool isQtsOwnName(const QString &name)
{
    const int colon = name.indexOf(QLatin1Char(':'));
    return colon == 0 || (colon > 1 && !QDir::searchPaths(name.left(colon)).isEmpty());
}

} // namespace

bool kxIsUtf8Locale()
{
    constexpr int utf8 = 106;
    return QTextCodec::codecForLocale()->mibEnum() == utf8;
}

// Not QString::fromWCharArray(), which takes a byte order mark in front for one and drops it.
QString kxNameFromWide(const wchar_t *name)
{
    QString text;
    for (; name && *name != 0; ++name) {
        if (!isCharacter(*name))
            return QString();
        const auto character = static_cast<uint>(*name);
        if (QChar::requiresSurrogates(character)) {
            text += QChar(QChar::highSurrogate(character));
            text += QChar(QChar::lowSurrogate(character));
        } else {
            text += QChar(character);
        }
    }
    return text;
}

KxNativeName::KxNativeName(const wchar_t *wideName)
{
    if (!wideName || *wideName == 0) {
        SetLastError(wideName ? ERROR_PATH_NOT_FOUND : ERROR_INVALID_PARAMETER);
        return;
    }
    if (isPlain(wideName) && kxIsUtf8Locale()) {
        m_bytes.resize(static_cast<int>(std::wcslen(wideName)));
        std::transform(wideName, wideName + m_bytes.size(), m_bytes.begin(),
                       [](wchar_t character) { return static_cast<char>(character); });
        return;
    }
    const QString name = kxNameFromWide(wideName);
    const QByteArray bytes = QFile::encodeName(name);
    // What the encoding cannot say comes back as another text. The separator in front keeps a leading byte
    // order mark from being taken for one.
    const QLatin1Char separator('/');
    const bool saysTheName =
        !name.isEmpty() && !bytes.contains('\0') && QFile::decodeName(char('/') + bytes) == separator + name;
    if (!saysTheName || isQtsOwnName(name)) {
        SetLastError(ERROR_INVALID_NAME);
        return;
    }
    m_bytes = bytes;
}
