// SPDX-License-Identifier: MIT
// The root classes, run-time classes and command user interface; and the diagnostics of a program that is
// built with _DEBUG. tst_afx_release has those of one that is not.

#ifndef _DEBUG
#  define _DEBUG
#endif

#include "KxChildOutcome.h"
#include "KxTestCase.h"

#include <afxwin.h>

#include <cstring>
#include <type_traits>

#if defined(__clang__)
#  pragma clang diagnostic ignored "-Wkeyword-macro"
#endif

// As MFC's wizards write it.
#ifdef _DEBUG
#define new DEBUG_NEW
#undef THIS_FILE
static char THIS_FILE[] = __FILE__;
#endif

namespace {

// ---- Run-time classes ---------------------------------------------------------------------------------

class CFigure : public CObject
{
public:
    int corners = 0;

    DECLARE_DYNAMIC(CFigure)
};

IMPLEMENT_DYNAMIC(CFigure, CObject)

class CSquare : public CFigure
{
public:
    DECLARE_DYNCREATE(CSquare)

    int side = 12;

protected:
    CSquare() { corners = 4; }
};

IMPLEMENT_DYNCREATE(CSquare, CFigure)

class CSavedSquare : public CSquare
{
public:
    DECLARE_SERIAL(CSavedSquare)
};

IMPLEMENT_SERIAL(CSavedSquare, CSquare, VERSIONABLE_SCHEMA | 3)

/// Has no record of its own.
class CPlainSquare : public CSavedSquare
{
public:
    double weight = 0;
};

class CSettingsDialog : public CDialog
{
    DECLARE_DYNAMIC(CSettingsDialog)
};

IMPLEMENT_DYNAMIC(CSettingsDialog, CDialog)

static_assert(std::is_empty_v<CObject> && std::is_trivially_default_constructible_v<CObject>);
static_assert(std::is_empty_v<CCmdTarget> && std::is_trivially_default_constructible_v<CCmdTarget>);
static_assert(std::is_base_of_v<CObject, CCmdTarget> && std::is_base_of_v<CCmdTarget, CWnd>);
static_assert(!std::is_polymorphic_v<CSavedSquare> && sizeof(CSavedSquare) == 2 * sizeof(int),
              "a record adds no virtual operation and no field");
static_assert(sizeof(CSettingsDialog) == sizeof(CDialog));

// ---- Checked objects ----------------------------------------------------------------------------------

class CCheckedObject : public CObject
{
public:
    mutable int checks = 0;

    void AssertValid() const
    {
        CObject::AssertValid();
        ++checks;
    }
};

int evaluations = 0;

/// Counts itself and gives its argument back.
template<typename Value>
Value evaluated(Value value)
{
    ++evaluations;
    return value;
}

const CObject *const noObject = nullptr;

} // namespace

using Code = void (*)();
using RuntimeClass = CRuntimeClass *;
Q_DECLARE_METATYPE(Code)
Q_DECLARE_METATYPE(RuntimeClass)

class TestAfxBasics : public KxTestCase
{
    Q_OBJECT

private slots:
    void diagnostic_data();
    void diagnostic();
    void checksEvaluateOnce();
    void assertValidCallsTheObjects();
    void trace_data();
    void trace();
    void debugNew();
    void runtimeClass_data();
    void runtimeClass();
    void derivation_data();
    void derivation();
    void createsObjects();
    void recordIsOneForEachClass();
    void runtimeClassOfAnObject();
    void downcast_data();
    void downcast();
    void staticDowncast();
    void objectsAnswerForTheirClass();
    void commandUserInterface();
};

