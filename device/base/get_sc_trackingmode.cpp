// Default tracking mode: the lowest.
#include "host_settings.h"

int get_sc_trackingmode(void)
{
    return 0;
}
