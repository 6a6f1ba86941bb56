// SPDX-License-Identifier: MIT
#pragma once

#include <QtTest/QtTest>
#include <QtWidgets/QWidget>

#include <KxAfxDDX.h>
#include <KxAfxWin.h>

#include <functional>

/// A window whose DoDataExchange is the row's own.
class KxExchangingWnd : public CWnd
{
public:
    KxExchangingWnd() : CWnd(nullptr) {}

    void DoDataExchange(CDataExchange *exchange) override
    {
        ++passes;
        if (body)
            body(exchange);
    }

    std::function<void(CDataExchange *)> body;
    int passes = 0;
};

/// A window with one control under the ID 7.
template<class Widget>
struct KxExchangeForm {
    KxExchangeForm()
    {
        window.Attach(KxHwndFromWidget(&top));
        window.SetDlgItem(id, KxHwndFromWidget(&control));
    }

    template<class Value>
    void exchange(bool save, void (*function)(CDataExchange *, int, Value &), Value &value)
    {
        window.body = [&](CDataExchange *pass) { function(pass, id, value); };
        QVERIFY(window.UpdateData(save));
    }

    static constexpr int id = 7;

    QWidget top;
    Widget control{&top};
    KxExchangingWnd window;
};
