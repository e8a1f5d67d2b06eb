#pragma once
// The simulated factory-data store as a whole, for the control tool: its
// shape, and every field at once.
#include <array>
#include <cstddef>
#include <string>

namespace ftsim::factory_data {

inline constexpr int kFields = 34;
inline constexpr int kOperationalMode = 0;
// Each field has a fixed slot in the EEPROM: 31 characters and the
// terminator, as the shell's 32-byte read buffers assume.
inline constexpr std::size_t kMaxValue = 31;

using Store = std::array<std::string, kFields>;

// Every field from one load under one lock, where reading field by field
// would take one of each per field. Answers as eeprom_read does: 0, or a
// failure injected into eeprom_read (which leaves @p store as it was), or
// -1 with errno set.
int read_store(Store& store);

}  // namespace ftsim::factory_data
