// SPDX-License-Identifier: MIT
#include "KxAfxWinEdit.h"

#include "KxAfxWin_p.h"
#include "KxText_p.h"

#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QTextEdit>

CEdit::~CEdit() = default;

void CEdit::SetWindowTextW(const wchar_t *lpszString)
{
    QWidget *widget = boundWidget(this);
    if (!widget || !lpszString)
        return;
    const QString text = toQString(lpszString);
    if (auto *edit = qobject_cast<QLineEdit *>(widget)) {
        edit->setText(text);
    } else if (auto *doubleBox = qobject_cast<QDoubleSpinBox *>(widget)) {
        const QuietSignals quiet(doubleBox);
        doubleBox->setValue(text.toDouble());
    } else if (auto *box = qobject_cast<QSpinBox *>(widget)) {
        const QuietSignals quiet(box);
        box->setValue(text.toInt());
    } else if (auto *textEdit = qobject_cast<QTextEdit *>(widget)) {
        textEdit->setText(text);
    }
}

void CEdit::GetWindowTextW(CString &rString) const
{
    const QWidget *widget = boundWidget(this);
    if (auto *edit = qobject_cast<const QLineEdit *>(widget))
        rString = toCString(edit->text());
    else if (auto *box = qobject_cast<const QAbstractSpinBox *>(widget))
        rString = toCString(box->text());
}

int CEdit::GetWindowTextW(wchar_t *lpszStringBuf, int nMaxCount) const
{
    return boundWidget(this) ? CWnd::GetWindowTextW(lpszStringBuf, nMaxCount) : 0;
}

int CEdit::GetWindowTextLengthW() const
{
    return isSmallHandle(this) ? 0 : CWnd::GetWindowTextLengthW();
}

BOOL CEdit::SetReadOnly(BOOL bReadOnly)
{
    QWidget *widget = boundWidget(this);
    if (auto *edit = qobject_cast<QLineEdit *>(widget)) {
        edit->setReadOnly(bReadOnly);
        return true;
    }
    if (auto *textEdit = qobject_cast<QTextEdit *>(widget)) {
        textEdit->setReadOnly(bReadOnly);
        return true;
    }
    return false;
}

void CEdit::SetLimitText(UINT nMax)
{
    if (auto *edit = boundWidget<QLineEdit>(this))
        edit->setMaxLength(static_cast<int>(nMax));
}

int CEdit::GetLine(int, wchar_t *lpszBuffer, int nMaxLength) const
{
    const auto *edit = boundWidget<QLineEdit>(this);
    return edit ? fillField(lpszBuffer, nMaxLength, edit->text()) : 0;
}

// ---- fixed results -------------------------------------------------------------------------------------

void CEdit::SetSel(DWORD, BOOL) {}
void CEdit::SetSel(int, int, BOOL) {}
DWORD CEdit::GetSel() const { return 0; }
void CEdit::GetSel(int &, int &) const {}
void CEdit::ReplaceSel(const wchar_t *, BOOL) {}
BOOL CEdit::GetModify() const { return true; }
void CEdit::SetModify(BOOL) {}
BOOL CEdit::Undo() { return true; }
void CEdit::Clear() {}
void CEdit::Copy() {}
void CEdit::Cut() {}
void CEdit::Paste() {}
