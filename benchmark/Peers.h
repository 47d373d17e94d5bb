#pragma once

#include <memory>
#include <string>
#include <vector>

namespace norel::Benchmark {
namespace Plain {

struct Profile;

} // namespace Plain

/// Another way to read and write documents, into plain structures: a JSON library with a little code on top.
struct Peer {
    using Profiles = std::shared_ptr<const std::vector<Plain::Profile>>;

    std::string name;
    Profiles (*read)(const std::string& document);
    std::string (*write)(const std::vector<Plain::Profile>& profiles); ///< null for a library that only reads
};

/// The peers whose libraries were found when the program was built. Each peer's source adds it.
inline std::vector<Peer>& peers() {
    static std::vector<Peer> list;
    return list;
}

inline bool addPeer(const Peer& peer) {
    peers().push_back(peer);
    return true;
}

} // namespace norel::Benchmark
