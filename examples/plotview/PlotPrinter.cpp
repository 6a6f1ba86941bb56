// SPDX-License-Identifier: MIT
#include "stdafx.h"

#include "PlotPrinter.h"

#include "GdiFont.h"
#include "PlotSummary.h"
#include "ResourceText.h"

#include <QtCore/QBuffer>
#include <QtGui/QPdfWriter>

namespace {

constexpr int Resolution = 600;             // dots per inch
constexpr double DotsPerMillimetre = Resolution / 25.4;
constexpr int FillPixelsPerMillimetre = 12; // fine enough for lines to hide the steps

BOOL WriteFile(LPCTSTR lpszPathName, const QByteArray &bytes)
{
    CFile file;
    if (!file.Open(lpszPathName, CFile::modeCreate | CFile::modeWrite))
        return FALSE;
    file.Write(bytes.constData(), static_cast<UINT>(bytes.size()));
    // No call tells that the disk is full: the file is then the shorter one.
    file.Flush();
    const BOOL bWritten = file.GetLength() == static_cast<ULONGLONG>(bytes.size());
    file.Close();
    if (!bWritten)
        DeleteFile(lpszPathName);
    return bWritten;
}

int Dots(double dMillimetres)
{
    return static_cast<int>(dMillimetres * DotsPerMillimetre);
}

} // namespace

BOOL CPlotPrinter::Print(LPCTSTR lpszPathName, LPCTSTR lpszTitle, const CPlotSummary &summary) const
{
    return WriteFile(lpszPathName, MakePages(lpszTitle, summary));
}

QByteArray CPlotPrinter::MakePages(LPCTSTR lpszTitle, const CPlotSummary &summary) const
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(Resolution);
    writer.setPageSize(QPageSize(m_sheet.sheetSize(), QPageSize::Millimeter));
    writer.setPageMargins(QMarginsF());
    writer.setTitle(toQString(lpszTitle));
    writer.setCreator(resourceText(IDS_APP_TITLE));
    {
        // The pages are complete when the painter is gone.
        KxQtPrinterPainter painter(&writer);
        painter.beginDraw();
        DrawSheet(painter, QRect(0, 0, writer.width(), writer.height()));
        painter.endDraw();
        writer.newPage();
        painter.beginDraw();
        DrawSummary(painter, lpszTitle, summary);
        painter.endDraw();
    }
    return buffer.data();
}

void CPlotPrinter::DrawSheet(KxQtPainterWrapper &painter, const QRect &page) const
{
    PlotSheetPainter sheet(m_sheet);
    const QSize size = (m_sheet.sheetSize() * FillPixelsPerMillimetre).toSize();
    sheet.setFilled(m_sheet.filledWith(m_fills, size));
    sheet.paint(painter, page);
}

void CPlotPrinter::DrawSummary(KxQtPainterWrapper &painter, LPCTSTR lpszTitle,
                               const CPlotSummary &summary) const
{
    constexpr double dMargin = 20;  // millimetres, as are all lengths here
    constexpr double dHeading = 7;
    constexpr double dText = 4;
    double dBaseLine = dMargin + dHeading;
    setGdiFont(painter, Dots(dHeading), FW_BOLD);
    painter.drawText(Dots(dMargin), Dots(dBaseLine), lpszTitle, -1);
    setGdiFont(painter, Dots(dText), FW_MEDIUM, FIXED_PITCH);
    dBaseLine += dHeading;
    const CStringArray &lines = summary.GetLines();
    for (long i = 0; i < lines.GetSize(); ++i) {
        dBaseLine += 1.5 * dText;
        painter.drawText(Dots(dMargin), Dots(dBaseLine), lines[i], -1);
    }
}
