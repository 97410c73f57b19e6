#pragma once

#if defined(__SANITIZE_ADDRESS__)
#define FINDS_LEAKS
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define FINDS_LEAKS
#endif
#endif

#ifdef FINDS_LEAKS
#include <sanitizer/lsan_interface.h>

/// Leaves out of the leak check what is made while it lives. For what Qt itself loses: the value of
/// a JSON key that comes twice, and what a widget holds that an exception passes through.
using LeaksOfQt = __lsan::ScopedDisabler;
#else
struct LeaksOfQt
{
    LeaksOfQt() {} // NOLINT(modernize-use-equals-default): or it would be an unused variable
};
#endif
