#include "credentials/fact_device_key.h"

#include <openssl/err.h>
#include <openssl/evp.h>
#include <openssl/hmac.h>
#include <openssl/rand.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "common/run.h"
#include "common/unique_handle.h"
#include "factory_data/fields.h"
#include "platform/eeprom.h"

namespace ft::cred {
namespace {

constexpr const char* kUnit = "fact_device_key";

// Fixed report lines of this unit (see print_error_header).
namespace line {
constexpr int kMacBufferSmall = 58;
constexpr int kMacReadFailed = 64;
constexpr int kMacNotProgrammed = 69;
constexpr int kMacPleaseProgram = 70;
constexpr int kSeedRemoveFirst = 93;
constexpr int kSeedAlloc = 100;
constexpr int kSeedRandom = 105;
constexpr int kSeedOpenWrite = 111;
constexpr int kSeedChmod = 117;
constexpr int kSeedWrite = 123;
constexpr int kSeedCloseWrite = 131;
constexpr int kSeedRemoveAgain = 150;
constexpr int kRandomError = 168;
constexpr int kSeedOpenRead = 184;
constexpr int kSeedShortRead = 191;
constexpr int kSeedCloseRead = 197;
constexpr int kBase64Alloc = 222;
constexpr int kBase64Overflow = 238;
constexpr int kBase64Failed = 247;
constexpr int kKeySeed = 263;
constexpr int kKeyMac = 269;
constexpr int kKeySeedAlloc = 276;
constexpr int kKeySeedRead = 281;
constexpr int kKeyDigestAlloc = 287;
constexpr int kKeyHmac = 294;
constexpr int kKeyBase64 = 300;
}  // namespace line

// Input bytes per output line of the EVP base64 encoder (64 characters).
constexpr std::size_t kEncoderLineInput = 48;

struct EncodeCtxDeleter {
    void operator()(EVP_ENCODE_CTX* ctx) const noexcept { EVP_ENCODE_CTX_free(ctx); }
};
using EncodeCtx = std::unique_ptr<EVP_ENCODE_CTX, EncodeCtxDeleter>;

// Bytes the base64 output of n input bytes needs, newlines included and the
// terminator excluded.
std::size_t base64_buffer_size(std::size_t n) {
    const std::size_t pad = n % 3 == 0 ? 0 : 4 - n % 3;
    const std::size_t lines = (n + kEncoderLineInput - 1) / kEncoderLineInput;
    return (4 * n) / 3 + pad + lines;
}

void report(int at, const char* step, const char* message) {
    print_error_header(kUnit, step, at);
    std::puts(message);
}

void report_errno(int at, const char* step, const char* format, int err) {
    print_error_header(kUnit, step, at);
    std::printf(format, err);
}

// After a failed attempt no seed may remain: a half-written one would give a
// key that no later derivation reproduces.
int remove_seed_after_failure() {
    if (ft::run_command("rm -f /reserved/cp/certs/factorySeed") < 0)
        report_errno(line::kSeedRemoveAgain, "gen_factory_seed",
                     "Unable to remove/reserved/cp/certs/factorySeed: errno : %d\n", errno);
    return -1;
}

}  // namespace

void print_error_header(const char* unit, const char* step, int line) {
    std::printf("*ERROR* %s:%s():%d ", unit, step, line);
}

int seed_length() { return EVP_CIPHER_key_length(EVP_aes_256_cbc()); }

int read_factory_seed(const char* unit, unsigned char* seed, int length) {
    ft::UniqueFile file(std::fopen(kSeedPath, "rb"));
    if (!file.valid()) {
        const int err = errno;
        print_error_header(unit, "get_factory_seed", line::kSeedOpenRead);
        std::printf("Unable to open /reserved/cp/certs/factorySeed: errno : %d\n", err);
        return -1;
    }
    int result = 0;
    const std::size_t wanted = length > 0 ? static_cast<std::size_t>(length) : 0;
    const std::size_t got = std::fread(seed, 1, wanted, file.get());
    if (got != wanted) {
        const int err = errno;
        print_error_header(unit, "get_factory_seed", line::kSeedShortRead);
        std::printf("Read %d bytes from /reserved/cp/certs/factorySeed: errno : %d\n", static_cast<int>(got), err);
        result = -1;
    }
    if (std::fclose(file.release()) != 0) {
        const int err = errno;
        print_error_header(unit, "get_factory_seed", line::kSeedCloseRead);
        std::printf("Failed to close the file /reserved/cp/certs/factorySeed: errno : %d\n", err);
        return -1;
    }
    return result;
}

CText base64_encode(const char* unit, const unsigned char* data, int length) {
    auto fail = [unit](int at, const char* message) {
        print_error_header(unit, "do_base64_encode", at);
        std::puts(message);
        return CText();
    };
    EncodeCtx ctx(EVP_ENCODE_CTX_new());
    if (!ctx) return fail(line::kBase64Alloc, "Unable to allocate memory");
    EVP_EncodeInit(ctx.get());
    int update_length = 0;
    int final_length = 0;

    const std::size_t n = length > 0 ? static_cast<std::size_t>(length) : 0;
    const std::size_t size = base64_buffer_size(n);
    CText out(static_cast<char*>(std::calloc(size + 1, 1)));
    if (!out) return fail(line::kBase64Alloc, "Unable to allocate memory");
    auto* text = reinterpret_cast<unsigned char*>(out.get());

    EVP_EncodeUpdate(ctx.get(), text, &update_length, data, length);
    // Past this point the heap is already damaged; going on would only spread it.
    if (update_length < 0 || static_cast<std::size_t>(update_length) > size) std::abort();
    // The bytes the encoder still holds are less than one line: they come out
    // at the final call as one short line with its newline.
    const int held = EVP_ENCODE_CTX_num(ctx.get());
    const std::size_t predicted = held > 0 ? base64_buffer_size(static_cast<std::size_t>(held)) : 0;
    if (static_cast<std::size_t>(update_length) + predicted > size)
        return fail(line::kBase64Overflow, "EVP_EncodeUpdate has consumed more than required space");

    EVP_EncodeFinal(ctx.get(), text + update_length, &final_length);
    const long total = static_cast<long>(final_length) + update_length;
    if (total < 0 || static_cast<std::size_t>(total) > size) std::abort();
    if (total == 0) return fail(line::kBase64Failed, "Base64 encode failed");
    return out;
}

KeyOutcome derive_device_key(const KeyReport& r, CText& key) {
    key.reset();
    auto fail = [&r](int at, const char* message) {
        print_error_header(r.unit, r.step, at);
        std::puts(message);
        return KeyOutcome::kNoKey;
    };
    std::array<char, kMacTextSize> mac{};
    auto read_mac = [&mac] { return get_mac_address(mac.data(), static_cast<int>(mac.size())) == 0; };
    if (r.mac_before_seed && !read_mac()) return fail(r.mac_line, r.no_mac);

    const int n = seed_length();
    MallocPtr<unsigned char> seed(static_cast<unsigned char*>(std::calloc(static_cast<std::size_t>(n), 1)));
    if (!seed) {
        fail(r.seed_alloc_line, "Failed to allocate memory");
        return KeyOutcome::kNoSeedBuffer;
    }
    // Always from the file, never from memory, so the key is the one every
    // later derivation from the stored seed gives.
    if (read_factory_seed(r.unit, seed.get(), n) != 0) return fail(r.seed_read_line, "Failed to get seed of device");
    MallocPtr<unsigned char> digest(static_cast<unsigned char*>(std::calloc(kDigestBufferSize, 1)));
    if (!digest) return fail(r.digest_alloc_line, "Failed to allocate memory");
    if (!r.mac_before_seed && !read_mac()) return fail(r.mac_line, r.no_mac);

    unsigned int digest_length = 0;
    if (HMAC(EVP_sha256(), seed.get(), n, reinterpret_cast<const unsigned char*>(mac.data()), kMacTextLength,
             digest.get(), &digest_length) == nullptr)
        return fail(r.hmac_line, "Failed to do HASH MAC");
    key = base64_encode(r.unit, digest.get(), static_cast<int>(digest_length));
    if (r.key_text_line != 0) {
        print_error_header(r.unit, r.step, r.key_text_line);
        std::printf("Failed to do base64 key = %s\n", key ? key.get() : "(null)");
    }
    if (!key) return fail(r.base64_line, "Failed to do base64 encode");
    return KeyOutcome::kKey;
}

}  // namespace ft::cred

