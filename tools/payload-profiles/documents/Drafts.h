#pragma once

#include "norel/Desktop/Domain/Payloads/ProfileListStorage.h"
#include "norel/Desktop/Storage/TextFileStorage.h"

#include <filesystem>
#include <string>

namespace norel::Desktop::PayloadProfiles {

/// A list in memory, for use cases whose result is only shown, or stored once after several steps.
class DraftStorage : public Domain::Payloads::ProfileListStorage {
public:
    explicit DraftStorage(const Domain::Payloads::ProfileList& initialList) : list(initialList) {}

    void remove() override { list = Domain::Payloads::ProfileList(); }
    Domain::Payloads::ProfileList read() override { return list; }
    void write(const Domain::Payloads::ProfileList& newList) override { list = newList; }

private:
    Domain::Payloads::ProfileList list;
};

/// The text of one file in memory.
class DraftTextFileStorage : public Storage::TextFileStorage {
public:
    explicit DraftTextFileStorage(const std::string& initialText) : text(initialText) {}

    std::string read(const std::filesystem::path&) override { return text; }
    void remove(const std::filesystem::path&) override { text.clear(); }
    void write(const std::filesystem::path&, const std::string& newText) override { text = newText; }

private:
    std::string text;
};

} // namespace norel::Desktop::PayloadProfiles
