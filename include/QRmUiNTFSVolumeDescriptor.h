// SPDX-License-Identifier: MIT
#pragma once

#include "QRmUiVolumeDescriptor.h"

/// \file
/// The descriptor that checks names.

/// A volume with the names of NTFS.
class KX_EXPORT CRmUiNTFSVolumeDescriptor : public CRmUiVolumeDescriptor
{
public:
    explicit CRmUiNTFSVolumeDescriptor(const CString &name);
    ~CRmUiNTFSVolumeDescriptor() override;

    /// At most 1023 characters, a colon only behind a drive letter at the start, no two backslashes behind
    /// the first character, and none of `< > | / "`, nor of `* ?` unless wildcards are allowed. A single
    /// backslash separates.
    bool ValidateFilename(const CString *name, bool wildcardsAllowed) const override;
    /// At most 255 characters and none of `: < > / \ | "`, nor of `* ?` unless wildcards are allowed.
    bool ValidateSegment(const CString *segment, bool wildcardsAllowed) const override;
};
