// SPDX-License-Identifier: MIT
// The diagnostics of a program that is built without _DEBUG.

#undef _DEBUG

#include "KxChildOutcome.h"
#include "KxTestCase.h"

#include <afxwin.h>

namespace {

int evaluations = 0;

template<typename Value>
[[maybe_unused]] Value evaluated(Value value)
{
    ++evaluations;
    return value;
}

[[maybe_unused]] const CObject *const noObject = nullptr;

} // namespace

using Code = void (*)();
Q_DECLARE_METATYPE(Code)

class TestAfxRelease : public KxTestCase
{
    Q_OBJECT

private slots:
    void diagnostic_data();
    void diagnostic();
};

void TestAfxRelease::diagnostic_data()
{
    QTest::addColumn<Code>("code");
    QTest::addColumn<int>("expectedEvaluations");

    QTest::newRow("ASSERT is not evaluated") << Code([] { ASSERT(evaluated(false)); }) << 0;
    QTest::newRow("VERIFY is evaluated") << Code([] { VERIFY(evaluated(false)); }) << 1;
    QTest::newRow("ATLASSERT is not evaluated") << Code([] { ATLASSERT(evaluated(false)); }) << 0;
    QTest::newRow("ATLVERIFY is evaluated") << Code([] { ATLVERIFY(evaluated(false)); }) << 1;
    QTest::newRow("DEBUG_ONLY is not evaluated") << Code([] { DEBUG_ONLY(evaluated(1)); }) << 0;
    QTest::newRow("ASSERT_VALID is not evaluated") << Code([] { ASSERT_VALID(evaluated(noObject)); }) << 0;
    QTest::newRow("ASSERT_POINTER is not evaluated")
        << Code([] { ASSERT_POINTER(evaluated(noObject), CObject); }) << 0;
    QTest::newRow("ASSERT_NULL_OR_POINTER is not evaluated")
        << Code([] { ASSERT_NULL_OR_POINTER(evaluated(noObject), CObject); }) << 0;
    QTest::newRow("ASSERT_KINDOF is not evaluated")
        << Code([] { ASSERT_KINDOF(CObject, evaluated(noObject)); }) << 0;
    QTest::newRow("TRACE is not evaluated") << Code([] { TRACE("%d\n", evaluated(1)); }) << 0;
    QTest::newRow("TRACE0 is not there") << Code([] { TRACE0("text\n"); }) << 0;
    QTest::newRow("TRACE1 is not evaluated") << Code([] { TRACE1("%d\n", evaluated(1)); }) << 0;
    QTest::newRow("ENSURE of true is evaluated") << Code([] { ENSURE(evaluated(true)); }) << 1;
    QTest::newRow("ENSURE of false stops the program") << Code([] { ENSURE(evaluated(false)); }) << -1;
    QTest::newRow("ENSURE_ARG of false stops the program")
        << Code([] { ENSURE_ARG(evaluated(false)); }) << -1;
    QTest::newRow("ENSURE_VALID of null stops the program")
        << Code([] { ENSURE_VALID(evaluated(noObject)); }) << -1;
}

void TestAfxRelease::diagnostic()
{
    QFETCH(Code, code);
    QFETCH(int, expectedEvaluations);
    if (expectedEvaluations >= 0) {
        evaluations = 0;
        code();
        QCOMPARE(evaluations, expectedEvaluations);
    }
    const auto outcome = kxRunInChild(code);
    QCOMPARE(outcome.aborted, expectedEvaluations < 0);
    QCOMPARE(outcome.standardError.contains("assertion failed in file"), expectedEvaluations < 0);
    if (expectedEvaluations >= 0)
        QCOMPARE(outcome.standardError, QByteArray());
}

KX_TEST_MAIN(TestAfxRelease)

#include "tst_afx_release.moc"
