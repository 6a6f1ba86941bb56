// SPDX-License-Identifier: MIT
#include "KxWinResource.h"

#include <QtCore/QByteArray>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cwchar>

namespace {

constexpr HINSTANCE noModule = nullptr;

void require(bool condition, const char *promise)
{
    if (condition)
        return;
    std::fprintf(stderr, "broken: %s\n", promise);
    std::abort();
}

void requireLoadable(UINT id)
{
    wchar_t buffer[4096];
    buffer[4095] = L'#';
    const int length = LoadStringW(noModule, id, buffer, 4095);
    require(length >= 0 && length < 4095 && buffer[length] == 0, "a loaded string ends with a zero");
    require(std::wcslen(buffer) == static_cast<std::size_t>(length), "a loaded string has no zero inside");
    require(buffer[4095] == L'#', "a loaded string stays in its buffer");
    for (int i = 0; i < length; ++i)
        require(buffer[i] > 0 && buffer[i] <= 0x10FFFF && (buffer[i] < 0xD800 || buffer[i] > 0xDFFF),
                "a loaded string holds characters only");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray table(reinterpret_cast<const char *>(data), static_cast<int>(size));
    const int lines = table.count('\n') + 1;

    const KxStringTableResult result = KxRegisterStringTable(noModule, table);
    require(result.isOk() == (result.line == 0), "a mistake has a line, and only a mistake");
    require(result.line <= lines, "the line is one of the table's");
    require(result.strings >= 0 && result.strings <= lines, "there is at most one string a line");
    require(result.isOk() || result.strings == 0, "a table with a mistake registers nothing");
    for (UINT id = 0; id < 16; ++id)
        requireLoadable(id);
    requireLoadable(0xFFFFFFFF);
    require(KxUnregisterStrings(noModule) == result.strings, "as many are registered as the result says");

    // The table again, with a comment and blanks that say nothing, comes to the same.
    const bool hasMark = table.startsWith("\xEF\xBB\xBF");
    const KxStringTableResult again =
        KxRegisterStringTable(noModule, "# comment\r\n \t \n" + table.mid(hasMark ? 3 : 0));
    require(again.isOk() == result.isOk() && again.strings == result.strings, "comments say nothing");
    require(again.line == (result.isOk() ? 0 : result.line + 2), "comments are lines");
    KxUnregisterStrings(noModule);
    return 0;
}
