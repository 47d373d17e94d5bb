#include "norel/Desktop/Domain/Payloads/ProfileListFileStorage.h"

#include "StorageErrors.h"

#include <fstream>

namespace norel::Desktop::Domain::Payloads {

ProfileListStorage::~ProfileListStorage() = default;

ProfileListFileStorage::ProfileListFileStorage(
    const std::filesystem::path& path, const std::shared_ptr<Storage::TextFileStorage>& textFileStorage,
    const std::shared_ptr<ProfileListSerializer>& serializer)
    : path(path), textFileStorage(textFileStorage), serializer(serializer) {
    if (!std::filesystem::exists(path))
        std::ofstream{path};
}

void ProfileListFileStorage::remove() {
    try {
        textFileStorage->remove(path);
    } catch (const std::runtime_error& error) {
        throw CannotRemoveProfileList(error.what());
    }
}

ProfileList ProfileListFileStorage::read() {
    return withReadErrors([&] { return serializer->deserialize(textFileStorage->read(path)); });
}

void ProfileListFileStorage::write(const ProfileList& list) {
    try {
        textFileStorage->write(path, serializer->serialize(list));
    } catch (const std::exception& error) {
        throw CannotWriteProfileList(error.what());
    }
}

} // namespace norel::Desktop::Domain::Payloads
