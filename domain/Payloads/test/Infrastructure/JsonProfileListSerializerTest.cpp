#include "norel/Desktop/Domain/Payloads/JsonProfileListSerializer.h"

#include "ProfileLists.h"
#include "norel/Desktop/Domain/Payloads/DefaultProducts.h"

#include <gmock/gmock.h>
#include <limits>
#include <nlohmann/json.hpp>

namespace norel::Desktop::Domain::Payloads::Test {
namespace {

using testing::ElementsAre;
using testing::ThrowsMessage;
using Serializer = JsonProfileListSerializer;
using Json = Serializer::Json;
using Options = Serializer::Options;
using ParsingError = ProfileListSerializer::ParsingError;
using Tree = nlohmann::ordered_json;

const Serializer serializer;

/// Reads the JSON text as member "k" of an object.
template <typename Leaf>
Leaf read(const std::string& text, Leaf leaf = {}) {
    const Serializer::JsonPath root(Json::fromString("{\"k\": " + text + "}"));
    serializer.fromJson(root.makePathToKey("k"), leaf, Options());
    return leaf;
}

template <typename Leaf>
void expectRejected(const std::string& text, const std::string& message) {
    EXPECT_THAT([&] { read<Leaf>(text); }, ThrowsMessage<ParsingError>(message)) << text;
}

template <typename Leaf>
void expectTypeError(const std::string& text, const std::string& expected, const std::string& kind) {
    expectRejected<Leaf>(text, "[json.exception.type_error.302] type must be " + expected + ", but is " +
                                   kind + " at k");
}

TEST(Serializer, ReadsPlainValues) {
    EXPECT_EQ(read<int>("-3.7"), -3);
    EXPECT_EQ(read<std::string>(R"("\u00e9")"), "\xC3\xA9");
    EXPECT_THAT((read<std::vector<std::string>>(R"(["b", "a", "b"])", {"old"})), ElementsAre("b", "a", "b"));
    EXPECT_EQ((read<std::map<std::string, int>>(R"({"b": true, "B": -1.5})", {{"old", 1}})),
              (std::map<std::string, int>{{"B", -1}, {"b", 1}}));
    EXPECT_EQ((read<std::map<std::string, double>>("{}", {{"old", 1}})), (std::map<std::string, double>{}));
    EXPECT_EQ(read<DateTime::DateTime>("\"1970-01-01T01:00:01.5+01:00\""),
              DateTime::DateTime(std::chrono::sys_seconds(std::chrono::seconds(1)),
                                 std::chrono::milliseconds(500)));
}

TEST(Serializer, RejectsPlainValuesOfAnotherType) {
    expectTypeError<double>("true", "number", "boolean");
    expectTypeError<bool>("1", "boolean", "number");
    expectTypeError<std::vector<std::string>>("[\"a\", 5]", "string", "number");
    expectTypeError<std::map<std::string, unsigned int>>("[]", "object", "array");
    expectTypeError<std::map<std::string, int>>("{\"a\": \"1\"}", "number", "string");
    expectTypeError<std::map<std::string, double>>("{\"a\": 1, \"b\": true}", "number", "boolean");
    expectRejected<DateTime::DateTime>(
        "\"2021-02-29T00:00:00Z\"",
        "\"2021-02-29T00:00:00Z\" is not an ISO 8601 date-time such as 2021-10-05T21:18:26+00:00 at k");
}

TEST(Serializer, ReadsTheMembersOfAParameterThatItsFlagsSelect) {
    using Builder = Parameter<double>::Builder;
    const Builder initial{9, 8, 7, 6, {{"initial", 5}}, 0.5, "initial"};
    const std::string all =
        R"({"unit":"px","value":20,"precision":10,"maximum":30,"minimum":-3,"presets":{"p":1},)"
        R"("defaultValue":25})";
    struct {
        unsigned int flags;
        std::string text;
        Builder read; // into `initial`
    } const cases[] = {
        {0, all, {20, -3, 30, 25, {{"p", 1}}, 10, "px"}},
        {0, R"({"defaultValue":1,"minimum":2,"maximum":3,"value":4,"unit":"u"})", {4, 2, 3, 1, {}, 1, "u"}},
        {Options::NO_UNIT, all, {20, -3, 30, 25, {{"p", 1}}, 10, "initial"}},
        {Options::NO_CONSTRAINTS, all, {20, 8, 7, 25, {{"p", 1}}, 0.5, "px"}},
        {Options::NO_CONSTRAINTS, R"({"defaultValue":1,"value":4,"unit":"u"})", {4, 8, 7, 1, {}, 0.5, "u"}},
        {Options::VALUE_ONLY, all, {20, 8, 7, 6, {{"initial", 5}}, 0.5, "px"}},
        {Options::VALUE_ONLY | Options::NO_UNIT, all, {20, 8, 7, 6, {{"initial", 5}}, 0.5, "initial"}},
    };
    for (const auto& [flags, text, expected] : cases) {
        Builder builder = initial;
        serializer.fromJson(Serializer::JsonPath(Json::fromString(text)), builder, flags);
        EXPECT_TRUE(builder == expected) << flags << " " << text;
    }
}

TEST(Serializer, OnlyVectorsAndAnglesPassOnTheirFlags) {
    const auto text = [](const auto& builder) {
        return serializer.toJson(builder.build(), Options::VALUE_ONLY | Options::NO_UNIT).toString(-1);
    };
    EXPECT_EQ(text(Angles3::Builder()),
              R"({"roll":{"value":0.0},"pitch":{"value":0.0},"yaw":{"value":0.0}})");
    const std::string part = R"({"defaultValue":0,"value":0,"unit":""})";
    EXPECT_EQ(text(MountingAngles3::Builder()),
              R"({"x":)" + part + R"(,"y":)" + part + R"(,"z":)" + part + "}");
    EXPECT_THAT(text(CameraAngles3::Builder()),
                testing::StartsWith(R"({"Tx":{"defaultValue":0.0,"minimum":-1.79)"));
}

TEST(Serializer, ReadsEmptyListsAndRejectsOtherValues) {
    EXPECT_EQ(serializer.serialize(ProfileList()), "[]");
    EXPECT_TRUE(serializer.deserialize("") == ProfileList());
    EXPECT_TRUE(serializer.deserialize(" [ ]\r\n") == ProfileList());
    EXPECT_THAT(
        [] { serializer.deserialize("null"); },
        ThrowsMessage<ParsingError>("[json.exception.type_error.302] type must be array, but is null"));
}

TEST(Serializer, AssignsIdsToProfilesAsTheyAreRead) {
    const Tree profile = Tree::parse(serializer.serialize(makeList({{1, "name"}})))[0];
    Tree document = Tree::array();
    for (const char* id : {"7", "7", "4294967295", "-1", "3.7", "true", "2"}) {
        document.push_back(profile);
        document.back()["id"] = Tree::parse(id);
    }
    std::vector<unsigned int> ids;
    for (const Profile& profileRead : serializer.deserialize(document.dump()))
        ids.push_back(profileRead.getId());
    EXPECT_THAT(ids, ElementsAre(7, 8, 9, 10, 3, 1, 2));
}

TEST(Serializer, ReportsTheFirstInvalidProfile) {
    const Tree profile = Tree::parse(serializer.serialize(makeList({{1, "name"}})))[0];
    Tree nameless = profile, incomplete = profile, unmounted = profile;
    nameless["name"] = "";
    incomplete.erase("trajectory");
    unmounted["trajectory"]["stabilized_mount"] = "";
    const auto reading = [](const Tree& document) {
        return [=] { serializer.deserialize(document.dump()); };
    };
    EXPECT_THAT(reading({profile, nameless, incomplete}),
                ThrowsMessage<Profile::InvalidProfile>("The \"name\" string cannot be empty."));
    EXPECT_THAT(
        reading({profile, profile, incomplete, nameless}),
        ThrowsMessage<ParsingError>("[json.exception.out_of_range.403] key 'trajectory' not found at [2]"));
    EXPECT_THAT(reading({unmounted, incomplete}),
                ThrowsMessage<std::invalid_argument>("Profile Trajectory: stabilized mount \"\" is invalid"));
}

/// Writes lever arms and other vectors, and segmentations, as plain strings.
struct ShortSerializer : Serializer {
    using Serializer::fromJson;
    using Serializer::toJson;

