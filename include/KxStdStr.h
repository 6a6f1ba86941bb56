// SPDX-License-Identifier: MIT
#pragma once

#include "KxExport.h"
#include "KxWinTypes.h"

#include <algorithm>
#include <climits>
#include <cstdarg>
#include <cstddef>
#include <cwchar>
#include <locale>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

/// \file
/// The wide string: CString of MFC over std::wstring, and the helpers it is made of.
///
/// Text is UTF-32: one element is one code point. A null text pointer counts as the empty text everywhere.
/// Qt text is converted by the caller: QString::fromWCharArray() inwards, QString::toStdWString() outwards.

// ---- helpers on std::wstring ---------------------------------------------------------------------------

/// Length of a zero-terminated text in characters; 0 for null.
inline int sslen(const wchar_t *text)
{
    return text ? static_cast<int>(std::char_traits<wchar_t>::length(text)) : 0;
}

/// \copydoc sslen(const wchar_t *)
inline int sslen(const char *text)
{
    return text ? static_cast<int>(std::char_traits<char>::length(text)) : 0;
}

/// Converts `sourceLength` bytes with the locale's codecvt facet into `destination`, which has room for
/// `destinationLength` characters and is always left zero-terminated within that room. The conversion stops
/// at the first byte the locale cannot read. \return `destination`
KX_EXPORT wchar_t *StdCodeCvt(wchar_t *destination, int destinationLength, const char *source, int sourceLength,
                              const std::locale &locale);

/// Assigns; a string assigned to itself stays as it is.
KX_EXPORT void ssasn(std::wstring &target, const std::wstring &source);
/// Assigns a text, which may lie within the target's own buffer; null empties the target.
KX_EXPORT void ssasn(std::wstring &target, const wchar_t *source);
/// Assigns narrow text, read with the global std::locale up to the first byte it cannot read.
KX_EXPORT void ssasn(std::wstring &target, const char *source);

/// Appends.
KX_EXPORT void ssadd(std::wstring &target, const std::wstring &source);
/// Appends a text, which may lie within the target's own buffer; null appends nothing.
KX_EXPORT void ssadd(std::wstring &target, const wchar_t *source);

/// Compares without regard to case, in the classic locale whatever the global one is.
/// \return the difference of the first two lowered characters that differ, 0 when there are none
KX_EXPORT int ssicmp(const wchar_t *left, const wchar_t *right);

/// vswprintf() under the name that the string uses.
KX_EXPORT int ssvsprintf(wchar_t *buffer, std::size_t count, const wchar_t *format, va_list arguments);

template<class CT>
CT sstoupper(const CT &character, const std::locale &locale)
{
    return std::toupper(character, locale);
}

template<class CT>
CT sstolower(const CT &character, const std::locale &locale)
{
    return std::tolower(character, locale);
}

/// True for a character that its locale does not class as white space.
template<class CT>
struct NotSpace
{
    using argument_type = CT;
    using result_type = bool;

    explicit NotSpace(const std::locale &spaceLocale = std::locale()) : locale(spaceLocale) {}
    bool operator()(CT character) const { return !std::isspace(character, locale); }

    std::locale locale;
};

/// sstoupper() as a function object.
template<class CT>
struct SSToUpper
{
    using first_argument_type = CT;
    using second_argument_type = std::locale;
    using result_type = CT;

    CT operator()(const CT &character, const std::locale &locale) const { return sstoupper(character, locale); }
};

/// sstolower() as a function object.
template<class CT>
struct SSToLower
{
    using first_argument_type = CT;
    using second_argument_type = std::locale;
    using result_type = CT;

    CT operator()(const CT &character, const std::locale &locale) const { return sstolower(character, locale); }
};

// ---- the string ----------------------------------------------------------------------------------------

