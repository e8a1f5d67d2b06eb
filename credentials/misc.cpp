#include "credentials/misc.h"

#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "common/quote.h"
#include "common/run.h"
#include "common/unique_handle.h"
#include "factory_data/config.h"
#include "factory_data/fields.h"
#include "platform/eeprom.h"

using ft::cred::CText;
using ft::cred::MallocPtr;

namespace {

constexpr const char* kUnit = "misc";

constexpr const char* kCpDir = "/reserved/cp";
constexpr const char* kCertsDir = ft::cred::kCertsDir;
constexpr const char* kSeedPath = ft::cred::kSeedPath;
constexpr const char* kKeyPath = "/reserved/cp/certs/factory.key";
constexpr const char* kCertPath = "/reserved/cp/certs/factory.cert";
constexpr const char* kBundlePath = "/reserved/cp/certs/factorycert.p12";
constexpr const char* kThumbPath = "/reserved/cp/certs/cert_thumbprint";
constexpr const char* kOpensslConfig = "/system/etc/openssl.cnf";

// Fixed report lines of this unit (see ft::cred::print_error_header).
namespace line {
constexpr int kModeRead = 92;
constexpr int kNotFactoryMode = 97;
constexpr int kCreateCp = 104;
constexpr int kSetTime = 110;
constexpr int kCreateCerts = 116;
constexpr int kNoDeviceKey = 123;
constexpr int kPrivateKey = 131;
constexpr int kNoMac = 137;
constexpr int kSelfSigned = 146;
constexpr int kPkcs12 = 155;
constexpr int kNoThumbprint = 162;
constexpr int kPrintInfo = 167;
constexpr int kDesSupport = 172;
constexpr int kRemoveKey = 189;
constexpr int kRemoveCert = 193;
constexpr int kRemoveThumb = 197;
constexpr int kRemoveSeed = 207;
constexpr int kRemoveBundle = 211;
constexpr int kThumbGenerate = 231;
constexpr int kThumbStat = 237;
constexpr int kThumbAlloc = 245;
constexpr int kThumbOpen = 251;
constexpr int kThumbShortRead = 259;
constexpr int kThumbFormat = 268;
constexpr int kThumbDuplicate = 275;
constexpr int kThumbClose = 282;
constexpr int kThumbRemove = 298;
constexpr int kRegenNoBundle = 318;
constexpr int kRegenNoSeed = 323;
constexpr int kRegenSeedAlloc = 331;
constexpr int kRegenSeedRead = 336;
constexpr int kRegenDigestAlloc = 342;
constexpr int kRegenNoMac = 348;
constexpr int kRegenHmac = 355;
constexpr int kRegenKeyText = 361;
constexpr int kRegenBase64 = 364;
constexpr int kRegenKeyPem = 380;
constexpr int kRegenPem = 384;
constexpr int kRegenKey = 392;
constexpr int kRegenPkcs12 = 401;
constexpr int kRegenDone = 404;
constexpr int kRegenRemoveKey = 412;
constexpr int kRegenRemoveCert = 416;
}  // namespace line

void header(const char* step, int at) { ft::cred::print_error_header(kUnit, step, at); }

void report(const char* step, int at, const char* message) {
    header(step, at);
    std::puts(message);
}

bool exists(const char* path) {
    struct stat st {};
    return stat(path, &st) == 0;
}

// Formats one command line and runs it. A line that does not fit is never
// run, because a cut-off command line could write somewhere else than intended.
[[gnu::format(printf, 1, 2)]] int run_line(const char* format, ...) {
    std::array<char, 256> line{};
    va_list args;
    va_start(args, format);
    const bool fits = ft::vformat_command(line, format, args);
    va_end(args);
    if (!fits) {
        errno = E2BIG;
        return -1;
    }
    return ft::run_command(line.data());
}

int run_rm(const char* path) { return run_line("rm -f %s", path); }

// Removes path when it exists. False (after the message) only when the shell
// could not be run.
bool remove_if_present(const char* step, int at, const char* path) {
    if (!exists(path) || run_rm(path) >= 0) return true;
    const int err = errno;
    header(step, at);
    std::printf("Unable to remove%s: errno : %d\n", path, err);
    return false;
}

// gencert and regenfipscert must protect the bundle alike.
int export_bundle(const char* key) {
    return run_line("openssl pkcs12 -descert -certpbe PBE-SHA1-3DES -keypbe PBE-SHA1-3DES -export -in %s -inkey %s "
                    "-out %s -password pass:%s",
                    kCertPath, kKeyPath, kBundlePath, key);
}

bool make_directory_if_missing(const char* path) {
    if (exists(path)) return true;
    return run_line("mkdir %s", path) >= 0;
}

// A value of openssl's -subj text: '/' would start another attribute and
// '+' another value of the same one, so those and the backslash that
// escapes them get a backslash. Other values come out as they are.
std::array<char, 2 * ft::cred::kMacTextSize> subject_value(const char* text) {
    std::array<char, 2 * ft::cred::kMacTextSize> out{};
    std::size_t n = 0;
    for (const char* p = text; *p != '\0' && n + 2 < out.size(); ++p) {
        if (*p == '/' || *p == '+' || *p == '\\') out[n++] = '\\';
        out[n++] = *p;
    }
    return out;
}

enum class Outcome { kDone, kFailed, kNoDeviceKey };

// The making of the key, certificate, bundle and thumbprint. The texts it
// obtains are handed back through key and thumbprint so that the caller
// releases them before it cleans up the files.
Outcome make_certificate(CText& key, CText& thumbprint) {
    constexpr const char* kStep = "gen_self_signed_cert";
    if (!make_directory_if_missing(kCpDir)) {
        report(kStep, line::kCreateCp, "Unable to create /reserved/cp");
        return Outcome::kFailed;
    }
    // The certificate's validity starts now: the clock must be right first.
    if (ft::run_command("/system/bin/setSystemDate.sh") < 0) {
        report(kStep, line::kSetTime, "Unable to set the Current time");
        return Outcome::kFailed;
    }
    if (!make_directory_if_missing(kCertsDir)) {
        report(kStep, line::kCreateCerts, "Unable to create /reserved/cp/certs");
        return Outcome::kFailed;
    }
    key = gen_factory_device_key();
    if (!key) {
        report(kStep, line::kNoDeviceKey, "Unable to generate factory base64 device key");
        return Outcome::kNoDeviceKey;
    }
    if (run_line("openssl ecparam -out %s -name prime256v1 -genkey", kKeyPath) < 0) {
        report(kStep, line::kPrivateKey, "Unable to generate private key");
        return Outcome::kFailed;
    }
    std::array<char, ft::cred::kMacTextSize> mac{};
    if (get_mac_address(mac.data(), static_cast<int>(mac.size())) != 0) {
        report(kStep, line::kNoMac, "Unable to get MAC");
        return Outcome::kFailed;
    }
    // The MAC is factory data, typed by whoever programmed it: it must stay
    // the common name's text, both to openssl's subject syntax and to the shell.
    const ft::Quoted cn(subject_value(mac.data()).data(), ft::QuotePlace::DoubleQuoted);
    if (run_line("openssl req -key %s -new -x509 -days 7300 -out %s -subj \"/C=US/ST=CA/O=Velor,Inc./CN=%s\" "
                 "-config %s",
                 kKeyPath, kCertPath, cn.c_str(), kOpensslConfig) < 0) {
        report(kStep, line::kSelfSigned, "Unable to generate self signed certificate");
        return Outcome::kFailed;
    }
    // The key text ends in a newline: as the last word it ends the shell
    // command, so openssl gets the 44 characters before it as the password.
    if (export_bundle(key.get()) < 0) {
        report(kStep, line::kPkcs12, "Unable to generate PKCS12");
        return Outcome::kFailed;
    }
    thumbprint = get_formatted_thumb_print();
    if (!thumbprint) {
        report(kStep, line::kNoThumbprint, "Unable to get formatted thumbprint");
        return Outcome::kFailed;
    }
    if (config_print_fact_cert_info(thumbprint.get()) < 0) {
        report(kStep, line::kPrintInfo, "Unable to print factory certificate");
        return Outcome::kFailed;
    }
    if (eeprom_write(ft::kDesSupportIndex, "1") < 0) {
        report(kStep, line::kDesSupport, "Unable to update CONFIGDATA_DES_SUPPORT");
        return Outcome::kFailed;
    }
    return Outcome::kDone;
}

// Only the seed and the bundle may outlive the command, and only together and
// only after a complete run: a bundle without its seed cannot be opened, and a
// seed without a bundle invites a station to believe the device is done.
int clean_up(int result) {
    constexpr const char* kStep = "gen_self_signed_cert";
    if (!remove_if_present(kStep, line::kRemoveKey, kKeyPath)) result = -1;
    if (!remove_if_present(kStep, line::kRemoveCert, kCertPath)) result = -1;
    if (!remove_if_present(kStep, line::kRemoveThumb, kThumbPath)) result = -1;
    if (result == 0) return 0;
    remove_if_present(kStep, line::kRemoveSeed, kSeedPath);
    remove_if_present(kStep, line::kRemoveBundle, kBundlePath);
    return -1;
}

// Reads the fingerprint file of the given size; null after the message when
// anything fails.
CText read_thumbprint(std::size_t size) {
    constexpr const char* kStep = "get_formatted_thumb_print";
    MallocPtr<char> text(static_cast<char*>(std::calloc(size + 1, 1)));
    if (!text) {
        report(kStep, line::kThumbAlloc, "Unable to allocate memory");
        return nullptr;
    }
    ft::UniqueFile file(std::fopen(kThumbPath, "r"));
    if (!file.valid()) {
        const int err = errno;
        header(kStep, line::kThumbOpen);
        std::printf("Unable to open /reserved/cp/certs/cert_thumbprint: errno : %d\n", err);
        return nullptr;
    }
    CText thumbprint;
    bool failed = false;
    const std::size_t got = std::fread(text.get(), 1, size, file.get());
    if (got != size) {
        const int err = errno;
        header(kStep, line::kThumbShortRead);
        std::printf("Read %d bytes from /reserved/cp/certs/cert_thumbprint: errno : %d\n", static_cast<int>(got), err);
        failed = true;
    } else {
        text.get()[size] = '\0';
        const char* equals = std::strchr(text.get(), '=');
        if (equals == nullptr) {
            header(kStep, line::kThumbFormat);
            std::printf("Invalid format of thumbprint %s\n", text.get());
            failed = true;
        } else {
            thumbprint.reset(strdup(equals + 1));
            if (!thumbprint) {
                const int err = errno;
                header(kStep, line::kThumbDuplicate);
                std::printf("Unable to duplicate thumbprint %s : errno : %d", equals + 1, err);
                failed = true;
            }
        }
    }
    if (std::fclose(file.release()) != 0) {
        const int err = errno;
        header(kStep, line::kThumbClose);
        std::printf("Failed to close the file /reserved/cp/certs/cert_thumbprint: errno : %d\n", err);
        failed = true;
    }
    if (failed) thumbprint.reset();
    return thumbprint;
}

}  // namespace

