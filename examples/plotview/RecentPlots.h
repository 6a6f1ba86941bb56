// SPDX-License-Identifier: MIT
#pragma once

#include "stdafx.h"

#include <vector>

/// The plots opened last, the latest first, as the program remembers them.
class CRecentPlots
{
public:
    /// What is remembered.
    CRecentPlots();

    const std::vector<CString> &GetPaths() const { return m_paths; }

    /// Puts a plot in front. A path that can not be kept, since it is too long, is left out.
    void Add(LPCTSTR lpszPathName);
    void Remove(LPCTSTR lpszPathName);

    /// How a path is shown where there is little room.
    static CString GetDisplayName(LPCTSTR lpszPathName);

private:
    void Drop(LPCTSTR lpszPathName);

    std::vector<CString> m_paths;
};
