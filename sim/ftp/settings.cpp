// The test network's FTP server: whether it runs, and its one account.
#include "sim/core/state.h"

namespace {
const ftsim::SettingsRegistrar kFtp{
    {"ftp.server", ftsim::Kind::Condition, "up", "up|down",
     "the FTP server at 127.0.0.1 runs while the phone is powered up (taken at power-up)"},
    {"ftp.user", ftsim::Kind::Condition, "ft", "<text>", "the FTP server's account: user name"},
    {"ftp.password", ftsim::Kind::Condition, "ft", "<text>", "the FTP server's account: password"},
};
}  // namespace
