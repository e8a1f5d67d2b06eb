#pragma once
// Kernel shim, preloaded into every process of the simulated phone. It
// answers the few kernel calls a host cannot serve for the sim's device nodes;
// everything else goes straight to the kernel.
#include <string>

namespace ftsim::shim {

// Path an open descriptor refers to, as seen inside the phone ("" if unknown).
std::string fd_path(int fd);

// An ioctl handler returns true when it served the call, with its result in
// @p result (and errno set on failure); false passes the call to the kernel.
using IoctlHandler = bool (*)(int fd, unsigned long request, void* arg, int& result);

struct IoctlRegistrar {
    explicit IoctlRegistrar(IoctlHandler handler);
};

// The kernel's own ioctl, for handlers that serve part of a call.
int real_ioctl(int fd, unsigned long request, void* arg);

// The open flags an input event node needs to behave as a device (input.cpp).
int event_node_flags(const char* path, int flags);

}  // namespace ftsim::shim
