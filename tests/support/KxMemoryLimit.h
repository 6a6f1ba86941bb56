// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>

#include <sys/resource.h>

/// While it lives, the program gets 1 GiB and no more: a size that is too large shall not use up the machine.
/// The address sanitizer needs more: nothing is limited there.
class KxMemoryLimit
{
public:
#if defined(__SANITIZE_ADDRESS__)
    KxMemoryLimit() {}
#else
    KxMemoryLimit()
    {
        getrlimit(RLIMIT_AS, &m_before);
        rlimit limit = m_before;
        limit.rlim_cur = std::min<rlim_t>(m_before.rlim_cur, 1 << 30);
        setrlimit(RLIMIT_AS, &limit);
    }
    ~KxMemoryLimit() { setrlimit(RLIMIT_AS, &m_before); }
    KxMemoryLimit(const KxMemoryLimit &) = delete;
    KxMemoryLimit &operator=(const KxMemoryLimit &) = delete;

private:
    rlimit m_before = {};
#endif
};
