// SPDX-License-Identifier: MIT
#include "KxDibWalkRows.h"

/// What processors with AVX2 run.
class tst_DibWalks : public KxTestCase
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        if (!__builtin_cpu_supports("avx2"))
            QSKIP("this processor has no AVX2");
    }
    void bytes() { kxCompareWalks<std::uint8_t>(KxDibKernelOfAvx2.walks[0]); }
    void words() { kxCompareWalks<std::uint16_t>(KxDibKernelOfAvx2.walks[1]); }
    void pixels() { kxCompareWalks<std::uint32_t>(KxDibKernelOfAvx2.walks[2]); }
    void fills() { kxCompareFills(KxDibKernelOfAvx2.fill32); }
};

QTEST_APPLESS_MAIN(tst_DibWalks)
#include "tst_dib_walks_avx2.moc"
