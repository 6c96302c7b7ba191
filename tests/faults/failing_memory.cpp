#include "failing_memory.h"

#include <cstdlib>
#include <new>

namespace corvane::faults {

namespace {

// Plain numbers: they are looked at wherever memory is asked for.
std::size_t failingAllocation = 0;
std::size_t allocations = 0;
bool hasAllocationFailed = false;

void* allocate(std::size_t size) {
    if (failingAllocation != 0 && ++allocations == failingAllocation) {
        hasAllocationFailed = true;
        throw std::bad_alloc();
    }
    void* const memory = std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}

}  // namespace

FailingMemory::FailingMemory(std::size_t number) {
    allocations = 0;
    hasAllocationFailed = false;
    failingAllocation = number;
}

FailingMemory::~FailingMemory() { failingAllocation = 0; }

bool FailingMemory::hasFailed() { return hasAllocationFailed; }

}  // namespace corvane::faults

// In place of the standard library's.

void* operator new(std::size_t size) { return corvane::faults::allocate(size); }
void* operator new[](std::size_t size) { return corvane::faults::allocate(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t /*size*/) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t /*size*/) noexcept { std::free(memory); }
