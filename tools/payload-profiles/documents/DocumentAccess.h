#pragma once

#include "norel/Desktop/Domain/Payloads/JsonProfileListSerializer.h"
#include "norel/Desktop/Storage/DurableTextFileStorage.h"

#include <functional>
#include <memory>
#include <string>

namespace norel::Desktop::PayloadProfiles {

using namespace Domain::Payloads;

/// What files are read and written with, and documents turned into lists and back.
struct DocumentAccess {
    std::shared_ptr<Storage::DurableTextFileStorage> textFiles;
    std::shared_ptr<ProfileListSerializer> serializer = std::make_shared<JsonProfileListSerializer>();
};

/// Takes the text of a document that was read.
using TextObserver = std::function<void(const std::string& text)>;

} // namespace norel::Desktop::PayloadProfiles
