// SPDX-License-Identifier: MIT
// Compiled for processors with AVX2; called only where there is one.
#if defined(__x86_64__)

#  include "KxDibWalkKernel_p.h"

const KxDibKernel KxDibKernelOfAvx2 = kernel;

#endif
