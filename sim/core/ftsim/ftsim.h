#pragma once
// The control tool of the simulated phone. Each area of the phone is a Module
// that adds its verbs, its power-up steps (device nodes, bind mounts) and its
// lines of `ftsim show`, registered from a file in its own folder.
#include <string>
#include <string_view>
#include <vector>

#include "common/unique_handle.h"
#include "sim/core/state.h"

namespace ftsim {

struct Phone {
    std::string state;   // the phone's state folder, as the user named it
    std::string system;  // the /system image of this build
    std::string tools;   // the folder of ftsim and its helpers
    // For messages only: the host side opens nothing by these paths.
    std::string hw() const { return state + "/hw"; }
    // The state folder itself (trusted: the phone never sees it, only what is below it).
    Folder folder() const { return Folder::open(state); }
};

// Arguments after the verb.
using Args = std::vector<std::string>;

struct Verb {
    const char* name;
    const char* usage;  // one line for the usage text, after "ftsim "
    int (*run)(const Phone&, const Args&);
};

// The container being assembled at power-up. Every bind whose source is in
// the state folder goes through bind(): the source is opened beneath the
// state folder without following links, checked to be of the expected kind,
// and handed to bubblewrap as an open descriptor, so that nothing the phone
// planted there can point a bind at a host path.
class PowerUp {
public:
    explicit PowerUp(const Phone& phone) : phone_(phone) {}

    // Binds hw/RELATIVE (a folder, made when missing, or an existing file)
    // at DEST inside the phone.
    bool bind_hw(std::string_view relative, const std::string& dest, Type type, std::string& error,
                 bool read_only = false);
    // The same for STATE/RELATIVE, for places outside the hardware folder.
    bool bind_state(std::string_view relative, const std::string& dest, Type type, std::string& error,
                    bool read_only = false);
    // A program of the phone's own that runs in the background from power-up
    // to power-off (a server of the test network, say), started before the
    // phone's first command in a session of its own, with no terminal.
    // @p command is a fixed command line of ours, never data.
    void service(const std::string& command) { services_ += command + "\n"; }
    const std::string& services() const { return services_; }

    // Plain bubblewrap arguments (never a path from the state folder).
    void add(std::initializer_list<std::string> items) { args_.insert(args_.end(), items.begin(), items.end()); }

    std::vector<std::string>& args() { return args_; }
    const std::vector<ft::UniqueFd>& descriptors() const { return fds_; }

private:
    bool bind(const Folder& base, std::string_view relative, const std::string& dest, Type type, bool read_only,
              std::string& error);
    const Phone& phone_;
    std::vector<std::string> args_;
    std::vector<ft::UniqueFd> fds_;
    std::string services_;
};

// Power-up of the container: add binds and prepare hw files. On failure
// return false with a message that says what to do.
using PowerUpStep = bool (*)(const Phone&, PowerUp& up, std::string& error);
// Lines for `ftsim show`.
using ShowStep = void (*)(const Phone&, std::string& out);
// Extra work of `ftsim reset` after the state folder was made anew.
using ResetStep = bool (*)(const Phone&, std::string& error);
// Work of `ftsim set NAME VALUE` before the condition is stored, for a
// condition whose value names a file on the host that the phone gets a copy
// of: the copy is taken now, from the operator's own command line, never at
// power-up from a value the phone could have rewritten since. Each module
// sees every setting and ignores the names that are not its own; false
// refuses the setting with a message.
using SetStep = bool (*)(const Phone&, const std::string& name, const std::string& value, std::string& error);

struct Module {
    const char* name;
    std::vector<Verb> verbs;
    PowerUpStep power_up = nullptr;
    ShowStep show = nullptr;
    ResetStep reset = nullptr;
    SetStep set = nullptr;
};

// A module or verb name registered twice ends ftsim at once.
struct ModuleRegistrar {
    explicit ModuleRegistrar(Module m);
};
const std::vector<Module>& modules();

// "WHAT: the errno text", with a hint to reset the phone when the hardware
// folder held something of another kind than the phone puts there (a link,
// a file for a folder): the phone's programs may have replaced it.
std::string explain(const std::string& what);

// Prints "ftsim: MESSAGE" on stderr and returns the exit status for usage errors.
int fail(const std::string& message, int status = 2);

// Makes the state folder a phone when it is none yet; refuses a folder that
// holds something else. 0 or an exit status after the message.
int ensure_phone(const Phone& phone);

// Files of the state folder that ftsim keeps about power: the lock a
// powered-up phone holds for as long as it runs, and the record of its first
// process ("PID START-TIME"), out of the phone's reach.
inline constexpr const char* kPowerLock = "power.lock";
inline constexpr const char* kPowerRecord = "power";
// The places that keep their files over a power cycle: STATE/persist/NAME,
// at /NAME in the phone.
inline constexpr const char* kPersistent[] = {"reserved", "data", "cache", "sdcard"};

// The power lock, taken; an invalid descriptor when it could not be, with
// @p held_elsewhere true when a powered-up phone holds it.
ft::UniqueFd power_lock(const Phone& phone, bool& held_elsewhere);
// True while the phone is powered up.
bool powered_up(const Phone& phone);

// Runs the phone with CMD as its first process; returns its exit status.
int run_in_phone(const Phone& phone, const std::vector<std::string>& command, bool interactive);
// Runs CMD inside the phone that is powered up now, or returns -1 when none is.
int run_in_running_phone(const Phone& phone, const std::vector<std::string>& command);

// Parses a whole decimal (or 0x hexadecimal) number within [lo, hi].
bool parse_long(const std::string& text, long lo, long hi, long& out);

}  // namespace ftsim
