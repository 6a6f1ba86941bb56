// SPDX-License-Identifier: MIT
#include "KxAfxColl.h"

#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstring>
#include <cwchar>
#include <iterator>
#include <memory>
#include <new>
#include <string_view>

// ---- Arrays -------------------------------------------------------------------------------------------

namespace {

/// Elements whose value is their bytes and whose empty value is 0.
template<class Element>
constexpr bool isPlain = std::is_trivial_v<Element>;

template<class Element>
void constructElements(Element *first, long count)
{
    if constexpr (isPlain<Element>)
        std::memset(first, 0, static_cast<std::size_t>(count) * sizeof(Element));
    else
        std::uninitialized_value_construct_n(first, count);
}

template<class Element>
void destroyElements(Element *first, long count)
{
    if constexpr (!isPlain<Element>)
        std::destroy_n(first, std::max(0L, count));
}

/// Moves elements into raw slots, in an order in which no element is overwritten before it has moved.
template<class Element>
void relocateElements(Element *target, Element *source, long count)
{
    const auto move = [=](long i) {
        new (target + i) Element(std::move(source[i]));
        source[i].~Element();
    };
    if constexpr (isPlain<Element>) {
        if (count > 0)
            std::memmove(target, source, static_cast<std::size_t>(count) * sizeof(Element));
    } else if (target < source) {
        for (long i = 0; i < count; ++i)
            move(i);
    } else {
        for (long i = count - 1; i >= 0; --i)
            move(i);
    }
}

template<class Element>
void copyElements(Element *target, const Element *source, long count)
{
    if (count > 0)
        std::copy_n(source, count, target);
}

/// The slots to add to an array of `size` elements for which no step is fixed. The plain arrays count in
/// `int`.
template<class Element>
long computedGrowStep(long size)
{
    using Count = std::conditional_t<isPlain<Element>, int, long>;
    return std::min<Count>(1024, std::max<Count>(4, static_cast<Count>(size) / 8));
}

/// The sum of two counts, neither of which is below 0.
long sumOf(long count, long more)
{
    if (more > LONG_MAX - count)
        throw std::bad_array_new_length();
    return count + more;
}

} // namespace

template<class Element>
KxArrayBlock<Element>::~KxArrayBlock()
{
    release(size);
}

template<class Element>
Element *KxArrayBlock<Element>::allocate(long count)
{
    if (count < 0 || count > LONG_MAX / static_cast<long>(sizeof(Element)))
        throw std::bad_array_new_length();
    return static_cast<Element *>(operator new[](static_cast<std::size_t>(count) * sizeof(Element)));
}

/// Gives back the block, of whose elements the first `live` are still there.
template<class Element>
void KxArrayBlock<Element>::release(long live)
{
    destroyElements(elements, live);
    operator delete[](elements);
}

template<class Element>
void KxArrayBlock<Element>::relocate(long newSlots)
{
    Element *const block = newSlots == 0 ? nullptr : allocate(newSlots);
    relocateElements(block, elements, size);
    release(0);
    elements = block;
    capacity = newSlots;
}

/// Makes sure of slots for `newSize` elements.
template<class Element>
void KxArrayBlock<Element>::reserve(long newSize)
{
    if (!elements) {
        relocate(newSize);
    } else if (newSize > capacity) {
        const long step = growBy != 0 ? growBy : computedGrowStep<Element>(size);
        const auto grown = static_cast<unsigned long>(capacity) + static_cast<unsigned long>(step);
        const long newSlots = std::max(static_cast<long>(grown), newSize);
        if (newSlots < capacity)
            AfxThrowInvalidArgException();
        relocate(newSlots);
    }
}

template<class Element>
void KxArrayBlock<Element>::setSize(long newSize, long newGrowBy)
{
    if (newSize < 0)
        AfxThrowInvalidArgException();
    if (newGrowBy >= 0)
        growBy = newGrowBy;
    if (newSize == 0) {
        release(size);
        elements = nullptr;
        capacity = 0;
    } else {
        reserve(newSize);
        // A size below 0, which wrong arguments leave, counts as none.
        const long before = std::max(0L, size);
        const long after = std::max(0L, newSize);
        if (after > before)
            constructElements(elements + before, after - before);
        else
            destroyElements(elements + after, before - after);
    }
    size = newSize;
}

template<class Element>
void KxArrayBlock<Element>::freeExtra()
{
    if (size != capacity)
        relocate(std::max(0L, size));
}

