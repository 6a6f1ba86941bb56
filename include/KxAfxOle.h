// SPDX-License-Identifier: MIT
#pragma once

#include "KxExport.h"
#include "KxStdStr.h"
#include "KxWinTypes.h"

#include <QtCore/QMimeData>

#include <map>

/// \file
/// The clipboard, in the terms of Win32 and MFC. It belongs to the process: neither QClipboard nor another program
/// sees what is on it.
///
/// Data is exchanged as blocks of global memory under registered formats:
///
/// \code
/// const auto format = static_cast<CLIPFORMAT>(RegisterClipboardFormatW(L"application/x-strokes"));
/// CSharedFile file;
/// file.Write(bytes, size);
/// COleDataSource().CacheGlobalData(format, file.Detach());
///
/// COleDataObject data;
/// if (data.AttachClipboard() && data.IsDataAvailable(format)) {
///     HGLOBAL block = data.GetGlobalData(format);
///     Read(GlobalLock(block), GlobalSize(block));
///     GlobalUnlock(block);
/// }
/// \endcode
///
/// All of it belongs to the GUI thread. What is on the clipboard at exit is freed.

/// What reads the clipboard for every COleDataObject; there is one, g_platformClipboard.
class KX_EXPORT KxPlatformClipboard
{
public:
    KxPlatformClipboard();
    /// g_platformClipboard frees the blocks on the clipboard.
    ~KxPlatformClipboard();
    KxPlatformClipboard(const KxPlatformClipboard &) = delete;
    KxPlatformClipboard &operator=(const KxPlatformClipboard &) = delete;

    /// See COleDataObject::AttachClipboard().
    BOOL attachClipboard();
    /// See COleDataObject::BeginEnumFormats().
    void beginEnumFormats();
    /// See COleDataObject::GetNextFormat().
    BOOL getNextFormat(tagFORMATETC *lpFormatEtc);
    /// See COleDataObject::IsDataAvailable().
    BOOL isDataAvailable(CLIPFORMAT cfFormat, tagFORMATETC *lpFormatEtc = nullptr);
    /// See COleDataObject::GetGlobalData().
    HGLOBAL getGlobalData(CLIPFORMAT cfFormat, tagFORMATETC *lpFormatEtc = nullptr);

protected:
    int m_nEnumIndex;   ///< The position of the enumeration, -1 before the first format.
    int m_nEnumFormat;  ///< The last registered number of the enumeration.
    QMimeData *m_pData; ///< Null before attachClipboard().
};

/// Data as the clipboard has it; COleDataObject of MFC. All objects share one position in the formats, and one that
/// was attached attaches all.
class KX_EXPORT COleDataObject
{
public:
    COleDataObject();
    ~COleDataObject();
    COleDataObject(const COleDataObject &) = delete;
    COleDataObject &operator=(const COleDataObject &) = delete;

    /// Opens the clipboard for reading. \return TRUE
    BOOL AttachClipboard();
    /// Goes in front of the first format.
    void BeginEnumFormats();
    /// Puts the next format into `lpFormatEtc->cfFormat`: CF_UNICODETEXT and CF_BITMAP, which are always told and
    /// never there, then the registered ones, with or without data, and a 0 for each unknown number that
    /// CacheGlobalData() was called with. \return FALSE behind the last
    BOOL GetNextFormat(tagFORMATETC *lpFormatEtc);
    /// Whether there is a block under a registered format. The record is ignored.
    BOOL IsDataAvailable(CLIPFORMAT cfFormat, tagFORMATETC *lpFormatEtc = nullptr);
    /// The block under a registered format, to be read with GlobalLock(). It belongs to the clipboard, unlike in MFC,
    /// and lasts until another one takes its place. Null when there is none. The record is ignored.
    HGLOBAL GetGlobalData(CLIPFORMAT cfFormat, tagFORMATETC *lpFormatEtc = nullptr);

protected:
    KxPlatformClipboard *m_clipboard; ///< Not owned.
};

/// Puts data on the clipboard; COleDataSource of MFC. There is nothing to be set on the clipboard afterwards:
/// CacheGlobalData() does it.
class KX_EXPORT COleDataSource
{
public:
    /// Puts a block under a registered format; the clipboard owns it from now on, and frees the one that it takes the
    /// place of, unless that is the same or stands under another format too. Null empties the format.
    ///
    /// For a number that RegisterClipboardFormatW() did not give, for an empty name, and for the format
    /// "text/uri-list", of which Qt keeps no bytes, nothing is stored and the block stays the caller's.
    void CacheGlobalData(UINT cfFormat, HGLOBAL hGlobal);
};

/// The number of a clipboard format, from 3456 on. The same name gives the same number; unlike on Windows, case
/// counts. Nothing takes a name back. \return 0 for null
KX_EXPORT UINT RegisterClipboardFormatW(const wchar_t *lpszFormat);

/// The fixed format at a position of the enumeration: CF_UNICODETEXT at 0, CF_BITMAP at 1, CF_TEXT anywhere else.
KX_EXPORT CLIPFORMAT TOCLIPFORMAT(int i);

/// The contents of the clipboard: an entry for each registered name, empty or the record of the block. To be read
/// only: whatever stands here counts as a block, and is freed as one.
extern KX_EXPORT QMimeData g_tnorClipboardData;
/// The names of the registered formats by number.
extern KX_EXPORT std::map<int, CString> g_mapCF;
extern KX_EXPORT KxPlatformClipboard g_platformClipboard;
/// The next number that RegisterClipboardFormatW() gives.
extern KX_EXPORT int g_iCFIndex;
