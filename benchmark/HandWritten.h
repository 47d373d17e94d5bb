#pragma once

#include <memory>
#include <string>

namespace norel::Benchmark {

/// The yardstick: what a user would write by hand, plain structures over the same JSON library, with no
/// validation and no paths. Reads a document of the current version.
class HandWrittenProfiles {
public:
    explicit HandWrittenProfiles(const std::string& document);
    ~HandWrittenProfiles();

    std::string toDocument() const;

private:
    struct Profiles;
    std::unique_ptr<Profiles> profiles;
};

} // namespace norel::Benchmark
