// The USB stick and port, the camera and the handset cradle at power-up, and
// their lines in `ftsim show`. (The /cache partition's condition is honoured
// where the persistent places are bound.)
#include <string>

#include "sim/core/ftsim/ftsim.h"
#include "sim/core/state.h"
#include "sim/peripherals/stick.h"

namespace ftsim {
namespace {

bool failed(std::string& error, const std::string& what) {
    error = explain("cannot " + what);
    return false;
}

// The stick's node and its SCSI host, as the kernel makes them when it finds
// the stick; its files, wherever they were left.
bool stick_power_up(PowerUp& up, std::string& error) {
    const Folder dir = hw();
    if (!dir.remove("dev/block") || !dir.make_dirs("dev/block") || !dir.make_dirs(usb::kScsiHosts))
        return failed(error, "prepare the USB stick's kernel files");
    if (get("usb.stick") == "present") {
        const std::string model = usb::kModelFile;
        // The phone's /dev/block is the hardware folder's dev/block.
        if (!dir.write_atomic(usb::node_path(get("usb.stick.device")).substr(1), "") ||
            !dir.make_dirs(model.substr(0, model.rfind('/'))) ||
            !dir.write_atomic(model, usb::sysfs_model(get("usb.stick.model"))))
            return failed(error, "attach the USB stick");
    }
    return up.bind_hw("dev/block", "/dev/block", Type::Dir, error) &&
           up.bind_state(usb::kStickState, std::string(usb::kStickDir), Type::Dir, error);
}

bool camera_power_up(PowerUp& up, std::string& error) {
    const Folder dir = hw();
    dir.remove("dev/video0");
    if (get("camera") != "absent") {
        if (!dir.write_atomic("dev/video0", "")) return failed(error, "create the camera's video device");
        if (!up.bind_hw("dev/video0", "/dev/video0", Type::File, error)) return false;
    }
    // /tmp is the container's own, new at each power-up.
    if (get("camera.haldir") == "present") up.add({"--dir", "/tmp/camhal"});
    return true;
}

bool peripherals_power_up(const Phone&, PowerUp& up, std::string& error) {
    // A damaged cache partition comes up read-only.
    if (get("cache") == "readonly") up.add({"--remount-ro", "/cache"});
    return stick_power_up(up, error) && camera_power_up(up, error);
}

void peripherals_show(const Phone&, std::string& out) {
    out += "USB stick: ";
    const bool present = get("usb.stick") == "present";
    if (present) out += "present as " + usb::node_path(get("usb.stick.device")) + ", \"" + get("usb.stick.model") + "\"";
    else out += "none";
    const std::string mounted = get("usb.mounted");
    if (mounted != "no") out += ", mounted on " + mounted + " (" + get("usb.mount.options") + ")";
    else if (present) out += ", not mounted";
    if (present && get("usb.stick.fault") != "none") out += ", fault: " + get("usb.stick.fault");
    out += "\n";
    out += "USB port: " + get("usb.mode") + " mode, power " + get("usb.power") + ", current limit " + get("usb.limit") +
           " mA, " + (get("usb.overcurrent") == "yes" ? "overcurrent" : "no overcurrent") + "\n";
    out += "camera: " + get("camera") + ", application " + get("camera.app") + ", pictures taken " +
           get("camera.pictures") + "\n";
    out += "cradle: " + get("cradle") + ", charger " + get("cradle.charger") + "\n";
    out += "/cache: " + std::string(get("cache") == "readonly" ? "read-only" : "writable") + "\n";
}

const ModuleRegistrar kPeripherals{Module{
    "peripherals",
    {},
    peripherals_power_up,
    peripherals_show,
    nullptr,
}};

}  // namespace
}  // namespace ftsim