using namespace ft::cred;

int get_mac_address(char* out, int size) {
    std::array<char, 18> raw{};
    if (size <= kMacTextLength) {
        report(line::kMacBufferSmall, __func__, "Buffer size too small");
        return -1;
    }
    std::memset(out, 0, static_cast<std::size_t>(size));
    if (eeprom_read(ft::kEtherAddIndex, raw.data(), static_cast<int>(raw.size())) < 0) {
        report(line::kMacReadFailed, __func__, "Unable to read MAC from factory data");
        return -1;
    }
    // Six two-digit groups and five colons; the digits themselves are taken
    // as stored, so the key depends on the letter case the station wrote.
    constexpr std::size_t kMacLength = 17;
    if (strnlen(raw.data(), raw.size()) != kMacLength) {
        report(line::kMacNotProgrammed, __func__, "MAC is not programmed");
        report(line::kMacPleaseProgram, __func__, "Please program MAC before generating certificate");
        return -1;
    }
    int used = 0;
    for (std::size_t i = 0; i < kMacLength && used < size - 1; ++i) {
        if (raw[i] != ':') out[used++] = raw[i];
    }
    return 0;
}

int get_char_random_value(unsigned char* buf, int length) {
    if (RAND_bytes(buf, length) == 1) return 0;
    std::array<char, 512> text{};
    ERR_error_string_n(ERR_get_error(), text.data(), text.size());
    print_error_header(kUnit, __func__, line::kRandomError);
    std::printf("Error for random value : %s \n", text.data());
    return -1;
}

