// SPDX-License-Identifier: MIT
#pragma once

#include "KxExport.h"
#include "KxStdStr.h"
#include "KxWinTypes.h"

class CWnd;

/// \file
/// Dialog data exchange: moves values between a dialog's members and its controls, as the DDX_* routines of MFC.
///
/// A DDX_* call finds its control as a dialog item of the exchange's dialog and does nothing, in either
/// direction, when there is none, when it is not bound, or when its widget is of another kind. Nothing is
/// validated, no message is shown and nothing is thrown: text that is no number reads as 0.

/// MFC's name of the direction.
#define m_bSaveAndValidate m_bSave

/// One pass of data exchange. Lives on the stack of CWnd::UpdateData().
class KX_EXPORT CDataExchange
{
public:
    /// TRUE saves, controls to members; FALSE loads.
    bool m_bSave;
    /// TRUE; read by nothing.
    bool m_bInit;
    bool m_bFailed;
    /// The dialog whose controls are exchanged; not owned.
    CWnd *m_pDlgWnd;

    CDataExchange(CWnd *pDlgWnd, BOOL bSaveAndValidate);

    /// Makes UpdateData() return FALSE. Unlike MFC it returns: the rest of the pass still runs.
    void Fail();
    /// \return the handle of the dialog item, null when there is none
    HWND PrepareEditCtrl(int nIDC);
};

/// Numbers and the text of a control. Saving an empty text leaves a number as it is; small types keep the low
/// bits of what was read. Numbers have a decimal point in every locale, and six decimals when loaded.
KX_EXPORT void DDX_Text(CDataExchange *pDX, int nIDC, unsigned char &value);
/// \copydoc DDX_Text(CDataExchange *, int, unsigned char &)
KX_EXPORT void DDX_Text(CDataExchange *pDX, int nIDC, short &value);
/// \copydoc DDX_Text(CDataExchange *, int, unsigned char &)
KX_EXPORT void DDX_Text(CDataExchange *pDX, int nIDC, int &value);
/// Values above 2147483647 load as negative numbers.
KX_EXPORT void DDX_Text(CDataExchange *pDX, int nIDC, unsigned int &value);
/// \copydoc DDX_Text(CDataExchange *, int, unsigned char &)
KX_EXPORT void DDX_Text(CDataExchange *pDX, int nIDC, long &value);
/// Values above 9223372036854775807 load as negative numbers.
KX_EXPORT void DDX_Text(CDataExchange *pDX, int nIDC, unsigned long &value);
/// \copydoc DDX_Text(CDataExchange *, int, unsigned char &)
KX_EXPORT void DDX_Text(CDataExchange *pDX, int nIDC, float &value);
/// \copydoc DDX_Text(CDataExchange *, int, unsigned char &)
KX_EXPORT void DDX_Text(CDataExchange *pDX, int nIDC, double &value);
KX_EXPORT void DDX_Text(CDataExchange *pDX, int nIDC, CString &value);
/// `value` has room for `nMaxLength` characters with the terminating zero.
KX_EXPORT void DDX_Text(CDataExchange *pDX, int nIDC, wchar_t *value, int nMaxLength);

/// The checked state of a checkable QAbstractButton.
KX_EXPORT void DDX_Check(CDataExchange *pDX, int nIDC, bool &value);
/// The checked state of a checkable QAbstractButton, as 0 or 1; there is no third state.
KX_EXPORT void DDX_Check(CDataExchange *pDX, int nIDC, int &value);
/// The checked button of the QButtonGroup that is a direct child of the parent of the QRadioButton `nIDC`, by
/// its identifier in the group; -1 saves when none is checked. Unlike MFC the value is no position. Loading an
/// identifier that the group has not changes nothing.
KX_EXPORT void DDX_Radio(CDataExchange *pDX, int nIDC, int &value);
KX_INERT("exchanges nothing; use DDX_LBIndex()")
KX_EXPORT void DDX_LBString(CDataExchange *pDX, int nIDC, CString &value);
/// The current text of a QComboBox.
KX_EXPORT void DDX_CBString(CDataExchange *pDX, int nIDC, CString &value);
/// The current row of a QListWidget, -1 when none. Loading a row that is not there sets `value` to 0 first.
KX_EXPORT void DDX_LBIndex(CDataExchange *pDX, int nIDC, int &value);
/// The current index of a QComboBox, -1 when none. Loading an index that is not there sets `value` to 0 first.
KX_EXPORT void DDX_CBIndex(CDataExchange *pDX, int nIDC, int &value);
/// The value of a QSlider. Loading a value out of its range changes nothing; the slider's signals stay quiet.
KX_EXPORT void DDX_Slider(CDataExchange *pDX, int nIDC, int &value);
/// Binds `rControl` to the dialog item, in either direction, unless it has a handle already.
KX_EXPORT void DDX_Control(CDataExchange *pDX, int nIDC, CWnd &rControl);

KX_INERT("checks nothing")
KX_EXPORT void DDV_MinMaxInt(CDataExchange *pDX, int value, int minVal, int maxVal);
KX_INERT("checks nothing")
KX_EXPORT void DDV_MinMaxDouble(CDataExchange *pDX, const double &value, double minVal, double maxVal);
KX_INERT("checks nothing")
KX_EXPORT void DDV_MaxChars(CDataExchange *pDX, const CString &value, int nChars);
