#pragma once
// What the simulated phone's libraries, kernel shim and control tool share:
// the hardware folder (/sim inside the phone, STATE/hw outside), conditions,
// observed state and failure injection. Library code never prints.
#include <string>
#include <string_view>
#include <vector>

namespace ftsim {

// Folder holding the phone's hardware state. Inside the phone it is /sim; the
// control tool points FTSIM_HW at STATE/hw so the same code serves both sides.
std::string hw_dir();
std::string hw_path(std::string_view relative);

// The phone's /proc is the real one of its own PID namespace, so that every
// process finds itself there. The few kernel files a host kernel lacks are
// kept in the hardware folder under this name instead, and the kernel shim
// sends opens of /proc/NAME... there.
inline constexpr std::string_view kFakeProcDir = "proc";

bool read_text(const std::string& path, std::string& out);
// Replaces the file in one step (temporary file, fsync, rename): a crash
// mid-write leaves either the old content or the new, never a torn file.
bool write_atomic(const std::string& path, std::string_view data, unsigned mode = 0644);
bool append_line(const std::string& path, std::string_view line);

// --- Conditions (set by the operator) and observed state (set by the phone).

enum class Kind { Condition, Observed };

struct Setting {
    const char* name;
    Kind kind;
    const char* fallback;  // value when nothing was set or observed yet
    const char* allowed;   // "a|b|c", "<WxH>", "<number>" or "<text>"
    const char* help;
    const char* file;      // where the value lives, relative to hw; null: conditions/NAME or observed/NAME
};

const std::vector<Setting>& settings();
const Setting* find_setting(std::string_view name);
bool value_allowed(const Setting& s, std::string_view value);
std::string setting_file(const Setting& s);

// Current value of a condition or observed setting (its fallback when unset).
std::string get(std::string_view name);
bool set_observed(std::string_view name, std::string_view value);

// Registers rows at start-up; each subsystem adds its own in its own file.
struct SettingsRegistrar {
    SettingsRegistrar(std::initializer_list<Setting> rows);
};

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

// Shorthand for a replacement library operation: returns the injected result
// when the operation is set to fail.
#define FTSIM_FAILURE_POINT(op)                         \
    do {                                                \
        int ftsim_injected_ = 0;                        \
        if (::ftsim::injected_failure(op, ftsim_injected_)) \
            return ftsim_injected_;                     \
    } while (0)
