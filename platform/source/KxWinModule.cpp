// SPDX-License-Identifier: MIT
#include "KxWinModule.h"

#include "KxNativeName_p.h"
#include "KxWinError_p.h"
#include "KxWinResource.h"

#include <unordered_map>

#include <dlfcn.h>

namespace {

/// How many uses each loaded module has. Never destroyed: modules are given back at exit too.
std::unordered_map<HMODULE, int> &moduleUses()
{
    static auto *const uses = new std::unordered_map<HMODULE, int>;
    return *uses;
}

} // namespace

HMODULE LoadLibraryW(LPCWSTR wideName)
{
    const KxNativeName name(wideName);
    if (!name.isValid())
        return nullptr;
    const auto module = static_cast<HMODULE>(dlopen(name.path(), RTLD_NOW | RTLD_LOCAL));
    if (module)
        ++moduleUses()[module];
    else
        SetLastError(ERROR_MOD_NOT_FOUND);
    return module;
}

BOOL FreeLibrary(HMODULE module)
{
    const auto uses = moduleUses().find(module);
    if (uses == moduleUses().end())
        return kxFail(ERROR_INVALID_HANDLE);
    if (--uses->second == 0) {
        moduleUses().erase(uses);
        KxUnregisterStrings(module);
        KxUnregisterBitmaps(module);
    }
    return dlclose(module) == 0;
}

FARPROC GetProcAddress(HMODULE module, LPCSTR name)
{
    if (moduleUses().count(module) == 0) {
        SetLastError(ERROR_INVALID_HANDLE);
        return nullptr;
    }
    const bool isOrdinal = (reinterpret_cast<ULONG_PTR>(name) >> 16) == 0;
    void *const address = isOrdinal ? nullptr : dlsym(module, name);
    if (!address)
        SetLastError(ERROR_PROC_NOT_FOUND);
    return reinterpret_cast<FARPROC>(address);
}
