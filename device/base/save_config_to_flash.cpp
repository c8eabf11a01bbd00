// Default settings store: none.
#include "host_settings.h"

int save_config_to_flash(void)
{
    return 0;
}
