/**
 * @file
 * Settings of the host that a few pages of the menu depend on. The host defines these functions.
 *
 * Some run with the menu's lock held. None of them may call a function that takes it: the five keys,
 * osdmenu_draw_allitems, osdmenu_action_menuctl_byname_safe, osdmenu_current_view_position_reset.
 */
#ifndef HOST_SETTINGS_H
#define HOST_SETTINGS_H

#ifdef __cplusplus
extern "C" {
#endif

/** @return in its low byte the gallery preset in use, from 0; the gallery page opens on the row behind it */
int get_sc_smartgallery_preset(void);

/** @return in its low byte the tracking mode in force, at most sc_trackingmode_max */
int get_sc_trackingmode(void);

/** Stores the host's settings for good. The result is not used. */
int save_config_to_flash(void);

/** Ends (0) the host's display of the AI mode. The result is not used. */
int set_aimode_show(int show);

#ifdef __cplusplus
}
#endif

#endif
