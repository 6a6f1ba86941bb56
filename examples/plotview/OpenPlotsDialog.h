// SPDX-License-Identifier: MIT
#pragma once

#include "stdafx.h"

#include <vector>

/// Asks for the plots to open, one or several.
class COpenPlotsDialog
{
public:
    /// Begins in the folder. \return the paths of the chosen files, none when the user thinks better of it
    std::vector<CString> Ask(const CWnd &parent, const CString &strFolder);

private:
    DWORD m_nFilterIndex = 1;   // what was chosen last
};
