#include "spreadsheet/read/CountedHeap.h"

#include <atomic>
#include <cstddef>
#include <malloc.h>

// What stands behind the routines of glibc that are replaced here.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* piece, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* piece);
}

namespace {

std::atomic<qint64> heldBytes = 0;
std::atomic<qint64> mostBytes = 0;
std::atomic<qint64> bytesBefore = 0;

qint64 SizeOf(void* piece)
{
    return static_cast<qint64>(malloc_usable_size(piece)); // 0 of none
}

void* Counted(void* piece)
{
    const qint64 held = heldBytes += SizeOf(piece);
    qint64 most = mostBytes;
    while (held > most && !mostBytes.compare_exchange_weak(most, held))
        ;
    return piece;
}

} // namespace

extern "C" {

void* malloc(std::size_t size) noexcept
{
    return Counted(__libc_malloc(size));
}

void* calloc(std::size_t count, std::size_t size) noexcept
{
    return Counted(__libc_calloc(count, size));
}

/// A piece that grows may stand in two places for a moment.
void* realloc(void* piece, std::size_t size) noexcept
{
    const qint64 former = SizeOf(piece);
    void* grown = Counted(__libc_realloc(piece, size));
    if (grown || size == 0)
        heldBytes -= former;
    return grown;
}

void* memalign(std::size_t alignment, std::size_t size) noexcept
{
    return Counted(__libc_memalign(alignment, size));
}

void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept
{
    return memalign(alignment, size);
}

int posix_memalign(void** piece, std::size_t alignment, std::size_t size) noexcept
{
    *piece = memalign(alignment, size);
    return *piece ? 0 : ENOMEM;
}

void free(void* piece) noexcept
{
    heldBytes -= SizeOf(piece);
    __libc_free(piece);
}

} // extern "C"

namespace tsms::test {

qint64 PeakBytes()
{
    return mostBytes - bytesBefore;
}

void ForgetPeak()
{
    bytesBefore = heldBytes.load();
    mostBytes = heldBytes.load();
}

} // namespace tsms::test
