// SPDX-License-Identifier: MIT
#pragma once

#include "KxResultNumber.h"

#include <QtTest/QTest>

#include <cstddef>

/// @file
/// Rows that compare the numbers of sizes, fields and constants, named as the source names them.

inline void numberColumns()
{
    QTest::addColumn<qint64>("actual");
    QTest::addColumn<qint64>("expected");
}

template<class Type>
void numberRow(const char *name, Type actual, qint64 expected)
{
    QTest::newRow(name) << number(actual) << expected;
}

inline void compareNumbers()
{
    QFETCH(qint64, actual);
    QFETCH(qint64, expected);
    QCOMPARE(actual, expected);
}

#define SIZE_ROW(type, bytes) numberRow("sizeof " #type, sizeof(type), bytes)
#define OFFSET_ROW(type, field, bytes) numberRow(#type "::" #field, offsetof(type, field), bytes)
#define CONSTANT_ROW(name, value) numberRow(#name, name, value)
#define EXPRESSION_ROW(expression, value) numberRow(#expression, expression, value)
