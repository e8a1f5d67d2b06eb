#pragma once
// The control tool of the simulated phone. Each subsystem of the phone is a
// Module that adds its verbs, its power-up steps (device nodes, bind mounts)
// and its lines of `ftsim show`, registered from its own file.
#include <string>
#include <vector>

namespace ftsim {

struct Phone {
    std::string state;   // the phone's state folder
    std::string system;  // the /system image of this build
    std::string hw() const { return state + "/hw"; }
    std::string persist(const std::string& place) const { return state + "/persist/" + place; }
};

// Arguments after the verb.
using Args = std::vector<std::string>;

struct Verb {
    const char* name;
    const char* usage;  // one line for the usage text, after "ftsim "
    int (*run)(const Phone&, const Args&);
};

// Power-up of the container: add bwrap arguments and prepare hw files. On
// failure return false with a message that says what to do.
using PowerUpStep = bool (*)(const Phone&, std::vector<std::string>& bwrap, std::string& error);
// Lines for `ftsim show`.
using ShowStep = void (*)(const Phone&, std::string& out);
// Extra work of `ftsim reset` after the state folder was made anew.
using ResetStep = bool (*)(const Phone&, std::string& error);

struct Module {
    const char* name;
    std::vector<Verb> verbs;
    PowerUpStep power_up = nullptr;
    ShowStep show = nullptr;
    ResetStep reset = nullptr;
};

struct ModuleRegistrar {
    explicit ModuleRegistrar(Module m);
};
const std::vector<Module>& modules();

// Prints "ftsim: MESSAGE" on stderr and returns the exit status for usage errors.
int fail(const std::string& message, int status = 2);

// Runs the phone with CMD as its first process; returns its exit status.
int run_in_phone(const Phone& phone, const std::vector<std::string>& command, bool interactive);

}  // namespace ftsim
