// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// There is no platform version to choose.
