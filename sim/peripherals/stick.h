#pragma once
// Where the USB stick lives, shared by the control tool (which lays it out
// at power-up and shows it), the kernel shim (which mounts it and serves its
// faults) and the tests.
#include <string>
#include <string_view>

namespace ftsim::usb {

// The stick's files: STATE/usb on the host, bound here in the phone. A mount
// of the stick sends the mount point's paths here.
inline constexpr std::string_view kStickDir = "/mnt/usbstick";
inline constexpr const char* kStickState = "usb";

// The stick's block device node in the phone, as the kernel names its first partition.
inline std::string node_path(const std::string& device) { return "/dev/block/" + device + "1"; }

// The stick behind SCSI host 0, as the kernel's sysfs shows it.
inline constexpr const char* kScsiHosts = "sys/class/scsi_host";
inline constexpr const char* kModelFile = "sys/class/scsi_host/host0/device/target0:0:0/0:0:0:0/model";

// The model as SCSI inquiry data holds it (16 characters, blank-padded) and
// sysfs prints it, with a line feed.
inline std::string sysfs_model(std::string_view model) {
    std::string text(model.substr(0, 16));
    text.resize(16, ' ');
    return text + "\n";
}

}  // namespace ftsim::usb
