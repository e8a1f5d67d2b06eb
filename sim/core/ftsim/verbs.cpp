// The phone as a whole: power-up, reset, conditions, failures and the log.
#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <set>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

#include "common/unique_handle.h"
#include "sim/core/ftsim/ftsim.h"
#include "sim/core/state.h"

namespace ftsim {

bool parse_long(const std::string& text, long lo, long hi, long& out) {
    char* end = nullptr;
    errno = 0;
    out = std::strtol(text.c_str(), &end, 0);
    return !text.empty() && *end == '\0' && errno == 0 && out >= lo && out <= hi;
}

namespace {

constexpr const char* kMarker = ".ftsim-phone";

bool is_phone(const Phone& p) { return p.folder().exists(kMarker, Type::File); }

bool make_dirs(const Phone& p, std::string& error) {
    const Folder state = p.folder();
    std::vector<std::string> dirs{"hw/conditions", "hw/observed", "hw/dev"};
    for (const char* place : kPersistent) dirs.push_back(std::string("persist/") + place);
    for (const std::string& d : dirs) {
        if (!state.make_dirs(d)) {
            error = explain("cannot create " + p.state + "/" + d);
            return false;
        }
    }
    return true;
}

int reset_phone(const Phone& p) {
    if (access(p.state.c_str(), F_OK) != 0 && mkdir(p.state.c_str(), 0755) != 0)
        return fail("cannot create " + p.state + ": " + std::strerror(errno), 1);
    const Folder state = p.folder();
    if (!state.valid()) return fail(p.state + " is not a folder", 1);
    if (!is_phone(p) && !state.list().empty())
        return fail(p.state + " is not empty and holds no phone; choose another --state folder", 1);
    // A phone that runs keeps its state; resetting it under its feet would
    // leave the shell writing into removed files.
    if (powered_up(p)) return fail("the phone at " + p.state + " is powered up; end its shell first", 1);
    // Only what this tool made, and never through a link the phone planted.
    for (const std::string& entry : state.list())
        if (entry != kMarker && entry != kPowerLock && !state.remove(entry))
            return fail(explain("cannot remove " + p.state + "/" + entry), 1);
    std::string error;
    if (!make_dirs(p, error)) return fail(error, 1);
    if (!state.write_atomic(kMarker, "")) return fail("cannot write in " + p.state, 1);
    for (const Module& m : modules())
        if (m.reset && !m.reset(p, error)) return fail(error, 1);
    return 0;
}

int verb_reset(const Phone& p, const Args& args) {
    if (!args.empty()) return fail("usage: ftsim reset");
    return reset_phone(p);
}

int verb_shell(const Phone& p, const Args& args) {
    if (!args.empty()) return fail("usage: ftsim shell");
    if (int rc = ensure_phone(p)) return rc;
    return run_in_phone(p, {"/system/bin/ft"}, isatty(STDIN_FILENO) != 0);
}

int verb_exec(const Phone& p, const Args& args) {
    std::size_t first = (!args.empty() && args[0] == "--") ? 1 : 0;
    if (first >= args.size()) return fail("usage: ftsim exec -- CMD [ARGS]");
    if (int rc = ensure_phone(p)) return rc;
    const std::vector<std::string> command(args.begin() + static_cast<long>(first), args.end());
    const int joined = run_in_running_phone(p, command);
    if (joined >= 0) return joined;
    return run_in_phone(p, command, isatty(STDIN_FILENO) != 0);
}

int verb_set(const Phone& p, const Args& args) {
    if (args.size() != 2) return fail("usage: ftsim set NAME VALUE ('ftsim get' lists the names)");
    const Setting* s = find_setting(args[0]);
    if (!s) return fail("unknown condition '" + args[0] + "'; 'ftsim get' lists them");
    if (s->kind != Kind::Condition) return fail("'" + args[0] + "' is observed state; the phone sets it");
    if (!value_allowed(*s, args[1]))
        return fail("'" + args[1] + "' is not a value of " + args[0] + " (" + s->allowed + ")");
    if (int rc = ensure_phone(p)) return rc;
    std::string error;
    for (const Module& m : modules())
        if (m.set && !m.set(p, args[0], args[1], error)) return fail(error, 1);
    if (!set_condition(args[0], args[1]))
        return fail(explain("cannot write " + p.hw() + "/" + setting_file(*s)), 1);
    return 0;
}

int verb_get(const Phone&, const Args& args) {
    if (args.size() > 1) return fail("usage: ftsim get [NAME]");
    if (args.size() == 1) {
        if (!find_setting(args[0])) return fail("unknown name '" + args[0] + "'; 'ftsim get' lists them");
        std::printf("%s\n", get(args[0]).c_str());
        return 0;
    }
    for (const Setting& s : settings()) std::printf("%s=%s\n", s.name, get(s.name).c_str());
    return 0;
}

// Every failure point of the phone's libraries, as each library lists them.
std::set<std::string> failure_points(const Phone& p) {
    std::set<std::string> names;
    for (const char* sub : {"/lib", "/lib/hw"}) {
        const std::string dir = p.system + sub;
        const Folder folder = Folder::open(dir);
        for (const std::string& name : folder.list()) {
            if (name.size() < 4 || name.compare(name.size() - 3, 3, ".so") != 0) continue;
            void* lib = dlopen((dir + "/" + name).c_str(), RTLD_LAZY | RTLD_LOCAL);
            if (!lib) continue;
            using List = std::size_t (*)(const char* const**);
            if (auto list = reinterpret_cast<List>(dlsym(lib, "ftsim_failure_points"))) {
                const char* const* first = nullptr;
                const std::size_t n = list(&first);
                for (std::size_t i = 0; i < n; ++i)
                    if (first[i]) names.insert(first[i]);
            }
            dlclose(lib);
        }
    }
    return names;
}

bool parse_errno(const std::string& text, int& out) {
    long v = 0;
    if (parse_long(text, 0, 4095, v)) {
        out = static_cast<int>(v);
        return true;
    }
    for (int e = 1; e < 256; ++e) {
        const char* name = strerrorname_np(e);
        if (name && text == name) {
            out = e;
            return true;
        }
    }
    return false;
}

int verb_fail(const Phone& p, const Args& args) {
    if (args.empty()) {
        for (const Failure& f : failures())
            std::printf("%s %d %s\n", f.op.c_str(), f.result, f.error ? strerrorname_np(f.error) : "0");
        return 0;
    }
    if (args.size() == 1 && args[0] == "--points") {
        for (const std::string& name : failure_points(p)) std::printf("%s\n", name.c_str());
        return 0;
    }
    if (args.size() < 2 || args.size() > 3) return fail("usage: ftsim fail OP RESULT [ERRNO]");
    Failure f{args[0], 0, 0};
    if (!failure_points(p).count(f.op))
        return fail("no library operation named '" + f.op + "'; 'ftsim fail --points' lists them");
    long result = 0;
    if (!parse_long(args[1], INT32_MIN, INT32_MAX, result))
        return fail("RESULT must be an integer, not '" + args[1] + "'");
    f.result = static_cast<int>(result);
    if (args.size() == 3 && !parse_errno(args[2], f.error))
        return fail("ERRNO must be a name such as EIO or a number, not '" + args[2] + "'");
    if (int rc = ensure_phone(p)) return rc;
    std::vector<Failure> list;
    for (const Failure& old : failures())
        if (old.op != f.op) list.push_back(old);
    list.push_back(f);
    return set_failures(list) ? 0 : fail("cannot write the failure list", 1);
}

int verb_unfail(const Phone&, const Args& args) {
    if (args.size() != 1) return fail("usage: ftsim unfail OP|all");
    std::vector<Failure> list;
    if (args[0] != "all") {
        bool found = false;
        for (const Failure& old : failures()) {
            if (old.op == args[0]) found = true;
            else list.push_back(old);
        }
        if (!found) return fail("'" + args[0] + "' is not set to fail");
    }
    return set_failures(list) ? 0 : fail("cannot write the failure list", 1);
}

int verb_log(const Phone& p, const Args& args) {
    if (!args.empty()) return fail("usage: ftsim log");
    std::string text;
    if (!read_text("log", text) && errno != ENOENT)
        return fail(p.hw() + "/log is not a file the phone wrote (" + std::strerror(errno) + ")", 1);
    std::fwrite(text.data(), 1, text.size(), stdout);
    return 0;
}

int verb_show(const Phone& p, const Args& args) {
    if (!args.empty()) return fail("usage: ftsim show");
    if (!is_phone(p)) return fail("no phone at " + p.state + " yet; 'ftsim reset' makes one", 1);
    std::string out = "phone: " + p.state + "\n";
    for (const Module& m : modules())
        if (m.show) m.show(p, out);
    std::fputs(out.c_str(), stdout);
    return 0;
}

// Modules every phone has loaded before any test runs; the areas' scripts
// add and remove their own.
constexpr const char* kBaseModules =
    "evdev 28672 2 - Live 0x0000000000000000\n"
    "snd_soc_core 253952 1 - Live 0x0000000000000000\n"
    "uvcvideo 106496 0 - Live 0x0000000000000000\n";

// The kernel's side of a power-up: the watchdog device, the module list and
// an empty /sys that the areas fill, all as a fresh boot leaves them.
bool core_power_up(const Phone&, PowerUp& up, std::string& error) {
    const Folder dir = hw();
    dir.remove("dev/watchdog");
    if (!dir.remove("sys") || !dir.make_dirs("sys") || !dir.make_dirs("proc") ||
        !dir.write_atomic("proc/modules", kBaseModules)) {
        error = explain("cannot prepare the phone's kernel files");
        return false;
    }
    if (!up.bind_hw("sys", "/sys", Type::Dir, error)) return false;
    if (get("watchdog") != "present") return true;
    if (!dir.write_atomic("dev/watchdog", "")) {
        error = explain("cannot create the watchdog device");
        return false;
    }
    return up.bind_hw("dev/watchdog", "/dev/watchdog", Type::File, error);
}

void core_show(const Phone&, std::string& out) {
    const std::string wd = get("watchdog");
    out += "watchdog: " + wd;
    if (wd == "present") out += ", written since power-up: \"" + get("watchdog.written") + "\"";
    out += "\n";
    const auto list = failures();
    out += "failing operations:";
    if (list.empty()) out += " none";
    for (const Failure& f : list) out += " " + f.op;
    out += "\n";
}

const ModuleRegistrar kCore{Module{
    "phone",
    {
        {"shell", "shell                      power up and run the factory shell here", verb_shell},
        {"exec", "exec -- CMD [ARGS]         run a command inside the phone (the running one, if any)",
         verb_exec},
        {"reset", "reset                      a fresh, unprogrammed phone", verb_reset},
        {"set", "set NAME VALUE             set a hardware condition", verb_set},
        {"get", "get [NAME]                 a condition or observed state; all of them without NAME",
         verb_get},
        {"fail", "fail [OP RESULT [ERRNO]]   make a library operation fail (no arguments: list;\n"
                 "                                   --points: every operation that can fail)",
         verb_fail},
        {"unfail", "unfail OP|all              stop making it fail", verb_unfail},
        {"log", "log                        command lines the phone ran through its tools", verb_log},
        {"show", "show                       one screen of the phone's state", verb_show},
    },
    core_power_up,
    core_show,
    nullptr,
}};

}  // namespace

// A phone that was never made is made on first use; anything else is refused.
int ensure_phone(const Phone& p) {
    if (is_phone(p)) {
        std::string error;
        return make_dirs(p, error) ? 0 : fail(error, 1);
    }
    return reset_phone(p);
}

}  // namespace ftsim
