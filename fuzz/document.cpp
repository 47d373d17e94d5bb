#include "Fuzzing.h"
#include "norel/Desktop/Domain/Payloads/Payloads.h"

using namespace norel::Desktop::Domain::Payloads;
using norel::Fuzzing::require;

/// A list that was read is written as a document that reads back to an equal list.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const JsonProfileListSerializer serializer;
    ProfileList list;
    try {
        list = serializer.deserialize(norel::Fuzzing::toText(data, size));
    } catch (const ProfileListSerializer::ParsingError&) {
        return 0;
    } catch (const std::invalid_argument&) { // a rule of the model
        return 0;
    } catch (const std::runtime_error&) { // a rule of Georeferencing or Profile
        return 0;
    }
    const std::string written = serializer.serialize(list);
    const ProfileList again = serializer.deserialize(written);
    require(again == list, "a written list reads back");
    require(serializer.serialize(again) == written, "a list is always written the same");
    return 0;
}
