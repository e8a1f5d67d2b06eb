// The test network's FTP server: started with the phone when it is up, its
// files in STATE/ftp, where tests and people put and take them.
#include <string>

#include "sim/core/ftsim/ftsim.h"
#include "sim/core/state.h"
#include "sim/ftp/server.h"

namespace ftsim {
namespace {

bool ftp_power_up(const Phone&, PowerUp& up, std::string& error) {
    if (!up.bind_state(ftp::kStateFolder, ftp::kRoot, Type::Dir, error)) return false;
    if (get("ftp.server") == "up")
        up.service(std::string("/usr/bin/python3 ") + ftp::kProgram + " " + std::to_string(ftp::kServerPort) + " " +
                   ftp::kRoot + " " + ftp::kReadyFile);
    return true;
}

void ftp_show(const Phone& phone, std::string& out) {
    out += "ftp server: 127.0.0.1:" + std::to_string(ftp::kClientPort) + " (any 127/8 address), " +
           (get("ftp.server") == "up" ? "up" : "down") + " while powered up, account \"" + get("ftp.user") +
           "\" password \"" + get("ftp.password") + "\", files in " + phone.state + "/" + ftp::kStateFolder + "\n";
}

const ModuleRegistrar kFtp{Module{"ftp", {}, ftp_power_up, ftp_show, nullptr}};

}  // namespace
}  // namespace ftsim
