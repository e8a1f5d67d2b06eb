#pragma once
// Where the phone's input devices and hook-switch events live, shared by the
// control tool (which makes and feeds them), the kernel shim (which names
// them) and the hardware library (which waits on the hook switches).
#include <string>
#include <string_view>

namespace ftsim::input {

// Input device nodes are FIFOs in hw/dev/input, bound at /dev/input; the
// name each one reports sits in hw/input/NODE.
inline constexpr const char* kNodeDir = "dev/input";
inline constexpr const char* kNameDir = "input";
inline constexpr const char* kKeypadNode = "event0";
inline constexpr const char* kJackNode = "event1";
// A device the monitors must look at and pass over.
inline constexpr const char* kPowerKeyNode = "event2";

// FIFOs carrying one byte per hook-switch change, '0' on hook, '1' off hook.
inline constexpr const char* kCradleEvents = "events/cradle";
inline constexpr const char* kEhsEvents = "events/ehs";

inline std::string keypad_name(bool entry) { return entry ? "soc:gpio-matrix-keypad" : "soc:gpio_keys"; }
inline std::string jack_name(bool entry) {
    return entry ? "tlv320aic3x tdm audio card 3.5 Headset Jack" : "trs_headset";
}
inline constexpr const char* kPowerKeyName = "power-button";

}  // namespace ftsim::input
