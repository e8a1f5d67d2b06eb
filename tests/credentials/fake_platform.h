#pragma once
// Stand-ins for what the credential code reaches outside the process: the
// factory-data store and the system shell. No test may run a real command on
// the host, so every system() call lands here and is only recorded.
#include <array>
#include <string>
#include <vector>

namespace fake {

struct Platform {
    std::array<std::string, 34> fields{};
    bool read_fails = false;
    // Hands the MAC field over as exactly this many non-NUL bytes, filling the
    // caller's buffer with no terminator, as a corrupted store might.
    int unterminated_bytes = 0;
    std::vector<std::string> commands;
    int system_result = 0;
};

// Reset before each test.
Platform& platform();
void reset();

}  // namespace fake
