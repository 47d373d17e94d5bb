#include "Outcome.h"
#include "ProfileLists.h"
#include "norel/Desktop/Domain/Payloads/DefaultProducts.h"
#include "norel/Desktop/Domain/Payloads/DocumentVersions.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <random>
#include <regex>
#include <sstream>

/// JsonProfileListSerializer reads and writes without JSON values where the host supports it; a derived
/// serializer always uses them. Both must give the same results and errors, and those must not differ from
/// the first release.
namespace norel::Desktop::Domain::Payloads::Test {
namespace {

std::string readFile(const std::filesystem::path& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

/// Compares the outcomes of both serializers, and computes a digest of all outcomes, to be compared with that
/// of the first release.
class Comparison {
public:
    void add(const std::string& text) {
        const std::string outcome = outcomeOf(JsonProfileListSerializer(), text);
        ASSERT_EQ(outcome, outcomeOf(DerivedSerializer(), text)) << text;
        digest = digestOf(outcome, digest);
    }

    std::uint64_t getDigest() const { return digest; }

private:
    std::uint64_t digest = digestOf("");
};

const std::filesystem::path DATA = NOREL_PAYLOADS_TEST_DATA;

TEST(SerializerEquivalence, HoldsForWholeDocumentsAndForEveryDamagedMember) {
    Comparison comparison;
    for (unsigned int version = DocumentVersions::getFirst() + 1; version <= DocumentVersions::getCurrent();
         ++version)
        comparison.add(DefaultProducts::getSourceDocumentFromVersionInfo(version));
    for (const char* example :
         {"camera-nadir.json", "camera-oblique.json", "lidar.json", "old-version-1.json"})
        comparison.add(readFile(DATA / "../../../../docs/examples" / example));
    const std::string full = readFile(DATA / "full-profile.json");
    comparison.add(full);
    const std::array<std::string, 17> values{"null",
                                             "true",
                                             "\"text\"",
                                             "\"\"",
                                             "-0",
                                             "-1",
                                             "0.5",
                                             "1e300",
                                             "4294967296",
                                             "[]",
                                             "{}",
                                             "[{}]",
                                             "1, \"unknown\": {\"a\": [1e5]}",
                                             "1, \"value\": 2",
                                             "",
                                             "\"\\u00e4\\ud834\\udd1e\"",
                                             "-2147483649"};
    std::size_t damage = 0;
    const std::regex member("\"[^\"\n]*\": ([^\n\\[{]*[^,\n\\[{])");
    for (std::sregex_iterator line(full.begin(), full.end(), member), end; line != end; ++line) {
        const std::string before = full.substr(0, static_cast<std::size_t>(line->position(1)));
        const std::string after = full.substr(before.size() + static_cast<std::size_t>(line->length(1)));
        for (std::size_t i = 0; i < 2; ++i, ++damage)
            comparison.add(before + values[damage % values.size()] + after);
    }
    EXPECT_EQ(comparison.getDigest(), 1518138771990844356U);
}

TEST(SerializerEquivalence, HoldsForRandomMutations) {
    ProfileList list;
    for (const char* name : {"first", "second \u00e4\\\"\n"}) {
        Profile::Builder builder = makeProfile(7, name);
        builder.trajectory.imuOnboard.leverArm.x = {0.25, -1, 1e5, 0, {{"a", 0.5}, {"b", 1e-7}}, 0.001, "m"};
        builder.trajectory.cameras.listOfCameras = {{"nadir", {}, {}, {}, {}}};
        Profile profile = builder.build();
        list.add(profile);
    }
    const std::string text = JsonProfileListSerializer().serialize(list);
    const std::array<std::string, 20> pieces{"\"",
                                             "{",
                                             "}",
                                             "[",
                                             "]",
                                             ",",
                                             ":",
                                             "\\",
                                             "-",
                                             "0",
                                             "1e9",
                                             ".5",
                                             "null",
                                             " ",
                                             "\n",
                                             "\xC3",
                                             "\xEF\xBB\xBF",
                                             "\\u0000",
                                             "\x01",
                                             "\"value\": 1,"};
    std::mt19937 random(20211005);
    const auto below = [&](std::size_t bound) { return random() % bound; };
    Comparison comparison;
    for (int i = 0; i < 4000; ++i) {
        std::string mutated = text;
        for (std::size_t changes = 1 + below(3); changes > 0; --changes) {
            const std::size_t position = below(mutated.size());
            const std::size_t length = below(4) == 0 ? below(200) : below(3);
            std::string piece;
            if (below(3) == 0) {
                const std::size_t pieceLength = below(100);
                piece = text.substr(below(text.size()), pieceLength);
            } else {
                piece = pieces[below(pieces.size())];
            }
            mutated.replace(position, length, piece);
        }
        comparison.add(mutated);
    }
    EXPECT_EQ(comparison.getDigest(), 8984702231663687140U);
}

} // namespace
} // namespace norel::Desktop::Domain::Payloads::Test
