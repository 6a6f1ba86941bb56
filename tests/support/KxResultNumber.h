// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QtGlobal>

#include <type_traits>

/// A result as rows of different calls have it in one column; a pointer by its address.
template<class Result>
qint64 number(Result result)
{
    if constexpr (std::is_pointer_v<Result>)
        return reinterpret_cast<qintptr>(result);
    else
        return static_cast<qint64>(result);
}
