// ftsim: powers the simulated phone up, sets its hardware conditions, injects
// failures and shows what the phone did.
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

#include "sim/core/ftsim/ftsim.h"
#include "sim/core/state.h"

namespace ftsim {

namespace {
std::vector<Module>& module_list() {
    static std::vector<Module> list;
    return list;
}
}  // namespace

ModuleRegistrar::ModuleRegistrar(Module m) {
    for (const Module& other : module_list()) {
        if (std::string_view(other.name) == m.name) conflict("the ftsim module", m.name);
        for (const Verb& v : other.verbs)
            for (const Verb& w : m.verbs)
                if (std::string_view(v.name) == w.name) conflict("the ftsim verb", w.name);
    }
    module_list().push_back(std::move(m));
}
const std::vector<Module>& modules() { return module_list(); }

std::string explain(const std::string& what) {
    const int error = errno;
    std::string text = what + ": " + std::strerror(error);
    if (error == ELOOP || error == ENOTDIR || error == EISDIR || error == EINVAL)
        text += "; something of another kind took its place in the phone's hardware folder: "
                "'ftsim reset' makes a fresh phone";
    return text;
}

int fail(const std::string& message, int status) {
    std::fprintf(stderr, "ftsim: %s\n", message.c_str());
    return status;
}

namespace {

void usage(FILE* out) {
    std::fprintf(out,
                 "usage: ftsim [--state DIR] VERB [ARGS]\n"
                 "The phone's state lives in DIR, else $FTSIM_STATE, else ~/.ftsim.\n\nverbs:\n");
    for (const Module& m : modules())
        for (const Verb& v : m.verbs) std::fprintf(out, "  ftsim %s\n", v.usage);
    std::fprintf(out, "\nconditions and observed state (ftsim set / ftsim get):\n");
    for (const Setting& s : settings())
        std::fprintf(out, "  %-22s %-9s %-28s %s\n", s.name, s.kind == Kind::Condition ? "condition" : "observed",
                     s.allowed, s.help);
}

std::string self_dir() {
    char buf[PATH_MAX];
    const ssize_t n = readlink("/proc/self/exe", buf, sizeof buf - 1);
    if (n <= 0) return ".";
    std::string p(buf, static_cast<std::size_t>(n));
    return p.substr(0, p.rfind('/'));
}

}  // namespace
}  // namespace ftsim

int main(int argc, char** argv) {
    using namespace ftsim;
    std::string state;
    int i = 1;
    if (i < argc && std::strcmp(argv[i], "--state") == 0) {
        if (i + 1 >= argc) return fail("--state needs a folder");
        state = argv[i + 1];
        i += 2;
    } else if (i < argc && std::strncmp(argv[i], "--state=", 8) == 0) {
        state = argv[i] + 8;
        ++i;
    }
    if (i >= argc || std::strcmp(argv[i], "--help") == 0 || std::strcmp(argv[i], "-h") == 0) {
        usage(i >= argc ? stderr : stdout);
        return i >= argc ? 2 : 0;
    }
    if (state.empty()) {
        const char* env = std::getenv("FTSIM_STATE");
        const char* home = std::getenv("HOME");
        if (env && *env) state = env;
        else if (home && *home) state = std::string(home) + "/.ftsim";
        else return fail("no state folder: give --state DIR or set FTSIM_STATE");
    }
    char resolved[PATH_MAX];
    if (state[0] != '/' && realpath(".", resolved)) state = std::string(resolved) + "/" + state;
    while (state.size() > 1 && state.back() == '/') state.pop_back();

    Phone phone{state, self_dir() + "/../system", self_dir()};
    if (char sys[PATH_MAX]; realpath(phone.system.c_str(), sys)) phone.system = sys;
    // The libraries' own code reads and writes the hardware folder through this.
    setenv("FTSIM_HW", phone.hw().c_str(), 1);

    const std::string verb = argv[i];
    const Args args(argv + i + 1, argv + argc);
    for (const Module& m : modules())
        for (const Verb& v : m.verbs)
            if (verb == v.name) return v.run(phone, args);
    fail("unknown verb '" + verb + "'; 'ftsim --help' lists them");
    return 2;
}
