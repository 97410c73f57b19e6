#include "LiveHeap.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstring>

#ifdef __SANITIZE_ADDRESS__

// The sanitizer has a heap of its own, and finds itself what is left.
LiveHeap::Count LiveHeap::now()
{
    return {};
}

#else

// NOLINTBEGIN(bugprone-reserved-identifier): names of the C library
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* start);
}
// NOLINTEND(bugprone-reserved-identifier)

namespace {

std::atomic<long long> blocks{0};
std::atomic<long long> bytes{0};

/// Stands in front of each block.
struct alignas(std::max_align_t) Header
{
    void* start;
    std::size_t size;
};

Header* headerOf(void* block)
{
    return static_cast<Header*>(block) - 1;
}

bool isTooLarge(std::size_t size, std::size_t alignment)
{
    return size > PTRDIFF_MAX - alignment;
}

// Null, with the error set, for a null start.
void* counted(void* start, std::size_t offset, std::size_t size)
{
    if (!start) {
        errno = ENOMEM;
        return nullptr;
    }
    void* block = static_cast<char*>(start) + offset;
    *headerOf(block) = {start, size};
    ++blocks;
    bytes += static_cast<long long>(size);
    return block;
}

void* aligned(std::size_t alignment, std::size_t size)
{
    const std::size_t offset = std::max(alignment, sizeof(Header));
    const bool fails = isTooLarge(size, offset);
    return counted(fails ? nullptr : __libc_memalign(offset, offset + size), offset, size);
}

} // namespace

extern "C" {

void* malloc(std::size_t size)
{
    const bool fails = isTooLarge(size, sizeof(Header));
    return counted(fails ? nullptr : __libc_malloc(sizeof(Header) + size), sizeof(Header), size);
}

void free(void* block)
{
    if (!block)
        return;
    const Header header = *headerOf(block);
    --blocks;
    bytes -= static_cast<long long>(header.size);
    __libc_free(header.start);
}

void* calloc(std::size_t count, std::size_t size)
{
    const bool fails = size != 0 && count > (PTRDIFF_MAX - sizeof(Header)) / size;
    const std::size_t all = count * size;
    return counted(fails ? nullptr : __libc_calloc(1, sizeof(Header) + all), sizeof(Header), all);
}

void* realloc(void* old, std::size_t size)
{
    void* block = malloc(size);
    if (!old || !block)
        return block;
    std::memcpy(block, old, std::min(size, headerOf(old)->size));
    free(old);
    return block;
}

void* memalign(std::size_t alignment, std::size_t size)
{
    return aligned(alignment, size);
}

void* aligned_alloc(std::size_t alignment, std::size_t size)
{
    return aligned(alignment, size);
}

int posix_memalign(void** block, std::size_t alignment, std::size_t size)
{
    *block = aligned(alignment, size);
    return *block ? 0 : ENOMEM;
}

std::size_t malloc_usable_size(void* block)
{
    return block ? headerOf(block)->size : 0;
}

} // extern "C"

LiveHeap::Count LiveHeap::now()
{
    return {blocks, bytes};
}

#endif
