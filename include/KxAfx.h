// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <type_traits>

#include "KxExport.h"
#include "KxWinTypes.h"

/// \file
/// The root classes CObject and CCmdTarget, the macros that MFC source writes around them (run-time classes,
/// diagnostics, DEBUG_NEW, afx_msg) and CCmdUI.
///
/// Two things differ from MFC throughout. No class here has a virtual operation, so an object does not know
/// its class: what MFC answers at run time is answered from the type that the caller names. And the
/// diagnostics follow `_DEBUG` alone, whatever NDEBUG says: with it they work, without it they are not
/// there.

class CArchive;
class CCreateContext;
class CDC;
class CDataExchange;
class CDocument;
class CDumpContext;
class CException;
class CFile;
class CFileException;
class CFrameWnd;
class CMenu;
class CObject;
class CView;
class CWnd;
struct AFX_CMDHANDLERINFO;
struct AFX_MSGMAP;

// ---- Words that mean nothing on this platform ---------------------------------------------------------

#define afx_msg
#define AFXAPI
#define AFX_CDECL
#define AFX_DATA
#define AFX_EXT_API
#define AFX_EXT_CLASS
#define AFX_EXT_DATA

// ---- Diagnostics --------------------------------------------------------------------------------------

/// Writes "assertion failed in file FILE in line LINE" to standard error and aborts the program.
[[noreturn]] KX_EXPORT void KxAssertFailed(const char *file, int line) noexcept;

/// The check behind ASSERT_VALID.
template<typename Object>
void KxAssertValid(const Object *object, const char *file, int line)
{
    if (!object)
        KxAssertFailed(file, line);
    object->AssertValid();
}

/// Writes formatted text to standard error, with printf's conversions: `%s` takes narrow text and `%ls` wide
/// text, in a narrow and in a wide format alike. A null format writes nothing.
KX_EXPORT void KxTrace(const char *format, ...) noexcept;
/// \overload
KX_EXPORT void KxTrace(const wchar_t *format, ...) noexcept;
/// \overload
/// The category and the level are not looked at.
KX_EXPORT void KxTrace(DWORD category, UINT level, const char *format, ...) noexcept;
/// \overload
KX_EXPORT void KxTrace(DWORD category, UINT level, const wchar_t *format, ...) noexcept;

/// The trace category of an application's own messages; as MFC's.
constexpr DWORD traceAppMsg = 1;

/// Checks at run time, in both builds; the other checks are told by it.
#define KX_CHECK(condition) (!!(condition) ? static_cast<void>(0) : KxAssertFailed(__FILE__, __LINE__))

#define THIS_FILE __FILE__

/// Plain `new`: nothing is recorded. Made for the line `#define new DEBUG_NEW`.
#define DEBUG_NEW new

#if defined(_DEBUG)
/// With `_DEBUG`, stops the program with a message unless the condition holds; without, not evaluated.
#  define ASSERT(condition) KX_CHECK(condition)
/// As ASSERT, but the condition is evaluated in every build.
#  define VERIFY(condition) KX_CHECK(condition)
#  define DEBUG_ONLY(expression) (expression)
/// Checks the pointer for null and calls the object's AssertValid, that of the type it is named by.
#  define ASSERT_VALID(object) KxAssertValid(object, __FILE__, __LINE__)
#  define ENSURE_VALID(object) ASSERT_VALID(object)
/// Checks the pointer for null only; addresses are not probed.
#  define ASSERT_POINTER(pointer, type) KX_CHECK((pointer) != nullptr)
/// Checks nothing, as long as it compiles: null is allowed and addresses are not probed.
#  define ASSERT_NULL_OR_POINTER(pointer, type) static_cast<void>(pointer)
#  define ASSERT_KINDOF(class_name, object) ASSERT((object)->IsKindOf(RUNTIME_CLASS(class_name)))
/// Writes to standard error with `_DEBUG`; without, its arguments are not evaluated. See KxTrace.
#  define TRACE(...) KxTrace(__VA_ARGS__)
#else
#  define ASSERT(condition) static_cast<void>(0)
#  define VERIFY(condition) static_cast<void>(condition)
#  define DEBUG_ONLY(expression) static_cast<void>(0)
#  define ASSERT_VALID(object) static_cast<void>(0)
#  define ENSURE_VALID(object) ENSURE((object) != nullptr)
#  define ASSERT_POINTER(pointer, type) static_cast<void>(0)
#  define ASSERT_NULL_OR_POINTER(pointer, type) static_cast<void>(0)
#  define ASSERT_KINDOF(class_name, object) static_cast<void>(0)
#  define TRACE(...) static_cast<void>(0)
#endif

