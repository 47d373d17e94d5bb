#include "Fuzzing.h"
#include "InMemoryTextFileStorage.h"
#include "norel/Desktop/Domain/Payloads/Payloads.h"

using namespace norel::Desktop::Domain::Payloads;
using norel::Desktop::DataFormat::Json;
using norel::Fuzzing::require;

namespace {

constexpr unsigned int FIRST_STEP = 2, STEPS = 4;

/// The factory document of the version, reduced to one product with a lidar: reading all of them takes long.
std::string makeDefaults(unsigned int version) {
    const Json document = Json::fromString(DefaultProducts::getSourceDocumentFromVersionInfo(version));
    const auto end = document.end();
    for (auto element = document.begin(); element != end; ++element)
        if ((*element).get("product") == "Korvane Alpha")
            return Json(std::vector<Json>{*element}).toString(4);
    std::abort();
}

} // namespace

/// A step either fails and leaves the file unchanged, or gives a document that the same step does not change
/// again.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::string defaults[STEPS] = {makeDefaults(2), makeDefaults(3), makeDefaults(4),
                                                makeDefaults(5)};
    const std::string text = norel::Fuzzing::toText(data, size);
    const auto storage = std::make_shared<norel::Desktop::Test::InMemoryTextFileStorage>();
    for (unsigned int step = 0; step < STEPS; ++step) {
        const auto upgrade = [&] {
            ProfileUpgrade().upgradeToVersion(FIRST_STEP + step, storage, "f", defaults[step]);
        };
        std::string& file = storage->files["f"];
        file = text;
        try {
            upgrade();
        } catch (const Json::JsonError&) {
            require(file == text, "a failed step leaves the file unchanged");
            continue;
        } catch (const std::invalid_argument&) {
            require(file == text, "a failed step leaves the file unchanged");
            continue;
        }
        const std::string upgraded = file;
        upgrade();
        require(file == upgraded, "repeating a step changes nothing");
    }
    return 0;
}