void TestAfxBasics::diagnostic_data()
{
    QTest::addColumn<Code>("code");
    QTest::addColumn<int>("failingLine"); // 0: nothing fails

    QTest::newRow("ASSERT of true") << Code([] { ASSERT(true); }) << 0;
    QTest::newRow("ASSERT of false") << Code([] { ASSERT(1 > 2); }) << __LINE__;
    QTest::newRow("ASSERT of a pointer") << Code([] { ASSERT(&evaluations); }) << 0;
    QTest::newRow("ASSERT of a null pointer") << Code([] { ASSERT(noObject); }) << __LINE__;
    QTest::newRow("VERIFY of true") << Code([] { VERIFY(true); }) << 0;
    QTest::newRow("VERIFY of false") << Code([] { VERIFY(evaluated(false)); }) << __LINE__;
    QTest::newRow("ASSERT_VALID of an object") << Code([] { CFigure figure; ASSERT_VALID(&figure); }) << 0;
    QTest::newRow("ASSERT_VALID of null") << Code([] { ASSERT_VALID(noObject); }) << __LINE__;
    QTest::newRow("ASSERT_POINTER of null") << Code([] { ASSERT_POINTER(noObject, CObject); }) << __LINE__;
    QTest::newRow("ASSERT_NULL_OR_POINTER of null")
        << Code([] { ASSERT_NULL_OR_POINTER(noObject, CObject); }) << 0;
    QTest::newRow("ASSERT_KINDOF") << Code([] { CFigure figure; ASSERT_KINDOF(CFigure, &figure); }) << 0;
    QTest::newRow("ATLASSERT of false") << Code([] { ATLASSERT(false); }) << __LINE__;
    QTest::newRow("ATLVERIFY of false") << Code([] { ATLVERIFY(false); }) << __LINE__;
    QTest::newRow("ENSURE of true") << Code([] { ENSURE(true); }) << 0;
    QTest::newRow("ENSURE of false") << Code([] { ENSURE(false); }) << __LINE__;
    QTest::newRow("ENSURE_ARG of false") << Code([] { ENSURE_ARG(false); }) << __LINE__;
    QTest::newRow("ENSURE_VALID of null") << Code([] { ENSURE_VALID(noObject); }) << __LINE__;
}

void TestAfxBasics::diagnostic()
{
    QFETCH(Code, code);
    QFETCH(int, failingLine);
    const auto outcome = kxRunInChild(code);
    const QByteArray message = QByteArray("assertion failed in file ") + __FILE__ + " in line "
        + QByteArray::number(failingLine) + '\n';
    QCOMPARE(outcome.standardError, failingLine ? message : QByteArray());
    QCOMPARE(outcome.aborted, failingLine != 0);
    QCOMPARE(outcome.finished, failingLine == 0);
}

void TestAfxBasics::checksEvaluateOnce()
{
    evaluations = 0;
    ASSERT(evaluated(true));
    QCOMPARE(evaluations, 1);
    VERIFY(evaluated(true));
    QCOMPARE(evaluations, 2);
    ENSURE(evaluated(true));
    QCOMPARE(evaluations, 3);
    DEBUG_ONLY(evaluated(true));
    QCOMPARE(evaluations, 4);
    CFigure figure;
    ASSERT_VALID(evaluated(&figure));
    QCOMPARE(evaluations, 5);
    ENSURE_VALID(evaluated(&figure));
    QCOMPARE(evaluations, 6);
}

void TestAfxBasics::assertValidCallsTheObjects()
{
    CCheckedObject object;
    ASSERT_VALID(&object);
    QCOMPARE(object.checks, 1);
    const CObject *base = &object;
    ASSERT_VALID(base);
    QCOMPARE(object.checks, 1);
}

void TestAfxBasics::trace_data()
{
    QTest::addColumn<Code>("code");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("narrow") << Code([] { TRACE("pen %d of %s\n", 3, "eight"); })
                            << QByteArray("pen 3 of eight\n");
    QTest::newRow("wide") << Code([] { TRACE(L"pen %d of %ls\n", 3, L"eight"); })
                          << QByteArray("pen 3 of eight\n");
    QTest::newRow("generic text") << Code([] { TRACE(_T("plot %d\n"), 7); }) << QByteArray("plot 7\n");
    QTest::newRow("beyond ASCII") << Code([] { TRACE(L"%ls\n", L"\u00FCber"); })
                                  << QByteArray("\xC3\xBC" "ber\n");
    QTest::newRow("wide, then narrow") << Code([] { TRACE(L"a\n"); TRACE("b\n"); }) << QByteArray("a\nb\n");
    QTest::newRow("longer than any buffer") << Code([] { TRACE(L"%5000d\n", 1); })
                                            << QByteArray(4999, ' ') + "1\n";
    QTest::newRow("with category and level") << Code([] { TRACE(traceAppMsg, 0, "pen %d\n", 3); })
                                             << QByteArray("pen 3\n");
    QTest::newRow("wide with category and level") << Code([] { TRACE(traceAppMsg, 0, L"pen %d\n", 3); })
                                                  << QByteArray("pen 3\n");
    QTest::newRow("null format") << Code([] { TRACE(static_cast<const char *>(nullptr)); }) << QByteArray();
    QTest::newRow("null wide format") << Code([] { TRACE(static_cast<const wchar_t *>(nullptr)); })
                                      << QByteArray();
    QTest::newRow("TRACE0") << Code([] { TRACE0("zero\n"); }) << QByteArray("zero\n");
    QTest::newRow("TRACE1") << Code([] { TRACE1("%d\n", 1); }) << QByteArray("1\n");
    QTest::newRow("TRACE2") << Code([] { TRACE2("%d %d\n", 1, 2); }) << QByteArray("1 2\n");
    QTest::newRow("TRACE3") << Code([] { TRACE3("%d %d %d\n", 1, 2, 3); }) << QByteArray("1 2 3\n");
    QTest::newRow("ATLTRACE") << Code([] { ATLTRACE("%d\n", 4); }) << QByteArray("4\n");
}