/// CString of MFC (as CStringT there). It is a std::wstring with nothing added but members, so the whole
/// interface of the base is there too; delete one only through its own type.
///
/// Indexes and lengths are `int`, in characters from 0. Only wchar_t is instantiated.
///
/// Differences from MFC that a port meets:
/// - Format() is vswprintf(): `%s` takes a narrow text and `%ls` a wide one. A CString among its arguments
///   stands for its text. Through the `...` of other functions it must not pass, which GCC says only with
///   -Wconditionally-supported: write `static_cast<LPCTSTR>(text)` or `text.GetString()`.
/// - Format() has room for 1022 characters more than the format is long; longer output is cut off or lost.
/// - GetAt() and SetAt() throw std::out_of_range for a wrong index, operator[] does not check.
/// - Nothing is shared between copies.
template<class CT>
class KX_EXPORT CStdStr : public std::basic_string<CT>
{
    template<class... Arguments>
    using WithStrings = std::enable_if_t<(std::is_base_of_v<std::basic_string<CT>, Arguments> || ...), int>;

public:
    using Base = std::basic_string<CT>;

    CStdStr() = default;
    CStdStr(const CStdStr &other) : Base(other) {}
    CStdStr(CStdStr &&other) noexcept = default;
    CStdStr(const Base &text) : Base(text) {}
    CStdStr(Base &&text) noexcept : Base(std::move(text)) {}
    CStdStr(const CT *text) : Base() { ssasn(*this, text); }
    /// Converts with the global std::locale, up to the first byte it cannot read.
    CStdStr(const char *text) : Base() { ssasn(*this, text); }
    CStdStr(std::nullptr_t) {}
    /// `repeat` times `character`; none when `repeat` is not positive.
    CStdStr(CT character, int repeat = 1) : Base(repeat > 0 ? std::size_t(repeat) : 0, character) {}
    /// The first `length` characters of `text`, which has them all.
    CStdStr(const CT *text, int length) : Base(text ? text : L"", text && length > 0 ? std::size_t(length) : 0) {}
    /// The first `length` bytes of `text`, which has them all, converted as by CStdStr(const char *).
    CStdStr(const char *text, int length)
        : CStdStr(std::string(text ? text : "", text && length > 0 ? std::size_t(length) : 0).c_str())
    {
    }

    CStdStr &operator=(const CStdStr &other) { return ssasn(*this, other), *this; }
    CStdStr &operator=(CStdStr &&other) noexcept = default;
    CStdStr &operator=(const CT *text) { return ssasn(*this, text), *this; }
    CStdStr &operator=(const char *text) { return ssasn(*this, text), *this; }
    CStdStr &operator=(std::nullptr_t) { return Empty(), *this; }
    CStdStr &operator=(CT character) { return this->assign(1, character), *this; }

    CStdStr &operator+=(const CStdStr &other) { return ssadd(*this, other), *this; }
    CStdStr &operator+=(const CT *text) { return ssadd(*this, text), *this; }
    CStdStr &operator+=(CT character) { return this->append(1, character), *this; }

    /// The zero-terminated text; valid until the string changes.
    operator const wchar_t *() const { return this->c_str(); }
    /// As operator const wchar_t *()
    const CT *GetString() const { return this->c_str(); }

    // -- size and single characters

    /// Characters before the first zero, which may be fewer than size().
    int GetLength() const { return sslen(this->c_str()); }
    /// Whether size() is 0: a string that holds only a zero is not empty.
    bool IsEmpty() const { return this->empty(); }
    void Empty() { this->erase(0, Base::npos); }
    /// Throws std::out_of_range when there is no character `index`.
    CT GetAt(int index) const { return this->at(std::size_t(index)); }
    /// Throws std::out_of_range when there is no character `index`.
    void SetAt(int index, CT character) { this->at(std::size_t(index)) = character; }
    CT &operator[](int index) { return Base::operator[](std::size_t(index)); }
    const CT &operator[](int index) const { return Base::operator[](std::size_t(index)); }
    /// For every other kind of integer, which the conversion to a pointer would make ambiguous.
    template<class Index, std::enable_if_t<std::is_integral_v<Index>, int> = 0>
    CT &operator[](Index index) { return Base::operator[](static_cast<std::size_t>(index)); }
    template<class Index, std::enable_if_t<std::is_integral_v<Index>, int> = 0>
    const CT &operator[](Index index) const { return Base::operator[](static_cast<std::size_t>(index)); }

    // -- searching and comparing; -1 is "not found"

