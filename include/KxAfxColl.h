// SPDX-License-Identifier: MIT
#pragma once

#include "KxAfx.h"
#include "KxExport.h"
#include "KxStdStr.h"
#include "KxWinTypes.h"

#include <type_traits>
#include <utility>

/// \file
/// The collections: the arrays CStringArray, CWordArray, CByteArray and CPtrArray, the list CStringList, the
/// map CMapStringToPtr and the block chain CPlex that the last two are carved from. CMapStringToString is
/// only an interface.
///
/// Indexes and counts are `long`, elements are numbered from 0. Arguments are looked at but not corrected:
/// whatever is wrong with them goes to AfxThrowInvalidArgException(), and the call then carries on with them
/// as they are, so that GetAt() behind the end reads what is there. Where that would write outside the
/// collection's memory, or a list or node is null, nothing happens instead. In MFC the same mistakes throw.
/// Memory that runs out, and a size that no memory has, throws std::bad_alloc.
///
/// A collection cannot be copied; CStringArray::Copy() and its like copy the contents. Nothing is serialised.

/// Where the collections report a wrong argument. It does nothing; a build that is to stop at such mistakes
/// stops here. MFC's function of this name throws.
inline void AfxThrowInvalidArgException() {}

// ---- Arrays -------------------------------------------------------------------------------------------

/// What the arrays have in common: a block of elements that grows. The arrays tell what the calls mean.
template<class Element>
struct KxArrayBlock
{
    Element *elements = nullptr; ///< Null when there is no room.
    long size = 0;               ///< Elements; for strings, the room behind them is raw.
    long capacity = 0;
    long growBy = 0;             ///< Elements to make room for at a time; 0 asks for the computed number.

    KxArrayBlock() noexcept {}
    ~KxArrayBlock();
    KxArrayBlock(const KxArrayBlock &) = delete;
    KxArrayBlock &operator=(const KxArrayBlock &) = delete;

    Element &at(long index) const
    {
        if (index < 0 || index >= size)
            AfxThrowInvalidArgException();
        return elements[index];
    }
    void setSize(long newSize, long newGrowBy);
    void freeExtra();
    long append(const KxArrayBlock &source);
    void copy(const KxArrayBlock &source);
    void setAtGrow(long index, Element value);
    long add(Element value)
    {
        if constexpr (std::is_trivial_v<Element>) {
            if (static_cast<unsigned long>(size) < static_cast<unsigned long>(capacity)) {
                elements[size] = value;
                return size++;
            }
        }
        const long index = size;
        setAtGrow(index, std::move(value));
        return index;
    }
    Element *insertGap(long index, long count);
    void insert(long index, Element value, long count);
    void insert(long index, const KxArrayBlock *source);
    void removeAt(long index, long count);

private:
    static Element *allocate(long count);
    void release(long live);
    void relocate(long newSlots);
    void reserve(long newSize);
};

extern template struct KX_EXPORT KxArrayBlock<CString>;
extern template struct KX_EXPORT KxArrayBlock<unsigned short>;
extern template struct KX_EXPORT KxArrayBlock<unsigned char>;
extern template struct KX_EXPORT KxArrayBlock<void *>;

/// A growable array of strings; CStringArray of MFC.
///
/// The first allocation is as large as it must be. Every later one adds the grow step that SetSize() was
/// given, or without one an eighth of the size, at least 4 and at most 1024 elements. Elements are moved
/// then, never copied, and references to them end. Only RemoveAll(), SetSize(0) and FreeExtra() give memory
/// back.
class KX_EXPORT CStringArray
{
public:
    CStringArray() noexcept {}
    ~CStringArray() {}
    CStringArray(const CStringArray &) = delete;
    CStringArray &operator=(const CStringArray &) = delete;

    long GetSize() const { return m_array.size; }
    /// As GetSize().
    long GetCount() const { return m_array.size; }
    bool IsEmpty() const { return m_array.size == 0; }
    /// The index of the last element; -1 when there is none.
    long GetUpperBound() const { return m_array.size - 1; }

