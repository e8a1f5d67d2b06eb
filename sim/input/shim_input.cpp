// Input devices of the phone: FIFOs that ftsim feeds. A FIFO opened for
// reading alone would block until a writer comes, and would report end of
// file whenever ftsim closes it; opened for reading and writing it does
// neither, as a real event device. The kernel cannot name a FIFO, so the
// name query is answered from the file ftsim wrote beside it.
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <linux/input.h>
#include <string>
#include <string_view>

#include "sim/core/shim/shim.h"
#include "sim/core/state.h"
#include "sim/input/nodes.h"

namespace {

constexpr std::string_view kEventPrefix = "/dev/input/event";

bool is_event_node(const char* path) { return path != nullptr && std::string_view(path).starts_with(kEventPrefix); }

bool name_query(int fd, unsigned long request, void* arg, int& result) {
    const std::string path = ftsim::shim::fd_path(fd);
    if (!is_event_node(path.c_str())) return false;
    std::string name;
    if (!ftsim::read_text(std::string(ftsim::input::kNameDir) + "/" + path.substr(path.rfind('/') + 1), name)) {
        errno = ENODEV;
        result = -1;
        return true;
    }
    while (!name.empty() && name.back() == '\n') name.pop_back();
    // As the kernel: the name with its terminator, cut to the caller's size
    // (and then unterminated); the result is the number of bytes stored.
    const std::size_t size = _IOC_SIZE(request);
    const std::size_t len = std::min(size, name.size() + 1);
    std::memcpy(arg, name.c_str(), len);
    result = static_cast<int>(len);
    return true;
}

const ftsim::shim::IoctlRegistrar kNames{EVIOCGNAME(0), name_query, true};

int event_node_flags(int flags) {
    if ((flags & O_ACCMODE) == O_RDONLY) return (flags & ~O_ACCMODE) | O_RDWR;
    return flags;
}
const ftsim::shim::OpenFlagsRegistrar kEventNodes{kEventPrefix.data(), event_node_flags};

}  // namespace