template<class Element>
long KxArrayBlock<Element>::append(const KxArrayBlock &source)
{
    if (&source == this)
        AfxThrowInvalidArgException();
    const long before = size;
    const long count = source.size;
    setSize(before + count, -1);
    copyElements(elements + before, source.elements, count);
    return before;
}

template<class Element>
void KxArrayBlock<Element>::copy(const KxArrayBlock &source)
{
    if (&source == this)
        return;
    setSize(source.size, -1);
    copyElements(elements, source.elements, size);
}

template<class Element>
void KxArrayBlock<Element>::setAtGrow(long index, Element value)
{
    if (index < 0)
        AfxThrowInvalidArgException();
    if (index >= size)
        setSize(index < 0 ? 0 : sumOf(index, 1), -1);
    if (index >= 0)
        elements[index] = std::move(value);
}

/// \return where the gap begins; null when there is none, for a wrong index or count
template<class Element>
Element *KxArrayBlock<Element>::insertGap(long index, long count)
{
    const bool isGap = index >= 0 && count >= 1;
    if (!isGap)
        AfxThrowInvalidArgException();
    if (index >= size && index >= 0) {
        setSize(count > 0 ? sumOf(index, count) : index + count, -1);
    } else if (isGap) {
        reserve(sumOf(size, count));
        relocateElements(elements + index + count, elements + index, size - index);
        constructElements(elements + index, count);
        size += count;
    }
    return isGap ? elements + index : nullptr;
}

template<class Element>
void KxArrayBlock<Element>::insert(long index, Element value, long count)
{
    if (Element *gap = insertGap(index, count))
        std::fill_n(gap, count, value);
}

template<class Element>
void KxArrayBlock<Element>::insert(long index, const KxArrayBlock *source)
{
    if (!source || index < 0)
        AfxThrowInvalidArgException();
    if (source == this) {
        KxArrayBlock before;
        before.copy(*this);
        insert(index, &before);
    } else if (source && source->size > 0) {
        if (Element *gap = insertGap(index, source->size))
            copyElements(gap, source->elements, source->size);
    }
}

template<class Element>
void KxArrayBlock<Element>::removeAt(long index, long count)
{
    const long end = static_cast<long>(static_cast<unsigned long>(index) + static_cast<unsigned long>(count));
    if (index < 0 || count < 0 || end > size || end < index || end < count)
        AfxThrowInvalidArgException();
    const long remaining = size - count;
    // Plain elements carry on with a count below 0 too, as far as there is memory.
    if (count == 0 || index < 0 || end < 0 || (count < 0 && (!isPlain<Element> || remaining > capacity)))
        return;
    // Of a count that reaches past the end, all of it counts off the size and no slot is touched that is raw.
    const long first = std::max(0L, std::min(index, remaining));
    destroyElements(elements + first, std::min(end, size) - first);
    if (end < size)
        relocateElements(elements + index, elements + end, size - end);
    size = remaining;
}

template struct KxArrayBlock<CString>;
template struct KxArrayBlock<unsigned short>;
template struct KxArrayBlock<unsigned char>;
template struct KxArrayBlock<void *>;

// ---- List and maps ------------------------------------------------------------------------------------

CPlex *CPlex::Create(CPlex *&pHead, unsigned long nMax, unsigned long cbElement)
{
    if (nMax == 0 || cbElement == 0)
        return nullptr;
    if (nMax > (SIZE_MAX - sizeof(CPlex)) / cbElement)
        throw std::bad_array_new_length();
    auto *plex = static_cast<CPlex *>(operator new[](sizeof(CPlex) + nMax * cbElement));
    plex->pNext = pHead;
    pHead = plex;
    return plex;
}

void CPlex::FreeDataChain()
{
    for (CPlex *plex = this; plex;) {
        CPlex *const next = plex->pNext;
        operator delete[](plex);
        plex = next;
    }
}

