#include "sim/core/state.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <random>
#include <sys/stat.h>
#include <unistd.h>

namespace ftsim {

std::string hw_dir() {
    const char* env = std::getenv("FTSIM_HW");
    return env && *env ? env : "/sim";
}

std::string hw_path(std::string_view relative) {
    std::string p = hw_dir();
    p += '/';
    p += relative;
    return p;
}

// --- Folder.

namespace {

constexpr std::string_view kTempMark = ".tmp-";

bool write_all(int fd, std::string_view data) {
    while (!data.empty()) {
        const ssize_t n = write(fd, data.data(), data.size());
        if (n < 0) {
            if (errno == EINTR) continue;
            return false;
        }
        data.remove_prefix(static_cast<std::size_t>(n));
    }
    return true;
}

int fail_with(int error) {
    errno = error;
    return -1;
}

// Splits "a/b/c" into the folder part "a/b" and the name "c"; false for a
// path with an empty, "." or ".." component.
bool split_path(std::string_view path, std::string_view& parent, std::string_view& name) {
    if (path.empty()) return false;
    std::size_t start = 0;
    for (;;) {
        const std::size_t slash = path.find('/', start);
        const std::string_view part = path.substr(start, slash == std::string_view::npos ? slash : slash - start);
        if (part.empty() || part == "." || part == "..") return false;
        if (slash == std::string_view::npos) break;
        start = slash + 1;
    }
    const std::size_t last = path.rfind('/');
    parent = last == std::string_view::npos ? std::string_view() : path.substr(0, last);
    name = last == std::string_view::npos ? path : path.substr(last + 1);
    return true;
}

// Walks @p relative from @p base one real folder at a time; with @p create,
// missing folders are made on the way.
ft::UniqueFd walk(int base, std::string_view relative, bool create) {
    ft::UniqueFd dir(fcntl(base, F_DUPFD_CLOEXEC, 0));
    if (!dir.valid() || relative.empty()) return dir;
    std::string_view parent, name;
    if (!split_path(relative, parent, name)) {
        errno = EINVAL;
        return {};
    }
    std::size_t start = 0;
    while (start <= relative.size()) {
        std::size_t slash = relative.find('/', start);
        if (slash == std::string_view::npos) slash = relative.size();
        const std::string part(relative.substr(start, slash - start));
        start = slash + 1;
        int fd = openat(dir.get(), part.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
        if (fd < 0 && errno == ENOENT && create) {
            if (mkdirat(dir.get(), part.c_str(), 0755) != 0 && errno != EEXIST) return {};
            fd = openat(dir.get(), part.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
        }
        if (fd < 0) return {};
        dir.reset(fd);
    }
    return dir;
}

bool has_type(int fd, Type type) {
    struct stat st{};
    if (fstat(fd, &st) != 0) return false;
    const bool ok = (type == Type::File && S_ISREG(st.st_mode)) || (type == Type::Dir && S_ISDIR(st.st_mode)) ||
                    (type == Type::Fifo && S_ISFIFO(st.st_mode));
    if (!ok) errno = S_ISDIR(st.st_mode) ? EISDIR : type == Type::Dir ? ENOTDIR : EINVAL;
    return ok;
}

std::string temp_name(std::string_view name) {
    static thread_local std::mt19937_64 rng{std::random_device{}() ^ static_cast<unsigned long>(getpid())};
    static constexpr char kChars[] = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
    std::string t(name);
    t += kTempMark;
    for (int i = 0; i < 8; ++i) t += kChars[rng() % (sizeof kChars - 1)];
    return t;
}

// The names in the folder @p dir, without "." and ".."; none when it cannot be read.
std::optional<std::vector<std::string>> names_in(int dir) {
    const int copy = fcntl(dir, F_DUPFD_CLOEXEC, 0);
    if (copy < 0) return std::nullopt;
    std::unique_ptr<DIR, int (*)(DIR*)> d(fdopendir(copy), closedir);
    if (!d) {
        close(copy);
        return std::nullopt;
    }
    // The copy shares its offset with @p dir: a folder read before would
    // otherwise show nothing the second time.
    rewinddir(d.get());
    std::vector<std::string> names;
    while (const dirent* e = readdir(d.get())) {
        const std::string_view n = e->d_name;
        if (n != "." && n != "..") names.emplace_back(n);
    }
    return names;
}

bool empty_folder(int dir);

// Removes the entry @p name of the folder @p dir, a folder with all it
// holds, never following a link.
bool remove_entry(int dir, const char* name) {
    if (unlinkat(dir, name, 0) == 0 || errno == ENOENT) return true;
    if (errno != EISDIR && errno != EPERM) return false;
    ft::UniqueFd sub(openat(dir, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    return sub.valid() && empty_folder(sub.get()) && unlinkat(dir, name, AT_REMOVEDIR) == 0;
}

// Removes everything inside the folder @p dir, never following a link.
bool empty_folder(int dir) {
    const std::optional<std::vector<std::string>> names = names_in(dir);
    if (!names) return false;
    bool ok = true;
    for (const std::string& n : *names)
        if (!remove_entry(dir, n.c_str())) ok = false;
    return ok;
}

}  // namespace

Folder Folder::open(const std::string& path) {
    return Folder(ft::UniqueFd(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC)));
}

ft::UniqueFd Folder::open_at(std::string_view relative, int flags, Type type, mode_t mode) const {
    std::string_view parent, name;
    if (!valid()) return ft::UniqueFd(fail_with(EBADF));
    if (!split_path(relative, parent, name)) return ft::UniqueFd(fail_with(EINVAL));
    ft::UniqueFd dir = walk(fd_.get(), parent, false);
    if (!dir.valid()) return {};
    const std::string n(name);
    // Never block on a FIFO put where a file belongs; the kind is checked
    // before anything is read or written.
    const bool wants_block = (flags & O_NONBLOCK) == 0;
    const int access = type == Type::Dir ? (O_RDONLY | O_DIRECTORY) : flags;
    ft::UniqueFd fd(openat(dir.get(), n.c_str(), access | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK, mode));
    if (!fd.valid() || !has_type(fd.get(), type)) return {};
    if (wants_block && type != Type::Dir) {
        const int fl = fcntl(fd.get(), F_GETFL);
        if (fl >= 0) fcntl(fd.get(), F_SETFL, fl & ~O_NONBLOCK);
    }
    return fd;
}

Folder Folder::subfolder(std::string_view relative, bool create) const {
    if (!valid()) return {};
    return Folder(walk(fd_.get(), relative, create));
}

bool Folder::exists(std::string_view relative, Type type) const {
    const int saved = errno;
    const bool found = open_at(relative, O_RDONLY | O_NONBLOCK, type).valid();
    errno = saved;
    return found;
}

bool Folder::read_text(std::string_view relative, std::string& out) const {
    ft::UniqueFd fd = open_at(relative, O_RDONLY, Type::File);
    if (!fd.valid()) return false;
    out.clear();
    char buf[4096];
    for (;;) {
        const ssize_t n = read(fd.get(), buf, sizeof buf);
        if (n < 0) {
            if (errno == EINTR) continue;
            return false;
        }
        if (n == 0) return true;
        out.append(buf, static_cast<std::size_t>(n));
    }
}

bool Folder::write_atomic(std::string_view relative, std::string_view data, unsigned mode) const {
    std::string_view parent, name;
    if (!valid()) return fail_with(EBADF) == 0;
    if (!split_path(relative, parent, name)) return fail_with(EINVAL) == 0;
    ft::UniqueFd dir = walk(fd_.get(), parent, false);
    if (!dir.valid()) return false;
    const std::string target(name);
    std::string tmp;
    ft::UniqueFd fd;
    for (int attempt = 0; attempt < 8 && !fd.valid(); ++attempt) {
        tmp = temp_name(name);
        fd.reset(openat(dir.get(), tmp.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
        if (!fd.valid() && errno != EEXIST) return false;
    }
    if (!fd.valid()) return false;
    const bool ok = fchmod(fd.get(), mode) == 0 && write_all(fd.get(), data) && fsync(fd.get()) == 0;
    const int saved = errno;
    fd.reset();
    if (!ok || renameat(dir.get(), tmp.c_str(), dir.get(), target.c_str()) != 0) {
        const int why = ok ? errno : saved;
        unlinkat(dir.get(), tmp.c_str(), 0);
        errno = why;
        return false;
    }
    // The rename is durable only once the folder itself reached the disk.
    fsync(dir.get());
    return true;
}

bool Folder::append_line(std::string_view relative, std::string_view line) const {
    ft::UniqueFd fd = open_at(relative, O_WRONLY | O_APPEND | O_CREAT, Type::File);
    if (!fd.valid()) return false;
    std::string text(line);
    text += '\n';
    // One write with O_APPEND keeps lines from several processes whole.
    return write_all(fd.get(), text);
}

bool Folder::make_dirs(std::string_view relative) const { return subfolder(relative, true).valid(); }

bool Folder::make_fifo(std::string_view relative) const {
    std::string_view parent, name;
    if (!valid() || !split_path(relative, parent, name)) return fail_with(EINVAL) == 0;
    ft::UniqueFd dir = walk(fd_.get(), parent, false);
    if (!dir.valid()) return false;
    const std::string n(name);
    struct stat st{};
    if (fstatat(dir.get(), n.c_str(), &st, AT_SYMLINK_NOFOLLOW) == 0) {
        if (S_ISFIFO(st.st_mode)) return true;
        if (!remove(relative)) return false;
    }
    return mkfifoat(dir.get(), n.c_str(), 0644) == 0;
}

bool Folder::remove(std::string_view relative) const {
    std::string_view parent, name;
    if (!valid() || !split_path(relative, parent, name)) return fail_with(EINVAL) == 0;
    ft::UniqueFd dir = walk(fd_.get(), parent, false);
    if (!dir.valid()) return errno == ENOENT;
    return remove_entry(dir.get(), std::string(name).c_str());
}

void Folder::remove_stale_temporaries() const {
    for (const std::string& n : list()) {
        struct stat st{};
        if (fstatat(fd_.get(), n.c_str(), &st, AT_SYMLINK_NOFOLLOW) != 0) continue;
        if (S_ISDIR(st.st_mode)) subfolder(n).remove_stale_temporaries();
        else if (n.find(kTempMark) != std::string::npos && n.find(kTempMark) > 0) unlinkat(fd_.get(), n.c_str(), 0);
    }
}

std::vector<std::string> Folder::list(std::string_view relative) const {
    const Folder f = subfolder(relative);
    if (!f.valid()) return {};
    std::vector<std::string> names = names_in(f.fd()).value_or(std::vector<std::string>{});
    std::sort(names.begin(), names.end());
    return names;
}

Folder hw() { return Folder::open(hw_dir()); }

bool read_text(std::string_view relative, std::string& out) { return hw().read_text(relative, out); }
bool write_atomic(std::string_view relative, std::string_view data, unsigned mode) {
    return hw().write_atomic(relative, data, mode);
}
bool append_line(std::string_view relative, std::string_view line) { return hw().append_line(relative, line); }

// --- Settings.

namespace {
bool is_number(std::string_view v) {
    if (v.empty() || v.size() > 9) return false;
    for (char c : v)
        if (c < '0' || c > '9') return false;
    return true;
}

std::string trimmed(std::string s) {
    while (!s.empty() && (s.back() == '\n' || s.back() == '\r')) s.pop_back();
    return s;
}
}  // namespace

void conflict(const char* what, std::string_view name) {
    std::fprintf(stderr, "ftsim: %s '%.*s' is registered twice\n", what, static_cast<int>(name.size()), name.data());
    std::abort();
}

SettingsRegistrar::SettingsRegistrar(std::initializer_list<Setting> rows) {
    for (const Setting& s : rows) {
        if (find_setting(s.name)) conflict("the condition", s.name);
        registry<Setting>().push_back(s);
    }
}

const std::vector<Setting>& settings() { return registry<Setting>(); }

const Setting* find_setting(std::string_view name) {
    for (const Setting& s : registry<Setting>())
        if (name == s.name) return &s;
    return nullptr;
}

bool value_allowed(const Setting& s, std::string_view value) {
    const std::string_view allowed = s.allowed;
    if (value.find('\n') != std::string_view::npos) return false;
    if (allowed == "<text>") return true;
    if (allowed == "<number>") return is_number(value);
    if (allowed == "<WxH>") {
        const auto x = value.find('x');
        return x != std::string_view::npos && is_number(value.substr(0, x)) && is_number(value.substr(x + 1)) &&
               std::atoi(std::string(value.substr(0, x)).c_str()) > 0 &&
               std::atoi(std::string(value.substr(x + 1)).c_str()) > 0;
    }
    std::size_t start = 0;
    for (;;) {
        const std::size_t bar = allowed.find('|', start);
        if (allowed.substr(start, bar - start) == value) return true;
        if (bar == std::string_view::npos) return false;
        start = bar + 1;
    }
}

std::string setting_file(const Setting& s) {
    if (s.file) return s.file;
    return std::string(s.kind == Kind::Condition ? "conditions/" : "observed/") + s.name;
}

std::string get(std::string_view name) {
    const Setting* s = find_setting(name);
    if (!s) return {};
    std::string v;
    if (!read_text(setting_file(*s), v)) return s->fallback;
    return trimmed(std::move(v));
}

namespace {
bool store(std::string_view name, Kind kind, std::string_view value) {
    const Setting* s = find_setting(name);
    if (!s || s->kind != kind) {
        errno = EINVAL;
        return false;
    }
    const Folder dir = hw();
    const std::string file = setting_file(*s);
    const std::size_t slash = file.rfind('/');
    if (slash != std::string::npos && !dir.make_dirs(std::string_view(file).substr(0, slash))) return false;
    return dir.write_atomic(file, std::string(value) + "\n");
}
}  // namespace

bool set_condition(std::string_view name, std::string_view value) { return store(name, Kind::Condition, value); }
bool set_observed(std::string_view name, std::string_view value) { return store(name, Kind::Observed, value); }

void clear_observed(std::string_view name) {
    if (const Setting* s = find_setting(name); s && s->kind == Kind::Observed) hw().remove(setting_file(*s));
}

void clear_observed_at_power_up() {
    const Folder dir = hw();
    for (const Setting& s : registry<Setting>())
        if (s.kind == Kind::Observed && !s.kept_over_power_cycle) dir.remove(setting_file(s));
}

// --- Failure injection.

std::vector<Failure> failures() {
    std::vector<Failure> list;
    std::string text;
    if (!read_text("fail", text)) return list;
    std::size_t pos = 0;
    while (pos < text.size()) {
        std::size_t end = text.find('\n', pos);
        if (end == std::string::npos) end = text.size();
        const std::string line = text.substr(pos, end - pos);
        pos = end + 1;
        char op[128];
        int result = 0, error = 0;
        if (std::sscanf(line.c_str(), "%127s %d %d", op, &result, &error) == 3) list.push_back({op, result, error});
    }
    return list;
}

bool set_failures(const std::vector<Failure>& list) {
    std::string text;
    for (const Failure& f : list) text += f.op + " " + std::to_string(f.result) + " " + std::to_string(f.error) + "\n";
    return write_atomic("fail", text);
}

bool injected_failure(std::string_view op, int& result) {
    const int saved = errno;
    for (const Failure& f : failures()) {
        if (f.op == op) {
            result = f.result;
            errno = f.error;
            return true;
        }
    }
    errno = saved;
    return false;
}

}  // namespace ftsim

// Bounds of this library's failure-point section, laid out by the linker.
extern "C" {
extern const char* const __start_ftsim_failpoints[] __attribute__((weak, visibility("hidden")));
extern const char* const __stop_ftsim_failpoints[] __attribute__((weak, visibility("hidden")));
}

extern "C" __attribute__((visibility("default"))) std::size_t ftsim_failure_points(const char* const** first) {
    if (__start_ftsim_failpoints == nullptr || __stop_ftsim_failpoints == nullptr) {
        *first = nullptr;
        return 0;
    }
    *first = __start_ftsim_failpoints;
    return static_cast<std::size_t>(__stop_ftsim_failpoints - __start_ftsim_failpoints);
}
