// Replacement of the phone's hardware library. Each area of the hardware
// lives in a file of its own beside this one; every operation starts with a
// failure point (FTSIM_FAILURE_POINT) so tests can make it fail.
#include "platform/velor.h"