    int Find(CT character, int start = 0) const { return found(start, this->find_first_of(character, from(start))); }
    int Find(const CT *text, int start = 0) const { return found(start, this->find(orEmpty(text), from(start))); }
    int ReverseFind(CT character) const { return static_cast<int>(this->find_last_of(character, Base::npos)); }
    /// Index of the first character that is one of `characters`.
    int FindOneOf(const CT *characters) const { return static_cast<int>(this->find_first_of(orEmpty(characters))); }
    /// Compares code point by code point; the sign of the result tells the order.
    int Compare(const CT *text) const { return this->compare(orEmpty(text)); }
    /// Compares lowered characters in the classic locale, see ssicmp().
    int CompareNoCase(const CT *text) const { return ssicmp(this->c_str(), text); }

    // -- parts

    /// The first `count` characters; a count outside the text is moved to its nearer end.
    CStdStr Left(int count) const { return this->substr(0, std::size_t(clamped(count))); }
    /// The last `count` characters; a count outside the text is moved to its nearer end.
    CStdStr Right(int count) const { return this->substr(this->size() - std::size_t(clamped(count))); }
    /// As many characters from `first` on as stand between it and the first zero. A negative `first` counts as
    /// 0, but adds to their number.
    CStdStr Mid(int first) const;
    /// At most `count` characters from `first` on. Negative arguments count as 0; past the end gives none.
    CStdStr Mid(int first, int count) const;
    /// The leading characters that are all among `characters`.
    CStdStr SpanIncluding(const CT *characters) const;
    /// The leading characters of which none is among `characters`.
    CStdStr SpanExcluding(const CT *characters) const;
    /// The next piece of the text between any of `separators`, searched from `start` on, which is moved
    /// behind it; an empty text and a start of -1 when there is none. As CStringT::Tokenize in MFC.
    CStdStr Tokenize(const CT *separators, int &start) const;

    // -- changing

    /// Removes white space of the global std::locale at the start, the end, or both.
    CStdStr &TrimLeft();
    CStdStr &TrimRight();
    CStdStr &Trim() { return TrimRight().TrimLeft(); }
    /// Removes the character, or all characters out of `targets`, at the start, the end, or both.
    CStdStr &TrimLeft(CT target) { return trimLeft({&target, 1}); }
    CStdStr &TrimLeft(const CT *targets) { return trimLeft(orEmpty(targets)); }
    CStdStr &TrimRight(CT target) { return trimRight({&target, 1}); }
    CStdStr &TrimRight(const CT *targets) { return trimRight(orEmpty(targets)); }
    CStdStr &Trim(CT target) { return TrimRight(target).TrimLeft(target); }
    CStdStr &Trim(const CT *targets) { return TrimRight(targets).TrimLeft(targets); }

    /// Change the case in the global std::locale.
    CStdStr &MakeUpper() { return toUpper(std::locale()), *this; }
    CStdStr &MakeLower() { return ToLower(std::locale()), *this; }
    void toUpper(const std::locale &locale);
    void ToLower(const std::locale &locale);
    CStdStr &MakeReverse() { return std::reverse(this->begin(), this->end()), *this; }

    void Append(const CT *text) { ssadd(*this, text); }
    /// Appends the first `length` characters of `text`, which has them all.
    void Append(const CT *text, int length) { ssadd(*this, CStdStr(text, length)); }
    void AppendChar(CT character) { this->push_back(character); }
    /// Inserts before `index`, which is moved into the text. \return the new GetLength()
    int Insert(int index, CT character);
    int Insert(int index, const CT *text);
    /// Removes up to `count` characters from `index` on. A negative index counts as 0; past the end there is
    /// nothing to remove.
    /// \return the new GetLength()
    int Delete(int index, int count = 1);
    /// Replaces every occurrence. \return how many there were; none for an empty `oldText`
    int Replace(CT oldCharacter, CT newCharacter);
    int Replace(const CT *oldText, const CT *newText);
    /// Removes every occurrence. \return how many there were
    int Remove(CT character);
    /// Cuts the text to at most `length` characters.
    void Truncate(int length);
    void SetString(const CT *text) { ssasn(*this, text); }
    void SetString(const CT *text, int length) { *this = CStdStr(text, length); }

    // -- access to the buffer