    /// Makes the array `nNewSize` elements long: new ones are empty, those beyond the end are destroyed. A
    /// `nGrowBy` of 0 or more becomes the grow step, where 0 asks for the computed one; -1 keeps the step.
    void SetSize(long nNewSize, long nGrowBy = -1) { m_array.setSize(nNewSize, nGrowBy); }
    /// Destroys all elements and releases the memory; the grow step stays.
    void RemoveAll() { m_array.setSize(0, -1); }
    /// Releases the memory that the elements do not need.
    void FreeExtra() { m_array.freeExtra(); }

    /// The element, which must be there.
    const CString &GetAt(long nIndex) const { return m_array.at(nIndex); }
    const CString &operator[](long nIndex) const { return GetAt(nIndex); }
    CString &operator[](long nIndex) { return m_array.at(nIndex); }
    /// The element, which must be there, to be changed.
    CString &ElementAt(long nIndex) { return m_array.at(nIndex); }

    /// Replaces the element, which must be there.
    void SetAt(long nIndex, const wchar_t *newElement) { m_array.at(nIndex) = newElement; }
    void SetAt(long nIndex, const CString &newElement) { m_array.at(nIndex) = newElement; }
    /// Replaces the element; past the end the array grows, with empty strings in between.
    void SetAtGrow(long nIndex, const wchar_t *newElement) { m_array.setAtGrow(nIndex, newElement); }
    void SetAtGrow(long nIndex, const CString &newElement) { m_array.setAtGrow(nIndex, newElement); }
    /// Adds at the end. \return the index of the new element
    long Add(const wchar_t *newElement) { return m_array.add(newElement); }
    long Add(const CString &newElement) { return m_array.add(newElement); }

    /// Adds copies of the other array's elements, which must not be this array's own.
    /// \return the index of the first of them
    long Append(const CStringArray &src) { return m_array.append(src.m_array); }
    /// Becomes a copy of the other array; the grow step stays.
    void Copy(const CStringArray &src) { m_array.copy(src.m_array); }

    /// Opens a gap of `nCount` empty strings before the element `nIndex`; past the end the array grows up to
    /// it.
    void InsertEmpty(long nIndex, long nCount) { m_array.insertGap(nIndex, nCount); }
    /// Inserts `nCount` copies before the element `nIndex`; past the end the array grows, with empty strings
    /// in between.
    void InsertAt(long nIndex, const wchar_t *newElement, long nCount = 1)
    {
        m_array.insert(nIndex, newElement, nCount);
    }
    void InsertAt(long nIndex, const CString &newElement, long nCount = 1)
    {
        m_array.insert(nIndex, newElement, nCount);
    }
    /// Inserts copies of the other array's elements; null inserts nothing.
    void InsertAt(long nIndex, const CStringArray *pNewArray)
    {
        m_array.insert(nIndex, pNewArray ? &pNewArray->m_array : nullptr);
    }
    /// Removes `nCount` elements, which must be there; those behind them move down.
    void RemoveAt(long nIndex, long nCount = 1) { m_array.removeAt(nIndex, nCount); }

private:
    KxArrayBlock<CString> m_array;
};

/// A growable array of 16-bit numbers; CWordArray of MFC. It grows as CStringArray does, and new elements are
/// 0.
class KX_EXPORT CWordArray : public CObject
{
public:
    CWordArray() noexcept {}
    ~CWordArray() {}
    CWordArray(const CWordArray &) = delete;
    CWordArray &operator=(const CWordArray &) = delete;

    long GetSize() const { return m_array.size; }
    /// As GetSize().
    long GetCount() const { return m_array.size; }
    bool IsEmpty() const { return m_array.size == 0; }
    /// The index of the last element; -1 when there is none.
    long GetUpperBound() const { return m_array.size - 1; }

    /// \copydoc CStringArray::SetSize
    void SetSize(long nNewSize, long nGrowBy = -1) { m_array.setSize(nNewSize, nGrowBy); }
    /// \copydoc CStringArray::RemoveAll
    void RemoveAll() { m_array.setSize(0, -1); }
    /// \copydoc CStringArray::FreeExtra
    void FreeExtra() { m_array.freeExtra(); }

