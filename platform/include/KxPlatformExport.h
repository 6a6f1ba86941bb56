// SPDX-License-Identifier: MIT
#pragma once

#define KX_PLATFORM_EXPORT __attribute__((visibility("default")))

/// Marks a call that exists so that ported code compiles and whose whole effect is the text: a fixed result,
/// or nothing. Expands to nothing; a host that defines KX_WARN_INERT gets a deprecation warning with the text
/// wherever it calls one.
#if defined(KX_WARN_INERT)
#  define KX_INERT(text) [[deprecated(text)]]
#else
#  define KX_INERT(text)
#endif
