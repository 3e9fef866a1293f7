#include "platform/Memory.h"

#include <cstdint>
#include <cstdlib>

#ifdef __GLIBC__ // told by the headers above
#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>
#endif

#ifdef __GLIBC__
namespace
{
constexpr int MiB = 1 << 20;      // [bytes]
constexpr int Largest = 32 * MiB; // that the library lets come from the one piece
constexpr int AtOnce = 40 * MiB;  // what a start touches, and some
constexpr int Kept = 128 * MiB;   // freed memory at the end of the piece that is not given back at once
constexpr std::uintptr_t Page = std::uintptr_t{2} * MiB; // a large one

void UseLargePages()
{
    const auto end = reinterpret_cast<std::uintptr_t>(sbrk(0)) / Page * Page;
    const auto begin = (end - AtOnce + Page) / Page * Page;
    madvise(reinterpret_cast<void *>(begin), end - begin, MADV_HUGEPAGE);
}
} // namespace

void PrepareMemory()
{
    mallopt(M_MMAP_THRESHOLD, Largest);
    mallopt(M_TRIM_THRESHOLD, Kept);
    mallopt(M_ARENA_MAX, 1);
    mallopt(M_TOP_PAD, AtOnce);
    void *volatile block = std::malloc(MiB); // too large for what is there, so that the piece grows
    std::free(block);
    mallopt(M_TOP_PAD, MiB);
    UseLargePages();
}
#else
void PrepareMemory() {}
#endif
