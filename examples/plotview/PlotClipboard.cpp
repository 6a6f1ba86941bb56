// SPDX-License-Identifier: MIT
#include "stdafx.h"

#include "PlotClipboard.h"

#include "PlotStrokeBlock.h"

#include <limits>

CPlotClipboard::CPlotClipboard()
    : m_nFormat(RegisterClipboardFormat(FormatName))
{
}

void CPlotClipboard::Copy(const std::vector<PlotStroke> &strokes) const
{
    QByteArray bytes = PlotStrokeBlock::write(strokes);
    CSharedFile file;
    file.Write(reinterpret_cast<BYTE *>(bytes.data()), static_cast<UINT>(bytes.size()));
    COleDataSource().CacheGlobalData(m_nFormat, file.Detach());
}

BOOL CPlotClipboard::IsAvailable() const
{
    COleDataObject data;
    return data.AttachClipboard() && data.IsDataAvailable(static_cast<CLIPFORMAT>(m_nFormat));
}

// The block belongs to the clipboard.
std::vector<PlotStroke> CPlotClipboard::Paste() const
{
    std::vector<PlotStroke> strokes;
    COleDataObject data;
    data.AttachClipboard();
    HGLOBAL hBlock = data.GetGlobalData(static_cast<CLIPFORMAT>(m_nFormat));
    const SIZE_T nSize = hBlock ? GlobalSize(hBlock) : 0;
    if (nSize == 0 || nSize > static_cast<SIZE_T>(std::numeric_limits<int>::max()))
        return strokes;
    const auto *pBytes = static_cast<const char *>(GlobalLock(hBlock));
    PlotStrokeBlock::read(QByteArray::fromRawData(pBytes, static_cast<int>(nSize)), strokes);
    GlobalUnlock(hBlock);
    return strokes;
}
