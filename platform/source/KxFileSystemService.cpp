// SPDX-License-Identifier: MIT
#include "KxPlatformServices.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace {

bool isDriveLetter(wchar_t c)
{
    return (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z');
}

} // namespace

KxFileSystemService::KxFileSystemService() = default;
KxFileSystemService::~KxFileSystemService() = default;

bool KxFileSystemService::normalizePath(const wchar_t *path, std::wstring &normalized) const
{
    std::wstring_view rest = path ? path : std::wstring_view();
    if (rest.empty())
        return false;

    std::wstring result;
    if (rest.size() >= 2 && rest[1] == L':' && isDriveLetter(rest[0])) {
        result = rest.substr(0, 2);
        rest.remove_prefix(2);
    }
    const bool isBareDrive = rest.empty();
    const bool isRooted = !isBareDrive && rest.front() == L'/';
    const bool endsWithSeparator = !isBareDrive && rest.back() == L'/';
    if (isRooted)
        result += L'/';

    std::vector<std::wstring_view> names;
    while (!rest.empty()) {
        const std::wstring_view name = rest.substr(0, rest.find(L'/'));
        rest.remove_prefix(std::min(name.size() + 1, rest.size()));
        if (name.empty() || name == L".")
            continue;
        if (name != L"..")
            names.push_back(name);
        else if (!names.empty() && names.back() != L"..")
            names.pop_back();
        else if (!isRooted)
            names.push_back(name);
    }
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (i > 0)
            result += L'/';
        result += names[i];
    }
    if (names.empty() && !isRooted && !isBareDrive)
        result += L'.';
    if (endsWithSeparator && result.back() != L'/')
        result += L'/';
    normalized = std::move(result);
    return true;
}
