#include "documents/ProfileFile.h"

#include "documents/Source.h"
#include "norel/Desktop/Domain/Payloads/ProfileListFileStorage.h"
#include "norel/Desktop/Domain/Payloads/UseCase/GetProfileListFromStorage.h"

#include <system_error>

namespace norel::Desktop::PayloadProfiles {
namespace {

namespace fs = std::filesystem;

std::shared_ptr<ProfileListStorage> openStorage(const Context& context, const std::string& file) {
    return about(file, [&] {
        return std::make_shared<ProfileListFileStorage>(file, context.textFiles, context.serializer);
    });
}

} // namespace

void requireFile(const std::string& file) {
    std::error_code error;
    if (!fs::exists(file, error))
        throw Failure(Source{file, {}}.getName(), error ? error.message() : "there is no such file");
}

std::shared_ptr<ProfileListStorage> openFile(const Context& context, const std::string& file) {
    requireFile(file);
    return openStorage(context, file);
}

ProfileList readProfiles(const std::string& subject, const std::shared_ptr<ProfileListStorage>& storage) {
    return about(subject, [&] { return UseCase::GetProfileListFromStorage(storage).execute(); });
}

ProfileList readText(const Context& context, const std::string& file, const std::string& text) {
    const auto draft = std::make_shared<DraftTextFileStorage>(text);
    const auto storage = std::make_shared<ProfileListFileStorage>(file, draft, context.serializer);
    return UseCase::GetProfileListFromStorage(storage).execute();
}

FileToChange::FileToChange(const Context& context, const std::string& file)
    : path(file),
      isNew(about(file, [&] { return !fs::exists(file); })),
      storage(openStorage(context, file)) {}

FileToChange::~FileToChange() {
    if (!isNew)
        return;
    std::error_code error; // nothing more can be done about it
    const fs::path target = fs::canonical(path, error);
    if (!error && fs::is_regular_file(target, error) && fs::file_size(target, error) == 0)
        fs::remove(target, error);
}

} // namespace norel::Desktop::PayloadProfiles
