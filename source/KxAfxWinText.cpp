// SPDX-License-Identifier: MIT
#include "KxAfxWin_p.h"
#include "KxText_p.h"

#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QTextEdit>

void CWnd::SetWindowTextW(const wchar_t *lpszString)
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
    } else if (auto *label = qobject_cast<QLabel *>(widget)) {
        label->setText(text);
    } else if (auto *group = qobject_cast<QGroupBox *>(widget)) {
        group->setTitle(text);
    } else if (auto *button = qobject_cast<QAbstractButton *>(widget)) {
        button->setText(text);
    } else if (auto *combo = qobject_cast<QComboBox *>(widget)) {
        combo->setEditText(text);
    } else if (auto *textEdit = qobject_cast<QTextEdit *>(widget)) {
        textEdit->setText(text);
    } else {
        widget->setWindowTitle(text);
    }
}

void CWnd::GetWindowTextW(CString &rString) const
{
    const QWidget *widget = boundWidget(this);
    if (!widget)
        return;
    QString text;
    if (auto *edit = qobject_cast<const QLineEdit *>(widget))
        text = edit->text();
    else if (auto *box = qobject_cast<const QAbstractSpinBox *>(widget))
        text = box->text();
    else if (auto *label = qobject_cast<const QLabel *>(widget))
        text = label->text();
    else if (auto *group = qobject_cast<const QGroupBox *>(widget))
        text = group->title();
    else if (auto *button = qobject_cast<const QAbstractButton *>(widget))
        text = button->text();
    else if (auto *combo = qobject_cast<const QComboBox *>(widget))
        text = combo->isEditable() ? combo->lineEdit()->text() : combo->currentText();
    else if (auto *textEdit = qobject_cast<const QTextEdit *>(widget))
        text = textEdit->toPlainText();
    else
        text = widget->windowTitle();
    rString = toCString(text);
}

int CWnd::GetWindowTextW(wchar_t *lpszStringBuf, int nMaxCount) const
{
    CString text;
    GetWindowTextW(text);
    return fillBuffer(lpszStringBuf, nMaxCount, text);
}

int CWnd::GetWindowTextLengthW() const
{
    if (isSmallHandle(this))
        return smallHandleResult<int>(this);
    CString text;
    GetWindowTextW(text);
    return text.GetLength();
}
