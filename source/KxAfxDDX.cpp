// SPDX-License-Identifier: MIT
#include "KxAfxDDX.h"

#include "KxAfxWin_p.h"
#include "KxPlatformBase.h"
#include "KxText_p.h"

#include <QtWidgets/QButtonGroup>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QRadioButton>
#include <QtWidgets/QSlider>

#include <charconv>
#include <limits>

CDataExchange::CDataExchange(CWnd *pDlgWnd, BOOL bSaveAndValidate)
    : m_bSave(bSaveAndValidate)
    , m_bInit(true)
    , m_bFailed(false)
    , m_pDlgWnd(pDlgWnd)
{
}

void CDataExchange::Fail()
{
    m_bFailed = true;
}

HWND CDataExchange::PrepareEditCtrl(int nIDC)
{
    const CWnd *control = isSmallHandle(m_pDlgWnd) ? nullptr : m_pDlgWnd->GetDlgItem(nIDC);
    return control ? control->GetSafeHwnd() : nullptr;
}

namespace {

/// The control of an exchange when it can be reached, otherwise null.
CWnd *exchangedControl(const CDataExchange *exchange, int id)
{
    if (!exchange || isSmallHandle(exchange->m_pDlgWnd) || !exchange->m_pDlgWnd->m_hWnd)
        return nullptr;
    CWnd *control = exchange->m_pDlgWnd->GetDlgItem(id);
    return control && boundBlock(control) ? control : nullptr;
}

/// The widget of that control when it is a `Widget`, otherwise null.
template<class Widget>
Widget *exchangedWidget(const CDataExchange *exchange, int id)
{
    const CWnd *control = exchangedControl(exchange, id);
    return control ? boundWidget<Widget>(control) : nullptr;
}

// ---- numbers as text -----------------------------------------------------------------------------------

template<class Number>
Number parsedNumber(const wchar_t *text)
{
    if constexpr (std::is_floating_point_v<Number>)
        return static_cast<Number>(_wtof(text));
    else if constexpr (sizeof(Number) == sizeof(long))
        return static_cast<Number>(_wtol(text));
    else
        return static_cast<Number>(_wtoi(text));
}

/// Six decimals with a point, as "%f" in the C locale.
CString shownNumber(double number)
{
    char digits[std::numeric_limits<double>::max_exponent10 + 16];
    const auto end = std::to_chars(digits, std::end(digits), number, std::chars_format::fixed, 6).ptr;
    return CString(std::wstring(digits, end));
}

/// Unsigned numbers are shown as signed ones of their size.
template<class Number>
CString shownNumber(Number number)
{
    if constexpr (sizeof(Number) == sizeof(long))
        return CString(std::to_wstring(static_cast<long>(number)));
    else
        return CString(std::to_wstring(static_cast<int>(number)));
}

template<class Number>
void exchangeNumber(const CDataExchange *exchange, int id, Number &value)
{
    CWnd *control = exchangedControl(exchange, id);
    if (!control)
        return;
    if (!exchange->m_bSave) {
        if constexpr (std::is_floating_point_v<Number>)
            control->SetWindowTextW(shownNumber(static_cast<double>(value)));
        else
            control->SetWindowTextW(shownNumber(value));
        return;
    }
    CString text;
    control->GetWindowTextW(text);
    if (text.GetLength() > 0)
        value = parsedNumber<Number>(text);
}

} // namespace

void DDX_Text(CDataExchange *pDX, int nIDC, unsigned char &value) { exchangeNumber(pDX, nIDC, value); }
void DDX_Text(CDataExchange *pDX, int nIDC, short &value) { exchangeNumber(pDX, nIDC, value); }
void DDX_Text(CDataExchange *pDX, int nIDC, int &value) { exchangeNumber(pDX, nIDC, value); }
void DDX_Text(CDataExchange *pDX, int nIDC, unsigned int &value) { exchangeNumber(pDX, nIDC, value); }
void DDX_Text(CDataExchange *pDX, int nIDC, long &value) { exchangeNumber(pDX, nIDC, value); }
void DDX_Text(CDataExchange *pDX, int nIDC, unsigned long &value) { exchangeNumber(pDX, nIDC, value); }
void DDX_Text(CDataExchange *pDX, int nIDC, float &value) { exchangeNumber(pDX, nIDC, value); }
void DDX_Text(CDataExchange *pDX, int nIDC, double &value) { exchangeNumber(pDX, nIDC, value); }

