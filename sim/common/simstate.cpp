#include "sim/common/simstate.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "common/unique_handle.h"

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

bool read_text(const std::string& path, std::string& out) {
    ft::UniqueFd fd(open(path.c_str(), O_RDONLY | O_CLOEXEC));
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

namespace {
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
}  // namespace

bool write_atomic(const std::string& path, std::string_view data, unsigned mode) {
    std::string tmp = path + ".XXXXXX";
    ft::UniqueFd fd(mkostemp(tmp.data(), O_CLOEXEC));
    if (!fd.valid()) return false;
    const bool ok = fchmod(fd.get(), mode) == 0 && write_all(fd.get(), data) && fsync(fd.get()) == 0;
    const int saved = errno;
    fd.reset();
    if (!ok || rename(tmp.c_str(), path.c_str()) != 0) {
        const int why = ok ? errno : saved;
        unlink(tmp.c_str());
        errno = why;
        return false;
    }
    return true;
}

bool append_line(const std::string& path, std::string_view line) {
    ft::UniqueFd fd(open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0644));
    if (!fd.valid()) return false;
    std::string text(line);
    text += '\n';
    // One write with O_APPEND keeps lines from several processes whole.
    return write_all(fd.get(), text);
}

// --- Settings.

namespace {
std::vector<Setting>& registry() {
    static std::vector<Setting> rows;
    return rows;
}

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

SettingsRegistrar::SettingsRegistrar(std::initializer_list<Setting> rows) {
    registry().insert(registry().end(), rows.begin(), rows.end());
}

const std::vector<Setting>& settings() { return registry(); }

const Setting* find_setting(std::string_view name) {
    for (const Setting& s : registry())
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
    if (s.file) return hw_path(s.file);
    return hw_path(std::string(s.kind == Kind::Condition ? "conditions/" : "observed/") + s.name);
}

std::string get(std::string_view name) {
    const Setting* s = find_setting(name);
    if (!s) return {};
    std::string v;
    if (!read_text(setting_file(*s), v)) return s->fallback;
    return trimmed(std::move(v));
}

bool set_observed(std::string_view name, std::string_view value) {
    const Setting* s = find_setting(name);
    if (!s) return false;
    mkdir(hw_path("observed").c_str(), 0755);
    return write_atomic(setting_file(*s), std::string(value) + "\n");
}

// --- Failure injection.

std::vector<Failure> failures() {
    std::vector<Failure> list;
    std::string text;
    if (!read_text(hw_path("fail"), text)) return list;
    std::size_t pos = 0;
    while (pos < text.size()) {
        std::size_t end = text.find('\n', pos);
        if (end == std::string::npos) end = text.size();
        const std::string line = text.substr(pos, end - pos);
        pos = end + 1;
        char op[128];
        int result = 0, error = 0;
        if (std::sscanf(line.c_str(), "%127s %d %d", op, &result, &error) == 3)
            list.push_back({op, result, error});
    }
    return list;
}

bool set_failures(const std::vector<Failure>& list) {
    std::string text;
    for (const Failure& f : list) text += f.op + " " + std::to_string(f.result) + " " + std::to_string(f.error) + "\n";
    return write_atomic(hw_path("fail"), text);
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
