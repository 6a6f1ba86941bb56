// SPDX-License-Identifier: MIT
#include "KxDibWalkKernel_p.h"

const KxDibWalks KxDibWalksOfAnyProcessor = walks;
