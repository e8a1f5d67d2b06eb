#pragma once
#include "shell/line.h"

namespace ft {

enum class Next { Prompt, Quit };

// Runs the command on a split line (at least one word) and says whether the
// shell goes on or quits.
Next dispatch(const CommandLine& cl);

}  // namespace ft
