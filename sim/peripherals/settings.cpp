#include "sim/core/state.h"

namespace {
const ftsim::SettingsRegistrar kPeripherals{
    {"cache", ftsim::Kind::Condition, "writable", "writable|readonly",
     "the /cache partition; readonly: mounted read-only from the next power-up"},
    {"usb.stick", ftsim::Kind::Condition, "none", "none|present",
     "a USB stick in the port; none while it is mounted pulls it out"},
    {"usb.stick.device", ftsim::Kind::Condition, "sda", "sda|sdb|sdc|sdd|sde|sdf|sdg|sdh|sdi|sdj|sdk|sdl|sdm|sdn|sdo",
     "the stick's block device; its first partition is /dev/block/DEVICE1"},
    {"usb.stick.model", ftsim::Kind::Condition, "USB Flash Disk", "<text>",
     "the stick's model name (the first 16 characters reach sysfs)"},
    {"usb.stick.fault", ftsim::Kind::Condition, "none", "none|mismatch|ioerror|stall",
     "mismatch: blocks read back different; ioerror: reads fail with EIO; stall: writes hang until cleared"},
    {"usb.mounted", ftsim::Kind::Observed, "no", "<text>", "where the stick is mounted, or no"},
    {"usb.mount.options", ftsim::Kind::Observed, "", "<text>", "the flags of the stick's mount"},
    {"usb.mode", ftsim::Kind::Condition, "host", "host|device",
     "the USB port's role; in device mode it cannot supply power"},
    {"usb.overcurrent", ftsim::Kind::Condition, "no", "no|yes", "an overcurrent occurred on the USB port"},
    {"usb.power", ftsim::Kind::Observed, "on", "on|off", "the USB port's power"},
    {"usb.limit", ftsim::Kind::Observed, "500", "100|500", "the USB port's current limit in mA"},
    {"camera", ftsim::Kind::Condition, "present", "present|absent|nocapture|stale",
     "the USB camera at /dev/video0; nocapture: no video capture; stale: its queries fail (ENODEV)"},
    {"camera.haldir", ftsim::Kind::Condition, "present", "present|absent",
     "the camera stack's folder /tmp/camhal at power-up"},
    {"camera.app", ftsim::Kind::Observed, "stopped", "running|stopped",
     "the camera application, as am start and force-stop left it", "apps/com.android.camera2"},
    {"camera.pictures", ftsim::Kind::Observed, "0", "<number>", "camera key events since power-up"},
    {"cradle", ftsim::Kind::Condition, "connected", "connected|disconnected|undefined",
     "the Bluetooth handset cradle; undefined: the library reports state 2"},
    {"cradle.charger", ftsim::Kind::Observed, "off", "on|off", "the cradle's charger"},
};
}  // namespace
