// SPDX-License-Identifier: MIT
#include "KxAfxDlgs.h"

#include "KxAfxWin_p.h"
#include "KxText_p.h"

#include <QtWidgets/QFileDialog>

/// A parent widget may delete it first; then the field that it is kept in becomes null.
class CFileDialogImpl : public QFileDialog
{
public:
    explicit CFileDialogImpl(CFileDialogImpl *&field)
        : QFileDialog(nullptr, QString(), QString(), QString())
        , m_field(field)
    {
    }
    ~CFileDialogImpl() override { m_field = nullptr; }

private:
    CFileDialogImpl *&m_field;
};

namespace {

// The descriptions, which carry their patterns themselves; between them stand Win32's patterns.
QStringList descriptionsOf(const QString &filter)
{
    const QStringList parts = filter.split(QLatin1Char('|'));
    QStringList descriptions;
    for (int i = 0; i < parts.size(); i += 2) {
        if (!parts.at(i).isEmpty())
            descriptions.append(parts.at(i));
    }
    return descriptions;
}

} // namespace

CFileDialog::CFileDialog(BOOL bOpenFileDialog, const wchar_t *lpszDefExt, const wchar_t *lpszFileName, DWORD,
                         const wchar_t *lpszFilter, CWnd *pParentWnd, DWORD, BOOL)
    : m_impl(new CFileDialogImpl(m_impl))
{
    const HWND parent = isSmallHandle(pParentWnd) ? nullptr : pParentWnd->GetSafeHwnd();
    m_impl->setParent(KxWidgetFromHwnd(parent), m_impl->windowFlags());
    m_impl->setAcceptMode(bOpenFileDialog ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
    m_impl->setDefaultSuffix(toQString(lpszDefExt).right(3));
    m_impl->setNameFilters(descriptionsOf(toQString(lpszFilter)));
    m_impl->selectFile(toQString(lpszFileName));
}

CFileDialog::~CFileDialog()
{
    delete m_impl;
}

INT_PTR CFileDialog::DoModal()
{
    return m_impl ? m_impl->exec() : QDialog::Rejected;
}

CString CFileDialog::GetPathName() const
{
    return m_impl ? toCString(m_impl->selectedFiles().value(0)) : CString();
}

CString CFileDialog::GetFileName() const { return CString(); }
