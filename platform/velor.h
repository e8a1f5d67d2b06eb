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

/* --- Model, hook switches and headset detection. */

/** Non-zero on the entry model of the product line, 0 on the standard model. */
int is_corvane_entry(void);
/** Blocks until the cradle's hook switch changes; returns the new hook state
 * (0 on hook, any other value off hook) or -1 when the wait failed. */
int CradleHookswitch_WaitForHookswitchEvent(void);
/** Stores the cradle's current hook state (0 on hook, else off hook) in *state_out. */
int CradleHookswitch_GetState(int* state_out);
/** Blocks until the wired headset's hook switch changes; returns the new hook
 * state (0 on hook, any other value off hook) or -1 when the wait failed. */
int WiredHeadset_WaitForHookSwitchEvent(void);
/** Stores the type of the plug in the 3.5 mm jack in *type_out: 3 and 4 are the
 * two four-pole wiring standards, other values name no particular standard. */
int Jack_GetHeadsetType(int* type_out);

/* --- WiFi (network area). */

/** Asks the combo module whether its WiFi chip is present. On success returns
 * 0 and stores 1 in *present_out (a 32-bit value) when the chip is there, 0
 * when it is not; on failure returns non-zero with errno set and leaves
 * *present_out as it was, so a caller that set it to -1 first can tell. */
int Cap_WiFi(int* present_out);

/* --- USB port, Bluetooth handset cradle and its charger (peripherals area). */

/** Switches the power of USB port 1 on. Returns 0 or more when done, -2 when
 * the port is in device mode and cannot supply power, any other negative
 * value on failure. */
int Usb_Port1_On(void);
/** Switches the power of USB port 1 off; results as Usb_Port1_On. */
int Usb_Port1_Off(void);
/** Stores in *fault_out whether an overcurrent occurred on the port (1) or
 * not (0). Returns 0 or more when *fault_out was filled, negative on failure. */
int Usb_HadPowerFault(int* fault_out);
/** Sets the port's current limit: 0 for 100 mA, 1 for 500 mA. Returns 0 when
 * done, anything else on failure. */
int Usb_SetCurrentLimit(int limit);
/** Returns the port's current limit, 0 (100 mA) or 1 (500 mA), or -1 on failure. */
int Usb_GetCurrentLimit(void);
/** Stores the cradle's connection state in *state_out: 0 disconnected,
 * 1 connected (other values say the cradle's state is undefined). Returns 0
 * on success. */
int BTHandsetCradle_IsConnected(int* state_out);
/** Switches the cradle's charger on (1) or off (0). Returns 0 on success. */
int BTHandsetCharger_SetState(int on);

#ifdef __cplusplus
}
#endif
