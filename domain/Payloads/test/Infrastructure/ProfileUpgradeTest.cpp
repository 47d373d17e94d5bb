#include "InMemoryTextFileStorage.h"
#include "ProfileLists.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace norel::Desktop::Domain::Payloads::Test {
namespace {

using DefaultProducts::getSourceDocumentFromVersionInfo;
using Desktop::Test::InMemoryTextFileStorage;
using testing::ThrowsMessage;
using JsonError = DataFormat::Json::JsonError;
using Tree = nlohmann::ordered_json;
using Pointer = Tree::json_pointer;

/// The sections that the step to a version takes from the factory, in order.
const std::map<unsigned int, std::vector<Pointer>> SECTIONS{
    {2,
     {Pointer("/lidar/strip_adjustment"),
      Pointer("/lidar/precision_enhancement/average_point_cloud_thickness"),
      Pointer("/lidar/precision_enhancement/morphological_rejection/average_point_cloud_density")}},
    {3, {Pointer("/lidar/ground_classification")}},
    {4, {Pointer("/lidar/point_cloud_direct_colorization")}},
    {5, {Pointer("/lidar/ground_classification/dsm")}}};

Tree factory(unsigned int version) { return Tree::parse(getSourceDocumentFromVersionInfo(version)); }

Tree& profileOf(Tree& document, const std::string& product) {
    return *std::find_if(document.begin(), document.end(),
                         [&](const Tree& profile) { return profile["product"] == product; });
}

class ProfileUpgradeTest : public testing::Test {
protected:
    void upgrade(unsigned int version, const std::string& defaults) {
        ProfileUpgrade().upgradeToVersion(version, storage, "profiles.json", defaults);
    }
    void upgrade(unsigned int version) { upgrade(version, getSourceDocumentFromVersionInfo(version)); }

    std::string& file() { return storage->files["profiles.json"]; }

