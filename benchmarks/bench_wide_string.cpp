// SPDX-License-Identifier: MIT
#include "KxStdStr.h"

#include <benchmark/benchmark.h>

#include <cstdarg>
#include <cwchar>
#include <string>

// Each call beside the standard way of doing the same work in the same run.

namespace {

int formatOnStack(wchar_t *buffer, std::size_t count, const wchar_t *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const int length = std::vswprintf(buffer, count, format, arguments);
    va_end(arguments);
    return length;
}

void formatNumberStandard(benchmark::State &state)
{
    int value = 0;
    std::wstring text;
    for (auto _ : state) {
        wchar_t buffer[64];
        formatOnStack(buffer, std::size(buffer), L"Layer %d", ++value);
        text.assign(buffer);
        benchmark::DoNotOptimize(text.data());
    }
}
BENCHMARK(formatNumberStandard);

void formatNumberCString(benchmark::State &state)
{
    int value = 0;
    CString text;
    for (auto _ : state) {
        text.Format(L"Layer %d", ++value);
        benchmark::DoNotOptimize(text.data());
    }
}
BENCHMARK(formatNumberCString);

void formatMixedStandard(benchmark::State &state)
{
    int value = 0;
    std::wstring text;
    for (auto _ : state) {
        wchar_t buffer[64];
        formatOnStack(buffer, std::size(buffer), L"%ls %d: %.2f mm", L"Pen", ++value, 0.35);
        text.assign(buffer);
        benchmark::DoNotOptimize(text.data());
    }
}
BENCHMARK(formatMixedStandard);

void formatMixedCString(benchmark::State &state)
{
    int value = 0;
    CString text;
    for (auto _ : state) {
        text.Format(L"%ls %d: %.2f mm", L"Pen", ++value, 0.35);
        benchmark::DoNotOptimize(text.data());
    }
}
BENCHMARK(formatMixedCString);

void appendStandard(benchmark::State &state)
{
    for (auto _ : state) {
        std::wstring text;
        for (int i = 0; i < 64; ++i)
            text += L"segment/";
        benchmark::DoNotOptimize(text.data());
    }
}
BENCHMARK(appendStandard);

void appendCString(benchmark::State &state)
{
    for (auto _ : state) {
        CString text;
        for (int i = 0; i < 64; ++i)
            text += L"segment/";
        benchmark::DoNotOptimize(text.data());
    }
}
BENCHMARK(appendCString);

} // namespace

BENCHMARK_MAIN();
