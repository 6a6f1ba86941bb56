// SPDX-License-Identifier: MIT
#include "KxCollectionModel.h"
#include "KxTestCase.h"

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr int operationCount = 100000;

template<class Array>
constexpr bool isPlain = !std::is_same_v<Array, CStringArray>;

/// What an array promises, told with a vector.
template<class Element>
struct ArrayModel
{
    std::vector<Element> elements;
    long allocated = 0;
    long growBy = 0;

    long size() const { return long(elements.size()); }

    void setSize(long newSize, long newGrowBy = -1)
    {
        if (newGrowBy >= 0)
            growBy = newGrowBy;
        if (newSize == 0)
            allocated = 0;
        else if (allocated == 0)
            allocated = newSize;
        else if (newSize > allocated)
            allocated = std::max(newSize, allocated + (growBy ? growBy : std::clamp(size() / 8, 4L, 1024L)));
        elements.resize(std::size_t(newSize));
    }
    void setAtGrow(long index, const Element &element)
    {
        if (index >= size())
            setSize(index + 1);
        elements[std::size_t(index)] = element;
    }
    void insert(long index, const Element &element, long count)
    {
        if (index >= size()) {
            setSize(index + count);
            if (count > 0)
                std::fill(elements.begin() + index, elements.end(), element);
            return;
        }
        const std::vector<Element> before = elements;
        setSize(size() + count);
        elements = before;
        elements.insert(elements.begin() + index, std::size_t(count), element);
    }
    void insert(long index, const std::vector<Element> &source)
    {
        if (source.empty())
            return;
        insert(index, Element(), long(source.size()));
        std::copy(source.begin(), source.end(), elements.begin() + index);
    }
    void append(const std::vector<Element> &source)
    {
        const long old = size();
        setSize(old + long(source.size()));
        std::copy(source.begin(), source.end(), elements.begin() + old);
    }
    void copy(const std::vector<Element> &source)
    {
        setSize(long(source.size()));
        elements = source;
    }
    /// Past the end nothing moves, and the size goes down all the same.
    void remove(long index, long count)
    {
        if (index + count <= size())
            elements.erase(elements.begin() + index, elements.begin() + index + count);
        else
            elements.resize(std::size_t(size() - count));
    }
    void freeExtra() { allocated = size(); }
};

/// Random numbers that are the same everywhere.
class Random
{
public:
    explicit Random(unsigned int seed) : m_engine(seed) {}
    /// 0 .. `limit` - 1
    long below(long limit) { return long(m_engine() % static_cast<unsigned long>(limit)); }

private:
    std::mt19937_64 m_engine;
};

/// An array and its model, and what is done to both.
template<class Array>
class Pair
{
    using Element = typename KxElement<Array>::Type;
    using Model = ArrayModel<std::conditional_t<isPlain<Array>, Element, std::wstring>>;
    using Value = typename decltype(Model::elements)::value_type;

public:
    explicit Pair(unsigned int seed) : m_seed(seed), m_random(seed) {}

    /// \return what went wrong; nothing when all is well
    QString run()
    {
        for (int i = 0; i < operationCount && m_failure.isEmpty(); ++i) {
            step();
            compare(i % 64 == 0 || i == operationCount - 1);
            if (!m_failure.isEmpty()) {
                return QStringLiteral("seed %1, operation %2, %3: %4").arg(m_seed).arg(i)
                    .arg(m_operation, m_failure);
            }
        }
        return m_failure;
    }

private:
    void step();
    void compare(bool all);

    void fail(const QString &what)
    {
        if (m_failure.isEmpty())
            m_failure = what;
    }
    void same(const char *what, long actual, long expected)
    {
        if (actual != expected)
            fail(QStringLiteral("%1 is %2 instead of %3").arg(QLatin1String(what)).arg(actual).arg(expected));
    }
    void begin(const char *operation, long first = -1, long second = -1)
    {
        m_operation = QStringLiteral("%1(%2, %3) at size %4 of %5").arg(QLatin1String(operation)).arg(first)
            .arg(second).arg(m_model.size()).arg(m_model.allocated);
    }
    void compareElement(long index)
    {
        if (!(m_array.GetAt(index) == m_model.elements[std::size_t(index)])) {
            fail(QStringLiteral("element %1 of %2 is %3").arg(index).arg(m_model.size())
                     .arg(KxElement<Array>::shown(m_array.GetAt(index))));
        }
    }

    Element element() { return kxElement<Array>(int(m_random.below(100))); }
    /// Mostly few, sometimes many.
    long count()
    {
        const long kind = m_random.below(100);
        return m_random.below(kind < 80 ? 12 : kind < 98 ? 90 : 400);
    }
    /// An index in the array or up to a little behind its end.
    long index(long behind) { return m_random.below(m_model.size() + behind); }
    void fillSource()
    {
        m_source.RemoveAll();
        m_sourceModel.clear();
        for (long i = m_random.below(9); i > 0; --i) {
            const Element added = element();
            m_source.Add(added);
            m_sourceModel.push_back(added);
        }
    }