    /// The element, which must be there.
    const unsigned short &GetAt(long nIndex) const { return m_array.at(nIndex); }
    const unsigned short &operator[](long nIndex) const { return GetAt(nIndex); }
    unsigned short &operator[](long nIndex) { return m_array.at(nIndex); }
    /// The element, which must be there, to be changed.
    unsigned short &ElementAt(long nIndex) { return m_array.at(nIndex); }
    /// The elements one behind the other, until the array grows; null when no memory is allocated.
    const unsigned short *GetData() const { return m_array.elements; }
    unsigned short *GetData() { return m_array.elements; }

    /// Replaces the element, which must be there.
    void SetAt(long nIndex, unsigned short newElement) { m_array.at(nIndex) = newElement; }
    /// Replaces the element; past the end the array grows, with zeros in between.
    void SetAtGrow(long nIndex, unsigned short newElement) { m_array.setAtGrow(nIndex, newElement); }
    /// Adds at the end. \return the index of the new element
    long Add(unsigned short newElement) { return m_array.add(newElement); }

    /// \copydoc CStringArray::Append
    long Append(const CWordArray &src) { return m_array.append(src.m_array); }
    /// \copydoc CStringArray::Copy
    void Copy(const CWordArray &src) { m_array.copy(src.m_array); }

    /// Inserts `nCount` elements of that value before the element `nIndex`; past the end the array grows,
    /// with zeros in between.
    void InsertAt(long nIndex, unsigned short newElement, long nCount = 1)
    {
        m_array.insert(nIndex, newElement, nCount);
    }
    /// Inserts the other array's elements; null inserts nothing.
    void InsertAt(long nStartIndex, CWordArray *pNewArray)
    {
        m_array.insert(nStartIndex, pNewArray ? &pNewArray->m_array : nullptr);
    }
    /// \copydoc CStringArray::RemoveAt
    void RemoveAt(long nIndex, long nCount = 1) { m_array.removeAt(nIndex, nCount); }

private:
    KxArrayBlock<unsigned short> m_array;
};

/// A growable array of bytes; CByteArray of MFC. It grows as CStringArray does, and new elements are 0.
class KX_EXPORT CByteArray : public CObject
{
public:
    CByteArray() noexcept {}
    ~CByteArray() {}
    CByteArray(const CByteArray &) = delete;
    CByteArray &operator=(const CByteArray &) = delete;

    long GetSize() const { return m_array.size; }
    /// As GetSize().
    long GetCount() const { return m_array.size; }
    bool IsEmpty() const { return m_array.size == 0; }
    /// The index of the last element; -1 when there is none.
    long GetUpperBound() const { return m_array.size - 1; }

    /// \copydoc CStringArray::SetSize
    void SetSize(long nNewSize, long nGrowBy = -1) { m_array.setSize(nNewSize, nGrowBy); }
    /// \copydoc CStringArray::RemoveAll
    void RemoveAll() { m_array.setSize(0, -1); }
    /// \copydoc CStringArray::FreeExtra
    void FreeExtra() { m_array.freeExtra(); }

    /// The element, which must be there.
    const unsigned char &GetAt(long nIndex) const { return m_array.at(nIndex); }
    const unsigned char &operator[](long nIndex) const { return GetAt(nIndex); }
    unsigned char &operator[](long nIndex) { return m_array.at(nIndex); }
    /// The element, which must be there, to be changed.
    unsigned char &ElementAt(long nIndex) { return m_array.at(nIndex); }
    /// The elements one behind the other, until the array grows; null when no memory is allocated.
    const unsigned char *GetData() const { return m_array.elements; }
    unsigned char *GetData() { return m_array.elements; }

    /// Replaces the element, which must be there.
    void SetAt(long nIndex, unsigned char newElement) { m_array.at(nIndex) = newElement; }
    /// Replaces the element; past the end the array grows, with zeros in between.
    void SetAtGrow(long nIndex, unsigned char newElement) { m_array.setAtGrow(nIndex, newElement); }
    /// Adds at the end. \return the index of the new element
    long Add(unsigned char newElement) { return m_array.add(newElement); }

