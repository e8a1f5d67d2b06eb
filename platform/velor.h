#pragma once
// The phone's hardware library (libVelor): Ethernet switch, LEDs, backlight,
// USB port, cradle and charger, hook switches, headset detection, module
// capabilities and the model. Operations return 0 on success and non-zero on
// failure, with errno set, unless a declaration says otherwise.
#ifdef __cplusplus
extern "C" {
#endif

/* --- Backlight. Raw levels run from 0 to the maximum that
 * Backlight_GetMaxBrightness reports. */

/** Prepares the backlight driver; call once before the other operations. */
int Backlight_Init(void);
/** Sets the raw brightness level (0 .. maximum); fails with EINVAL outside it. */
int Backlight_SetRawBrightness(int level);
/** Stores the highest raw level in *max_out. */
int Backlight_GetMaxBrightness(int* max_out);
/** Switches the backlight off (0) or on (1) without changing the level. */
int BacklightOnOff(int on);

#ifdef __cplusplus
}
#endif
