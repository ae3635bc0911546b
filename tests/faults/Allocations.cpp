#include "Allocations.h"

#include <malloc.h>

#include <atomic>
#include <cstdlib>
#include <cstring>
#include <new>

namespace {

std::atomic<std::size_t> held{0};
std::atomic<std::size_t> peak{0};
std::atomic<long> untilFailure{-1};
std::atomic<int> filling{-1};

void* allocate(std::size_t size) {
    if (untilFailure >= 0 && untilFailure-- == 0) throw std::bad_alloc();
    void* memory = std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) throw std::bad_alloc();
    if (filling >= 0) std::memset(memory, filling, size);
    held += malloc_usable_size(memory);
    if (held > peak) peak = held.load();
    return memory;
}

void release(void* memory) noexcept {
    held -= malloc_usable_size(memory);
    std::free(memory);
}

}  // namespace

void* operator new(std::size_t size) {
    return allocate(size);
}
void* operator new[](std::size_t size) {
    return allocate(size);
}
void operator delete(void* memory) noexcept {
    release(memory);
}
void operator delete[](void* memory) noexcept {
    release(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    release(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    release(memory);
}

std::size_t test::heldBytes() {
    return held;
}

std::size_t test::peakBytes() {
    return peak;
}

void test::resetPeak() {
    peak = held.load();
}

void test::failAllocation(long n) {
    untilFailure = n;
}

void test::fillMemory(int byte) {
    filling = byte;
}

bool test::endFailing() {
    return untilFailure.exchange(-1) < 0;
}

test::FailingPaused::FailingPaused() : before_(untilFailure.exchange(-1)) {}

test::FailingPaused::~FailingPaused() {
    untilFailure = before_;
}