    /// \copydoc CStringArray::Append
    long Append(const CByteArray &src) { return m_array.append(src.m_array); }
    /// \copydoc CStringArray::Copy
    void Copy(const CByteArray &src) { m_array.copy(src.m_array); }

    /// Inserts `nCount` elements of that value before the element `nIndex`; past the end the array grows,
    /// with zeros in between.
    void InsertAt(long nIndex, unsigned char newElement, long nCount = 1)
    {
        m_array.insert(nIndex, newElement, nCount);
    }
    /// Inserts the other array's elements; null inserts nothing.
    void InsertAt(long nStartIndex, CByteArray *pNewArray)
    {
        m_array.insert(nStartIndex, pNewArray ? &pNewArray->m_array : nullptr);
    }
    /// \copydoc CStringArray::RemoveAt
    void RemoveAt(long nIndex, long nCount = 1) { m_array.removeAt(nIndex, nCount); }

private:
    KxArrayBlock<unsigned char> m_array;
};

/// A growable array of pointers, which it does not own; CPtrArray of MFC. It grows as CStringArray does, and
/// new elements are 0.
class KX_EXPORT CPtrArray : public CObject
{
public:
    CPtrArray() noexcept {}
    ~CPtrArray() {}
    CPtrArray(const CPtrArray &) = delete;
    CPtrArray &operator=(const CPtrArray &) = delete;

    long GetSize() const { return m_array.size; }
    /// As GetSize().
    long GetCount() const { return m_array.size; }
    bool IsEmpty() const { return m_array.size == 0; }
    /// The index of the last element; -1 when there is none.
    long GetUpperBound() const { return m_array.size - 1; }

    /// \copydoc CStringArray::SetSize
    void SetSize(long nNewSize, long nGrowBy = -1) { m_array.setSize(nNewSize, nGrowBy); }
    /// \copydoc CStringArray::RemoveAll
    void RemoveAll() { m_array.setSize(0, -1); }
    /// \copydoc CStringArray::FreeExtra
    void FreeExtra() { m_array.freeExtra(); }

    /// The element, which must be there.
    void *const &GetAt(long nIndex) const { return m_array.at(nIndex); }
    void *const &operator[](long nIndex) const { return GetAt(nIndex); }
    void *&operator[](long nIndex) { return m_array.at(nIndex); }
    /// The element, which must be there, to be changed.
    void *&ElementAt(long nIndex) { return m_array.at(nIndex); }
    /// The elements one behind the other, until the array grows; null when no memory is allocated.
    void *const *GetData() const { return m_array.elements; }
    void **GetData() { return m_array.elements; }

    /// Replaces the element, which must be there.
    void SetAt(long nIndex, void *newElement) { m_array.at(nIndex) = newElement; }
    /// Replaces the element; past the end the array grows, with zeros in between.
    void SetAtGrow(long nIndex, void *newElement) { m_array.setAtGrow(nIndex, newElement); }
    /// Adds at the end. \return the index of the new element
    long Add(void *newElement) { return m_array.add(newElement); }

    /// \copydoc CStringArray::Append
    long Append(const CPtrArray &src) { return m_array.append(src.m_array); }
    /// \copydoc CStringArray::Copy
    void Copy(const CPtrArray &src) { m_array.copy(src.m_array); }

    /// Inserts `nCount` elements of that value before the element `nIndex`; past the end the array grows,
    /// with zeros in between.
    void InsertAt(long nIndex, void *newElement, long nCount = 1)
    {
        m_array.insert(nIndex, newElement, nCount);
    }
    /// Inserts the other array's elements; null inserts nothing.
    void InsertAt(long nStartIndex, CPtrArray *pNewArray)
    {
        m_array.insert(nStartIndex, pNewArray ? &pNewArray->m_array : nullptr);
    }
    /// \copydoc CStringArray::RemoveAt
    void RemoveAt(long nIndex, long nCount = 1) { m_array.removeAt(nIndex, nCount); }

private:
    KxArrayBlock<void *> m_array;
};

