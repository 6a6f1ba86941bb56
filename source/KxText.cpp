// SPDX-License-Identifier: MIT
#include "KxText_p.h"

#include <algorithm>

std::size_t copyText(const QString &text, wchar_t *target)
{
    constexpr int blockSize = 16; // a fixed number, for the compiler to do them together
    const ushort *source = text.utf16();
    const int size = text.size();
    int done = 0;
    for (; done + blockSize <= size; done += blockSize) {
        unsigned int surrogates = 0;
        for (int i = 0; i < blockSize; ++i) {
            const ushort unit = source[done + i];
            target[done + i] = static_cast<wchar_t>(unit);
            surrogates |= (unit & 0xF800U) == 0xD800U;
        }
        if (surrogates)
            return static_cast<std::size_t>(text.toWCharArray(target));
    }
    for (; done < size; ++done) {
        if (QChar::isSurrogate(source[done]))
            return static_cast<std::size_t>(text.toWCharArray(target));
        target[done] = static_cast<wchar_t>(source[done]);
    }
    return static_cast<std::size_t>(size);
}

int fillField(wchar_t *field, int count, const QString &text)
{
    if (!field || count < 1)
        return 0;
    const auto room = static_cast<std::size_t>(count);
    std::fill_n(field, room, L'\0');
    return static_cast<int>(text.toStdWString().copy(field, room));
}

void assignText(CString &target, const QString &text)
{
    target.resize(static_cast<std::size_t>(text.size()));
    target.resize(copyText(text, target.data()));
}
