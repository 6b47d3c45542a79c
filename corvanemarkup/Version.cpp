#include <corvanemarkup/Version.h>

namespace corvanemarkup {

const char* GetVersion() noexcept
{
    return CORVANEMARKUP_VERSION;
}

} // namespace corvanemarkup
