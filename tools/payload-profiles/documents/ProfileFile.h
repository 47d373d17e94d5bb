#pragma once

#include "commands/Context.h"
#include "norel/Desktop/Domain/Payloads/ProfileListStorage.h"

#include <filesystem>
#include <memory>
#include <string>

namespace norel::Desktop::PayloadProfiles {

/// The profile list of a file, which must be there: a file storage would make a missing one.
std::shared_ptr<ProfileListStorage> openFile(const Context& context, const std::string& file);

/// The list that a storage holds; failures are those of `subject`.
ProfileList readProfiles(const std::string& subject, const std::shared_ptr<ProfileListStorage>& storage);

/// The list that `text` would be as the content of `file`, which exists and is not touched. Throws the errors
/// of ProfileListStorage::read.
ProfileList readText(const Context& context, const std::string& file, const std::string& text);

/// A file that a command changes, or makes. One that it made and left empty is removed again.
class FileToChange {
public:
    FileToChange(const Context& context, const std::string& file);

    FileToChange(const FileToChange&) = delete;
    FileToChange& operator=(const FileToChange&) = delete;
    ~FileToChange();

    const std::shared_ptr<ProfileListStorage>& getStorage() const { return storage; }

private:
    std::filesystem::path path;
    bool isNew;
    std::shared_ptr<ProfileListStorage> storage;
};

/// A list in memory, for use cases that try something out or take several steps before anything is stored.
class DraftStorage : public ProfileListStorage {
public:
    explicit DraftStorage(const ProfileList& list) : list(list) {}

    void remove() override { list = ProfileList(); }
    ProfileList read() override { return list; }
    void write(const ProfileList& newList) override { list = newList; }

private:
    ProfileList list;
};

/// The text of one file in memory.
class DraftTextFileStorage : public Storage::TextFileStorage {
public:
    explicit DraftTextFileStorage(const std::string& text) : text(text) {}

    std::string read(const std::filesystem::path&) override { return text; }
    void remove(const std::filesystem::path&) override { text.clear(); }
    void write(const std::filesystem::path&, const std::string& newText) override { text = newText; }

private:
    std::string text;
};

/// Throws Failure when there is nothing at the path, or it cannot be told.
void requireFile(const std::string& file);

} // namespace norel::Desktop::PayloadProfiles
