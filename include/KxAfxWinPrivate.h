// SPDX-License-Identifier: MIT
#pragma once

#include "KxExport.h"
#include "KxWinTypes.h"

#include <map>

class CDC;
class CWnd;
class QWidget;

/// \file
/// The private blocks behind the window objects, for derived classes that bring a larger one.

/// What a CWnd keeps. Allocated with `new` and owned by its window from the constructor on.
class KX_EXPORT CWndPrivate
{
public:
    virtual ~CWndPrivate() = default;

    /// The bound widget; null when unbound or orphaned. Never owned, unless `keepWidget` is false.
    QWidget *widget = nullptr;
    /// The window object that owns this block.
    CWnd *q = nullptr;
    CWnd *parentWnd = nullptr;
    /// Made by CWnd::GetDC(); owned.
    CDC *dc = nullptr;
    /// False for a temporary wrapper, which the library deletes.
    bool keepObject = true;
    /// False when ~CWnd() deletes the widget.
    bool keepWidget = true;
    /// The dialog items by identifier.
    std::map<int, HWND> items;
    int ctrlId = -1;
};

/// What a CDialog keeps.
class KX_EXPORT CDialogPrivate : public CWndPrivate
{
public:
    /// Marks the block as a dialog's.
    int m_isDialog = 1;
};
