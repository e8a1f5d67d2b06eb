// The phone as a whole: power-up, reset, conditions, failures and the log.
#include <array>
#include <cerrno>
#include <memory>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <dlfcn.h>
#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

#include "common/unique_handle.h"
#include "factory_data/fields.h"
#include "platform/eeprom.h"
#include "sim/common/simstate.h"
#include "sim/ftsim/ftsim.h"

namespace ftsim {
namespace {

namespace fs = std::filesystem;

constexpr const char* kMarker = "/.ftsim-phone";

bool is_phone(const Phone& p) { return fs::exists(p.state + kMarker); }

bool make_dirs(const Phone& p, std::string& error) {
    std::error_code ec;
    for (const std::string& d : {p.hw() + "/conditions", p.hw() + "/observed", p.hw() + "/dev",
                                 p.persist("reserved"), p.persist("data"), p.persist("cache"), p.persist("sdcard")}) {
        fs::create_directories(d, ec);
        if (ec) {
            error = "cannot create " + d + ": " + ec.message();
            return false;
        }
    }
    return true;
}

int reset_phone(const Phone& p) {
    std::error_code ec;
    if (fs::exists(p.state) && !fs::is_empty(p.state, ec) && !is_phone(p))
        return fail(p.state + " is not empty and holds no phone; choose another --state folder", 1);
    // Only what this tool made: the marker says the folder is a phone.
    for (const char* part : {"/hw", "/persist"}) fs::remove_all(p.state + part, ec);
    std::string error;
    if (!make_dirs(p, error)) return fail(error, 1);
    ft::UniqueFile marker(std::fopen((p.state + kMarker).c_str(), "w"));
    ft::UniqueFile store(std::fopen((p.hw() + "/eeprom").c_str(), "w"));
    if (!marker.valid() || !store.valid()) return fail("cannot write in " + p.state, 1);
    store.reset();
    // A fresh phone is in factory mode and holds nothing else.
    if (eeprom_write(ft::kOperationalModeIndex, "0") < 0)
        return fail(std::string("cannot write the factory data: ") + std::strerror(errno), 1);
    for (const Module& m : modules())
        if (m.reset && !m.reset(p, error)) return fail(error, 1);
    return 0;
}

// A phone that was never made is made on first use; anything else is refused.
int ensure_phone(const Phone& p) {
    if (is_phone(p)) {
        std::string error;
        return make_dirs(p, error) ? 0 : fail(error, 1);
    }
    return reset_phone(p);
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
    return run_in_phone(p, std::vector<std::string>(args.begin() + static_cast<long>(first), args.end()),
                        isatty(STDIN_FILENO) != 0);
}

int verb_set(const Phone& p, const Args& args) {
    if (args.size() != 2) return fail("usage: ftsim set NAME VALUE ('ftsim get' lists the names)");
    const Setting* s = find_setting(args[0]);
    if (!s) return fail("unknown condition '" + args[0] + "'; 'ftsim get' lists them");
    if (s->kind != Kind::Condition) return fail("'" + args[0] + "' is observed state; the phone sets it");
    if (!value_allowed(*s, args[1]))
        return fail("'" + args[1] + "' is not a value of " + args[0] + " (" + s->allowed + ")");
    if (int rc = ensure_phone(p)) return rc;
    if (!write_atomic(setting_file(*s), args[1] + "\n"))
        return fail("cannot write " + setting_file(*s) + ": " + std::strerror(errno), 1);
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

// An operation can be made to fail when one of the phone's libraries exports it.
bool library_exports(const Phone& p, const std::string& op) {
    const std::string dir = p.system + "/lib";
    std::unique_ptr<DIR, int (*)(DIR*)> d(opendir(dir.c_str()), closedir);
    if (!d) return false;
    while (const dirent* e = readdir(d.get())) {
        const std::string name = e->d_name;
        if (name.size() < 4 || name.compare(name.size() - 3, 3, ".so") != 0 || name.find("shim") != std::string::npos)
            continue;
        void* lib = dlopen((dir + "/" + name).c_str(), RTLD_LAZY | RTLD_LOCAL);
        if (!lib) continue;
        const bool found = dlsym(lib, op.c_str()) != nullptr;
        dlclose(lib);
        if (found) return true;
    }
    return false;
}

bool parse_int(const std::string& text, int& out) {
    char* end = nullptr;
    errno = 0;
    const long v = std::strtol(text.c_str(), &end, 0);
    if (text.empty() || *end != '\0' || errno != 0 || v < INT32_MIN || v > INT32_MAX) return false;
    out = static_cast<int>(v);
    return true;
}

bool parse_errno(const std::string& text, int& out) {
    if (parse_int(text, out)) return out >= 0;
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
    if (args.size() < 2 || args.size() > 3) return fail("usage: ftsim fail OP RESULT [ERRNO]");
    Failure f{args[0], 0, 0};
    if (!library_exports(p, f.op)) return fail("no library operation named '" + f.op + "'");
    if (!parse_int(args[1], f.result)) return fail("RESULT must be an integer, not '" + args[1] + "'");
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

int verb_log(const Phone&, const Args& args) {
    if (!args.empty()) return fail("usage: ftsim log");
    std::string text;
    read_text(hw_path("log"), text);
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

bool watchdog_power_up(const Phone& p, std::vector<std::string>& bwrap, std::string& error) {
    const std::string dev = p.hw() + "/dev/watchdog";
    unlink(dev.c_str());
    if (get("watchdog") != "present") return true;
    ft::UniqueFile f(std::fopen(dev.c_str(), "w"));
    if (!f.valid()) {
        error = "cannot create " + dev + ": " + std::strerror(errno);
        return false;
    }
    bwrap.insert(bwrap.end(), {"--bind", dev, "/dev/watchdog"});
    return true;
}

void core_show(const Phone&, std::string& out) {
    const std::string wd = get("watchdog");
    out += "watchdog: " + wd;
    if (wd == "present") out += ", written since power-up: \"" + get("watchdog.written") + "\"";
    out += "\n";
    std::array<char, 32> mode{};
    int programmed = 0;
    for (int i = 1; i < static_cast<int>(ft::kFactoryFieldCount); ++i) {
        std::array<char, 2> v{};
        if (eeprom_read(i, v.data(), 2) == 0 && v[0]) ++programmed;
    }
    const bool read = eeprom_read(ft::kOperationalModeIndex, mode.data(), 32) == 0;
    out += "factory data: OPERATIONAL_MODE \"" + std::string(read ? mode.data() : "?") + "\" (" +
           (read && std::atoi(mode.data()) != 0 ? "production" : "factory") + " mode), " +
           std::to_string(programmed) + " other fields programmed\n";
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
        {"exec", "exec -- CMD [ARGS]         run a command inside the phone", verb_exec},
        {"reset", "reset                      a fresh, unprogrammed phone", verb_reset},
        {"set", "set NAME VALUE             set a hardware condition", verb_set},
        {"get", "get [NAME]                 a condition or observed state; all of them without NAME",
         verb_get},
        {"fail", "fail [OP RESULT [ERRNO]]   make a library operation fail (no arguments: list)", verb_fail},
        {"unfail", "unfail OP|all              stop making it fail", verb_unfail},
        {"log", "log                        command lines the phone ran through its tools", verb_log},
        {"show", "show                       one screen of the phone's state", verb_show},
    },
    watchdog_power_up,
    core_show,
    nullptr,
}};

}  // namespace
}  // namespace ftsim
