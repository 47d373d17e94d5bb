#include "MemoryShortage.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

using norel::Desktop::Test::heap;

namespace {

norel::Desktop::Test::MemoryShortage* current = nullptr;
constexpr std::size_t HEADER = alignof(std::max_align_t); // holds the counted size of the block

} // namespace

// NOLINTBEGIN(cppcoreguidelines-no-malloc,cppcoreguidelines-owning-memory)
void* operator new(std::size_t size) {
    void* const block = !current || current->allocate() ? std::malloc(HEADER + size) : nullptr;
    if (!block)
        throw std::bad_alloc();
    auto& counted = *static_cast<std::size_t*>(block);
    counted = std::max<std::size_t>(32, (size + 8 + 15) / 16 * 16);
    heap.used += counted;
    heap.peak = std::max(heap.peak, heap.used);
    return static_cast<std::byte*>(block) + HEADER;
}

void operator delete(void* pointer) noexcept {
    if (!pointer)
        return;
    void* const block = static_cast<std::byte*>(pointer) - HEADER;
    heap.used -= *static_cast<std::size_t*>(block);
    std::free(block);
}

void operator delete(void* pointer, std::size_t /*size*/) noexcept { operator delete(pointer); }
// NOLINTEND(cppcoreguidelines-no-malloc,cppcoreguidelines-owning-memory)

namespace norel::Desktop::Test {

Heap heap;

bool MemoryShortage::allows(const std::function<void()>& operation) {
    std::exception_ptr failure;
    current = this;
    try {
        operation();
    } catch (...) {
        failure = std::current_exception();
    }
    current = nullptr;
    try {
        if (failure)
            std::rethrow_exception(failure);
        return true;
    } catch (const std::bad_alloc&) {
    } catch (const std::exception& error) {
        ADD_FAILURE() << "failed with " << error.what();
    }
    return false;
}

} // namespace norel::Desktop::Test
