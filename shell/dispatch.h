#pragma once
#include <string>
#include <vector>

#include "shell/line.h"

namespace ft {

enum class Next { Prompt, Quit };

// Runs the command on a split line (at least one word) and says whether the
// shell goes on or quits.
Next dispatch(const CommandLine& cl);

// The commands ("word" or "group word") whose rows reach a handler that this
// build does not link, in table order. Runs no handler.
std::vector<std::string> unlinked_commands();

}  // namespace ft
