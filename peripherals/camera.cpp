// The USB camera (found as a video-capture device, its application started
// and stopped, a picture taken by a key event) and the Bluetooth handset
// cradle with its charger.
#include "peripherals/camera.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <linux/videodev2.h>
#include <sys/ioctl.h>
#include <sys/stat.h>

#include "common/run.h"
#include "common/unique_handle.h"
#include "common/words.h"
#include "platform/velor.h"

namespace {

// While it exists the camera stack uses its full resolutions.
constexpr const char* kMarker = "/tmp/camhal/ft_specialresolution.txt";
constexpr const char* kVideoDevice = "/dev/video0";

constexpr const char* kNotDetected =
    "   >>> Camera has not been detected on USB bus yet. Run 'ft camera 0' to detect it.";
constexpr const char* kOpenedFormat = "   >>> Camera device is %s opened.\n";

// A detection holds for the rest of the run, even past a later failing one.
bool g_detected = false;
// Only what this program's own start and stop did.
int g_app_started = 0;

int verdict(bool pass) {
    std::puts(pass ? "PASS" : "FAIL");
    return pass ? 0 : -1;
}

int detect() {
    std::puts("Check whether camera module is detected on USB bus");
    std::puts("and assigned to video device at folder /dev.");
    bool found = false;
    const ft::UniqueFd fd(open(kVideoDevice, O_RDWR | O_CLOEXEC));
    if (!fd.valid()) {
        std::printf("   >>> Failed to open camera device %s: %s.\n", kVideoDevice, std::strerror(errno));
    } else {
        v4l2_capability caps{};
        if (ioctl(fd.get(), VIDIOC_QUERYCAP, &caps) < 0) std::puts("   >>> Failed to query the capabilities of the camera.");
        else if ((caps.capabilities & V4L2_CAP_VIDEO_CAPTURE) == 0) std::puts("   >>> Video capture not supported.");
        else found = true;
    }
    if (found) g_detected = true;
    return verdict(found);
}

// Actions 1 to 3 need a detected camera, and the application in the state
// that the action changes or uses.
bool ready(bool app_must_run) {
    if (!g_detected) {
        std::puts(kNotDetected);
        return false;
    }
    if ((g_app_started != 0) != app_must_run) {
        std::printf(kOpenedFormat, app_must_run ? "not" : "already");
        return false;
    }
    return true;
}

int start_app() {
    std::puts("Enable camera module and show dynamic video on LCD panel.");
    if (!ready(false)) return verdict(false);
    // Only a shell that could not be run counts: the tool's exit status is not judged.
    if (ft::run_command("am start -n com.android.camera2/com.android.camera.CameraLauncher") < 0) return verdict(false);
    g_app_started = 1;
    return verdict(true);
}

int take_picture() {
    std::puts("Take a picture and store it in a pre-defined location.");
    if (!ready(true)) return verdict(false);
    return verdict(ft::run_command("input keyevent 27") >= 0);
}

int stop_app() {
    std::puts("Disable camera module and stop showing dynamic video on LCD panel.");
    if (!ready(true)) return verdict(false);
    if (ft::run_command("am force-stop com.android.camera2") < 0) return verdict(false);
    g_app_started = 0;
    return verdict(true);
}

constexpr std::array<int (*)(), 4> kCameraActions{detect, start_app, take_picture, stop_app};

// Indexed by the library's connection state.
constexpr std::array<const char*, 2> kCradleStates{"disconnected", "connected"};

// Prints why the cradle test fails, or the state for action 0.
bool cradle_passes(const char* action) {
    if (!ft::word_is_one_of(action, {"0", "1", "2"})) {
        std::printf("Invalid <action>=\"%s\"\n", action);
        return false;
    }
    int state = -1;
    if (BTHandsetCradle_IsConnected(&state) != 0) {
        std::puts("Failed to get the connection state of the BT handset cradle");
        return false;
    }
    if (state != 0 && state != 1) {
        std::puts("Cradle state undefined");
        return false;
    }
    // Reporting the state is the whole of action 0: both states pass.
    if (ft::word_is(action, "0")) {
        std::puts(kCradleStates[static_cast<std::size_t>(state)]);
        return true;
    }
    if (state != 1) {
        std::printf("Cradle is %s\n", kCradleStates[0]);
        return false;
    }
    return BTHandsetCharger_SetState(ft::word_is(action, "1") ? 1 : 0) == 0;
}

}  // namespace

int cameraInit() {
    const ft::UniqueFile marker(std::fopen(kMarker, "w+"));
    if (!marker.valid()) {
        const int error = errno;
        std::printf("cameraInit(): Failed to create file %s (errno = %s).\n", kMarker, std::strerror(error));
        std::puts("              Camera will not use full resolutions.");
        return 0;
    }
    // Whoever runs the camera stack may remove it; the umask must not say otherwise.
    fchmod(fileno(marker.get()), 0666);
    return 0;
}

int cameraExit() {
    std::remove(kMarker);
    return 0;
}

int cameraAction(const char* action) {
    if (!ft::word_is_one_of(action, {"0", "1", "2", "3"})) return verdict(false);
    return kCameraActions[static_cast<std::size_t>(action[0] - '0')]();
}

void cradleTest(const char* action) { verdict(cradle_passes(action)); }