// ---- List and maps ------------------------------------------------------------------------------------

/// The header of a block of list nodes or map associations; the storage follows it directly.
struct KX_EXPORT CPlex
{
    CPlex *pNext; ///< The block that was made before this one.

    /// Where the storage begins.
    void *data() { return this + 1; }

    /// Puts a new block with room for `nMax` elements of `cbElement` bytes in front of the chain `pHead`.
    /// \return the block; null when either number is 0
    static CPlex *Create(CPlex *&pHead, unsigned long nMax, unsigned long cbElement);
    /// Releases this block and those behind it.
    void FreeDataChain();
};

/// A doubly linked list of strings; CStringList of MFC. A POSITION is good until its element is removed.
///
/// Nodes come from blocks of the constructor's size, which are released when the list becomes empty.
class KX_EXPORT CStringList : public CObject
{
public:
    /// `nBlockSize` nodes are allocated at a time; less than 1 counts as 1.
    explicit CStringList(long nBlockSize = 10) noexcept : m_nBlockSize(nBlockSize) {}
    ~CStringList();
    CStringList(const CStringList &) = delete;
    CStringList &operator=(const CStringList &) = delete;

    long GetCount() const { return m_nCount; }
    /// As GetCount().
    long GetSize() const { return m_nCount; }
    bool IsEmpty() const { return m_nCount == 0; }

    /// The first string of a list that is not empty.
    CString &GetHead() { return m_pNodeHead->data; }
    const CString &GetHead() const { return m_pNodeHead->data; }
    /// The last string of a list that is not empty.
    CString &GetTail() { return m_pNodeTail->data; }
    const CString &GetTail() const { return m_pNodeTail->data; }

    /// Takes the first string out of a list that is not empty.
    CString RemoveHead();
    /// Takes the last string out of a list that is not empty.
    CString RemoveTail();

    /// Adds at the front. \return where it stands
    POSITION AddHead(const wchar_t *newElement);
    POSITION AddHead(const CString &newElement);
    /// Adds copies of the other list's strings at the front, in their order; null adds nothing.
    void AddHead(CStringList *pNewList);
    /// Adds at the end. \return where it stands
    POSITION AddTail(const wchar_t *newElement);
    POSITION AddTail(const CString &newElement);
    /// Adds copies of the other list's strings at the end, in their order; null adds nothing.
    void AddTail(CStringList *pNewList);
    void RemoveAll();

    /// Null when the list is empty.
    POSITION GetHeadPosition() const { return position(m_pNodeHead); }
    /// Null when the list is empty.
    POSITION GetTailPosition() const { return position(m_pNodeTail); }
    /// The string at `rPosition`, which must not be null and moves to the next one; null behind the last.
    CString &GetNext(POSITION &rPosition) { return step(rPosition, &CNode::pNext); }
    const CString &GetNext(POSITION &rPosition) const { return step(rPosition, &CNode::pNext); }
    /// The string at `rPosition`, which must not be null and moves to the one before; null before the first.
    CString &GetPrev(POSITION &rPosition) { return step(rPosition, &CNode::pPrev); }
    const CString &GetPrev(POSITION &rPosition) const { return step(rPosition, &CNode::pPrev); }

    /// The string at `position`, which must not be null.
    CString &GetAt(POSITION position) { return node(position)->data; }
    const CString &GetAt(POSITION position) const { return node(position)->data; }
    void SetAt(POSITION pos, const wchar_t *newElement) { node(pos)->data = newElement; }
    void SetAt(POSITION pos, const CString &newElement) { node(pos)->data = newElement; }
    void RemoveAt(POSITION position);

    /// Insert beside `position`, which must not be null. \return where it stands
    POSITION InsertBefore(POSITION position, const wchar_t *newElement);
    POSITION InsertBefore(POSITION position, const CString &newElement);
    POSITION InsertAfter(POSITION position, const wchar_t *newElement);
    POSITION InsertAfter(POSITION position, const CString &newElement);

