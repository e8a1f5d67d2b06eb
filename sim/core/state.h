#pragma once
// What the simulated phone's libraries, kernel shim and control tool share:
// the hardware folder (/sim inside the phone, STATE/hw outside), conditions,
// observed state and failure injection. Library code never prints.
//
// The hardware folder is writable from inside the phone, so on the host side
// everything in it may have been put there by an adversary. Every access goes
// through a Folder: paths are relative to it, each component must be a real
// folder (never a link), and what is opened must be of the expected kind.
#include <initializer_list>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

#include "common/unique_handle.h"

namespace ftsim {

// Folder holding the phone's hardware state. Inside the phone it is /sim; the
// control tool points FTSIM_HW at STATE/hw so the same code serves both sides.
std::string hw_dir();
// Absolute path below the hardware folder, for the phone's own kernel calls
// (the kernel shim's redirects). The host side never opens these.
std::string hw_path(std::string_view relative);

enum class Type { File, Dir, Fifo };

// A folder that no access through it can leave. Relative paths use '/'
// between components; an empty component, "." or ".." is refused (EINVAL), a
// link anywhere on the way is refused (ELOOP), and an object of another kind
// than asked for is refused (ENOTDIR, EISDIR or EINVAL).
class Folder {
public:
    Folder() = default;
    // Opens @p path itself, which the caller trusts; a link there is refused too.
    static Folder open(const std::string& path);
    bool valid() const { return fd_.valid(); }
    int fd() const { return fd_.get(); }

    // Opens RELATIVE as an object of @p type. O_CREAT makes a missing regular
    // file (its folder must exist); reading never blocks on a FIFO.
    ft::UniqueFd open_at(std::string_view relative, int flags, Type type, mode_t mode = 0644) const;
    // The folder RELATIVE, made with its parents when missing.
    Folder subfolder(std::string_view relative, bool create = false) const;

    bool exists(std::string_view relative, Type type) const;
    bool read_text(std::string_view relative, std::string& out) const;
    // Replaces the file in one step (temporary file, fsync, rename, fsync of
    // the folder): a crash leaves the old content or the new, never a torn
    // file, and the replacement survives a power cut once this returns.
    bool write_atomic(std::string_view relative, std::string_view data, unsigned mode = 0644) const;
    bool append_line(std::string_view relative, std::string_view line) const;
    bool make_dirs(std::string_view relative) const;
    // A FIFO; one that exists already is kept (a reader may hold it open).
    bool make_fifo(std::string_view relative) const;
    // Removes a file, link or whole folder tree; links are removed, never
    // followed. A missing entry counts as removed.
    bool remove(std::string_view relative) const;
    // Removes temporary files that an interrupted write_atomic left, anywhere below.
    void remove_stale_temporaries() const;
    // Names of the entries of the folder RELATIVE ("" for this one), sorted.
    std::vector<std::string> list(std::string_view relative = "") const;

private:
    explicit Folder(ft::UniqueFd fd) : fd_(std::move(fd)) {}
    ft::UniqueFd fd_;
};

// The hardware folder, opened afresh at each call: a program of the phone
// may close every descriptor it did not open itself.
Folder hw();

// Shorthands on hw().
bool read_text(std::string_view relative, std::string& out);
bool write_atomic(std::string_view relative, std::string_view data, unsigned mode = 0644);
bool append_line(std::string_view relative, std::string_view line);

// The list that registrars of @p T fill at start-up, one per type. Never
// destroyed: a thread of the phone's program may still make a call through
// it while exit() runs the static destructors (a detached tone thread, a
// monitor that is not joined at quit).
template <typename T>
std::vector<T>& registry() {
    static auto* list = new std::vector<T>;
    return *list;
}

// --- Conditions (set by the operator) and observed state (set by the phone).

enum class Kind { Condition, Observed };

struct Setting {
    const char* name;
    Kind kind;
    const char* fallback;  // value when nothing was set or observed yet
    const char* allowed;   // "a|b|c", "<WxH>", "<number>" or "<text>"
    const char* help;
    const char* file = nullptr;  // where the value lives, relative to hw; null: conditions/NAME or observed/NAME
    // An observed value that a power cycle leaves as it was (a plug stays in
    // its jack); every other is forgotten at power-up.
    bool kept_over_power_cycle = false;
};

const std::vector<Setting>& settings();
const Setting* find_setting(std::string_view name);
bool value_allowed(const Setting& s, std::string_view value);
// Where the value lives, relative to the hardware folder.
std::string setting_file(const Setting& s);

// Current value of a condition or observed setting (its fallback when unset).
std::string get(std::string_view name);
bool set_condition(std::string_view name, std::string_view value);
bool set_observed(std::string_view name, std::string_view value);
// Forgets an observed value, so that it reads as its fallback again.
void clear_observed(std::string_view name);
// A power cycle: forgets every observed value not kept over one.
void clear_observed_at_power_up();

// Registers rows at start-up; each area adds its own in its own folder. A name
// registered twice ends the program at once: two areas would fight over it.
struct SettingsRegistrar {
    SettingsRegistrar(std::initializer_list<Setting> rows);
};

// Ends the program with a message on standard error: for registrars that
// meet a conflict, which is a build mistake no test may miss.
[[noreturn]] void conflict(const char* what, std::string_view name);

// --- Failure injection: "OP RESULT ERRNO" lines in hw/fail.

// True when @p op is set to fail: @p result receives the chosen result and
// errno is set. Read on every call, so a failure set while the shell runs
// takes effect at once.
bool injected_failure(std::string_view op, int& result);

struct Failure {
    std::string op;
    int result;
    int error;
};
std::vector<Failure> failures();
bool set_failures(const std::vector<Failure>& list);

}  // namespace ftsim

// Every library operation of the simulated phone starts with a failure point
// named after the function itself, so that `ftsim fail NAME ...` makes it
// return the chosen result with the chosen errno. Each name is also kept in
// the library's failure-point section, where ftsim finds the names it may
// accept (static functions of a HAL included).
#define FTSIM_FAILURE_POINT()                                                          \
    do {                                                                              \
        FTSIM_NOTE_FAILURE_POINT_;                                                    \
        int ftsim_injected_ = 0;                                                      \
        if (::ftsim::injected_failure(__func__, ftsim_injected_)) return ftsim_injected_; \
    } while (0)

// The same for an operation that does not return an int: on an injected
// failure it returns @p value (nothing for a void function) with the chosen
// errno; the chosen result is not used.
#define FTSIM_FAILURE_POINT_RETURNING(value)                                          \
    do {                                                                              \
        FTSIM_NOTE_FAILURE_POINT_;                                                    \
        int ftsim_injected_ = 0;                                                      \
        if (::ftsim::injected_failure(__func__, ftsim_injected_)) return value;       \
    } while (0)

#define FTSIM_NOTE_FAILURE_POINT_ \
    __attribute__((section("ftsim_failpoints"), used)) static const char* const ftsim_point_ = __func__

// The failure-point names of the library that defines this (one copy per
// library, exported for ftsim's dlsym).
extern "C" std::size_t ftsim_failure_points(const char* const** first);
