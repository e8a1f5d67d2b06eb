#pragma once
// The phone's hardware library (libVelor): Ethernet switch, LEDs, backlight,
// USB port, cradle and charger, hook switches, headset detection, module
// capabilities and the model. Operations return 0 on success and non-zero on
// failure, with errno set, unless a declaration says otherwise.
#ifdef __cplusplus
extern "C" {
#endif

#ifdef __cplusplus
}
#endif
