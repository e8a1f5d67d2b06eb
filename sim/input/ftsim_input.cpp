// Keypad, hook switches and headset jack: the input devices at /dev/input,
// and the verbs that press keys, lift the handset and plug headsets in while
// the shell runs.
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <cstring>
#include <fcntl.h>
#include <linux/input.h>
#include <string>
#include <sys/stat.h>
#include <thread>
#include <ctime>
#include <unistd.h>
#include <vector>

#include "common/unique_handle.h"
#include "sim/core/ftsim/ftsim.h"
#include "sim/core/state.h"
#include "sim/input/nodes.h"

namespace ftsim {
namespace {

namespace in = ftsim::input;

// The kernel's record of this ABI, as the shell reads it.
using Record = input_event;

std::string node_path(const char* node) { return std::string(in::kNodeDir) + "/" + node; }
std::string name_path(const char* node) { return std::string(in::kNameDir) + "/" + node; }

// Kept when it is already a FIFO: a shell powered up earlier may still be
// reading it, and a new inode would cut it off from every later event.
bool ensure_fifo(const Folder& dir, const std::string& path, std::string& error) {
    if (dir.make_fifo(path)) return true;
    error = explain("cannot create " + path);
    return false;
}

bool place_device(const Folder& dir, const char* node, bool present, const std::string& name, std::string& error) {
    if (!present) {
        dir.remove(node_path(node));
        dir.remove(name_path(node));
        return true;
    }
    if (!ensure_fifo(dir, node_path(node), error)) return false;
    if (!dir.write_atomic(name_path(node), name + "\n")) {
        error = explain("cannot write " + name_path(node));
        return false;
    }
    return true;
}

bool input_power_up(const Phone&, PowerUp& up, std::string& error) {
    const Folder dir = hw();
    for (const char* d : {in::kNodeDir, in::kNameDir, "events"}) {
        if (!dir.make_dirs(d)) {
            error = explain(std::string("cannot create ") + d);
            return false;
        }
    }
    const bool entry = get("model") == "entry";
    if (!place_device(dir, in::kKeypadNode, get("keypad") == "present", in::keypad_name(entry), error) ||
        !place_device(dir, in::kJackNode, get("jack") == "present", in::jack_name(entry), error) ||
        !place_device(dir, in::kPowerKeyNode, true, in::kPowerKeyName, error))
        return false;
    // Not an event device: the monitors must pass over it without a word.
    if (!ensure_fifo(dir, std::string(in::kNodeDir) + "/mice", error)) return false;
    if (!ensure_fifo(dir, in::kCradleEvents, error) || !ensure_fifo(dir, in::kEhsEvents, error)) return false;
    return up.bind_hw(in::kNodeDir, "/dev/input", Type::Dir, error);
}

enum class Delivery { Delivered, NobodyListens, Failed };

// Writes @p data to a FIFO in one piece (short enough to stay whole). Nobody
// reading means the phone is off or its shell is not waiting: like a key
// pressed on a phone that is off, the event is lost. @p grace covers a reader
// that is just starting.
Delivery deliver(const std::string& fifo, const void* data, std::size_t size, std::chrono::milliseconds grace) {
    const auto deadline = std::chrono::steady_clock::now() + grace;
    for (;;) {
        // Only a FIFO of the phone's: never a file or link the phone put in its place.
        ft::UniqueFd fd = hw().open_at(fifo, O_WRONLY | O_NONBLOCK, Type::Fifo);
        if (fd.valid()) {
            ssize_t n = -1;
            do {
                n = write(fd.get(), data, size);
            } while (n < 0 && errno == EINTR);
            return n == static_cast<ssize_t>(size) ? Delivery::Delivered : Delivery::Failed;
        }
        if (errno != ENXIO) return Delivery::Failed;
        if (std::chrono::steady_clock::now() >= deadline) return Delivery::NobodyListens;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
}

Record make(std::uint16_t type, std::uint16_t code, std::int32_t value) {
    Record r{};
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    r.input_event_sec = now.tv_sec;
    r.input_event_usec = now.tv_nsec / 1000;
    r.type = type;
    r.code = code;
    r.value = value;
    return r;
}

int send_records(const char* node, const char* what, const std::vector<Record>& records) {
    const std::string path = node_path(node);
    if (!hw().exists(path, Type::Fifo))
        return fail(std::string("this phone has no ") + what + " (ftsim set " + what + " present)", 1);
    // The shell holds its devices open from start-up, so no grace is needed.
    switch (deliver(path, records.data(), records.size() * sizeof(Record), std::chrono::milliseconds(0))) {
    case Delivery::Delivered:
    case Delivery::NobodyListens:
        return 0;
    case Delivery::Failed:
        break;
    }
    return fail("cannot write to the phone's " + std::string(what) + ": " + std::strerror(errno), 1);
}

int verb_key(const Phone&, const Args& args) {
    long code = 0, value = 0;
    if (args.size() != 2) return fail("usage: ftsim key CODE VALUE");
    if (!parse_long(args[0], 0, 0xffff, code)) return fail("CODE must be a key code from 0 to 65535");
    if (!parse_long(args[1], INT32_MIN, INT32_MAX, value)) return fail("VALUE must be an integer (1 press, 0 release)");
    return send_records(in::kKeypadNode, "keypad",
                        {make(EV_KEY, static_cast<std::uint16_t>(code), static_cast<std::int32_t>(value)),
                         make(EV_SYN, SYN_REPORT, 0)});
}

// A hook-switch change: the new state first, so that a state query made on
// hearing the event already sees it.
int hook_change(const char* condition, const char* events, const Args& args) {
    if (args.size() != 1 || (args[0] != "on" && args[0] != "off"))
        return fail(std::string("usage: ftsim ") + condition + " on|off");
    if (!set_condition(condition, args[0]))
        return fail(std::string("cannot record the ") + condition + " state: " + std::strerror(errno), 1);
    const char byte = args[0] == "on" ? '0' : '1';
    // The monitor threads open their event source just after start-up.
    if (deliver(events, &byte, 1, std::chrono::milliseconds(500)) == Delivery::Failed)
        return fail(std::string("cannot signal the ") + condition + " change: " + std::strerror(errno), 1);
    return 0;
}

int verb_hook(const Phone&, const Args& args) { return hook_change("hook", in::kCradleEvents, args); }
int verb_ehs(const Phone&, const Args& args) { return hook_change("ehs", in::kEhsEvents, args); }

struct Plug {
    const char* name;
    bool microphone;
};
constexpr std::array<Plug, 4> kPlugs{{{"nomic", false}, {"mic", true}, {"ctia", true}, {"omtp", true}}};

struct JackButton {
    const char* name;
    std::uint16_t code;
};
constexpr std::array<JackButton, 4> kJackButtons{
    {{"A", KEY_MEDIA}, {"B", KEY_VOLUMEUP}, {"C", KEY_VOLUMEDOWN}, {"D", KEY_VOICECOMMAND}}};

constexpr const char* kJackUsage = "usage: ftsim jack insert nomic|mic|ctia|omtp | jack remove | jack button A|B|C|D VALUE";

int verb_jack(const Phone&, const Args& args) {
    if (args.empty()) return fail(kJackUsage);
    if (args[0] == "insert" && args.size() == 2) {
        for (const Plug& p : kPlugs) {
            if (args[1] != p.name) continue;
            // The plug is in before the jack says so: the headset-type query
            // that the records prompt must find it.
            if (!set_observed("jack.plug", p.name)) return fail("cannot record the plug", 1);
            return send_records(in::kJackNode, "jack",
                                {make(EV_SW, SW_HEADPHONE_INSERT, 1), make(EV_SW, SW_MICROPHONE_INSERT, p.microphone),
                                 make(EV_SW, SW_JACK_PHYSICAL_INSERT, 1), make(EV_SYN, SYN_REPORT, 0)});
        }
        return fail(kJackUsage);
    }
    if (args[0] == "remove" && args.size() == 1) {
        if (!set_observed("jack.plug", "none")) return fail("cannot record the plug", 1);
        return send_records(in::kJackNode, "jack",
                            {make(EV_SW, SW_HEADPHONE_INSERT, 0), make(EV_SW, SW_MICROPHONE_INSERT, 0),
                             make(EV_SW, SW_JACK_PHYSICAL_INSERT, 0), make(EV_SYN, SYN_REPORT, 0)});
    }
    if (args[0] == "button" && args.size() == 3) {
        long value = 0;
        if (!parse_long(args[2], INT32_MIN, INT32_MAX, value)) return fail("VALUE must be an integer (1 press, 0 release)");
        for (const JackButton& b : kJackButtons)
            if (args[1] == b.name)
                return send_records(in::kJackNode, "jack",
                                    {make(EV_KEY, b.code, static_cast<std::int32_t>(value)), make(EV_SYN, SYN_REPORT, 0)});
    }
    return fail(kJackUsage);
}

// One raw record, for what no real key or plug sends.
int verb_event(const Phone&, const Args& args) {
    long type = 0, code = 0, value = 0;
    if (args.size() != 4 || (args[0] != "keypad" && args[0] != "jack") || !parse_long(args[1], 0, 0xffff, type) ||
        !parse_long(args[2], 0, 0xffff, code) || !parse_long(args[3], INT32_MIN, INT32_MAX, value))
        return fail("usage: ftsim event keypad|jack TYPE CODE VALUE");
    const bool keypad = args[0] == "keypad";
    return send_records(keypad ? in::kKeypadNode : in::kJackNode, keypad ? "keypad" : "jack",
                        {make(static_cast<std::uint16_t>(type), static_cast<std::uint16_t>(code),
                              static_cast<std::int32_t>(value))});
}

void input_show(const Phone&, std::string& out) {
    out += "model: " + get("model") + "; keypad " + get("keypad") + ", headset jack " + get("jack") + "\n";
    out += "hook switches: handset " + std::string(get("hook") == "on" ? "on hook" : "off hook") + ", wired headset " +
           (get("ehs") == "on" ? "on hook" : "off hook") + "\n";
    out += "3.5 mm jack: " + get("jack.plug") + "\n";
}

const ModuleRegistrar kInput{Module{
    "input",
    {
        {"key", "key CODE VALUE             press (1) or release (0) a key of the keypad", verb_key},
        {"hook", "hook on|off                replace or lift the handset", verb_hook},
        {"ehs", "ehs on|off                 the wired headset's hook switch", verb_ehs},
        {"jack", "jack insert nomic|mic|ctia|omtp | remove | button A|B|C|D VALUE   the 3.5 mm headset jack",
         verb_jack},
        {"event", "event keypad|jack TYPE CODE VALUE   one raw input record, without a sync record", verb_event},
    },
    input_power_up,
    input_show,
    nullptr,
}};

}  // namespace
}  // namespace ftsim
