// SPDX-License-Identifier: MIT
#undef __AVX2__
#undef __SSE2__
#include "KxDibWalkRows.h"

/// What processors without a kernel of their own run.
class tst_DibWalks : public KxTestCase
{
    Q_OBJECT

private slots:
    void bytes() { kxCompareWalks<std::uint8_t>(walks[0]); }
    void words() { kxCompareWalks<std::uint16_t>(walks[1]); }
    void pixels() { kxCompareWalks<std::uint32_t>(walks[2]); }
    void fills() { kxCompareFills(kernel.fill32); }
};

QTEST_APPLESS_MAIN(tst_DibWalks)
#include "tst_dib_walks_portable.moc"
