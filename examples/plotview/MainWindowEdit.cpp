// SPDX-License-Identifier: MIT
#include "stdafx.h"

#include "MainWindow.h"

#include "PlotMainForm.h"
#include "PlotViewApp.h"

#include <QtWidgets/QAction>

// What the Edit menu does: strokes go over the clipboard from one plot into another.

void CMainWindow::OnEditCopy()
{
    const std::vector<PlotStroke> strokes = GetSelectedStrokes();
    if (strokes.empty())
        return;
    m_clipboard.Copy(strokes);
    SetStatus(IDC_STATUS_MESSAGE, IDS_COPIED_FORMAT, static_cast<int>(strokes.size()));
}

// Beside where they come from, so that they are seen in their own plot too.
void CMainWindow::OnEditPaste()
{
    constexpr double dOffset = 5 * Plot::UnitsPerMillimetre;
    std::vector<PlotStroke> strokes = m_clipboard.Paste();
    if (strokes.empty())
        return;
    for (PlotStroke &stroke : strokes)
        stroke.points.translate(dOffset, -dOffset);
    if (!Document().AddStrokes(strokes)) {
        CString strReason;
        strReason.LoadString(IDS_ERROR_PASTE);
        theApp().Report(strReason);
        return;
    }
    ShowPlot();
    PlotMarks marks;
    const auto nEnd = static_cast<int>(Document().GetPlot()->strokes.size());
    for (int i = nEnd - static_cast<int>(strokes.size()); i < nEnd; ++i)
        marks.push_back({PlotLayer::Strokes, i});
    SelectMarks(marks);
    SetStatus(IDC_STATUS_MESSAGE, IDS_PASTED_FORMAT, static_cast<int>(strokes.size()));
}

// Only while the menu is there do its commands show whether there is something to do; their shortcuts work
// at any time.
void CMainWindow::OnEnterMenuLoop(BOOL)
{
    const auto restrict = [this](UINT nID, BOOL bPossible) {
        QAction *action = m_pForm->commands().at(nID);
        action->setEnabled(action->isEnabled() && bPossible);
    };
    restrict(ID_EDIT_COPY, !GetSelectedStrokes().empty());
    restrict(ID_EDIT_PASTE, m_clipboard.IsAvailable());
}

void CMainWindow::OnExitMenuLoop(BOOL)
{
    UpdateCommands();
}

void CMainWindow::SelectMarks(const PlotMarks &marks)
{
    m_pForm->selectMarkRows(m_ctlMarks.FindRows(marks));
}

std::vector<PlotStroke> CMainWindow::GetSelectedStrokes()
{
    std::vector<PlotStroke> strokes;
    for (const PlotMark &mark : m_ctlMarks.GetSelectedMarks()) {
        if (mark.kind == PlotLayer::Strokes)
            strokes.push_back(Document().GetPlot()->strokes[static_cast<std::size_t>(mark.index)]);
    }
    return strokes;
}
