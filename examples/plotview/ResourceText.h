// SPDX-License-Identifier: MIT
#pragma once

#include "stdafx.h"

#include <QtCore/QString>

/// The string resource `id` for a widget.
QString resourceText(UINT id);

QString toQString(LPCTSTR text);
CString toCString(const QString &text);