    unsigned int m_seed;
    Random m_random;
    Array m_array;
    Model m_model;
    Array m_source;
    std::vector<Value> m_sourceModel;
    QString m_operation;
    QString m_failure;
};

template<class Array>
void Pair<Array>::step()
{
    // Many elements are a rare state, as they make each step dear.
    if (m_model.size() > 600 && m_random.below(8) == 0) {
        const long size = m_random.below(60);
        begin("SetSize to few", size);
        m_array.SetSize(size);
        m_model.setSize(size);
        return;
    }
    const long choice = m_random.below(isPlain<Array> ? 28 : 36);
    const long size = m_model.size();
    const Element value = element();
    const long number = count();
    switch (choice) {
    case 0: {
        const long newSize = m_random.below(50) == 0 ? m_random.below(9500) : m_random.below(size + 20);
        begin("SetSize", newSize);
        m_array.SetSize(newSize);
        m_model.setSize(newSize);
        break;
    }
    case 1: {
        const long newSize = m_random.below(size + 20);
        const long growBy = m_random.below(3) == 0 ? m_random.below(40) : m_random.below(2) - 1;
        begin("SetSize", newSize, growBy);
        m_array.SetSize(newSize, growBy);
        m_model.setSize(newSize, growBy);
        break;
    }
    case 2:
        if (m_random.below(4) == 0) {
            begin("RemoveAll");
            m_array.RemoveAll();
            m_model.setSize(0);
        }
        break;
    case 3:
        begin("FreeExtra");
        m_array.FreeExtra();
        m_model.freeExtra();
        break;
    case 4:
    case 5:
    case 6:
        begin("Add");
        same("the index of Add", m_array.Add(value), size);
        m_model.setAtGrow(size, value);
        break;
    case 7:
        if (size > 0) {
            const long from = index(0);
            begin("Add of an own element", from);
            const Value own = m_model.elements[std::size_t(from)];
            same("the index of Add", m_array.Add(m_array[from]), size);
            m_model.setAtGrow(size, own);
        }
        break;
    case 8: {
        const long at = index(12);
        begin("SetAtGrow", at);
        m_array.SetAtGrow(at, value);
        m_model.setAtGrow(at, value);
        break;
    }
    case 9:
        if (size > 0) {
            const long at = index(0);
            begin("SetAt", at);
            m_array.SetAt(at, value);
            m_model.elements[std::size_t(at)] = value;
        }
        break;
    case 10:
        if (size > 0) {
            const long at = index(0);
            begin("operator[] and ElementAt", at);
            m_array[at] = value;
            m_model.elements[std::size_t(at)] = value;
            const long other = index(0);
            m_array.ElementAt(other) = value;
            m_model.elements[std::size_t(other)] = value;
        }
        break;
    case 11:
        if (size > 0) {
            const long from = index(0);
            const long at = index(6);
            begin("SetAtGrow of an own element", at, from);
            const Value own = m_model.elements[std::size_t(from)];
            m_array.SetAtGrow(at, m_array[from]);
            m_model.setAtGrow(at, own);
        }
        break;
    case 12:
        fillSource();
        begin("Append", m_source.GetSize());
        same("the index of Append", m_array.Append(m_source), size);
        m_model.append(m_sourceModel);
        break;
    case 13:
        if (m_random.below(3) == 0) {
            fillSource();
            begin("Copy", m_source.GetSize());
            m_array.Copy(m_source);
            m_model.copy(m_sourceModel);
        }
        break;
    case 14:
        begin("Copy of itself");
        m_array.Copy(m_array);
        break;
    case 15:
    case 16: {
        const long at = index(6);
        begin("InsertAt", at, number);
        m_array.InsertAt(at, value, number);
        m_model.insert(at, value, number);
        break;
    }
    case 17: {
        const long at = index(1);
        begin("InsertAt of one", at);
        m_array.InsertAt(at, value);
        m_model.insert(at, value, 1);
        break;
    }
    case 18:
        if (size > 0) {
            const long from = index(0);
            const long at = index(6);
            begin("InsertAt of an own element", at, from);
            const Value own = m_model.elements[std::size_t(from)];
            m_array.InsertAt(at, m_array[from], 3);
            m_model.insert(at, own, 3);
        }
        break;
    case 19: {
        const long at = index(6);
        begin("InsertAt of none", at);
        m_array.InsertAt(at, value, 0);
        m_model.insert(at, value, 0);
        break;
    }
    case 20: {
        const long at = size + m_random.below(6);
        const long less = m_random.below(std::min(at, 8L) + 1);
        begin("InsertAt of fewer than none", at, -less);
        m_array.InsertAt(at, value, -less);
        m_model.insert(at, value, -less);
        break;
    }
    case 21: {
        fillSource();
        const long at = index(6);
        begin("InsertAt of an array", at, m_source.GetSize());
        m_array.InsertAt(at, &m_source);
        m_model.insert(at, m_sourceModel);
        break;
    }
    case 22:
        begin("InsertAt of no array");
        m_array.InsertAt(index(6) - 1, static_cast<Array *>(nullptr));
        break;
    case 23:
    case 24:
    case 25:
        if (size > 0) {
            const long at = index(0);
            const long removed = std::min(number, size - at);
            begin("RemoveAt", at, removed);
            m_array.RemoveAt(at, removed);
            m_model.remove(at, removed);
        }
        break;
    case 26: {
        const long at = index(6);
        begin("RemoveAt of none", at);
        m_array.RemoveAt(at, 0);
        break;
    }
    default:
        if constexpr (isPlain<Array>) {
            const long at = index(6);
            const long removed = std::min(number, size);
            begin("RemoveAt, perhaps past the end", at, removed);
            m_array.RemoveAt(at, removed);
            m_model.remove(at, removed);
        } else {
            const std::wstring text = value;
            const long at = index(6);
            switch (choice) {
            case 27:
            case 28:
                begin("InsertEmpty", at, number);
                m_array.InsertEmpty(at, number);
                m_model.insert(at, std::wstring(), number);
                break;
            case 29:
                begin("InsertEmpty of none", at);
                m_array.InsertEmpty(at, 0);
                m_model.insert(at, std::wstring(), 0);
                break;
            case 30:
                begin("Add of a pointer");
                same("the index of Add", m_array.Add(text.c_str()), size);
                m_model.setAtGrow(size, text);
                break;
            case 31:
                begin("SetAtGrow of a pointer", at);
                m_array.SetAtGrow(at, text.c_str());
                m_model.setAtGrow(at, text);
                break;
            case 32:
                begin("InsertAt of a pointer", at, number);
                m_array.InsertAt(at, text.c_str(), number);
                m_model.insert(at, text, number);
                break;
            case 33:
                begin("Add of null");
                same("the index of Add", m_array.Add(static_cast<const wchar_t *>(nullptr)), size);
                m_model.setAtGrow(size, std::wstring());
                break;
            default:
                if (size > 0) {
                    const long from = index(0);
                    const std::wstring own = m_model.elements[std::size_t(from)];
                    const wchar_t *const pointer = std::as_const(m_array)[from].GetString();
                    if (choice == 34) {
                        begin("InsertAt of an own text", at, from);
                        m_array.InsertAt(at, pointer, 2);
                        m_model.insert(at, own, 2);
                    } else {
                        begin("Add of an own text", from);
                        same("the index of Add", m_array.Add(pointer), size);
                        m_model.setAtGrow(size, own);
                    }
                }
            }
        }
    }
}

