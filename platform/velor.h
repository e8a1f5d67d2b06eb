#pragma once
// The phone's hardware library (libVelor): Ethernet switch, LEDs, backlight,
// USB port, cradle and charger, hook switches, headset detection, module
// capabilities and the model. Operations return 0 on success and non-zero on
// failure, with errno set, unless a declaration says otherwise.
#include <stdint.h>

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

/* --- Bluetooth. */

/** Asks whether the combo module has Bluetooth: stores 1 in *cap_out when it
 * has, 0 when it has not; *cap_out is left alone when the query fails. */
int Cap_Bluetooth(int* cap_out);

/* --- Ethernet switch, Ethernet LEDs and the phone's LEDs.
 *
 * The switch has three ports, addressed by bit-mask identifiers: the PC port
 * 0x1, the LAN port 0x2 and the CPU port 0x400 (the switch's link to the
 * phone's own processor); 0x403 names all three where an operation says so.
 * The CPU port has no PHY: the PHY operations (test modes, PHY registers,
 * automatic MDI/MDI-X, EEE) take the PC and LAN ports only.
 * Values are 32-bit signed unless a declaration says otherwise. Results are
 * negative on failure, with errno set, and 0 or more on success, except for
 * the Led_ operations, where only 0 is success. */

enum {
    L2SW_PORT_PC = 0x1,
    L2SW_PORT_LAN = 0x2,
    L2SW_PORT_CPU = 0x400,
    L2SW_PORT_ALL = 0x403,
};

/* Link modes: configured (what the port may use) and actual (what it resolved to). */
enum {
    L2SW_LINK_MODE_DISABLED = 0,
    L2SW_LINK_MODE_AUTO = 1,
    L2SW_LINK_MODE_10_HALF = 2,
    L2SW_LINK_MODE_10_FULL = 3,
    L2SW_LINK_MODE_100_HALF = 4,
    L2SW_LINK_MODE_100_FULL = 5,
    L2SW_LINK_MODE_1000_FULL = 6,
    L2SW_LINK_MODE_INVALID = 7,
};

/* Link states: UP and DOWN force the link or report it; ENABLE and DISABLED
 * switch the port itself on or off. */
enum {
    L2SW_LINK_INVALID = 0,
    L2SW_LINK_UP = 1,
    L2SW_LINK_DOWN = 2,
    L2SW_LINK_ENABLE = 3,
    L2SW_LINK_DISABLED = 4,
};

/** Opens the library's channel to the switch; later calls reuse it. */
int Net_fd_init(void);
/** Initialises the switch, automatic MDI/MDI-X on every port enabled (1) or disabled (0). */
int L2Switch_EarlyInit(int32_t auto_mdix);
/** Restores the switch's default configuration. */
int L2Switch_ResetSettings(void);

/** Stores non-zero in *supported when @p port can run at 1000 Mb/s, else 0. */
int L2Switch_IsSwitchPortSupport1G(int32_t port, int32_t* supported);
/** Forces the port's link or port state (L2SW_LINK_UP .. L2SW_LINK_DISABLED). */
int L2Switch_SetLinkStatus(int32_t port, int32_t status);
/** Stores the port's link state in *status. */
int L2Switch_GetLinkStatus(int32_t port, int32_t* status);
/** Sets the port's configured link mode (L2SW_LINK_MODE_AUTO .. L2SW_LINK_MODE_1000_FULL);
 * 1000 Mb/s fails with EOPNOTSUPP on a port without it. */
int L2Switch_SetLinkMode(int32_t port, int32_t mode);
/** Stores the configured mode in *configured and the actual mode in *actual;
 * either pointer may be null. */
int L2Switch_GetLinkMode(int32_t port, int32_t* configured, int32_t* actual);
/** Puts the port's PHY into 1000BASE-T transmitter test mode 1 to 4, or back
 * to normal operation with 0; fails with EOPNOTSUPP on a port without 1000 Mb/s. */
int L2Switch_SetTestMode(int32_t port, int32_t test_mode);
/** Stores the port's current test mode (0: normal operation) in *test_mode. */
int L2Switch_GetTestMode(int32_t port, int32_t* test_mode);

/** Prints the port's counter report on the console. One port only. */
int L2Switch_portCntrs(int32_t port);
/** Clears the port's counters; L2SW_PORT_ALL clears all three ports'. */
int L2Switch_portResetCntrs(int32_t port);
/** Fills @p mac with the port's MAC address (PC or CPU port). */
int L2Switch_GetMacAddr(int32_t port, uint8_t mac[6]);
/** Writes the switch's MAC address table to the kernel log. */
int L2Switch_print_mac_table(void);
/** Stores the switch register at @p address (0 .. 0xFFFF) in *value. */
int L2Switch_GetRegValue(int32_t address, int32_t* value);
/** Stores PHY register @p reg (0 .. 31) of the port in *value. */
int L2Switch_GetPhyRegValue(int32_t port, int32_t reg, int32_t* value);

/** Automatic MDI/MDI-X of the port: 1 enabled, 0 disabled. */
int L2Switch_SetAutoMDIXPort(int32_t port, int32_t enabled);
int L2Switch_GetAutoMDIXPort(int32_t port, int32_t* enabled);

/** Stores the port's VLAN ID in *pvid; note the pointer comes first. */
int L2Switch_GetPVID(uint16_t* pvid, int32_t port);
/** Stores the port's default priority in *priority. */
int L2Switch_GetPortPriority(int32_t port, uint16_t* priority);
/** The VLAN index that names every configured VLAN. */
enum { L2SW_VLAN_ALL = 9999 };
/** Prints the VLAN member configuration of VLAN @p index (0 .. 4095), or of
 * every configured VLAN for L2SW_VLAN_ALL (9999), on the console. */
int L2Switch_VlanMbrCfg(int32_t index);
/** Prints the ACL rules on the console. */
int L2Switch_ShowAllRules(void);
/** Deletes every ACL rule. */
int L2Switch_DelAllRules(void);

/** Green Ethernet, switch-wide: 1 enabled, 0 disabled. */
int L2Switch_GetGreenEthernetPort(int32_t* enabled);
int L2Switch_SetGreenEthernetPort(int32_t enabled);
/** Energy Efficient Ethernet of the port: 1 enabled, 0 disabled. */
int L2Switch_GetEEEPort(int32_t port, int32_t* enabled);
int L2Switch_SetEEEPort(int32_t port, int32_t enabled);
/** RGMII delays of the CPU port: TX 0 or 1 (2 ns), RX 0 to 7. */
int L2Switch_rgmiiDelayExt_set(int32_t port, int32_t tx_delay, int32_t rx_delay);
/** Spread-spectrum clocking, switch-wide: 1 enabled, 0 disabled. */
int L2Switch_GetSSC(int32_t* enabled);
int L2Switch_SetSSC(int32_t enabled);
/** Low-power-idle state per speed: 1 in low power idle, 0 regular. */
int L2Switch_GetLPI_Status(int32_t* lpi_1g, int32_t* lpi_100m);

/** One step of the Ethernet port LED test: 1 off, 2 on, 3 back to normal (link) indication. */
int L2SW_EthernetLedTest(int32_t action);
/** Every LED of the phone steady on (1) or off (0). Returns 0 on success. */
int Led_SetSteadyStateAll(int32_t on);
/** Every LED of the phone flashing with the given on and off periods. Returns 0 on success. */
int Led_SetFlashStateAll(int32_t on_period, int32_t off_period);

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
