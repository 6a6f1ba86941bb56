// SPDX-License-Identifier: MIT
#include "KxQtWinapiWrapper.h"

#include "KxSettings_p.h"
#include "KxText_p.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr std::size_t pathRoom = 2049;

/// Enters the groups of a key path.
void enterKey(KxSettings *settings, const wchar_t *path)
{
    settings->beginGroup(toQString(path).replace(QLatin1Char('\\'), QLatin1Char('/')));
}

} // namespace

CRegKey::CRegKey()
    : m_hKey(nullptr)
    , m_settings(new KxSettings)
    , m_path(new wchar_t[pathRoom]())
{
}

CRegKey::~CRegKey()
{
    delete m_settings;
    delete[] m_path;
}

CRegKey::operator HKEY() const
{
    return m_hKey;
}

LONG CRegKey::Create(HKEY, const wchar_t *lpszKeyName, wchar_t *, DWORD, REGSAM, SECURITY_ATTRIBUTES *, DWORD *)
{
    // The terminating zero is not copied: what a longer path left behind stays.
    const std::size_t length = std::min(std::size_t(sslen(lpszKeyName)), pathRoom - 1);
    std::copy_n(lpszKeyName, length, m_path);
    return ERROR_SUCCESS;
}

LONG CRegKey::SetValue(const wchar_t *lpszValue, const wchar_t *lpszValueName, bool, int)
{
    enterKey(m_settings, m_path);
    m_settings->setValue(toQString(lpszValueName), toQString(lpszValue));
    m_settings->endGroup();
    return ERROR_SUCCESS;
}

LONG CRegKey::QueryValue(wchar_t *szValue, const wchar_t *lpszValueName, DWORD *pdwCount)
{
    enterKey(m_settings, m_path);
    const std::wstring value = m_settings->value(toQString(lpszValueName)).toString().toStdWString();
    const std::size_t room = pdwCount ? *pdwCount : 0;
    if (value.size() > room)
        return -1; // the key path stays entered
    m_settings->endGroup();
    if (szValue && room > 0) {
        std::memset(szValue, 0, room);
        const std::size_t copied = std::min(value.size(), room - 1);
        std::copy_n(value.data(), copied, szValue);
        szValue[copied] = 0;
    }
    return ERROR_SUCCESS;
}

LONG CRegKey::Open(HKEY, const wchar_t *, REGSAM) { return ERROR_SUCCESS; }
LONG CRegKey::Close() { return ERROR_SUCCESS; }
LONG CRegKey::RecurseDeleteKey(const wchar_t *) { return ERROR_SUCCESS; }
