// Default AI mode display: none.
#include "host_settings.h"

int set_aimode_show(int)
{
    return 0;
}
