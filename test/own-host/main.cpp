#include <norel/Desktop/Domain/Payloads/Payloads.h>

using namespace norel::Desktop;

static_assert(Storage::IS_OWN);

struct EmptyStore : Storage::TextFileStorage {
    std::string read(const std::filesystem::path& /*path*/) override { return ""; }
    void remove(const std::filesystem::path& /*path*/) override {}
    void write(const std::filesystem::path& /*path*/, const std::string& /*text*/) override {}
};

int main() {
    using namespace Domain::Payloads;
    ProfileListFileStorage storage(".", std::make_shared<EmptyStore>(),
                                   std::make_shared<JsonProfileListSerializer>());
    return storage.read() == ProfileList() ? 0 : 1;
}