    /// The first string that equals `searchValue`, searched behind `startAfter` or from the head; null when
    /// there is none. As MFC, and as there with regard to case.
    POSITION Find(const wchar_t *searchValue, POSITION startAfter = nullptr) const;
    /// The string number `nIndex`, found by walking; null when there is none.
    POSITION FindIndex(long nIndex) const;

protected:
    struct CNode
    {
        CNode *pNext;
        CNode *pPrev;
        CString data;
    };

    /// A node with an empty string and these links; its neighbours are not told.
    CNode *NewNode(CNode *pPrev, CNode *pNext);
    /// Takes back a node that nothing links to any more.
    void FreeNode(CNode *pNode);

    CNode *m_pNodeHead = nullptr;
    CNode *m_pNodeTail = nullptr;
    long m_nCount = 0;
    CNode *m_pNodeFree = nullptr;
    CPlex *m_pBlocks = nullptr;
    long m_nBlockSize;

private:
    template<class Text>
    POSITION insert(CNode *pPrev, CNode *pNext, const Text &text);
    static POSITION position(CNode *node) { return reinterpret_cast<POSITION>(node); }
    static CNode *node(POSITION position)
    {
        if (!position)
            AfxThrowInvalidArgException();
        return reinterpret_cast<CNode *>(position);
    }
    static CString &step(POSITION &rPosition, CNode *CNode::*link)
    {
        CNode *const current = node(rPosition);
        rPosition = position(current->*link);
        return current->data;
    }
};

/// A hash map from texts to pointers, which it does not own; CMapStringToPtr of MFC.
///
/// A key has fewer than 512 characters. A longer one is cut, and then no key finds or removes it, so that it
/// is added once more each time. Keys are told apart with regard to case. The table keeps its number of
/// buckets, 17 at first; InitHashTable() suits it to more elements. Memory is released when the map becomes
/// empty.
class KX_EXPORT CMapStringToPtr : public CObject
{
public:
    /// One element.
    struct CAssoc
    {
        CAssoc *pNext;       ///< The next one of the same bucket.
        unsigned int nBucket;
        wchar_t key[512];
        void *value;
    };

    /// `nBlockSize` elements of 2 KiB are allocated at a time; less than 1 counts as 1.
    explicit CMapStringToPtr(long nBlockSize = 10) noexcept : m_nBlockSize(nBlockSize) {}
    ~CMapStringToPtr();
    CMapStringToPtr(const CMapStringToPtr &) = delete;
    CMapStringToPtr &operator=(const CMapStringToPtr &) = delete;

    long GetCount() const { return m_nCount; }
    /// As GetCount().
    long GetSize() const { return m_nCount; }
    bool IsEmpty() const { return m_nCount == 0; }
    /// The number of buckets.
    unsigned int GetHashTableSize() const { return m_nHashTableSize; }

    /// Finds the value. \return false, and leaves `rValue` alone, when the key is not there
    bool Lookup(const wchar_t *key, void *&rValue) const;
    /// Finds the map's own copy of the key, good until the element is removed.
    /// \return false, and leaves `rKey` alone, when the key is not there
    bool LookupKey(const wchar_t *key, const wchar_t *&rKey) const;
    /// The value, which is added as null when the key is not there.
    void *&operator[](const wchar_t *key);
    void SetAt(const wchar_t *key, void *newValue) { (*this)[key] = newValue; }
    /// \return whether the key was there
    bool RemoveKey(const wchar_t *key);
    /// Removes everything; the number of buckets stays.
    void RemoveAll();

    /// Where GetNextAssoc() begins: -1, or null when the map is empty.
    POSITION GetStartPosition() const;
    /// The element at `rNextPosition`, which moves to the next one and is null behind the last. Bucket by
    /// bucket, and within a bucket the newest first. At a null position nothing happens.
    void GetNextAssoc(POSITION &rNextPosition, CString &rKey, void *&rValue) const;

    /// 0, then 33 times that plus the character for each one, in 32 bits.
    unsigned int HashKey(const wchar_t *key) const;
    /// Sets the number of buckets of an empty map, and allocates them or leaves that to the first element.
    /// When they cannot be allocated the number stays and the map has none. With 0 buckets the map finds
    /// nothing, and makes 17 when an element is added.
    void InitHashTable(unsigned int hashSize, bool bAllocNow = true);