#define TRACE0(format) TRACE(format)
#define TRACE1(format, first) TRACE(format, first)
#define TRACE2(format, first, second) TRACE(format, first, second)
#define TRACE3(format, first, second, third) TRACE(format, first, second, third)
#define ATLASSERT(condition) ASSERT(condition)
#define ATLVERIFY(condition) VERIFY(condition)
#define ATLTRACE(...) TRACE(__VA_ARGS__)
#define ATLTRACE2(...) TRACE(__VA_ARGS__)

/// Stops the program with ASSERT's message unless the condition holds, in every build; MFC throws an
/// exception there. ENSURE_VALID does so for a null pointer and, with `_DEBUG`, is ASSERT_VALID.
#define ENSURE(condition) KX_CHECK(condition)
#define ENSURE_ARG(condition) ENSURE(condition)

// ---- Run-time classes ---------------------------------------------------------------------------------

/// What is known of a class at run time; as MFC's CRuntimeClass.
///
/// Classes that DECLARE_DYNAMIC and its like name have a record with name, size, base and, where it is
/// dynamically creatable, a function that makes an object. Any other class, those of this library among
/// them, gets one from RUNTIME_CLASS when it is first asked for: its base is CObject's record, or null.
struct CRuntimeClass
{
    LPCSTR m_lpszClassName;
    int m_nObjectSize; ///< In bytes.
    UINT m_wSchema;    ///< The schema number of IMPLEMENT_SERIAL, 0xFFFF for the others.
    CObject *(*m_pfnCreateObject)(); ///< Null when objects cannot be made dynamically.
    CRuntimeClass *m_pBaseClass;     ///< Null for CObject and for a class that does not derive from it.

    /// A new object, made by `new` and owned by the caller; null when the class is not dynamically creatable.
    /// CObject has no virtual destructor: delete it through a pointer to its own class.
    CObject *CreateObject() const { return m_pfnCreateObject ? m_pfnCreateObject() : nullptr; }

    /// TRUE when this is \p pBaseClass or a chain of recorded bases leads to it. Between classes of the
    /// library only CObject is recorded.
    BOOL IsDerivedFrom(const CRuntimeClass *pBaseClass) const
    {
        const CRuntimeClass *runtimeClass = this;
        while (runtimeClass && runtimeClass != pBaseClass)
            runtimeClass = runtimeClass->m_pBaseClass;
        return pBaseClass && runtimeClass == pBaseClass;
    }
};

/// The root of MFC's classes: empty, trivial and without virtual operations.
///
/// A host class that overrides one of these members hides it; a call through a CObject pointer reaches the
/// one here.
class KX_EXPORT CObject
{
public:
    void AssertValid() const {}
    void Dump(CDumpContext &) const {}
    void Serialize(CArchive &) {}

    KX_INERT("returns FALSE; there is no serialisation")
    BOOL IsSerializable() const { return FALSE; }

    KX_INERT("returns TRUE; an object does not know its class")
    BOOL IsKindOf(const CRuntimeClass *) const { return TRUE; }

    /// The record of the class that the object is named by, never null.
    CRuntimeClass *GetRuntimeClass() const;
};

/// The base of the classes with a message map; empty.
class KX_EXPORT CCmdTarget : public CObject
{
public:
    /// The end of every chain of message maps: no entries, no base. DECLARE_MESSAGE_MAP gives a class its
    /// own.
    static const AFX_MSGMAP *GetThisMessageMap();

    /// Answers FALSE, not handled: commands reach their handlers from whoever walks the message maps.
    BOOL OnCmdMsg(UINT, int, void *, AFX_CMDHANDLERINFO *) { return FALSE; }
};

static_assert(std::is_empty_v<CObject> && std::is_trivial_v<CObject>);
static_assert(std::is_empty_v<CCmdTarget> && std::is_trivial_v<CCmdTarget>);

template<typename Class>
KX_EXPORT CRuntimeClass *KxRuntimeClassOf(LPCSTR name);

namespace KxRuntimeClass {

template<typename Class, typename = void>
struct IsRecorded : std::false_type
{
};

// A class inherits its base's record; only its own counts.
template<typename Class>
struct IsRecorded<Class, std::void_t<typename Class::KxRuntimeClassOwner>>
    : std::is_same<Class, typename Class::KxRuntimeClassOwner>
{
};

} // namespace KxRuntimeClass

