// SPDX-License-Identifier: MIT
#pragma once

#include "stdafx.h"

#include <QtCore/QString>

/// The string resource `id` for a widget.
QString resourceText(UINT id);

QString toQString(LPCTSTR text);
CString toCString(const QString &text);

/// The absolute path of a file, by which it is known whatever the current folder is.
CString fullPath(LPCTSTR path);

/// The end of a path that is longer. What Format() makes has room for a thousand characters, paths have more.
CString shortenedPath(const CString &path, int longest = 400);