CText get_formatted_thumb_print() {
    constexpr const char* kStep = "get_formatted_thumb_print";
    if (run_line("openssl x509 -in %s -fingerprint -noout -sha256 > %s", kCertPath, kThumbPath) < 0) {
        report(kStep, line::kThumbGenerate, "Couldn't generate thumbprint");
        return nullptr;
    }
    struct stat st {};
    if (stat(kThumbPath, &st) != 0) {
        const int err = errno;
        header(kStep, line::kThumbStat);
        std::printf("Unable to find /reserved/cp/certs/cert_thumbprint: errno : %d\n", err);
        return nullptr;
    }
    CText thumbprint = read_thumbprint(static_cast<std::size_t>(st.st_size));
    if (run_rm(kThumbPath) < 0) {
        const int err = errno;
        header(kStep, line::kThumbRemove);
        std::printf("Unable to remove/reserved/cp/certs/cert_thumbprint: errno : %d\n", err);
        return nullptr;
    }
    return thumbprint;
}

int gen_self_signed_cert() {
    constexpr const char* kStep = "gen_self_signed_cert";
    std::array<char, 2> mode{};
    if (eeprom_read(ft::kOperationalModeIndex, mode.data(), static_cast<int>(mode.size())) < 0) {
        report(kStep, line::kModeRead, "Unable to read CONFIGDATA_OPERATIONAL_MODE");
        return -1;
    }
    // A device in production mode keeps the identity it left the line with.
    if (mode[0] != '0') {
        report(kStep, line::kNotFactoryMode, "gencert can only be executed in factory mode");
        return -1;
    }
    Outcome outcome;
    {
        CText key;
        CText thumbprint;
        outcome = make_certificate(key, thumbprint);
    }
    // Without a key nothing of this run reached the bundle, and the earlier
    // bundle and the new seed are left for the station to see.
    if (outcome == Outcome::kNoDeviceKey) return -1;
    return clean_up(outcome == Outcome::kDone ? 0 : -1);
}

