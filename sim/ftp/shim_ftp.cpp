// Connections of the phone's programs to port 21 of a 127/8 address go on to
// the FTP server's own port, on the same address: the server listens on all
// of the phone's loopback addresses, and a client that connects its data
// channel to the address it logged in to finds the server there too.
#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/inotify.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <string>
#include <string_view>

#include "sim/core/shim/shim.h"
#include "sim/core/state.h"
#include "sim/ftp/server.h"

namespace {

using namespace std::chrono_literals;

bool is_ftp_on_loopback(const sockaddr* address, socklen_t length) {
    if (address == nullptr || length < sizeof(sockaddr_in) || address->sa_family != AF_INET) return false;
    sockaddr_in in{};
    std::memcpy(&in, address, sizeof in);
    return ntohs(in.sin_port) == ftsim::ftp::kClientPort && (ntohl(in.sin_addr.s_addr) >> 24) == 127;
}

// The server starts with the phone, beside its first command, so the first
// transfer may come before it listens: wait for it then, but only while a
// server started at this power-up has not yet said it is ready. A server
// that is down, or has gone, refuses at once, as a real one would. The wait
// blocks on the ready file's folder rather than polling the file.
void wait_for_server() {
    if (access(ftsim::ftp::kReadyFile, F_OK) == 0) return;
    std::string services;
    if (!ftsim::read_text("run/services", services) || services.find(ftsim::ftp::kProgram) == std::string::npos)
        return;
    const std::string_view ready = ftsim::ftp::kReadyFile;
    const ft::UniqueFd watch(inotify_init1(IN_CLOEXEC | IN_NONBLOCK));
    if (!watch.valid() ||
        inotify_add_watch(watch.get(), std::string(ready.substr(0, ready.rfind('/'))).c_str(),
                          IN_CREATE | IN_MOVED_TO) < 0)
        return;
    const auto deadline = std::chrono::steady_clock::now() + 10s;
    // Checked again once watched: the file may have come before the watch.
    while (access(ftsim::ftp::kReadyFile, F_OK) != 0) {
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now()).count();
        if (left <= 0) return;
        pollfd p{watch.get(), POLLIN, 0};
        if (poll(&p, 1, static_cast<int>(left)) < 0 && errno != EINTR) return;
        alignas(inotify_event) std::array<char, 4096> events;
        while (read(watch.get(), events.data(), events.size()) > 0) {
        }
    }
}

}  // namespace

extern "C" int connect(int fd, const sockaddr* address, socklen_t length) {
    using Connect = int (*)(int, const sockaddr*, socklen_t);
    static const auto kernel_connect = ftsim::shim::next<Connect>("connect");
    if (!is_ftp_on_loopback(address, length)) return kernel_connect(fd, address, length);
    sockaddr_in server{};
    std::memcpy(&server, address, sizeof server);
    server.sin_port = htons(ftsim::ftp::kServerPort);
    const int saved = errno;
    wait_for_server();
    errno = saved;
    return kernel_connect(fd, reinterpret_cast<const sockaddr*>(&server), sizeof server);
}
