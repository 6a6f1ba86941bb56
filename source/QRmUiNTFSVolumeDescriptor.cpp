// SPDX-License-Identifier: MIT
#include "QRmUiNTFSVolumeDescriptor.h"

CRmUiNTFSVolumeDescriptor::CRmUiNTFSVolumeDescriptor(const CString &name) : CRmUiVolumeDescriptor(name)
{
    m_type = kNTFS;
}

CRmUiNTFSVolumeDescriptor::~CRmUiNTFSVolumeDescriptor() = default;

bool CRmUiNTFSVolumeDescriptor::ValidateFilename(const CString *name, bool wildcardsAllowed) const
{
    if (!name || static_cast<unsigned int>(name->GetLength()) > m_maximumFilenameLength)
        return false;
    if (name->IsEmpty())
        return true;
    CString behindFirst;
    StringFromPath(behindFirst, name);
    if (!ValidateVolChar(name, name->front()) || behindFirst.Find(m_uncPrefix) >= 0)
        return false;
    return hasOnlyCharactersOutside(wildcardsAllowed ? L"<>|/\"" : L"*<>?|/\"", *name);
}

bool CRmUiNTFSVolumeDescriptor::ValidateSegment(const CString *segment, bool wildcardsAllowed) const
{
    if (!segment || static_cast<unsigned int>(segment->GetLength()) > m_maximumSegmentLength)
        return false;
    return hasOnlyCharactersOutside(wildcardsAllowed ? L":<>/\\|\"" : L"*:<>?/\\|\"", *segment);
}
