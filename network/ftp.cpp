// FTP transfers through the phone's own command-line clients, and the
// regulatory label fetched the same way into its fixed place under /reserved.
#include "network/ftp.h"

#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <cstdio>

#include "common/quote.h"
#include "common/run.h"
#include "common/words.h"

namespace {

constexpr const char* kLabelDir = "/reserved/regulatoryLabels";
constexpr const char* kLabelFile = "/reserved/regulatoryLabels/regulatory_info.png";

// Command lines of both clients. An upload that does not fit is refused
// whole, since a line cut short could send another file than the one typed.
using CommandBuffer = std::array<char, 256>;

// 0 when the file arrived; -1 when nothing was run; else the non-zero status
// of system(), the client's own messages having been printed by it.
int ftpget_internal(const char* user, const char* password, const char* local_path, const char* remote_path,
                    const char* server) {
    if (!ft::word_is_ipv4(server)) {
        std::printf("invalid server ip \"%s\"\n", server);
        return -1;
    }
    // Cut to the buffer, as the station's scripts know it: a remote name cut
    // short names a file the server does not have, and the download fails.
    CommandBuffer line{};
    const int length = std::snprintf(line.data(), line.size(), "ftpget -u %s -p %s %s %s %s",
                                     ft::Quoted(user).c_str(), ft::Quoted(password).c_str(), server,
                                     ft::Quoted(local_path).c_str(), ft::Quoted(remote_path).c_str());
    if (length < 0) return -1;
    const int status = ft::run_command(line.data());
    if (status != 0) std::printf("command \"%s\" failed, check the input\n", line.data());
    return status;
}

}  // namespace

int sendFTP(const char* user, const char* password, const char* local_file, const char* dest_file,
            const char* server) {
    if (!ft::word_is_ipv4(server)) {
        std::puts("Invalid remote IPAddr Server!!");
        return -1;
    }
    // ftpput takes the host first, then the remote name, then the local file.
    CommandBuffer line{};
    if (!ft::format_command(line, "ftpput -u %s -p %s %s %s %s", ft::Quoted(user).c_str(),
                            ft::Quoted(password).c_str(), server, ft::Quoted(dest_file).c_str(),
                            ft::Quoted(local_file).c_str())) {
        std::puts("Upload command line too long: at most 255 characters. Nothing was sent.");
        return -1;
    }
    // The client's own output is the verdict of an upload.
    ft::run_command(line.data());
    return 0;
}

int getFTP(const char* user, const char* password, const char* local_path, const char* remote_path,
           const char* server) {
    return std::puts(ftpget_internal(user, password, local_path, remote_path, server) == 0 ? "PASS" : "FAIL");
}

int velor_regulatory(const char* user, const char* password, const char* remote_path, const char* server) {
    errno = 0;
    // An existing folder is reused as it is; only a new one gets 0700.
    if (mkdir(kLabelDir, 0700) != 0 && errno != EEXIST) {
        std::printf("velor_regulatory: failed to create target directory \"%s\"\n", kLabelDir);
        std::puts("FAIL");
        return -1;
    }
    const bool fetched = ftpget_internal(user, password, kLabelFile, remote_path, server) == 0;
    std::puts(fetched ? "PASS" : "FAIL");
    return fetched ? 0 : -1;
}
