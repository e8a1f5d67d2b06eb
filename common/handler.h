#pragma once
// Marks the handler declarations of an area whose code has not landed yet.
// They are weak, so the shell links without them: their commands answer
// "Not a valid command" and their start-up and quit calls are skipped. An area
// that lands drops the mark from its header, and from then on a missing or
// mismatched handler fails the build.
#define FT_NOT_BUILT_YET [[gnu::weak]]