namespace {

/// Takes a node off the free list, which gets a new block when it is empty; the first in memory is the first
/// out.
template<class Node>
Node *takeFree(Node *&freeList, CPlex *&blocks, long blockSize)
{
    if (!freeList) {
        const long count = std::max(1L, blockSize);
        CPlex *const block = CPlex::Create(blocks, static_cast<unsigned long>(count), sizeof(Node));
        auto *nodes = static_cast<Node *>(block->data());
        for (long i = count - 1; i >= 0; --i) {
            nodes[i].pNext = freeList;
            freeList = nodes + i;
        }
    }
    Node *const node = freeList;
    freeList = node->pNext;
    return node;
}

const POSITION beforeFirst = reinterpret_cast<POSITION>(-1L);

constexpr unsigned int defaultBuckets = 17;

const wchar_t *orEmpty(const wchar_t *text)
{
    return text ? text : L"";
}

/// A key to look for, with its length and hash.
struct SoughtKey
{
    explicit SoughtKey(const wchar_t *key) : text(orEmpty(key))
    {
        for (; text[length]; ++length)
            hash = hash * 33 + static_cast<unsigned int>(text[length]);
    }

    /// Keys of a kind mostly differ at their ends, so these are compared first.
    bool isKeyOf(const CMapStringToPtr::CAssoc &element) const
    {
        return length < std::size(element.key) && element.key[length] == 0
            && (length == 0 || element.key[length - 1] == text[length - 1])
            && std::wmemcmp(element.key, text, length) == 0;
    }

    const wchar_t *text;
    std::size_t length = 0;
    unsigned int hash = 0;
};

/// The link of a bucket's chain to the element of a key, or the null link at its end.
CMapStringToPtr::CAssoc **findLink(CMapStringToPtr::CAssoc **link, const SoughtKey &sought)
{
    while (*link && !sought.isKeyOf(**link))
        link = &(*link)->pNext;
    return link;
}

void freeBlocks(CPlex *&blocks)
{
    if (blocks)
        blocks->FreeDataChain();
    blocks = nullptr;
}

} // namespace

CStringList::~CStringList()
{
    RemoveAll();
}

template<class Text>
POSITION CStringList::insert(CNode *pPrev, CNode *pNext, const Text &text)
{
    CString data(text); // first, since a node that was taken has to get its text
    CNode *const added = NewNode(pPrev, pNext);
    added->data = std::move(data);
    (pPrev ? pPrev->pNext : m_pNodeHead) = added;
    (pNext ? pNext->pPrev : m_pNodeTail) = added;
    return position(added);
}

CString CStringList::RemoveHead()
{
    CString removed = std::move(m_pNodeHead->data);
    RemoveAt(position(m_pNodeHead));
    return removed;
}

CString CStringList::RemoveTail()
{
    CString removed = std::move(m_pNodeTail->data);
    RemoveAt(position(m_pNodeTail));
    return removed;
}

POSITION CStringList::AddHead(const wchar_t *newElement)
{
    return insert(nullptr, m_pNodeHead, newElement);
}

POSITION CStringList::AddHead(const CString &newElement)
{
    return insert(nullptr, m_pNodeHead, newElement);
}

void CStringList::AddHead(CStringList *pNewList)
{
    if (!pNewList) {
        AfxThrowInvalidArgException();
        return;
    }
    POSITION position = pNewList->GetTailPosition();
    for (long i = pNewList->GetCount(); i > 0; --i)
        AddHead(pNewList->GetPrev(position));
}

POSITION CStringList::AddTail(const wchar_t *newElement)
{
    return insert(m_pNodeTail, nullptr, newElement);
}

POSITION CStringList::AddTail(const CString &newElement)
{
    return insert(m_pNodeTail, nullptr, newElement);
}

void CStringList::AddTail(CStringList *pNewList)
{
    if (!pNewList) {
        AfxThrowInvalidArgException();
        return;
    }
    POSITION position = pNewList->GetHeadPosition();
    for (long i = pNewList->GetCount(); i > 0; --i)
        AddTail(pNewList->GetNext(position));
}

void CStringList::RemoveAll()
{
    for (CNode *current = m_pNodeHead; current;) {
        CNode *const next = current->pNext;
        current->data.~CString();
        current = next;
    }
    m_pNodeHead = m_pNodeTail = m_pNodeFree = nullptr;
    m_nCount = 0;
    freeBlocks(m_pBlocks);
}

void CStringList::RemoveAt(POSITION position)
{
    CNode *const removed = node(position);
    (removed->pPrev ? removed->pPrev->pNext : m_pNodeHead) = removed->pNext;
    (removed->pNext ? removed->pNext->pPrev : m_pNodeTail) = removed->pPrev;
    FreeNode(removed);
}

POSITION CStringList::InsertBefore(POSITION position, const wchar_t *newElement)
{
    CNode *const next = node(position);
    return insert(next->pPrev, next, newElement);
}