template<class Array>
void Pair<Array>::compare(bool all)
{
    const long size = m_model.size();
    const KxArrayFields fields = kxFields(m_array);
    same("GetSize", m_array.GetSize(), size);
    same("GetCount", m_array.GetCount(), size);
    same("IsEmpty", m_array.IsEmpty(), size == 0);
    same("the room", fields.allocated, m_model.allocated);
    same("the grow step", fields.growBy, m_model.growBy);
    same("the block being null", fields.elements == nullptr, m_model.allocated == 0);
    if constexpr (isPlain<Array>) {
        same("GetUpperBound", m_array.GetUpperBound(), size - 1);
        same("GetData being the block", m_array.GetData() == fields.elements, true);
    }
    if (!m_failure.isEmpty() || size == 0)
        return;
    if (all) {
        for (long i = 0; i < size; ++i)
            compareElement(i);
    } else {
        compareElement(0);
        compareElement(size - 1);
        for (int i = 0; i < 4; ++i)
            compareElement(index(0));
    }
}

} // namespace

class tst_ArrayModels : public KxTestCase
{
    Q_OBJECT

private slots:
    void strings_data() { seeds(); }
    void strings() { run<CStringArray>(); }
    void words_data() { seeds(); }
    void words() { run<CWordArray>(); }
    void bytes_data() { seeds(); }
    void bytes() { run<CByteArray>(); }
    void pointers_data() { seeds(); }
    void pointers() { run<CPtrArray>(); }

private:
    static void seeds();
    template<class Array>
    static void run();
};

void tst_ArrayModels::seeds()
{
    QTest::addColumn<unsigned int>("seed");
    for (unsigned int seed : {20260321u, 7u})
        QTest::addRow("seed %u", seed) << seed;
}

template<class Array>
void tst_ArrayModels::run()
{
    QFETCH(unsigned int, seed);
    Pair<Array> pair(seed);
    const QString failure = pair.run();
    QVERIFY2(failure.isEmpty(), qPrintable(failure));
}

KX_TEST_MAIN(tst_ArrayModels)
#include "tst_array_models.moc"
