#include "norel/Desktop/Domain/Payloads/ProfileListFileStorage.h"

#include "StorageErrors.h"

#include <fstream>

namespace norel::Desktop::Domain::Payloads {

ProfileListStorage::~ProfileListStorage() = default;

ProfileListFileStorage::ProfileListFileStorage(
    const std::filesystem::path& path, const std::shared_ptr<Storage::TextFileStorage>& textFileStorage,
    const std::shared_ptr<ProfileListSerializer>& serializer)
    : filePath(path), textFiles(textFileStorage), documentSerializer(serializer) {
    if (!std::filesystem::exists(path))
        std::ofstream{path};
}

void ProfileListFileStorage::remove() {
    try {
        textFiles->remove(filePath);
    } catch (const std::runtime_error& error) {
        throw CannotRemoveProfileList(error.what());
    }
}

ProfileList ProfileListFileStorage::read() {
    return withReadErrors([&] { return documentSerializer->deserialize(textFiles->read(filePath)); });
}

void ProfileListFileStorage::write(const ProfileList& list) {
    try {
        textFiles->write(filePath, documentSerializer->serialize(list));
    } catch (const std::exception& error) {
        throw CannotWriteProfileList(error.what());
    }
}

} // namespace norel::Desktop::Domain::Payloads