POSITION CStringList::InsertBefore(POSITION position, const CString &newElement)
{
    CNode *const next = node(position);
    return insert(next->pPrev, next, newElement);
}

POSITION CStringList::InsertAfter(POSITION position, const wchar_t *newElement)
{
    CNode *const previous = node(position);
    return insert(previous, previous->pNext, newElement);
}

POSITION CStringList::InsertAfter(POSITION position, const CString &newElement)
{
    CNode *const previous = node(position);
    return insert(previous, previous->pNext, newElement);
}

POSITION CStringList::Find(const wchar_t *searchValue, POSITION startAfter) const
{
    const std::wstring_view text = orEmpty(searchValue);
    CNode *current = startAfter ? node(startAfter)->pNext : m_pNodeHead;
    while (current && current->data != text)
        current = current->pNext;
    return position(current);
}

POSITION CStringList::FindIndex(long nIndex) const
{
    if (nIndex < 0 || nIndex >= m_nCount)
        return nullptr;
    CNode *current = m_pNodeHead;
    for (long i = 0; i < nIndex; ++i)
        current = current->pNext;
    return position(current);
}

CStringList::CNode *CStringList::NewNode(CNode *pPrev, CNode *pNext)
{
    CNode *const added = takeFree(m_pNodeFree, m_pBlocks, m_nBlockSize);
    added->pNext = pNext;
    added->pPrev = pPrev;
    new (&added->data) CString;
    ++m_nCount;
    return added;
}

void CStringList::FreeNode(CNode *pNode)
{
    if (!pNode) {
        AfxThrowInvalidArgException();
        return;
    }
    pNode->data.~CString();
    pNode->pNext = m_pNodeFree;
    m_pNodeFree = pNode;
    if (--m_nCount == 0)
        RemoveAll();
}

CMapStringToPtr::~CMapStringToPtr()
{
    RemoveAll();
}

bool CMapStringToPtr::Lookup(const wchar_t *key, void *&rValue) const
{
    unsigned int bucket;
    unsigned int hash;
    const CAssoc *found = GetAssocAt(key, bucket, hash);
    if (found)
        rValue = found->value;
    return found;
}

bool CMapStringToPtr::LookupKey(const wchar_t *key, const wchar_t *&rKey) const
{
    unsigned int bucket;
    unsigned int hash;
    const CAssoc *found = GetAssocAt(key, bucket, hash);
    if (found)
        rKey = found->key;
    return found;
}

void *&CMapStringToPtr::operator[](const wchar_t *key)
{
    unsigned int bucket;
    unsigned int hash;
    CAssoc *found = GetAssocAt(key, bucket, hash);
    if (!found) {
        if (!m_pHashTable) {
            InitHashTable(m_nHashTableSize ? m_nHashTableSize : defaultBuckets, true);
            if (!m_pHashTable)
                throw std::bad_alloc();
            bucket = hash % m_nHashTableSize;
        }
        found = NewAssoc();
        found->nBucket = bucket;
        const std::wstring_view text = orEmpty(key);
        text.copy(found->key, std::size(found->key) - 1);
        found->pNext = m_pHashTable[bucket];
        m_pHashTable[bucket] = found;
    }
    return found->value;
}

bool CMapStringToPtr::RemoveKey(const wchar_t *key)
{
    if (!m_pHashTable)
        return false;
    const SoughtKey sought(key);
    CAssoc **const link = findLink(&m_pHashTable[sought.hash % m_nHashTableSize], sought);
    CAssoc *const found = *link;
    if (found) {
        *link = found->pNext;
        FreeAssoc(found);
    }
    return found;
}

void CMapStringToPtr::RemoveAll()
{
    delete[] m_pHashTable;
    m_pHashTable = nullptr;
    m_nCount = 0;
    m_pFreeList = nullptr;
    freeBlocks(m_pBlocks);
}

POSITION CMapStringToPtr::GetStartPosition() const
{
    return m_nCount == 0 ? nullptr : beforeFirst;
}

void CMapStringToPtr::GetNextAssoc(POSITION &rNextPosition, CString &rKey, void *&rValue) const
{
    const CAssoc *current =
        rNextPosition == beforeFirst ? firstFrom(0) : reinterpret_cast<CAssoc *>(rNextPosition);
    if (!current) {
        AfxThrowInvalidArgException();
        rNextPosition = nullptr;
        return;
    }
    CAssoc *const next = current->pNext ? current->pNext : firstFrom(current->nBucket + 1);
    rNextPosition = reinterpret_cast<POSITION>(next);
    rKey = current->key;
    rValue = current->value;
}