void TestAfxBasics::trace()
{
    QFETCH(Code, code);
    const auto outcome = kxRunInChild(code);
    QTEST(outcome.standardError, "expected");
    QVERIFY(outcome.finished);
}

void TestAfxBasics::debugNew()
{
    const auto *number = new int(7);
    const auto *numbers = new int[2]{8, 9};
    QCOMPARE(*number + numbers[1], 16);
    delete number;
    delete[] numbers;
    QCOMPARE(THIS_FILE, __FILE__);
}

void TestAfxBasics::runtimeClass_data()
{
    QTest::addColumn<RuntimeClass>("runtimeClass");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("size");
    QTest::addColumn<uint>("schema");
    QTest::addColumn<RuntimeClass>("base");
    QTest::addColumn<bool>("creatable");

    const auto row = [](const char *text, RuntimeClass runtimeClass, const char *name, size_t size,
                        uint schema, RuntimeClass base, bool creatable) {
        QTest::newRow(text) << runtimeClass << QByteArray(name) << int(size) << schema << base << creatable;
    };
    row("CObject", RUNTIME_CLASS(CObject), "CObject", 1, 0xFFFF, nullptr, false);
    row("dynamic", RUNTIME_CLASS(CFigure), "CFigure", 4, 0xFFFF, RUNTIME_CLASS(CObject), false);
    row("dynamically creatable", RUNTIME_CLASS(CSquare), "CSquare", 8, 0xFFFF, RUNTIME_CLASS(CFigure), true);
    row("serial", RUNTIME_CLASS(CSavedSquare), "CSavedSquare", 8, 0x80000003, RUNTIME_CLASS(CSquare), true);
    row("without a record of its own", RUNTIME_CLASS(CPlainSquare), "CPlainSquare", 16, 0xFFFF,
        RUNTIME_CLASS(CObject), false);
    row("of the library", RUNTIME_CLASS(CWnd), "CWnd", sizeof(CWnd), 0xFFFF, RUNTIME_CLASS(CObject), false);
    row("dynamic, with a base of the library", RUNTIME_CLASS(CSettingsDialog), "CSettingsDialog",
        sizeof(CSettingsDialog), 0xFFFF, RUNTIME_CLASS(CDialog), false);
    row("no CObject", RUNTIME_CLASS(CRect), "CRect", 16, 0xFFFF, nullptr, false);
}

void TestAfxBasics::runtimeClass()
{
    QFETCH(RuntimeClass, runtimeClass);
    QFETCH(bool, creatable);
    QTEST(QByteArray(runtimeClass->m_lpszClassName), "name");
    QTEST(runtimeClass->m_nObjectSize, "size");
    QTEST(runtimeClass->m_wSchema, "schema");
    QTEST(runtimeClass->m_pBaseClass, "base");
    QCOMPARE(runtimeClass->m_pfnCreateObject != nullptr, creatable);
}

void TestAfxBasics::derivation_data()
{
    QTest::addColumn<RuntimeClass>("derived");
    QTest::addColumn<RuntimeClass>("base");
    QTest::addColumn<bool>("expected");

    QTest::newRow("of its base") << RUNTIME_CLASS(CSquare) << RUNTIME_CLASS(CFigure) << true;
    QTest::newRow("of its base's base") << RUNTIME_CLASS(CSavedSquare) << RUNTIME_CLASS(CFigure) << true;
    QTest::newRow("of CObject") << RUNTIME_CLASS(CSavedSquare) << RUNTIME_CLASS(CObject) << true;
    QTest::newRow("of itself") << RUNTIME_CLASS(CSquare) << RUNTIME_CLASS(CSquare) << true;
    QTest::newRow("not of what derives from it") << RUNTIME_CLASS(CFigure) << RUNTIME_CLASS(CSquare) << false;
    QTest::newRow("not of a stranger") << RUNTIME_CLASS(CFigure) << RUNTIME_CLASS(CDialog) << false;
    QTest::newRow("not of null") << RUNTIME_CLASS(CFigure) << RuntimeClass() << false;
    QTest::newRow("of a base of the library") << RUNTIME_CLASS(CSettingsDialog) << RUNTIME_CLASS(CDialog)
                                              << true;
    QTest::newRow("a class of the library, of CObject") << RUNTIME_CLASS(CWnd) << RUNTIME_CLASS(CObject)
                                                        << true;
}

