// SPDX-License-Identifier: MIT
#include "KxAfxColl.h"

#include <benchmark/benchmark.h>

#include <list>
#include <numeric>
#include <string>
#include <unordered_map>
#include <vector>

// Each collection beside the standard container doing the same work in the same run. The standard containers
// grow as they do; what the arrays' own growth costs is told by the runs that say Grown.

namespace {

constexpr long elements = 10000;

std::wstring textOf(long number)
{
    return L"layer/stroke/" + std::to_wstring(number);
}

std::vector<CString> makeTexts()
{
    std::vector<CString> texts;
    for (long i = 0; i < elements; ++i)
        texts.push_back(CString(textOf(i)));
    return texts;
}

const std::vector<CString> &texts()
{
    static const std::vector<CString> made = makeTexts();
    return made;
}

// ---- strings in an array --------------------------------------------------------------------------------

void stringsReservedStandard(benchmark::State &state)
{
    for (auto _ : state) {
        std::vector<std::wstring> array;
        array.resize(elements);
        for (long i = 0; i < elements; ++i)
            array[static_cast<std::size_t>(i)] = texts()[static_cast<std::size_t>(i)];
        benchmark::DoNotOptimize(array.data());
    }
}
BENCHMARK(stringsReservedStandard);

void stringsReservedArray(benchmark::State &state)
{
    for (auto _ : state) {
        CStringArray array;
        array.SetSize(elements);
        for (long i = 0; i < elements; ++i)
            array[i] = texts()[static_cast<std::size_t>(i)];
        benchmark::DoNotOptimize(&array[0]);
    }
}
BENCHMARK(stringsReservedArray);

void stringsGrownStandard(benchmark::State &state)
{
    for (auto _ : state) {
        std::vector<std::wstring> array;
        for (const CString &text : texts())
            array.push_back(text);
        benchmark::DoNotOptimize(array.data());
    }
}
BENCHMARK(stringsGrownStandard);

void stringsGrownArray(benchmark::State &state)
{
    for (auto _ : state) {
        CStringArray array;
        for (const CString &text : texts())
            array.Add(text);
        benchmark::DoNotOptimize(&array[0]);
    }
}
BENCHMARK(stringsGrownArray);

void stringsGrownArrayFixedStep(benchmark::State &state)
{
    for (auto _ : state) {
        CStringArray array;
        array.SetSize(0, elements);
        for (const CString &text : texts())
            array.Add(text);
        benchmark::DoNotOptimize(&array[0]);
    }
}
BENCHMARK(stringsGrownArrayFixedStep);

void stringsReadStandard(benchmark::State &state)
{
    const std::vector<std::wstring> array(texts().begin(), texts().end());
    for (auto _ : state) {
        std::size_t length = 0;
        for (std::size_t i = 0; i < array.size(); ++i)
            length += array[i].size();
        benchmark::DoNotOptimize(length);
    }
}
BENCHMARK(stringsReadStandard);

void stringsReadArray(benchmark::State &state)
{
    CStringArray array;
    for (const CString &text : texts())
        array.Add(text);
    for (auto _ : state) {
        std::size_t length = 0;
        for (long i = 0; i < array.GetSize(); ++i)
            length += array.GetAt(i).size();
        benchmark::DoNotOptimize(length);
    }
}
BENCHMARK(stringsReadArray);

void stringsInsertedAndRemovedStandard(benchmark::State &state)
{
    std::vector<std::wstring> array(texts().begin(), texts().begin() + 1000);
    for (auto _ : state) {
        array.insert(array.begin() + 100, 3, L"inserted");
        array.erase(array.begin() + 100, array.begin() + 103);
        benchmark::DoNotOptimize(array.data());
    }
}
BENCHMARK(stringsInsertedAndRemovedStandard);

void stringsInsertedAndRemovedArray(benchmark::State &state)
{
    CStringArray array;
    for (long i = 0; i < 1000; ++i)
        array.Add(texts()[static_cast<std::size_t>(i)]);
    for (auto _ : state) {
        array.InsertAt(100, L"inserted", 3);
        array.RemoveAt(100, 3);
        benchmark::DoNotOptimize(&array[0]);
    }
}
BENCHMARK(stringsInsertedAndRemovedArray);

// ---- numbers in an array --------------------------------------------------------------------------------

void wordsGrownStandard(benchmark::State &state)
{
    const long count = state.range(0);
    for (auto _ : state) {
        std::vector<unsigned short> array;
        for (long i = 0; i < count; ++i)
            array.push_back(static_cast<unsigned short>(i));
        benchmark::DoNotOptimize(array.data());
    }
}
BENCHMARK(wordsGrownStandard)->Arg(10000)->Arg(1000000);

void wordsGrownArray(benchmark::State &state)
{
    const long count = state.range(0);
    for (auto _ : state) {
        CWordArray array;
        for (long i = 0; i < count; ++i)
            array.Add(static_cast<unsigned short>(i));
        benchmark::DoNotOptimize(array.GetData());
    }
}
BENCHMARK(wordsGrownArray)->Arg(10000)->Arg(1000000);

void wordsReservedStandard(benchmark::State &state)
{
    const long count = state.range(0);
    for (auto _ : state) {
        std::vector<unsigned short> array;
        array.reserve(static_cast<std::size_t>(count));
        for (long i = 0; i < count; ++i)
            array.push_back(static_cast<unsigned short>(i));
        benchmark::DoNotOptimize(array.data());
    }
}
BENCHMARK(wordsReservedStandard)->Arg(10000)->Arg(1000000);

void wordsReservedArray(benchmark::State &state)
{
    const long count = state.range(0);
    for (auto _ : state) {
        CWordArray array;
        array.SetSize(1, count);
        array.SetSize(2);
        array.RemoveAt(0, 2);
        for (long i = 0; i < count; ++i)
            array.Add(static_cast<unsigned short>(i));
        benchmark::DoNotOptimize(array.GetData());
    }
}
BENCHMARK(wordsReservedArray)->Arg(10000)->Arg(1000000);

void wordsReadStandard(benchmark::State &state)
{
    std::vector<unsigned short> array(static_cast<std::size_t>(elements));
    std::iota(array.begin(), array.end(), static_cast<unsigned short>(0));
    for (auto _ : state) {
        long sum = 0;
        for (std::size_t i = 0; i < array.size(); ++i)
            sum += array[i];
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(wordsReadStandard);

void wordsReadArray(benchmark::State &state)
{
    CWordArray array;
    array.SetSize(elements);
    std::iota(array.GetData(), array.GetData() + elements, static_cast<unsigned short>(0));
    for (auto _ : state) {
        long sum = 0;
        for (long i = 0; i < array.GetSize(); ++i)
            sum += array[i];
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(wordsReadArray);

// ---- list -----------------------------------------------------------------------------------------------

void listFilledStandard(benchmark::State &state)
{
    for (auto _ : state) {
        std::list<std::wstring> list;
        for (const CString &text : texts())
            list.push_back(text);
        benchmark::DoNotOptimize(list.back().data());
    }
}
BENCHMARK(listFilledStandard);

void listFilled(benchmark::State &state)
{
    for (auto _ : state) {
        CStringList list;
        for (const CString &text : texts())
            list.AddTail(text);
        benchmark::DoNotOptimize(list.GetTail().data());
    }
}
BENCHMARK(listFilled);

void listWalkedStandard(benchmark::State &state)
{
    const std::list<std::wstring> list(texts().begin(), texts().end());
    for (auto _ : state) {
        std::size_t length = 0;
        for (const std::wstring &text : list)
            length += text.size();
        benchmark::DoNotOptimize(length);
    }
}
BENCHMARK(listWalkedStandard);

void listWalked(benchmark::State &state)
{
    CStringList list;
    for (const CString &text : texts())
        list.AddTail(text);
    for (auto _ : state) {
        std::size_t length = 0;
        for (POSITION position = list.GetHeadPosition(); position;)
            length += list.GetNext(position).size();
        benchmark::DoNotOptimize(length);
    }
}
BENCHMARK(listWalked);

void listQueueStandard(benchmark::State &state)
{
    std::list<std::wstring> list(texts().begin(), texts().begin() + 100);
    for (auto _ : state) {
        list.push_back(texts().front());
        const std::wstring first = std::move(list.front());
        list.pop_front();
        benchmark::DoNotOptimize(first.data());
    }
}
BENCHMARK(listQueueStandard);

void listQueue(benchmark::State &state)
{
    CStringList list;
    for (long i = 0; i < 100; ++i)
        list.AddTail(texts()[static_cast<std::size_t>(i)]);
    for (auto _ : state) {
        list.AddTail(texts().front());
        const CString first = list.RemoveHead();
        benchmark::DoNotOptimize(first.data());
    }
}
BENCHMARK(listQueue);

// ---- map; both with the same number of buckets, which stays --------------------------------------------

using StandardMap = std::unordered_map<std::wstring, void *>;

void setBuckets(StandardMap &map, std::size_t count)
{
    map.max_load_factor(1e9F);
    map.rehash(count);
}

void mapFilledStandard(benchmark::State &state)
{
    const long count = state.range(0);
    for (auto _ : state) {
        StandardMap map;
        setBuckets(map, static_cast<std::size_t>(state.range(1)));
        for (long i = 0; i < count; ++i)
            map[texts()[static_cast<std::size_t>(i)]] = nullptr;
        benchmark::DoNotOptimize(map.size());
    }
}
BENCHMARK(mapFilledStandard)->Args({100, 17})->Args({10000, 12007});

void mapFilled(benchmark::State &state)
{
    const long count = state.range(0);
    for (auto _ : state) {
        CMapStringToPtr map;
        map.InitHashTable(static_cast<unsigned int>(state.range(1)));
        for (long i = 0; i < count; ++i)
            map[texts()[static_cast<std::size_t>(i)]] = nullptr;
        benchmark::DoNotOptimize(map.GetCount());
    }
}
BENCHMARK(mapFilled)->Args({100, 17})->Args({10000, 12007});

void mapLookupStandard(benchmark::State &state)
{
    const long count = state.range(0);
    StandardMap map;
    setBuckets(map, static_cast<std::size_t>(state.range(1)));
    for (long i = 0; i < count; ++i)
        map[texts()[static_cast<std::size_t>(i)]] = nullptr;
    for (auto _ : state) {
        for (long i = 0; i < count; ++i)
            benchmark::DoNotOptimize(map.find(texts()[static_cast<std::size_t>(i)])->second);
    }
}
BENCHMARK(mapLookupStandard)->Args({100, 17})->Args({10000, 12007});

void mapLookup(benchmark::State &state)
{
    const long count = state.range(0);
    CMapStringToPtr map;
    map.InitHashTable(static_cast<unsigned int>(state.range(1)));
    for (long i = 0; i < count; ++i)
        map[texts()[static_cast<std::size_t>(i)]] = nullptr;
    for (auto _ : state) {
        for (long i = 0; i < count; ++i) {
            void *value = nullptr;
            map.Lookup(texts()[static_cast<std::size_t>(i)], value);
            benchmark::DoNotOptimize(value);
        }
    }
}
BENCHMARK(mapLookup)->Args({100, 17})->Args({10000, 12007});

} // namespace

BENCHMARK_MAIN();
