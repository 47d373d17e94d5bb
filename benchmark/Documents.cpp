#include "Documents.h"

#include "norel/Desktop/Domain/Payloads/DefaultProducts.h"

#include <map>
#include <nlohmann/json.hpp>

namespace norel::Benchmark {

const std::string& documentOf(std::size_t profiles) {
    static std::map<std::size_t, std::string> documents;
    std::string& document = documents[profiles];
    if (!document.empty())
        return document;
    document = Desktop::Domain::Payloads::DefaultProducts::getSourceDocument();
    if (profiles == FACTORY_PROFILES)
        return document;
    auto factory = nlohmann::ordered_json::parse(document);
    document = "[\n";
    for (std::size_t number = 1; number <= profiles; ++number) {
        nlohmann::ordered_json& profile = factory[number % FACTORY_PROFILES];
        profile["id"] = number;
        profile["name"] = profile["product"].get<std::string>() + " " + std::to_string(number);
        const std::string rendered = nlohmann::ordered_json::array({profile}).dump(4);
        document.append(rendered, 2, rendered.size() - 4).append(number < profiles ? ",\n" : "\n]");
    }
    return document;
}

} // namespace norel::Benchmark