    /// The element of a key, or null; its bucket and hash in any case.
    CAssoc *GetAssocAt(const wchar_t *key, unsigned int &nBucket, unsigned int &nHash) const;
    /// An element with an empty key and a null value, counted but in no bucket.
    CAssoc *NewAssoc();
    /// Takes back an element that is in no bucket any more; with the last one the map is cleared.
    void FreeAssoc(CAssoc *pAssoc);

protected:
    CAssoc **m_pHashTable = nullptr;
    unsigned int m_nHashTableSize = 17;
    long m_nCount = 0;
    CAssoc *m_pFreeList = nullptr;
    CPlex *m_pBlocks = nullptr;
    long m_nBlockSize;

private:
    CAssoc *firstFrom(unsigned int bucket) const;
};

/// CMapStringToString of MFC as an interface only: nothing is ever stored, and yet IsEmpty() says false and
/// RemoveKey() true.
class KX_EXPORT CMapStringToString : public CObject
{
public:
    struct CPair
    {
        const CString key;
        CString value;
    };
    struct CAssoc;

    explicit CMapStringToString(long nBlockSize = 10);
    ~CMapStringToString();
    CMapStringToString(const CMapStringToString &) = delete;
    CMapStringToString &operator=(const CMapStringToString &) = delete;

    KX_INERT("returns 0; nothing is stored")
    long GetCount() const;
    KX_INERT("returns 0; nothing is stored")
    long GetSize() const;
    KX_INERT("returns false, although nothing is stored")
    bool IsEmpty() const;
    KX_INERT("returns 0; nothing is stored")
    unsigned int GetHashTableSize() const;
    KX_INERT("returns false; nothing is stored")
    bool Lookup(const wchar_t *key, CString &rValue) const;
    KX_INERT("returns false; nothing is stored")
    bool LookupKey(const wchar_t *key, const wchar_t *&rKey) const;
    KX_INERT("returns null; nothing is stored")
    const CPair *PLookup(const wchar_t *key) const;
    KX_INERT("returns null; nothing is stored")
    CPair *PLookup(const wchar_t *key);
    /// A string that is empty each time and is not kept.
    KX_INERT("returns a string that is not kept")
    CString &operator[](const wchar_t *key);
    KX_INERT("does nothing; nothing is stored")
    void SetAt(const wchar_t *key, const wchar_t *newValue);
    KX_INERT("returns true, although nothing is stored")
    bool RemoveKey(const wchar_t *key);
    KX_INERT("does nothing; nothing is stored")
    void RemoveAll();
    KX_INERT("returns null; nothing is stored")
    POSITION GetStartPosition() const;
    KX_INERT("does nothing; nothing is stored")
    void GetNextAssoc(POSITION &rNextPosition, CString &rKey, CString &rValue) const;
    KX_INERT("returns null; nothing is stored")
    const CPair *PGetFirstAssoc() const;
    KX_INERT("returns null; nothing is stored")
    CPair *PGetFirstAssoc();
    KX_INERT("returns null; nothing is stored")
    const CPair *PGetNextAssoc(const CPair *pAssocRet) const;
    KX_INERT("returns null; nothing is stored")
    CPair *PGetNextAssoc(const CPair *pAssocRet);
    KX_INERT("returns 0; nothing is stored")
    unsigned int HashKey(const wchar_t *key) const;
    KX_INERT("does nothing; nothing is stored")
    void InitHashTable(unsigned int hashSize, bool bAllocNow = true);
    KX_INERT("returns null; nothing is stored")
    CAssoc *NewAssoc();
    KX_INERT("does nothing; nothing is stored")
    void FreeAssoc(CAssoc *pAssoc);
    KX_INERT("returns null; nothing is stored")
    CAssoc *GetAssocAt(const wchar_t *key, unsigned int &nBucket, unsigned int &nHash) const;

private:
    CString m_nothing;
};