int regen_fips_signed_cert() {
    constexpr const char* kStep = "regen_fips_signed_cert";
    if (!exists(kBundlePath)) {
        report(kStep, line::kRegenNoBundle, "Factory cert not present return NULL");
        return -1;
    }
    if (!exists(kSeedPath)) {
        report(kStep, line::kRegenNoSeed, "Factory seed not present return NULL");
        return -1;
    }
    // The seed already on the device, as the generation derived it.
    static constexpr ft::cred::KeyReport kReport{.unit = kUnit,
                                                 .step = kStep,
                                                 .no_mac = "Unable to get MAC",
                                                 .mac_before_seed = false,
                                                 .seed_alloc_line = line::kRegenSeedAlloc,
                                                 .seed_read_line = line::kRegenSeedRead,
                                                 .digest_alloc_line = line::kRegenDigestAlloc,
                                                 .mac_line = line::kRegenNoMac,
                                                 .hmac_line = line::kRegenHmac,
                                                 .base64_line = line::kRegenBase64,
                                                 .key_text_line = line::kRegenKeyText};
    CText key;
    if (ft::cred::derive_device_key(kReport, key) == ft::cred::KeyOutcome::kNoSeedBuffer) return 1;
    if (!key) return -1;

    // Each command ends at the key's newline, as in the generation.
    header(kStep, line::kRegenKeyPem);
    std::printf("key PEM %s\n", key.get());
    if (run_line("openssl pkcs12 -in %s -clcerts -nokeys -out %s -password pass:%s", kBundlePath, kCertPath,
                 key.get()) < 0) {
        report(kStep, line::kRegenPem, "Unable to generate PEM");
    } else if (run_line("openssl pkcs12 -nodes -in %s -nocerts -out %s -password pass:%s", kBundlePath, kKeyPath,
                        key.get()) < 0) {
        report(kStep, line::kRegenKey, "Unable to generate KEY");
    } else if (export_bundle(key.get()) < 0) {
        report(kStep, line::kRegenPkcs12, "Unable to generate PKCS12");
    } else {
        report(kStep, line::kRegenDone, "generated pkcs12");
    }
    key.reset();
    // The unpacked key is not encrypted: it must not stay on the device.
    remove_if_present(kStep, line::kRegenRemoveKey, kKeyPath);
    remove_if_present(kStep, line::kRegenRemoveCert, kCertPath);
    return 0;
}