    /// A writable pointer to at least `length` characters; the text grows with zeros and never shrinks here.
    /// Finish with ReleaseBuffer().
    CT *GetBuf(int length);
    CT *GetBuffer(int length) { return GetBuf(length); }
    CT *GetBuffer() { return GetBuf(0); }
    /// Sets the size: `length` characters, or up to the first zero when `length` is negative.
    void RelBuf(int length = -1);
    void ReleaseBuffer(int length = -1) { RelBuf(length); }
    /// As GetBuffer(), with the size made exactly `length`.
    CT *GetBufferSetLength(int length);
    void ReleaseBufferSetLength(int length) { RelBuf(length < 0 ? 0 : length); }
    /// Makes room for `length` characters ahead of time.
    void Preallocate(int length) { this->reserve(length > 0 ? std::size_t(length) : 0); }

    // -- formatting and resources

    /// Formats as vswprintf() does. The result may be 1022 characters longer than `format`; of a longer one
    /// remains what vswprintf() left, perhaps nothing. The arguments may be parts of this string.
    void Format(const CT *format, ...);
    /// \copydoc Format
    void FormatV(const CT *format, va_list arguments);
    /// Formats with the string resource `formatId` of the current resource handle.
    void Format(unsigned int formatId, ...);
    /// Appends what Format() would give.
    void AppendFormat(const CT *format, ...);
    /// \copydoc AppendFormat
    void AppendFormatV(const CT *format, va_list arguments);
    /// Appends what Format() with that string resource would give.
    void AppendFormat(unsigned int formatId, ...);

    /// The same calls with strings among the arguments, each of which stands for its text.
    template<class... Arguments, WithStrings<Arguments...> = 0>
    void Format(const CT *format, Arguments... arguments)
    {
        Format(format, formatArgument(arguments)...);
    }
    template<class... Arguments, WithStrings<Arguments...> = 0>
    void Format(unsigned int formatId, Arguments... arguments)
    {
        Format(formatId, formatArgument(arguments)...);
    }
    template<class... Arguments, WithStrings<Arguments...> = 0>
    void AppendFormat(const CT *format, Arguments... arguments)
    {
        AppendFormat(format, formatArgument(arguments)...);
    }
    template<class... Arguments, WithStrings<Arguments...> = 0>
    void AppendFormat(unsigned int formatId, Arguments... arguments)
    {
        AppendFormat(formatId, formatArgument(arguments)...);
    }

    /// Loads a string of the current resource handle, see AfxSetResourceHandle(). At most 1023 characters.
    /// \return false when there is no such string, or an empty one; this string is empty then
    bool LoadStringW(unsigned int id);
    /// Loads a string of the module `module`, or of the current resource handle when `module` is null.
    bool LoadStringW(HINSTANCE module, unsigned int id);

private:
    using View = std::basic_string_view<CT>;

    template<class Argument>
    static auto formatArgument(const Argument &argument)
    {
        if constexpr (std::is_base_of_v<Base, Argument>)
            return argument.c_str();
        else
            return argument;
    }

    static View orEmpty(const CT *text) { return text ? View(text) : View(); }
    static std::size_t from(int start) { return start < 0 ? 0 : std::size_t(start); }
    static int found(int start, std::size_t index) { return start < 0 ? -1 : static_cast<int>(index); }
    int clamped(int count) const { return std::max(0, std::min(count, static_cast<int>(this->size()))); }
    CStdStr &trimLeft(View targets);
    CStdStr &trimRight(View targets);
};

template<class CT>
CStdStr<CT> CStdStr<CT>::Mid(int first) const
{
    const long long count = static_cast<long long>(GetLength()) - first;
    return Mid(first, static_cast<int>(std::min<long long>(count, INT_MAX)));
}

template<class CT>
CStdStr<CT> CStdStr<CT>::Mid(int first, int count) const
{
    const std::size_t start = first < 0 ? 0 : std::size_t(first);
    if (start > this->size())
        return CStdStr();
    return this->substr(start, count < 0 ? 0 : std::size_t(count));
}

template<class CT>
CStdStr<CT> CStdStr<CT>::SpanIncluding(const CT *characters) const
{
    return this->substr(0, this->find_first_not_of(orEmpty(characters)));
}

template<class CT>
CStdStr<CT> CStdStr<CT>::SpanExcluding(const CT *characters) const
{
    return this->substr(0, this->find_first_of(orEmpty(characters)));
}

