// Part of the test programs that look for uses of destroyed objects. The functions here take the place of the
// standard library's for the whole process, the libraries below included.

#include "poisonedmemory.h"

#include <QtCore/qglobal.h>

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <new>

#if defined(Q_OS_DARWIN)
#    include <malloc/malloc.h>
#else
#    include <malloc.h>
#endif

namespace {

// As an address it is none on any system, and as a flag it is true.
constexpr unsigned char kPoison = 0xD5;
constexpr std::size_t kHeldBlocks = std::size_t(1) << 16;
constexpr std::size_t kHeldBytes = std::size_t(1) << 26;

/// The latest of the blocks that were given back, oldest first from `first` on.
struct HeldBlocks
{
    void *blocks[kHeldBlocks];
    std::size_t first;
    std::size_t count;
    std::size_t bytes;
    bool damaged;
    std::atomic_flag locked;
};

// Filled by the compiler: memory is given back before any constructor of this file could run.
HeldBlocks held = {{}, 0, 0, 0, false, ATOMIC_FLAG_INIT};

class Lock
{
public:
    Lock()
    {
        while (held.locked.test_and_set(std::memory_order_acquire)) {
        }
    }
    ~Lock() { held.locked.clear(std::memory_order_release); }
    Q_DISABLE_COPY(Lock)
};

std::size_t sizeOf(void *block)
{
#if defined(Q_OS_WIN)
    return _msize(block);
#elif defined(Q_OS_DARWIN)
    return malloc_size(block);
#else
    return malloc_usable_size(block);
#endif
}

bool isPoison(void *block)
{
    const auto *bytes = static_cast<const unsigned char *>(block);
    const std::size_t size = sizeOf(block);
    return size == 0 || (bytes[0] == kPoison && std::memcmp(bytes, bytes + 1, size - 1) == 0);
}

void letGoOfTheOldest()
{
    void *block = held.blocks[held.first];
    held.damaged = held.damaged || !isPoison(block);
    held.first = (held.first + 1) % kHeldBlocks;
    --held.count;
    held.bytes -= sizeOf(block);
    std::free(block);
}

void hold(void *block)
{
    if (!block)
        return;
    const std::size_t size = sizeOf(block);
    std::memset(block, kPoison, size);
    const Lock lock;
    while (held.count == kHeldBlocks || (held.count > 0 && held.bytes + size > kHeldBytes))
        letGoOfTheOldest();
    held.blocks[(held.first + held.count) % kHeldBlocks] = block;
    ++held.count;
    held.bytes += size;
}

} // namespace

bool PoisonedMemory::wasTouched()
{
    const Lock lock;
    for (std::size_t i = 0; i < held.count; ++i) {
        void *block = held.blocks[(held.first + i) % kHeldBlocks];
        if (!isPoison(block)) {
            held.damaged = true;
            std::memset(block, kPoison, sizeOf(block));
        }
    }
    const bool touched = held.damaged;
    held.damaged = false;
    return touched;
}

// The other forms that the library and Qt use call these two.

void *operator new(std::size_t size)
{
    if (void *block = std::malloc(size > 0 ? size : 1))
        return block;
    throw std::bad_alloc();
}

void operator delete(void *block) noexcept
{
    hold(block);
}

void operator delete(void *block, std::size_t /*size*/) noexcept
{
    hold(block);
}
