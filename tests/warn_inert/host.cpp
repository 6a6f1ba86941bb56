// SPDX-License-Identifier: MIT
// A piece of a ported application. The calls at the lines that end in "inert" do nothing here.
#include <afxwin.h>

class CExportDialog : public CDialog
{
public:
    void remember(CWinApp &application);

protected:
    void DoDataExchange(CDataExchange *pDX) override;

private:
    int m_copies = 1;
};

void CExportDialog::DoDataExchange(CDataExchange *pDX)
{
    CDialog::DoDataExchange(pDX);
    DDX_Text(pDX, 1001, m_copies);
    DDV_MinMaxInt(pDX, m_copies, 1, 99); // inert
}

void CExportDialog::remember(CWinApp &application)
{
    application.WriteProfileInt(_T("Export"), _T("Copies"), m_copies);
    application.WriteProfileString(_T("Export"), _T("Name"), _T("plot")); // inert
    UpdateData(TRUE);
    GotoDlgCtrl(GetDlgItem(1001)); // inert
}