template<class CT>
CStdStr<CT> CStdStr<CT>::Tokenize(const CT *separators, int &start) const
{
    const View among = orEmpty(separators);
    const std::size_t first = start < 0 ? Base::npos : this->find_first_not_of(among, std::size_t(start));
    if (first == Base::npos) {
        start = -1;
        return CStdStr();
    }
    const std::size_t end = std::min(this->find_first_of(among, first), this->size());
    start = static_cast<int>(end) + 1;
    return this->substr(first, end - first);
}

template<class CT>
CStdStr<CT> &CStdStr<CT>::TrimLeft()
{
    const std::locale locale;
    const auto &characters = std::use_facet<std::ctype<CT>>(locale);
    std::size_t blanks = 0;
    while (blanks < this->size() && characters.is(std::ctype_base::space, this->data()[blanks]))
        ++blanks;
    this->erase(0, blanks);
    return *this;
}

template<class CT>
CStdStr<CT> &CStdStr<CT>::TrimRight()
{
    const std::locale locale;
    const auto &characters = std::use_facet<std::ctype<CT>>(locale);
    std::size_t size = this->size();
    while (size > 0 && characters.is(std::ctype_base::space, this->data()[size - 1]))
        --size;
    this->resize(size);
    return *this;
}

template<class CT>
CStdStr<CT> &CStdStr<CT>::trimLeft(View targets)
{
    this->erase(0, this->find_first_not_of(targets));
    return *this;
}

template<class CT>
CStdStr<CT> &CStdStr<CT>::trimRight(View targets)
{
    this->erase(this->find_last_not_of(targets) + 1);
    return *this;
}

template<class CT>
void CStdStr<CT>::toUpper(const std::locale &locale)
{
    const auto &characters = std::use_facet<std::ctype<CT>>(locale);
    for (CT &character : *this)
        character = characters.toupper(character);
}

template<class CT>
void CStdStr<CT>::ToLower(const std::locale &locale)
{
    const auto &characters = std::use_facet<std::ctype<CT>>(locale);
    for (CT &character : *this)
        character = characters.tolower(character);
}

template<class CT>
int CStdStr<CT>::Insert(int index, CT character)
{
    this->insert(std::size_t(clamped(index)), 1, character);
    return GetLength();
}

template<class CT>
int CStdStr<CT>::Insert(int index, const CT *text)
{
    this->insert(std::size_t(clamped(index)), Base(orEmpty(text)));
    return GetLength();
}

template<class CT>
int CStdStr<CT>::Delete(int index, int count)
{
    const std::size_t first = std::size_t(std::max(0, index));
    if (count > 0 && first < this->size())
        this->erase(first, std::size_t(count));
    return GetLength();
}

template<class CT>
int CStdStr<CT>::Replace(CT oldCharacter, CT newCharacter)
{
    int count = 0;
    if (oldCharacter == newCharacter)
        return count;
    for (CT &character : *this) {
        if (character == oldCharacter) {
            character = newCharacter;
            ++count;
        }
    }
    return count;
}

template<class CT>
int CStdStr<CT>::Replace(const CT *oldText, const CT *newText)
{
    const View before = orEmpty(oldText);
    const View after = orEmpty(newText);
    std::size_t match = before.empty() ? Base::npos : this->find(before);
    if (match == Base::npos)
        return 0;
    int count = 0;
    std::size_t copied = 0;
    CStdStr result;
    for (; match != Base::npos; match = this->find(before, copied)) {
        result.append(*this, copied, match - copied).append(after);
        copied = match + before.size();
        ++count;
    }
    result.append(*this, copied, Base::npos);
    this->swap(result);
    return count;
}

template<class CT>
int CStdStr<CT>::Remove(CT character)
{
    const auto kept = std::remove(this->begin(), this->end(), character);
    const int count = static_cast<int>(this->end() - kept);
    this->erase(kept, this->end());
    return count;
}

template<class CT>
void CStdStr<CT>::Truncate(int length)
{
    this->resize(std::size_t(clamped(length)));
}

template<class CT>
CT *CStdStr<CT>::GetBuf(int length)
{
    if (static_cast<int>(this->size()) < length)
        this->resize(std::size_t(length));
    return this->data();
}

template<class CT>
void CStdStr<CT>::RelBuf(int length)
{
    this->resize(length < 0 ? std::size_t(sslen(this->c_str())) : std::size_t(length));
}

