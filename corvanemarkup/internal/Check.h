#pragma once

#include <corvaneplatform/ThrowLogicException.h>

/// Throws the platform's logic exception, with the condition's text, unless the condition holds. `source`
/// names the source without its extension, so that the text is the same on every machine that builds it.
///
/// The text of the condition is part of the interface: hosts compare it. So the names of the variables in it
/// can't be changed, not even those of locals.
#define CORVANEMARKUP_CHECK(source, condition)                                                               \
    do {                                                                                                     \
        if (!(condition))                                                                                    \
            ThrowLogicException(source, __LINE__, #condition);                                               \
    } while (false)
