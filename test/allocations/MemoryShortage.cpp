#include "MemoryShortage.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace {

norel::Desktop::Test::MemoryShortage* current = nullptr;

} // namespace

void* operator new(std::size_t size) {
    void* const memory =
        !current || current->allocate() ? std::malloc(std::max<std::size_t>(size, 1)) : nullptr;
    if (!memory)
        throw std::bad_alloc();
    return memory;
}

void operator delete(void* memory) noexcept { std::free(memory); }

void operator delete(void* memory, std::size_t /*size*/) noexcept { std::free(memory); }

namespace norel::Desktop::Test {

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
