#pragma once

#include "norel/Desktop/Domain/Payloads/Export.h"
#include "norel/Desktop/Domain/Payloads/ProfileListSerializer.h"
#include "norel/Desktop/Domain/Payloads/ProfileListStorage.h"
#include "norel/Desktop/Storage/TextFileStorage.h"

#include <filesystem>
#include <memory>

namespace norel::Desktop::Domain::Payloads {

/// A profile list in a file, which is read and written by the application's text file store.
class NOREL_PAYLOADS_EXPORT ProfileListFileStorage : public ProfileListStorage {
public:
    /// Creates an empty file, which reads as an empty list, when nothing exists at `path`. A failure to
    /// create it is ignored; the first read then fails. Throws std::filesystem::filesystem_error when the
    /// existence of the path cannot be determined. The pointers must not be null.
    ProfileListFileStorage(const std::filesystem::path& path,
                           const std::shared_ptr<Storage::TextFileStorage>& textFileStorage,
                           const std::shared_ptr<ProfileListSerializer>& serializer);

    void remove() override;
    ProfileList read() override;
    void write(const ProfileList& list) override;

private:
    std::filesystem::path filePath;
    std::shared_ptr<Storage::TextFileStorage> textFiles;
    std::shared_ptr<ProfileListSerializer> documentSerializer;
};

} // namespace norel::Desktop::Domain::Payloads
