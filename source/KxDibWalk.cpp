// SPDX-License-Identifier: MIT
#include "KxDibWalkKernel_p.h"

const KxDibKernel KxDibKernelOfAnyProcessor = kernel;
