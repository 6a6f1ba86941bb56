// SPDX-License-Identifier: MIT
#include "KxAfxOle.h"

#include "KxText_p.h"
#include "KxWinMemory.h"

#include <algorithm>
#include <cwchar>

namespace {

constexpr int FirstFormat = 3456;

} // namespace

// They die in the reverse order: the blocks first, by g_platformClipboard, while their names are still there.
QMimeData g_tnorClipboardData;
std::map<int, CString> g_mapCF;
KxPlatformClipboard g_platformClipboard;
int g_iCFIndex = FirstFormat;

namespace {

HGLOBAL blockUnder(const QMimeData &data, const QString &name)
{
    const QByteArray record = data.data(name);
    return record.isEmpty() ? nullptr : const_cast<char *>(record.constData());
}

void setBlock(const QString &name, HGLOBAL block)
{
    // The record itself is kept, not a copy.
    constexpr int RecordSize = sizeof(KxGlobalMemory);
    g_tnorClipboardData.setData(name, block ? QByteArray::fromRawData(static_cast<const char *>(block), RecordSize)
                                            : QByteArray());
}

/// Empties a format and frees its block, unless the block is under another format too.
void discardBlock(const QString &name)
{
    const HGLOBAL block = blockUnder(g_tnorClipboardData, name);
    if (!block)
        return;
    setBlock(name, nullptr);
    const QStringList names = g_tnorClipboardData.formats();
    const bool isShared = std::any_of(names.begin(), names.end(), [block](const QString &other) {
        return blockUnder(g_tnorClipboardData, other) == block;
    });
    if (!isShared)
        GlobalFree(block);
}

} // namespace

// ---- formats -------------------------------------------------------------------------------------------

UINT RegisterClipboardFormatW(const wchar_t *lpszFormat)
{
    if (!lpszFormat)
        return 0;
    const QString name = toQString(lpszFormat);
    if (!g_tnorClipboardData.hasFormat(name)) {
        g_tnorClipboardData.setData(name, QByteArray());
        g_mapCF[g_iCFIndex] = lpszFormat;
        return static_cast<UINT>(g_iCFIndex++);
    }
    const auto entry = std::find_if(g_mapCF.begin(), g_mapCF.end(), [lpszFormat](const auto &format) {
        return std::wcscmp(format.second, lpszFormat) == 0;
    });
    return entry != g_mapCF.end() ? static_cast<UINT>(entry->first) : 0;
}

CLIPFORMAT TOCLIPFORMAT(int i)
{
    return i == 0 ? CF_UNICODETEXT : i == 1 ? CF_BITMAP : CF_TEXT;
}

// ---- KxPlatformClipboard -------------------------------------------------------------------------------

KxPlatformClipboard::KxPlatformClipboard()
    : m_pData(nullptr)
{
    beginEnumFormats();
}

KxPlatformClipboard::~KxPlatformClipboard()
{
    if (this != &g_platformClipboard)
        return;
    const QStringList names = g_tnorClipboardData.formats();
    for (const QString &name : names)
        discardBlock(name);
}

BOOL KxPlatformClipboard::attachClipboard()
{
    m_pData = &g_tnorClipboardData;
    return TRUE;
}

void KxPlatformClipboard::beginEnumFormats()
{
    m_nEnumIndex = -1;
    m_nEnumFormat = FirstFormat - 1;
}

BOOL KxPlatformClipboard::getNextFormat(tagFORMATETC *lpFormatEtc)
{
    constexpr int FixedFormats = 2;
    ++m_nEnumIndex;
    CLIPFORMAT format = TOCLIPFORMAT(m_nEnumIndex);
    if (m_nEnumIndex >= FixedFormats) {
        ++m_nEnumFormat;
        if (m_nEnumFormat - FirstFormat >= static_cast<int>(g_mapCF.size()))
            return FALSE;
        format = g_mapCF.count(m_nEnumFormat) ? static_cast<CLIPFORMAT>(m_nEnumFormat) : CLIPFORMAT(0);
    }
    if (lpFormatEtc)
        lpFormatEtc->cfFormat = format;
    return TRUE;
}

BOOL KxPlatformClipboard::isDataAvailable(CLIPFORMAT cfFormat, tagFORMATETC *)
{
    return getGlobalData(cfFormat) != nullptr;
}

HGLOBAL KxPlatformClipboard::getGlobalData(CLIPFORMAT cfFormat, tagFORMATETC *)
{
    const auto entry = g_mapCF.find(cfFormat);
    return m_pData && entry != g_mapCF.end() ? blockUnder(*m_pData, toQString(entry->second)) : nullptr;
}

// ---- COleDataObject, COleDataSource --------------------------------------------------------------------

COleDataObject::COleDataObject()
    : m_clipboard(&g_platformClipboard)
{
}

COleDataObject::~COleDataObject()
{
    m_clipboard = nullptr;
}

BOOL COleDataObject::AttachClipboard()
{
    return m_clipboard->attachClipboard();
}

void COleDataObject::BeginEnumFormats()
{
    m_clipboard->beginEnumFormats();
}

BOOL COleDataObject::GetNextFormat(tagFORMATETC *lpFormatEtc)
{
    return m_clipboard->getNextFormat(lpFormatEtc);
}

BOOL COleDataObject::IsDataAvailable(CLIPFORMAT cfFormat, tagFORMATETC *lpFormatEtc)
{
    return m_clipboard->isDataAvailable(cfFormat, lpFormatEtc);
}

HGLOBAL COleDataObject::GetGlobalData(CLIPFORMAT cfFormat, tagFORMATETC *lpFormatEtc)
{
    return m_clipboard->getGlobalData(cfFormat, lpFormatEtc);
}

void COleDataSource::CacheGlobalData(UINT cfFormat, HGLOBAL hGlobal)
{
    const QString name = toQString(g_mapCF[static_cast<int>(cfFormat)]);
    // Of a list of addresses QMimeData keeps the addresses, not the bytes.
    const bool isList = name == QLatin1String("text/uri-list");
    if (name.isEmpty() || isList || !g_tnorClipboardData.hasFormat(name))
        return;
    if (blockUnder(g_tnorClipboardData, name) == hGlobal)
        return; // Freed as the earlier one, it would be lost.
    discardBlock(name);
    setBlock(name, hGlobal);
}
