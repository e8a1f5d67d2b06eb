#pragma once
#include <sys/types.h>

namespace ftsim {
// Refuses, in this process and everything it starts, the ioctls that push
// input into a terminal. Sets no-new-privileges. False when the kernel refused.
bool forbid_terminal_injection();
// Drops every capability, the bounding set included, so that not even an
// exec as the namespace's root brings one back.
bool drop_capabilities();
// The exit status of @p child as a shell gives it (128+N for signal N), or 1
// when it cannot be waited for.
int wait_status(pid_t child);
}  // namespace ftsim