/// The record behind RUNTIME_CLASS: the class's own, or one made for it.
template<typename Class>
CRuntimeClass *KxRuntimeClassOf([[maybe_unused]] LPCSTR name)
{
    if constexpr (KxRuntimeClass::IsRecorded<Class>::value) {
        return Class::GetThisClass();
    } else {
        CRuntimeClass *base = nullptr;
        if constexpr (std::is_base_of_v<CObject, Class> && !std::is_same_v<CObject, Class>)
            base = KxRuntimeClassOf<CObject>("CObject");
        static CRuntimeClass record = {name, static_cast<int>(sizeof(Class)), 0xFFFF, nullptr, base};
        return &record;
    }
}

inline CRuntimeClass *CObject::GetRuntimeClass() const
{
    return KxRuntimeClassOf<CObject>("CObject");
}

/// The record of a class, never null; the class must be complete.
#define RUNTIME_CLASS(class_name) KxRuntimeClassOf<class_name>(#class_name)

/// Gives a class its record. Nothing here is virtual: GetRuntimeClass answers for the type that the caller
/// names.
#define DECLARE_DYNAMIC(class_name) \
public: \
    typedef class_name KxRuntimeClassOwner; \
    static CRuntimeClass class##class_name; \
    static CRuntimeClass *GetThisClass() { return &class##class_name; } \
    CRuntimeClass *GetRuntimeClass() const { return &class##class_name; }

#define DECLARE_DYNCREATE(class_name) \
    DECLARE_DYNAMIC(class_name) \
    static CObject *CreateObject();

/// As DECLARE_DYNCREATE: there is no serialisation.
#define DECLARE_SERIAL(class_name) DECLARE_DYNCREATE(class_name)

#define KX_IMPLEMENT_RUNTIME_CLASS(class_name, base_class_name, schema, create) \
    CRuntimeClass class_name::class##class_name = { \
        #class_name, static_cast<int>(sizeof(class_name)), schema, create, RUNTIME_CLASS(base_class_name)};

#define IMPLEMENT_DYNAMIC(class_name, base_class_name) \
    KX_IMPLEMENT_RUNTIME_CLASS(class_name, base_class_name, 0xFFFF, nullptr)

#define IMPLEMENT_DYNCREATE(class_name, base_class_name) IMPLEMENT_SERIAL(class_name, base_class_name, 0xFFFF)

#define IMPLEMENT_SERIAL(class_name, base_class_name, schema) \
    CObject *class_name::CreateObject() { return new class_name; } \
    KX_IMPLEMENT_RUNTIME_CLASS(class_name, base_class_name, schema, &class_name::CreateObject)

#define VERSIONABLE_SCHEMA 0x80000000U

/// The object behind DYNAMIC_DOWNCAST. The compiler's own type information decides, where the source type
/// has a virtual operation; from one that has none, such as CObject, nothing is known and the answer is null.
/// Null, and a window object pointer that is a small integer handle, give null.
template<typename Target, typename Source>
Target *KxDynamicDowncast([[maybe_unused]] Source *object)
{
    if constexpr (std::is_convertible_v<Source *, Target *>)
        return object;
    else if constexpr (std::is_polymorphic_v<Source>)
        return reinterpret_cast<std::uintptr_t>(object) < 4096 ? nullptr : dynamic_cast<Target *>(object);
    else
        return nullptr;
}

#define DYNAMIC_DOWNCAST(class_name, object) KxDynamicDowncast<class_name>(object)

/// An unchecked cast, in both builds.
#define STATIC_DOWNCAST(class_name, object) static_cast<class_name *>(object)

// ---- Command user interface ---------------------------------------------------------------------------

/// What an ON_UPDATE_COMMAND_UI handler is given. Whoever calls the handlers (see KxAfxMessageMap.h) fills
/// the fields; the calls change nothing.
class CCmdUI
{
public:
    UINT m_nID = 0;    ///< The command's identifier.
    UINT m_nIndex = 0; ///< The menu item's index.
    UINT m_nIndexMax = 0;
    CMenu *m_pMenu = nullptr; ///< Not owned.
    CMenu *m_pSubMenu = nullptr;
    CWnd *m_pOther = nullptr; ///< The window that shows the command when it is not in a menu; not owned.

    KX_INERT("does nothing; no command is enabled or disabled")
    void Enable(BOOL = TRUE) {}
    KX_INERT("does nothing; no command is checked")
    void SetCheck(int = 1) {}
    KX_INERT("does nothing; no command is marked")
    void SetRadio(BOOL = TRUE) {}
    KX_INERT("does nothing; no command changes its text")
    void SetText(LPCTSTR) {}
    KX_INERT("does nothing; routing ends with the handler that was called")
    void ContinueRouting() {}
};