template<class CT>
CT *CStdStr<CT>::GetBufferSetLength(int length)
{
    this->resize(length < 0 ? 0 : std::size_t(length));
    return this->data();
}

template<> KX_EXPORT void CStdStr<wchar_t>::Format(const wchar_t *format, ...);
template<> KX_EXPORT void CStdStr<wchar_t>::FormatV(const wchar_t *format, va_list arguments);
template<> KX_EXPORT void CStdStr<wchar_t>::Format(unsigned int formatId, ...);
template<> KX_EXPORT void CStdStr<wchar_t>::AppendFormat(const wchar_t *format, ...);
template<> KX_EXPORT void CStdStr<wchar_t>::AppendFormat(unsigned int formatId, ...);
template<> KX_EXPORT void CStdStr<wchar_t>::AppendFormatV(const wchar_t *format, va_list arguments);
template<> KX_EXPORT bool CStdStr<wchar_t>::LoadStringW(unsigned int id);
template<> KX_EXPORT bool CStdStr<wchar_t>::LoadStringW(HINSTANCE module, unsigned int id);

extern template class CStdStr<wchar_t>;

using CString = CStdStr<wchar_t>;
using CStringW = CStdStr<wchar_t>;

// ---- concatenation -------------------------------------------------------------------------------------

/// \cond
inline CString kxConcatenate(std::wstring_view left, std::wstring_view right)
{
    CString result;
    result.reserve(left.size() + right.size());
    result.append(left).append(right);
    return result;
}
/// \endcond

inline CString operator+(const CString &left, wchar_t right) { return kxConcatenate(left, {&right, 1}); }
inline CString operator+(wchar_t left, const CString &right) { return kxConcatenate({&left, 1}, right); }
inline CString operator+(const CString &left, const CString &right) { return kxConcatenate(left, right); }
inline CString operator+(const CString &left, const std::wstring &right) { return kxConcatenate(left, right); }
inline CString operator+(const std::wstring &left, const CString &right) { return kxConcatenate(left, right); }
inline CString operator+(const CString &left, std::wstring &&right) { return kxConcatenate(left, right); }
inline CString operator+(std::wstring &&left, const CString &right) { return kxConcatenate(left, right); }
inline CString operator+(const CString &left, const wchar_t *right)
{
    return kxConcatenate(left, right ? right : L"");
}
inline CString operator+(const wchar_t *left, const CString &right)
{
    return kxConcatenate(left ? left : L"", right);
}
inline CString operator+(const CString &left, const char *right) { return kxConcatenate(left, CString(right)); }
inline CString operator+(const char *left, const CString &right) { return kxConcatenate(CString(left), right); }

// ---- comparison with narrow text and characters; the base compares with the rest -----------------------

inline bool operator==(const CString &left, const char *right) { return left == CString(right); }
inline bool operator==(const char *left, const CString &right) { return CString(left) == right; }
inline bool operator==(const CString &left, wchar_t right) { return left.size() == 1 && left.front() == right; }
inline bool operator==(wchar_t left, const CString &right) { return right == left; }
inline bool operator!=(const CString &left, const char *right) { return !(left == right); }
inline bool operator!=(const char *left, const CString &right) { return !(left == right); }
inline bool operator!=(const CString &left, wchar_t right) { return !(left == right); }
inline bool operator!=(wchar_t left, const CString &right) { return !(left == right); }

/// A string hashes as the text it is.
template<>
struct std::hash<CString> : std::hash<std::wstring>
{
};

// ---- stand-alone helpers -------------------------------------------------------------------------------

/// Copies a text with its terminating zero; `destination` must have the room, and may lie before `source` in
/// the same text. Does nothing when either pointer is null. \return `destination`
KX_EXPORT wchar_t *_tkxstrcpy(wchar_t *destination, const wchar_t *source);

/// Changes the case of a text without letting an exception out.
class KX_EXPORT KxErrorEat
{
public:
    /// As CString::MakeUpper(). \return true when it failed; `text` is as it was then
    static bool strMakeUpper(CString &text);
    /// As CString::MakeLower(). \return true when it failed; `text` is as it was then
    static bool strMakeLower(CString &text);
};
