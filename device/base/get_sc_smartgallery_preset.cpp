// Default gallery preset: the first.
#include "host_settings.h"

int get_sc_smartgallery_preset(void)
{
    return 0;
}
