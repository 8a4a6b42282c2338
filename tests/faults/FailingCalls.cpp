#include "faults/FailingCalls.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>

namespace quarnel02::test {

namespace {

bool armed = false;
bool hit = false;
int calls = 0;
Failing plan{};
const char* first_failed = "";

}  // namespace

/// Whether this call is to fail; says so in errno.
bool Fails(const char* name) {
    if (!armed) {
        return false;
    }
    ++calls;
    if (calls == plan.At || (plan.Stays && calls > plan.At)) {
        first_failed = hit ? first_failed : name;
        hit = true;
        errno = plan.Code;
        return true;
    }
    return false;
}

namespace {

bool memory_armed = false;
bool memory_hit = false;
int requests = 0;
int vain_request = 0;
bool memory_stays = false;

}  // namespace

bool IsInVain() {
    if (!memory_armed) {
        return false;
    }
    ++requests;
    const bool in_vain = requests == vain_request || (memory_stays && requests > vain_request);
    memory_hit = memory_hit || in_vain;
    errno = in_vain ? ENOMEM : errno;
    return in_vain;
}

FailingMemory::FailingMemory(int at, bool stays) {
    requests = 0;
    vain_request = at;
    memory_stays = stays;
    memory_hit = false;
    memory_armed = true;
}

FailingMemory::~FailingMemory() {
    memory_armed = false;
}

bool FailingMemory::Stop() {
    memory_armed = false;
    return memory_hit;
}

FailingCalls::FailingCalls(const Failing& failing) {
    plan = failing;
    calls = 0;
    hit = false;
    first_failed = "";
    armed = true;
}

FailingCalls::~FailingCalls() {
    armed = false;
}

bool FailingCalls::Stop() {
    armed = false;
    return hit;
}

std::string FailingCalls::Failed() {
    return first_failed;
}

}  // namespace quarnel02::test

namespace {

using quarnel02::test::Fails;
using quarnel02::test::IsInVain;

/// The system's own function of that name.
template <class Function>
Function* Next(const char* name) {
    void* const symbol = ::dlsym(RTLD_NEXT, name);
    return reinterpret_cast<Function*>(symbol);
}

mode_t ModeIn(int flags, va_list arguments) {
    return (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE ? va_arg(arguments, mode_t)
                                                                      : mode_t{0};
}

}  // namespace

// In place of the system's.
#define QUARNEL02_REAL(name) static auto* const real = Next<decltype(name)>(#name)

extern "C" {

#if !defined(__SANITIZE_ADDRESS__)  // whose own functions these are
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* place, size_t size);
void* malloc(size_t size) noexcept {
    return IsInVain() ? nullptr : __libc_malloc(size);
}
void* calloc(size_t count, size_t size) noexcept {
    return IsInVain() ? nullptr : __libc_calloc(count, size);
}
void* realloc(void* place, size_t size) noexcept {
    return IsInVain() ? nullptr : __libc_realloc(place, size);
}
#endif

int open(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = ModeIn(flags, arguments);
    va_end(arguments);
    static auto* const real = Next<int(const char*, int, ...)>("open");
    return Fails("open") ? -1 : real(path, flags, mode);
}
int open64(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = ModeIn(flags, arguments);
    va_end(arguments);
    static auto* const real = Next<int(const char*, int, ...)>("open64");
    return Fails("open") ? -1 : real(path, flags, mode);
}
FILE* fopen(const char* path, const char* mode) {
    QUARNEL02_REAL(fopen);
    return Fails("fopen") ? nullptr : real(path, mode);
}
ssize_t write(int file, const void* bytes, size_t size) {
    QUARNEL02_REAL(write);
    return file > 2 && Fails("write") ? -1 : real(file, bytes, size);
}
ssize_t pwrite(int file, const void* bytes, size_t size, off_t at) {
    QUARNEL02_REAL(pwrite);
    return Fails("write") ? -1 : real(file, bytes, size, at);
}
ssize_t pwrite64(int file, const void* bytes, size_t size, off64_t at) {
    QUARNEL02_REAL(pwrite64);
    return Fails("write") ? -1 : real(file, bytes, size, at);
}
int fsync(int /*file*/) {
    return Fails("fsync") ? -1 : 0;
}
int fdatasync(int /*file*/) {
    return Fails("fsync") ? -1 : 0;
}
int close(int file) {
    QUARNEL02_REAL(close);
    const int result = real(file);
    return Fails("close") ? -1 : result;
}
int rename(const char* from, const char* to) noexcept {
    QUARNEL02_REAL(rename);
    return Fails("rename") ? -1 : real(from, to);
}
int linkat(int from, const char* source, int to, const char* target, int flags) noexcept {
    QUARNEL02_REAL(linkat);
    return Fails("link") ? -1 : real(from, source, to, target, flags);
}
int link(const char* from, const char* to) noexcept {
    QUARNEL02_REAL(link);
    return Fails("link") ? -1 : real(from, to);
}
int unlink(const char* path) noexcept {
    QUARNEL02_REAL(unlink);
    return Fails("unlink") ? -1 : real(path);
}
int mkostemp(char* name, int flags) {
    QUARNEL02_REAL(mkostemp);
    return Fails("open") ? -1 : real(name, flags);
}
char* mkdtemp(char* name) noexcept {
    QUARNEL02_REAL(mkdtemp);
    return Fails("mkdir") ? nullptr : real(name);
}
int mkdir(const char* path, mode_t mode) noexcept {
    QUARNEL02_REAL(mkdir);
    return Fails("mkdir") ? -1 : real(path, mode);
}
int ftruncate(int file, off_t size) noexcept {
    QUARNEL02_REAL(ftruncate);
    return Fails("truncate") ? -1 : real(file, size);
}
int ftruncate64(int file, off64_t size) noexcept {
    QUARNEL02_REAL(ftruncate64);
    return Fails("truncate") ? -1 : real(file, size);
}
int posix_fallocate(int file, off_t from, off_t size) {
    QUARNEL02_REAL(posix_fallocate);
    return Fails("allocate") ? errno : real(file, from, size);
}
int fchmod(int file, mode_t mode) noexcept {
    QUARNEL02_REAL(fchmod);
    return Fails("chmod") ? -1 : real(file, mode);
}

}  // extern "C"