unsigned int CMapStringToPtr::HashKey(const wchar_t *key) const
{
    return SoughtKey(key).hash;
}

void CMapStringToPtr::InitHashTable(unsigned int hashSize, bool bAllocNow)
{
    delete[] m_pHashTable;
    m_pHashTable = nullptr;
    if (bAllocNow && hashSize > 0) {
        m_pHashTable = new (std::nothrow) CAssoc *[hashSize]();
        if (!m_pHashTable)
            return;
    }
    m_nHashTableSize = hashSize;
}

CMapStringToPtr::CAssoc *CMapStringToPtr::GetAssocAt(const wchar_t *key, unsigned int &nBucket,
                                                     unsigned int &nHash) const
{
    const SoughtKey sought(key);
    nHash = sought.hash;
    nBucket = m_nHashTableSize ? nHash % m_nHashTableSize : 0;
    return m_pHashTable ? *findLink(&m_pHashTable[nBucket], sought) : nullptr;
}

CMapStringToPtr::CAssoc *CMapStringToPtr::NewAssoc()
{
    CAssoc *const added = takeFree(m_pFreeList, m_pBlocks, m_nBlockSize);
    std::memset(added->key, 0, sizeof added->key);
    added->value = nullptr;
    ++m_nCount;
    return added;
}

void CMapStringToPtr::FreeAssoc(CAssoc *pAssoc)
{
    if (!pAssoc) {
        AfxThrowInvalidArgException();
        return;
    }
    pAssoc->pNext = m_pFreeList;
    m_pFreeList = pAssoc;
    if (--m_nCount == 0)
        RemoveAll();
}

/// The newest element of the first bucket from `bucket` on that has any.
CMapStringToPtr::CAssoc *CMapStringToPtr::firstFrom(unsigned int bucket) const
{
    if (!m_pHashTable)
        return nullptr;
    while (bucket < m_nHashTableSize && !m_pHashTable[bucket])
        ++bucket;
    return bucket < m_nHashTableSize ? m_pHashTable[bucket] : nullptr;
}

CMapStringToString::CMapStringToString(long) {}
CMapStringToString::~CMapStringToString() = default;
long CMapStringToString::GetCount() const { return 0; }
long CMapStringToString::GetSize() const { return 0; }
bool CMapStringToString::IsEmpty() const { return false; }
unsigned int CMapStringToString::GetHashTableSize() const { return 0; }
bool CMapStringToString::Lookup(const wchar_t *, CString &) const { return false; }
bool CMapStringToString::LookupKey(const wchar_t *, const wchar_t *&) const { return false; }
const CMapStringToString::CPair *CMapStringToString::PLookup(const wchar_t *) const { return nullptr; }
CMapStringToString::CPair *CMapStringToString::PLookup(const wchar_t *) { return nullptr; }
void CMapStringToString::SetAt(const wchar_t *, const wchar_t *) {}
bool CMapStringToString::RemoveKey(const wchar_t *) { return true; }
void CMapStringToString::RemoveAll() {}
POSITION CMapStringToString::GetStartPosition() const { return nullptr; }
void CMapStringToString::GetNextAssoc(POSITION &, CString &, CString &) const {}
const CMapStringToString::CPair *CMapStringToString::PGetFirstAssoc() const { return nullptr; }
CMapStringToString::CPair *CMapStringToString::PGetFirstAssoc() { return nullptr; }
const CMapStringToString::CPair *CMapStringToString::PGetNextAssoc(const CPair *) const { return nullptr; }
CMapStringToString::CPair *CMapStringToString::PGetNextAssoc(const CPair *) { return nullptr; }
unsigned int CMapStringToString::HashKey(const wchar_t *) const { return 0; }
void CMapStringToString::InitHashTable(unsigned int, bool) {}
CMapStringToString::CAssoc *CMapStringToString::NewAssoc() { return nullptr; }
void CMapStringToString::FreeAssoc(CAssoc *) {}

CString &CMapStringToString::operator[](const wchar_t *)
{
    m_nothing.Empty();
    return m_nothing;
}

CMapStringToString::CAssoc *CMapStringToString::GetAssocAt(const wchar_t *, unsigned int &,
                                                           unsigned int &) const
{
    return nullptr;
}
