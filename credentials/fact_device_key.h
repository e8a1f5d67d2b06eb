#pragma once
// Factory seed and device key. The device key is the password of the factory
// PKCS#12 bundle; it is never stored, only derived again from the seed file and
// the MAC whenever it is needed.
#include <cstddef>
#include <cstdlib>
#include <memory>

namespace ft::cred {

// Owner of a buffer that came from malloc/calloc/strdup.
struct FreeDeleter {
    void operator()(void* p) const noexcept { std::free(p); }
};
template <typename T>
using MallocPtr = std::unique_ptr<T, FreeDeleter>;

// A NUL-terminated text handed to the caller, who owns it.
using CText = MallocPtr<char>;

inline constexpr const char* kCertsDir = "/reserved/cp/certs";
inline constexpr const char* kSeedPath = "/reserved/cp/certs/factorySeed";

// MAC text buffer: twelve hexadecimal digits and the terminator.
inline constexpr int kMacTextSize = 13;
inline constexpr int kMacTextLength = 12;
// HMAC-SHA256 writes 32 bytes; the buffer is kept roomy on purpose.
inline constexpr std::size_t kDigestBufferSize = 64;

// Prints "*ERROR* unit:step():line " with no line end; the message follows.
// The line numbers are fixed per reporting statement (not __LINE__) so that
// stations matching on them do not break when the code around them moves.
void print_error_header(const char* unit, const char* step, int line);

// Size of the seed in bytes: the key length of AES-256-CBC.
int seed_length();

// The seed reading and base64 steps, reporting under the given unit: the bundle
// regeneration re-derives the key with the same steps under its own unit.
int read_factory_seed(const char* unit, unsigned char* seed, int length);
CText base64_encode(const char* unit, const unsigned char* data, int length);

// How a derivation of the device key from the seed file reports. The
// generation and the bundle regeneration derive alike but print under their
// own unit, step and lines, and differ in the details below.
struct KeyReport {
    const char* unit;    // of the seed-reading and base64 steps
    const char* step;    // of the derivation's own messages
    const char* no_mac;  // printed after get_mac_address has failed
    // The generation checks the MAC before it reads back the seed it has
    // just written; the regeneration first reads the seed all else hangs on.
    bool mac_before_seed;
    int seed_alloc_line, seed_read_line, digest_alloc_line, mac_line, hmac_line, base64_line;
    // Non-zero: the key text (or "(null)") is printed on this line before it is judged.
    int key_text_line;
};

enum class KeyOutcome { kKey, kNoKey, kNoSeedBuffer };

// HMAC-SHA256 keyed with the seed file's bytes over the MAC text, as base64
// text with the encoder's newline, into @p key; null on failure (after the
// messages). kNoSeedBuffer when not even the seed buffer could be had.
KeyOutcome derive_device_key(const KeyReport& report, CText& key);

}  // namespace ft::cred

// 0 and the MAC text (colons removed, case kept) in out; -1 on failure.
int get_mac_address(char* out, int size);
// Replaces the seed file with new random bytes: 0, or -1 with no seed file left.
int gen_factory_seed();
// 0 when buf holds length random bytes; -1 after printing the library's error.
int get_char_random_value(unsigned char* buf, int length);
// 0 when exactly length bytes were read from the seed file; -1 otherwise.
int get_factory_seed(unsigned char* seed, int length);
// Base64 text of the bytes with the encoder's line ends, or null.
ft::cred::CText do_base64_encode(const unsigned char* data, int length);
// New seed, then the key derived from it and the MAC text; null on failure.
ft::cred::CText gen_factory_device_key();