    Json toJson(const Vector3& /*value*/, Options /*options*/) const override {
        return Json(std::string("vector"));
    }
    void fromJson(const JsonPath& path, Vector3::Builder& builder, Options /*options*/) const override {
        builder.x.value = path.getValue().getAsString() == "vector" ? 42 : 0;
    }
    Json toJson(const GroundClassification::Segmentation& /*value*/, Options /*options*/) const override {
        return Json(std::string("segmentation"));
    }
    void fromJson(const JsonPath& path, GroundClassification::Segmentation::Builder& builder,
                  Options /*options*/) const override {
        paths.push_back(path);
        builder.minimumPointsPerRegion.value = 43;
    }

    mutable std::vector<JsonPath> paths;
};

TEST(Serializer, LetsADerivedSerializerOverrideATypeWhereverItOccurs) {
    const ShortSerializer shortSerializer;
    const std::string text = shortSerializer.serialize(makeFullList());
    std::map<std::string, int> occurrences;
    const Tree leaves = Tree::parse(text).flatten();
    for (const auto& [pointer, leaf] : leaves.items())
        if (leaf.is_string())
            ++occurrences[leaf];
    EXPECT_EQ(occurrences["vector"], 10);
    EXPECT_EQ(occurrences["segmentation"], 2);
    const Profile read = shortSerializer.deserialize(text).list().front();
    EXPECT_EQ(read.getTrajectory().getCameras().getListOfCameras().at(1).getLeverArm().getX().getValue(), 42);
    const auto ground = read.getLidar()->getGroundClassification();
    EXPECT_EQ(ground.getHullProcessing().getSegmentation().getMinimumPointsPerRegion().getValue(), 43U);
    ASSERT_EQ(shortSerializer.paths.size(), 2U); // still valid after the read
    EXPECT_EQ(shortSerializer.paths[1].getPathString(),
              "[0].lidar.ground_classification.hull_processing.segmentation");
    EXPECT_EQ(shortSerializer.paths[1].getValue().getAsString(), "segmentation");
}

TEST(Serializer, LetsADerivedSerializerOverrideTheList) {
    struct Inheriting : Serializer {};
    struct Counting : Serializer {
        using Serializer::toJson;
        Json toJson(const ProfileList& value, Options /*options*/) const override {
            return Json(static_cast<int>(value.list().size()));
        }
    };
    const Inheriting inheriting;
    EXPECT_EQ(Counting().serialize(makeFullList()), "1");
    const ProfileList factory = serializer.deserialize(DefaultProducts::getSourceDocument());
    for (const ProfileList& list : {ProfileList(), makeFullList(), factory})
        EXPECT_EQ(inheriting.serialize(list), serializer.serialize(list));

    ProfileList wrong = makeList({{1, "\xFF"}});
    Profile::Builder builder = toBuilder(makeFullList().list().front());
    builder.lidar->imuLatency.maximum = std::numeric_limits<double>::infinity();
    Profile infinite = builder.build();
    wrong.add(infinite);
    for (const Serializer* each : {&serializer, static_cast<const Serializer*>(&inheriting)})
        EXPECT_THAT([&] { each->serialize(wrong); },
                    ThrowsMessage<Json::JsonError>("JSON cannot hold a number that is not finite"));
}

TEST(JsonPath, LeadsToMembersAndElements) {
    using JsonPath = Serializer::JsonPath;
    const auto makeDeepPath = [] {
        const JsonPath root(Json::fromString(R"([{"a.b": {"c": null, "d": 4}}])"));
        const JsonPath element = root.makePathToIndex(*root.getValue().begin(), 12);
        return element.makePathToKey("a.b");
    };
    const JsonPath path = makeDeepPath(); // outlives the paths it was made from
    const JsonPath copy = path;
    EXPECT_THAT(copy.getPath(), ElementsAre("[12]", "a.b"));
    EXPECT_EQ(copy.getPathString(), "[12].a.b");
    EXPECT_EQ(copy.makePathToKey("d").getValue().as<int>(), 4);
    EXPECT_TRUE(path.contains("c"));
    EXPECT_FALSE(path.isOptionalSet("c"));
    EXPECT_TRUE(path.isOptionalSet("d"));
    EXPECT_FALSE(path.contains("e") || path.isOptionalSet("e"));
    EXPECT_EQ(JsonPath(Json()).getPathString(), "");
    EXPECT_THAT(
        [&] { path.makePathToKey("e"); },
        ThrowsMessage<ParsingError>("[json.exception.out_of_range.403] key 'e' not found at [12].a.b"));
    EXPECT_THAT([&] { path.makePathToKey("d").makePathToKey("e"); },
                ThrowsMessage<ParsingError>(
                    "[json.exception.type_error.304] cannot use at() with number at [12].a.b.d"));
    EXPECT_FALSE(path.makePathToKey("d").contains("e"));
}

} // namespace
} // namespace norel::Desktop::Domain::Payloads::Test
