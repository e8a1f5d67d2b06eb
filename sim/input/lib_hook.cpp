// Model, hook switches and headset type. Hook-switch changes arrive as one
// byte each on a FIFO that ftsim writes; the state itself is the condition
// file, so a state query sees what the last change left.
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

#include "platform/velor.h"
#include "sim/input/nodes.h"
#include "sim/core/state.h"

namespace {

// Opened by the first wait and kept for the life of the process: a waiting
// thread may still be reading it while the process ends. Read and write, so
// that opening never blocks and the FIFO never reports end of file between
// two writers.
int open_events(const char* relative) { return ftsim::hw().open_at(relative, O_RDWR, ftsim::Type::Fifo).release(); }

// Nothing will ever change: the caller's retry of a failed wait must block
// here rather than turn into a busy loop.
[[noreturn]] void wait_forever() {
    for (;;) pause();
}

// The next change's hook state, 0 on hook and 1 off hook.
int next_change(int fd) {
    if (fd < 0) wait_forever();
    for (;;) {
        char byte = 0;
        const ssize_t n = read(fd, &byte, 1);
        if (n == 1) return byte == '0' ? 0 : 1;
        // A broken event source stays broken.
        if (n < 0 && errno != EINTR) wait_forever();
    }
}

int hook_state(const char* condition) { return ftsim::get(condition) == "off" ? 1 : 0; }

}  // namespace

extern "C" {

int is_corvane_entry(void) {
    FTSIM_FAILURE_POINT();
    return ftsim::get("model") == "entry" ? 1 : 0;
}

// The failure point of the waits comes after the event: an injected failure
// then costs that one event, as a real failed wait would, instead of making
// the waiting thread spin.
int CradleHookswitch_WaitForHookswitchEvent(void) {
    static const int fd = open_events(ftsim::input::kCradleEvents);
    const int state = next_change(fd);
    FTSIM_FAILURE_POINT();
    return state;
}

int CradleHookswitch_GetState(int* state_out) {
    FTSIM_FAILURE_POINT();
    if (state_out == nullptr) {
        errno = EINVAL;
        return -1;
    }
    *state_out = hook_state("hook");
    return 0;
}

int WiredHeadset_WaitForHookSwitchEvent(void) {
    static const int fd = open_events(ftsim::input::kEhsEvents);
    const int state = next_change(fd);
    FTSIM_FAILURE_POINT();
    return state;
}

int Jack_GetHeadsetType(int* type_out) {
    FTSIM_FAILURE_POINT();
    if (type_out == nullptr) {
        errno = EINVAL;
        return -1;
    }
    // 3 and 4 are the two four-pole wiring standards; a plain headset with a
    // microphone reports 2, headphones 1, an empty jack 0.
    const std::string plug = ftsim::get("jack.plug");
    *type_out = plug == "ctia" ? 3 : plug == "omtp" ? 4 : plug == "mic" ? 2 : plug == "nomic" ? 1 : 0;
    return 0;
}

}  // extern "C"
