#include "Library.h"

#include "norel/Desktop/Domain/Payloads/Payloads.h"

#include <typeinfo>

namespace norel::Desktop::Test {

using namespace Domain::Payloads;

void throwAcrossLibraries(int kind) {
    if (kind == 0)
        throw ProfileListSerializer::ParsingError("message");
    if (kind == 1)
        throw Profile::InvalidProfile("message");
    throw ProfileListStorage::InvalidContent("message");
}

const char* catchAcrossLibraries(const std::function<void()>& operation) {
    try {
        operation();
    } catch (const ProfileListSerializer::ParsingError&) {
        return typeid(ProfileListSerializer::ParsingError).name();
    } catch (const Profile::InvalidProfile&) {
        return typeid(Profile::InvalidProfile).name();
    } catch (const ProfileListStorage::InvalidContent&) {
        return typeid(ProfileListStorage::InvalidContent).name();
    } catch (...) {
    }
    return nullptr;
}

} // namespace norel::Desktop::Test
