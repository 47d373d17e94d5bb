#include "Library.h"

#include "norel/Desktop/Domain/Payloads/Payloads.h"

namespace norel::Desktop::Test {

using namespace Domain::Payloads;

std::array<const std::type_info*, 3> getTypesInLibrary() {
    return {&typeid(ProfileListSerializer::ParsingError), &typeid(Profile::InvalidProfile),
            &typeid(ProfileListStorage::InvalidContent)};
}

void throwInvalidContent() { throw ProfileListStorage::InvalidContent("message"); }

} // namespace norel::Desktop::Test
