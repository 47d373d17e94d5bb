#include "Outcome.h"
#include "norel/Desktop/Domain/Payloads/DefaultProducts.h"

#include <gtest/gtest.h>
#include <map>
#include <nlohmann/json.hpp>

namespace norel::Desktop::Domain::Payloads::Test {
namespace {

using Tree = nlohmann::ordered_json;

std::string documentOf(unsigned int version) {
    return DefaultProducts::getSourceDocumentFromVersionInfo(version);
}

TEST(FactoryDocuments, ExistForEveryVersion) {
    // Products were shipped with these documents, so they never change.
    const std::map<unsigned int, std::uint64_t> digests{{2, 12026417423022562715U},
                                                        {3, 7648454510659403963U},
                                                        {4, 1636042060306047874U},
                                                        {5, 11418462417472620120U}};
    for (const auto& [version, digest] : digests)
        EXPECT_EQ(digestOf(documentOf(version)), digest) << version;
    for (const unsigned int unknown : {0U, 1U, 6U, 4294967295U})
        EXPECT_EQ(documentOf(unknown), "") << unknown;
    EXPECT_EQ(DefaultProducts::getSourceDocumentVersion2(), documentOf(2));
    EXPECT_EQ(DefaultProducts::getSourceDocumentVersion3(), documentOf(3));
    EXPECT_EQ(DefaultProducts::getSourceDocumentVersion4(), documentOf(4));
    EXPECT_EQ(DefaultProducts::getSourceDocument(), documentOf(5));
}

TEST(FactoryDocuments, LoseOnlyUnknownMembersWhenRewritten) {
    Tree expected = Tree::parse(documentOf(5));
    for (Tree& profile : expected) {
        profile.erase("uploads");
        profile["serial_number"] = "";
        if (profile["lidar"].is_null()) {
            profile.erase("lidar");
            continue;
        }
        Tree& lidar = profile["lidar"];
        EXPECT_EQ(lidar["georeferencing"].at("calibration_document"), nullptr);
        lidar["georeferencing"].erase("calibration_document");
        EXPECT_EQ(lidar["precision_enhancement"].erase("neighbors_search_radius"), 1U);
        EXPECT_EQ(lidar["precision_enhancement"]["morphological_rejection"].erase("number_of_neighbors"), 1U);
    }
    const JsonProfileListSerializer serializer;
    const std::string rewritten = serializer.serialize(serializer.deserialize(documentOf(5)));
    EXPECT_TRUE(Tree::parse(rewritten) == expected);
    EXPECT_TRUE(serializer.serialize(serializer.deserialize(rewritten)) == rewritten);
}

} // namespace
} // namespace norel::Desktop::Domain::Payloads::Test