void TestAfxBasics::derivation()
{
    QFETCH(RuntimeClass, derived);
    QFETCH(RuntimeClass, base);
    QTEST(derived->IsDerivedFrom(base), "expected");
}

void TestAfxBasics::createsObjects()
{
    auto *square = static_cast<CSquare *>(RUNTIME_CLASS(CSquare)->CreateObject());
    QVERIFY(square);
    QCOMPARE(square->side, 12);
    QCOMPARE(square->corners, 4);
    delete square;
    auto *saved = static_cast<CSavedSquare *>(CSavedSquare::CreateObject());
    QVERIFY(saved);
    QCOMPARE(saved->side, 12);
    delete saved;
    QVERIFY(!RUNTIME_CLASS(CFigure)->CreateObject());
    QVERIFY(!RUNTIME_CLASS(CWnd)->CreateObject());
}

void TestAfxBasics::recordIsOneForEachClass()
{
    QCOMPARE(RUNTIME_CLASS(CFigure), &CFigure::classCFigure);
    QCOMPARE(RUNTIME_CLASS(CFigure), CFigure::GetThisClass());
    QCOMPARE(RUNTIME_CLASS(CWnd), RUNTIME_CLASS(CWnd));
    QVERIFY(RUNTIME_CLASS(CWnd) != RUNTIME_CLASS(CDialog));
    QVERIFY(RUNTIME_CLASS(CPlainSquare) != RUNTIME_CLASS(CSavedSquare));
}

void TestAfxBasics::runtimeClassOfAnObject()
{
    CSavedSquare square;
    QCOMPARE(square.GetRuntimeClass(), RUNTIME_CLASS(CSavedSquare));
    const CFigure &figure = square;
    QCOMPARE(figure.GetRuntimeClass(), RUNTIME_CLASS(CFigure));
    const CObject &object = square;
    QCOMPARE(object.GetRuntimeClass(), RUNTIME_CLASS(CObject));
}

void TestAfxBasics::downcast_data()
{
    QTest::addColumn<bool>("expected");
    QTest::addColumn<bool>("actual");

    CSettingsDialog dialog;
    CDialog plainDialog;
    CSavedSquare square;
    CWnd *window = &dialog;
    CObject *object = &square;
    QTest::newRow("to the object's class") << true << (DYNAMIC_DOWNCAST(CSettingsDialog, window) == &dialog);
    QTest::newRow("to a class in between") << true << (DYNAMIC_DOWNCAST(CDialog, window) == &dialog);
    QTest::newRow("to a base") << true << (DYNAMIC_DOWNCAST(CObject, window) == window);
    window = &plainDialog;
    QTest::newRow("to a class that it is not of") << true << !DYNAMIC_DOWNCAST(CSettingsDialog, window);
    window = nullptr;
    QTest::newRow("null") << true << !DYNAMIC_DOWNCAST(CDialog, window);
    window = reinterpret_cast<CWnd *>(4095);
    QTest::newRow("a small handle") << true << !DYNAMIC_DOWNCAST(CDialog, window);
    QTest::newRow("from CObject, which knows nothing") << true << !DYNAMIC_DOWNCAST(CSquare, object);
}

void TestAfxBasics::downcast()
{
    QFETCH(bool, actual);
    QTEST(actual, "expected");
}

void TestAfxBasics::staticDowncast()
{
    CSavedSquare square;
    CObject *object = &square;
    QCOMPARE(STATIC_DOWNCAST(CSavedSquare, object), &square);
}

void TestAfxBasics::objectsAnswerForTheirClass()
{
    CFigure figure;
    QVERIFY2(figure.IsKindOf(RUNTIME_CLASS(CDialog)), "always TRUE");
    QVERIFY(!figure.IsSerializable());
    CCmdTarget target;
    QVERIFY(!target.OnCmdMsg(1, CN_COMMAND, nullptr, nullptr));
}

void TestAfxBasics::commandUserInterface()
{
    static_assert(!std::is_polymorphic_v<CCmdUI>);
    CCmdUI ui;
    QCOMPARE(ui.m_nID, 0U);
    QCOMPARE(ui.m_nIndex, 0U);
    QVERIFY(!ui.m_pMenu);
    QVERIFY(!ui.m_pOther);
    ui.m_nID = 5;
    ui.Enable(FALSE);
    ui.SetCheck(1);
    ui.SetRadio();
    ui.SetText(_T("text"));
    ui.ContinueRouting();
    QCOMPARE(ui.m_nID, 5U);
}

KX_TEST_MAIN(TestAfxBasics)

#include "tst_afx_basics.moc"