    const std::shared_ptr<InMemoryTextFileStorage> storage = std::make_shared<InMemoryTextFileStorage>();
};

TEST_F(ProfileUpgradeTest, UpgradesEveryOlderVersionToTheCurrentOne) {
    for (unsigned int from = DocumentVersions::getFirst(); from < DocumentVersions::getCurrent(); ++from) {
        Tree expected = factory(DocumentVersions::getCurrent());
        expected.erase(0); // two products that version 2 does not know
        expected.erase(0);
        for (unsigned int version = DocumentVersions::getCurrent(); version > from; --version)
            for (Tree& profile : expected)
                for (const Pointer& section : SECTIONS.at(version))
                    if (profile["lidar"].is_object())
                        profile[section.parent_pointer()].erase(section.back());
        file() = expected.dump(2);
        storage->reads = storage->writes = 0;
        for (unsigned int version = from + 1; version <= DocumentVersions::getCurrent(); ++version) {
            upgrade(version);
            Tree defaults = factory(version);
            for (Tree& profile : expected)
                for (const Pointer& section : SECTIONS.at(version))
                    if (profile["lidar"].is_object()) // new members come last
                        profile[section] = profileOf(defaults, profile["product"])[section];
            EXPECT_EQ(file(), expected.dump(4)) << "from " << from << " to " << version;
        }
        EXPECT_EQ(storage->reads, static_cast<int>(5 - from));
        EXPECT_EQ(storage->writes, static_cast<int>(5 - from));
        EXPECT_EQ(JsonProfileListSerializer().deserialize(file()).list().size(), 12U);
    }
}

TEST_F(ProfileUpgradeTest, ReplacesWholeSectionsAndKeepsTheRest) {
    Tree document = Tree::array({factory(2)[5]});
    document[0]["product"] = "KORVANE alpha fine";
    Tree& lidar = document[0]["lidar"];
    lidar["strip_adjustment"] = {{"temporal_time_frame", 99}, {"mine", 1}};
    lidar["precision_enhancement"]["neighbors_search_radius"]["value"] = 1.25;
    lidar["precision_enhancement"]["average_point_cloud_thickness"] = "edited";
    lidar["mine"] = "kept";
    Tree expected = document;
    const Tree first = factory(2)[2]; // of the two profiles of this product
    ASSERT_EQ(first["id"], 370);
    for (const Pointer& section : SECTIONS.at(2))
        expected[0][section] = first[section];
    file() = document.dump();
    upgrade(2);
    EXPECT_EQ(file(), expected.dump(4));
}

TEST_F(ProfileUpgradeTest, OnlyReformatsTheFileForAVersionWithoutSections) {
    for (const unsigned int version : {0U, 1U, 6U, 4294967295U}) {
        for (const char* text : {R"({"b": [1,{}],  "a":null})", R"([{"lidar": {}}])", "5"}) {
            file() = text;
            upgrade(version, "[]");
            EXPECT_EQ(file(), Tree::parse(text).dump(4));
        }
        EXPECT_THROW(upgrade(version), JsonError); // an empty text is not JSON
    }
    file() = "[ ]";
    upgrade(5);
    EXPECT_EQ(file(), "[]");
}

TEST_F(ProfileUpgradeTest, LeavesTheFileUnchangedOnAnyFailure) {
    const auto change = [](const auto& edit) {
        Tree document = Tree::array({factory(4)[3], factory(4)[0]}); // 100 has no lidar, 793 has
        document[0].erase("lidar");
        edit(document);
        return document.dump(1);
    };
    const std::string current = getSourceDocumentFromVersionInfo(5);
    const std::string noMember = "[json.exception.out_of_range.403] key 'ground_classification' not found";
    const auto unknown = [](const std::string& product) {
        return "A profile cannot be upgraded because its product, \"" + product + "\", is unknown.";
    };
    const std::array<std::string, 3> cases[] = {
        {change([](Tree& d) { d[0]["product"] = "Mine \""; }), current, unknown("Mine \"")},
        {change([](Tree& d) { d[1]["product"] = "Korvane Gamma Vega "; }), current,
         unknown("Korvane Gamma Vega ")},
        {change([](Tree&) {}), "[]", unknown("Korvane Alpha Reach")},
        {change([](Tree& d) { d[1]["lidar"].erase("ground_classification"); }), current, noMember},
        {change([](Tree& d) { d[0].erase("product"); }), current,
         "[json.exception.out_of_range.403] key 'product' not found"},
        {change([](Tree& d) { d[1]["product"] = 5; }), current,
         "[json.exception.type_error.302] type must be string, but is number"},
        {change([](Tree&) {}), getSourceDocumentFromVersionInfo(2).substr(0, 100), ""},
        {change([](Tree&) {}), R"([{"product":"korvane alpha reach"},{"product":"KORVANE GAMMA VEGA"}])",
         "[json.exception.out_of_range.403] key 'lidar' not found"},
        {change([](Tree&) {}), getSourceDocumentFromVersionInfo(4),
         "[json.exception.out_of_range.403] key 'dsm' not found"},
        {R"({"lidar": 1})", current, "[json.exception.type_error.302] type must be array, but is object"},
        {"[{]", current, ""},
    };
    for (const auto& [text, defaults, message] : cases) {
        file() = text;
        const auto run = [&, &given = defaults] { upgrade(5, given); };
        if (message.ends_with("is unknown."))
            EXPECT_THAT(run, ThrowsMessage<std::invalid_argument>(message));
        else
            EXPECT_THAT(run, ThrowsMessage<JsonError>(testing::StartsWith(message)));
        EXPECT_EQ(file(), text);
    }
    EXPECT_EQ(storage->writes, 0);
    file() = change([](Tree&) {});
    const std::string before = file();
    storage->failWrite = [] { throw std::runtime_error("disk full"); };
    EXPECT_THAT([&] { upgrade(5); }, ThrowsMessage<std::runtime_error>("disk full"));
    storage->failRead = [] { throw std::runtime_error("no disk"); };
    EXPECT_THAT([&] { upgrade(5); }, ThrowsMessage<std::runtime_error>("no disk"));
    EXPECT_EQ(file(), before);
}

TEST_F(ProfileUpgradeTest, RejectsANullOnThePathToASection) {
    struct {
        unsigned int version;
        std::string lidar, section;
    } const cases[] = {
        {2, R"({"strip_adjustment": 1, "precision_enhancement": null})", "precision_enhancement"},
        {2, R"({"precision_enhancement": {"morphological_rejection": null}})", "morphological_rejection"},
        {5, R"({"ground_classification": null})", "ground_classification"},
    };
    for (const auto& test : cases) {
        const auto run = [&] { upgrade(test.version); };
        const std::string text = R"([{"product": "Korvane Gamma", "lidar": )" + test.lidar + "}]";
        file() = text;
        EXPECT_THAT(run, ThrowsMessage<std::invalid_argument>("A profile cannot be upgraded because its \"" +
                                                              test.section + "\" is null."));
        EXPECT_EQ(file(), text);
        file() = R"([{"product": "Tessaly Alpha", "lidar": {}}])"; // a product without lidar
        EXPECT_THAT(run,
                    ThrowsMessage<JsonError>("[json.exception.type_error.304] cannot use at() with null"));
    }
    EXPECT_EQ(storage->writes, 0);
}

} // namespace
} // namespace norel::Desktop::Domain::Payloads::Test