void DDX_Text(CDataExchange *pDX, int nIDC, CString &value)
{
    CWnd *control = exchangedControl(pDX, nIDC);
    if (!control)
        return;
    if (pDX->m_bSave)
        control->GetWindowTextW(value);
    else
        control->SetWindowTextW(value);
}

void DDX_Text(CDataExchange *pDX, int nIDC, wchar_t *value, int nMaxLength)
{
    CWnd *control = exchangedControl(pDX, nIDC);
    if (!control)
        return;
    if (pDX->m_bSave)
        control->GetWindowTextW(value, nMaxLength);
    else
        control->SetWindowTextW(value);
}

// ---- states and positions ------------------------------------------------------------------------------

namespace {

template<class Value>
void exchangeChecked(const CDataExchange *exchange, int id, Value &value)
{
    auto *button = exchangedWidget<QAbstractButton>(exchange, id);
    if (!button || !button->isCheckable())
        return;
    if (exchange->m_bSave)
        value = button->isChecked();
    else
        button->setChecked(value != Value());
}

/// Loading corrects an index that is not there to 0, in the member too.
void correctIndex(int &value, int count)
{
    if (value < 0 || value >= count)
        value = 0;
}

} // namespace

void DDX_Check(CDataExchange *pDX, int nIDC, bool &value) { exchangeChecked(pDX, nIDC, value); }
void DDX_Check(CDataExchange *pDX, int nIDC, int &value) { exchangeChecked(pDX, nIDC, value); }

void DDX_Radio(CDataExchange *pDX, int nIDC, int &value)
{
    const auto *radioButton = exchangedWidget<QRadioButton>(pDX, nIDC);
    const QWidget *parent = radioButton ? radioButton->parentWidget() : nullptr;
    const auto *group =
        parent ? parent->findChild<QButtonGroup *>(QString(), Qt::FindDirectChildrenOnly) : nullptr;
    if (!group)
        return;
    if (pDX->m_bSave)
        value = group->checkedId();
    else if (QAbstractButton *button = group->button(value))
        button->setChecked(true);
}

void DDX_CBString(CDataExchange *pDX, int nIDC, CString &value)
{
    auto *combo = exchangedWidget<QComboBox>(pDX, nIDC);
    if (!combo)
        return;
    if (pDX->m_bSave)
        value = toCString(combo->currentText());
    else
        combo->setCurrentText(toQString(value));
}

void DDX_LBIndex(CDataExchange *pDX, int nIDC, int &value)
{
    auto *list = exchangedWidget<QListWidget>(pDX, nIDC);
    if (!list)
        return;
    if (pDX->m_bSave) {
        value = list->currentRow();
    } else {
        correctIndex(value, list->count());
        list->setCurrentRow(value);
    }
}

void DDX_CBIndex(CDataExchange *pDX, int nIDC, int &value)
{
    auto *combo = exchangedWidget<QComboBox>(pDX, nIDC);
    if (!combo)
        return;
    if (pDX->m_bSave) {
        value = combo->currentIndex();
    } else {
        correctIndex(value, combo->count());
        combo->setCurrentIndex(value);
    }
}

void DDX_Slider(CDataExchange *pDX, int nIDC, int &value)
{
    auto *slider = exchangedWidget<QSlider>(pDX, nIDC);
    if (!slider)
        return;
    if (pDX->m_bSave) {
        value = slider->value();
    } else if (slider->minimum() <= value && value <= slider->maximum()) {
        const QuietSignals quiet(slider);
        slider->setValue(value);
    }
}

void DDX_Control(CDataExchange *pDX, int nIDC, CWnd &rControl)
{
    if (pDX && pDX->m_pDlgWnd && !rControl.m_hWnd)
        rControl.SubclassDlgItem(static_cast<UINT>(nIDC), pDX->m_pDlgWnd);
}

void DDX_LBString(CDataExchange *, int, CString &) {}
void DDV_MinMaxInt(CDataExchange *, int, int, int) {}
void DDV_MinMaxDouble(CDataExchange *, const double &, double, double) {}
void DDV_MaxChars(CDataExchange *, const CString &, int) {}
