#pragma once

/// The check for precondition violations.

#include <corvaneplatform/ThrowLogicException.h>

/// Throws the platform's logic exception with the text of the condition unless it holds. `source` is the
/// source file without its extension. Unlike `__FILE__`, it doesn't depend on where the library is built.
///
/// The text of the condition is part of the interface, as hosts compare it: the variables in it can't be
/// renamed, not even local ones.
#define CORVANEMARKUP_CHECK(source, condition)                                                               \
    do {                                                                                                     \
        if (!(condition))                                                                                    \
            ThrowLogicException(source, __LINE__, #condition);                                               \
    } while (false)
