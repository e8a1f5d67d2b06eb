#include "input/event_monitor.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>
#include <utility>

#include "common/console.h"
#include "common/unique_handle.h"
#include "common/words.h"

namespace ft::input {
namespace {

// True when the device behind @p fd reports @p wanted as its name; prints the
// member's message when it cannot tell.
bool has_name(const Monitor& m, int fd, const char* wanted) {
    std::array<char, 80> name{};
    int len = 0;
    do {
        len = ioctl(fd, EVIOCGNAME(name.size() - 1), name.data());
    } while (len < 0 && errno == EINTR);
    name.back() = '\0';
    if (len <= 0) {
        std::puts(m.texts.name_failed);
        return false;
    }
    return std::strcmp(name.data(), wanted) == 0;
}

// The open descriptor of the first matching device, or an invalid one.
ft::UniqueFd find_device(const Monitor& m, const char* dir, const char* wanted) {
    ft::UniqueDir d(opendir(dir));
    if (!d.valid()) return {};
    while (const dirent* e = readdir(d.get())) {
        int n = 0;
        if (std::sscanf(e->d_name, "event%d", &n) != 1) continue;
        std::array<char, 50> path{};
        std::snprintf(path.data(), path.size(), "%s/event%d", dir, n);
        ft::UniqueFd fd(open(path.data(), O_RDONLY | O_CLOEXEC));
        if (!fd.valid()) {
            std::printf(m.texts.open_failed, path.data());
            continue;
        }
        if (has_name(m, fd.get(), wanted)) return fd;
    }
    return {};
}

}  // namespace

int monitor_start(Monitor& m, const char* wanted, void* (*thread_entry)(void*), const char* dir) {
    ft::UniqueFd fd = find_device(m, dir, wanted);
    if (!fd.valid()) {
        m.fd.store(-1);
        std::puts(m.texts.not_found);
        return -1;
    }
    return monitor_launch(m, std::move(fd), thread_entry);
}

int monitor_launch(Monitor& m, ft::UniqueFd fd, void* (*thread_entry)(void*)) {
    m.ready.store(0);
    m.fd.store(fd.get());
    if (pthread_create(&m.thread, nullptr, thread_entry, nullptr) != 0) {
        m.fd.store(-1);
        std::puts(m.texts.thread_failed);
        return -1;  // fd closes here
    }
    // The descriptor now belongs to the monitor; the teardown closes it.
    static_cast<void>(fd.release());
    m.ready.wait(0);
    return 0;
}

namespace {

// Steps before the loop; their failures end the thread.
int prepare(Monitor& m, sigset_t& waiting_mask) {
    if (m.fd.load() < 0) {
        ft::async_printf("%s\n", m.texts.thread_not_open);
        return -1;
    }
    struct sigaction sa{};
    sa.sa_handler = m.signal_handler;
    sigemptyset(&sa.sa_mask);
    // No SA_RESTART: the teardown's signal has to break the wait.
    sa.sa_flags = 0;
    if (sigaction(m.stop_signal, &sa, nullptr) != 0) {
        ft::async_printf("%s\n", m.texts.no_handler);
        return -1;
    }
    // The stop signal is let in only while the thread waits for a record, so
    // it can never land between the stop-flag test and the wait and leave the
    // thread asleep with the teardown joining it forever.
    sigset_t stop_only;
    sigemptyset(&stop_only);
    sigaddset(&stop_only, m.stop_signal);
    pthread_sigmask(SIG_BLOCK, &stop_only, &waiting_mask);
    sigdelset(&waiting_mask, m.stop_signal);
    return 0;
}

// Reads one record, waiting for it with the stop signal let in. A wait that
// the signal broke looks like a read that failed with EINTR.
ssize_t read_record(int fd, Record& record, const sigset_t& waiting_mask) {
    pollfd p{fd, POLLIN, 0};
    errno = 0;
    if (ppoll(&p, 1, nullptr, &waiting_mask) < 0) return -1;
    errno = 0;
    return read(fd, &record, sizeof record);
}

}  // namespace

int monitor_run(Monitor& m) {
    sigset_t waiting_mask;
    const int prepared = prepare(m, waiting_mask);
    m.ready.store(1);
    m.ready.notify_all();
    if (prepared != 0) return prepared;

    // The device stays open until the thread is joined, so it is the same
    // descriptor for the whole loop.
    const int fd = m.fd.load();
    while (!m.stop) {
        Record record{};
        ssize_t n = 0;
        do {
            n = read_record(fd, record, waiting_mask);
        } while (n == static_cast<ssize_t>(sizeof record) && !m.wanted(record.type));
        if (n == static_cast<ssize_t>(sizeof record)) {
            m.process(record);
        } else {
            const int error = errno;
            if (error != EINTR && !m.stop) ft::async_printf(m.texts.read_error, static_cast<int>(n), error);
        }
    }
    return 0;
}

int monitor_switch(Monitor& m, const char* mode, std::atomic<bool>& reporting, std::atomic<bool>& first_report,
                   const char* what) {
    if (mode == nullptr) {
        std::puts(m.texts.command_null);
        return -1;
    }
    if (m.fd.load() < 0) {
        std::puts(m.texts.command_not_open);
        return -1;
    }
    if (!ft::word_is_one_of(mode, {"0", "1"})) {
        std::puts("Incorrect parameter");
        return -1;
    }
    const bool on = mode[0] == '1';
    reporting.store(on);
    first_report.store(true);
    std::printf("%s %s test\n", on ? "Start" : "Stop", what);
    return 0;
}

int monitor_stop(Monitor& m) {
    const int fd = m.fd.load();
    if (fd == -1) return 0;
    int result = 0;
    if (pthread_kill(m.thread, m.stop_signal) != 0) {
        std::puts(m.texts.kill_failed);
        result = -1;
    } else if (pthread_join(m.thread, nullptr) != 0) {
        std::puts(m.texts.join_failed);
        result = -1;
    }
    // Closed once the thread is gone (or cannot be waited for): closing under
    // a thread still reading could hand the number to another open first.
    close(fd);
    m.fd.store(-1);
    return result;
}

}  // namespace ft::input