int gen_factory_seed() {
    if (ft::run_command("rm -f /reserved/cp/certs/factorySeed") < 0) {
        report_errno(line::kSeedRemoveFirst, __func__, "Unable to remove/reserved/cp/certs/factorySeed: errno : %d\n",
                     errno);
        return -1;
    }
    const int n = seed_length();
    MallocPtr<unsigned char> seed(static_cast<unsigned char*>(std::calloc(static_cast<std::size_t>(n), 1)));
    if (!seed) {
        report(line::kSeedAlloc, __func__, "Unable to allocate memory");
        return -1;
    }
    if (get_char_random_value(seed.get(), n) != 0) {
        report(line::kSeedRandom, __func__, "Failed to get random value");
        return remove_seed_after_failure();
    }
    ft::UniqueFile file(std::fopen(kSeedPath, "wb"));
    if (!file.valid()) {
        report_errno(line::kSeedOpenWrite, __func__, "Unable to open /reserved/cp/certs/factorySeed: errno : %d\n",
                     errno);
        return remove_seed_after_failure();
    }
    bool failed = false;
    // Restrict the mode before a single secret byte reaches the file.
    if (chmod(kSeedPath, 0600) != 0) {
        report_errno(line::kSeedChmod, __func__,
                     "Unable to change mode to root for /reserved/cp/certs/factorySeed: errno : %d\n", errno);
        failed = true;
    } else {
        if (std::fwrite(seed.get(), 1, static_cast<std::size_t>(n), file.get()) < static_cast<std::size_t>(n)) {
            report_errno(line::kSeedWrite, __func__, "Unable to write in /reserved/cp/certs/factorySeed: errno : %d\n",
                         errno);
            failed = true;
        }
        sync();
    }
    if (std::fclose(file.release()) != 0) {
        report_errno(line::kSeedCloseWrite, __func__,
                     "Failed to close the file /reserved/cp/certs/factorySeed: errno : %d\n", errno);
        return remove_seed_after_failure();
    }
    return failed ? remove_seed_after_failure() : 0;
}

int get_factory_seed(unsigned char* seed, int length) { return read_factory_seed(kUnit, seed, length); }

CText do_base64_encode(const unsigned char* data, int length) { return base64_encode(kUnit, data, length); }

CText gen_factory_device_key() {
    if (gen_factory_seed() != 0) {
        report(line::kKeySeed, __func__, "Failed to generate factory seed");
        return nullptr;
    }
    // A failure from here on leaves the new seed: only the seed step takes it back.
    static constexpr KeyReport kReport{.unit = kUnit,
                                       .step = "gen_factory_device_key",
                                       .no_mac = "Failed to get MAC of device",
                                       .mac_before_seed = true,
                                       .seed_alloc_line = line::kKeySeedAlloc,
                                       .seed_read_line = line::kKeySeedRead,
                                       .digest_alloc_line = line::kKeyDigestAlloc,
                                       .mac_line = line::kKeyMac,
                                       .hmac_line = line::kKeyHmac,
                                       .base64_line = line::kKeyBase64,
                                       .key_text_line = 0};
    CText key;
    derive_device_key(kReport, key);
    return key;
}
