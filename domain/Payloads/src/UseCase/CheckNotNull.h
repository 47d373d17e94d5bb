#pragma once

#include <memory>
#include <stdexcept>
#include <string>

namespace norel::Desktop::Domain::Payloads::UseCase {

template <typename Object>
void checkNotNull(const std::shared_ptr<Object>& pointer, const char* name) {
    if (!pointer)
        throw std::runtime_error(std::string("The \"") + name + "\" parameter cannot be null.");
}

} // namespace norel::Desktop::Domain::Payloads::UseCase
