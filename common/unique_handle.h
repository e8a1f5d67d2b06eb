#pragma once
// One small move-only owner for every kind of handle the shell opens, so that
// each handler releases what it opened on every return path without goto chains.
// Closing keeps errno: a handler that gives up on a failed call reports that
// call's errno after its handles are gone, not the close's.
#include <cerrno>
#include <cstdio>
#include <dirent.h>
#include <sys/mman.h>
#include <unistd.h>
#include <utility>

namespace ft {

template <typename T, typename Traits>
class UniqueHandle {
public:
    UniqueHandle() noexcept : h_(Traits::invalid()) {}
    explicit UniqueHandle(T h) noexcept : h_(h) {}
    UniqueHandle(UniqueHandle&& o) noexcept : h_(o.release()) {}
    UniqueHandle& operator=(UniqueHandle&& o) noexcept {
        if (this != &o) reset(o.release());
        return *this;
    }
    UniqueHandle(const UniqueHandle&) = delete;
    UniqueHandle& operator=(const UniqueHandle&) = delete;
    ~UniqueHandle() { reset(); }

    T get() const noexcept { return h_; }
    bool valid() const noexcept { return !(h_ == Traits::invalid()); }
    [[nodiscard]] T release() noexcept { return std::exchange(h_, Traits::invalid()); }
    void reset(T h = Traits::invalid()) noexcept {
        T old = std::exchange(h_, h);
        if (old == Traits::invalid()) return;
        const int saved = errno;
        Traits::close(old);
        errno = saved;
    }

private:
    T h_;
};

struct FdTraits {
    static int invalid() noexcept { return -1; }
    static void close(int fd) noexcept { ::close(fd); }
};
using UniqueFd = UniqueHandle<int, FdTraits>;

struct FileTraits {
    static FILE* invalid() noexcept { return nullptr; }
    static void close(FILE* f) noexcept { std::fclose(f); }
};
using UniqueFile = UniqueHandle<FILE*, FileTraits>;

struct DirTraits {
    static DIR* invalid() noexcept { return nullptr; }
    static void close(DIR* d) noexcept { closedir(d); }
};
using UniqueDir = UniqueHandle<DIR*, DirTraits>;

// A mapping knows its length, so it cannot use the plain template.
class UniqueMapping {
public:
    UniqueMapping() noexcept = default;
    UniqueMapping(void* addr, size_t len) noexcept : addr_(addr), len_(len) {}
    UniqueMapping(UniqueMapping&& o) noexcept
        : addr_(std::exchange(o.addr_, MAP_FAILED)), len_(std::exchange(o.len_, 0)) {}
    UniqueMapping& operator=(UniqueMapping&& o) noexcept {
        if (this != &o) {
            reset();
            addr_ = std::exchange(o.addr_, MAP_FAILED);
            len_ = std::exchange(o.len_, 0);
        }
        return *this;
    }
    UniqueMapping(const UniqueMapping&) = delete;
    UniqueMapping& operator=(const UniqueMapping&) = delete;
    ~UniqueMapping() { reset(); }

    void* get() const noexcept { return addr_; }
    size_t size() const noexcept { return len_; }
    bool valid() const noexcept { return addr_ != MAP_FAILED; }
    void reset() noexcept {
        if (addr_ != MAP_FAILED) {
            const int saved = errno;
            munmap(addr_, len_);
            errno = saved;
        }
        addr_ = MAP_FAILED;
        len_ = 0;
    }

private:
    void* addr_ = MAP_FAILED;
    size_t len_ = 0;
};

}  // namespace ft
