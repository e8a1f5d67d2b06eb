// phone-state: the hardware folder as the phone's own scripts and stand-in
// tools see it. Conditions read with their defaults, observed state written
// by name, lines added to the command log.
//   phone-state get NAME
//   phone-state observe NAME VALUE
//   phone-state log TEXT...
#include <cstdio>
#include <cstring>
#include <string>

#include "sim/core/state.h"

int main(int argc, char** argv) {
    if (argc == 3 && std::strcmp(argv[1], "get") == 0) {
        if (!ftsim::find_setting(argv[2])) {
            std::fprintf(stderr, "phone-state: no condition or state named '%s'\n", argv[2]);
            return 2;
        }
        std::printf("%s\n", ftsim::get(argv[2]).c_str());
        return 0;
    }
    if (argc == 4 && std::strcmp(argv[1], "observe") == 0) {
        if (!ftsim::set_observed(argv[2], argv[3])) {
            std::fprintf(stderr, "phone-state: cannot record '%s'\n", argv[2]);
            return 1;
        }
        return 0;
    }
    if (argc >= 3 && std::strcmp(argv[1], "log") == 0) {
        std::string line;
        for (int i = 2; i < argc; ++i) line += std::string(i > 2 ? " " : "") + argv[i];
        return ftsim::append_line("log", line) ? 0 : 1;
    }
    std::fprintf(stderr, "usage: phone-state get NAME | observe NAME VALUE | log TEXT...\n");
    return 2;
}
