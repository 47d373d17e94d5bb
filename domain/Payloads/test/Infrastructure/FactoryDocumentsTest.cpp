#include "Sample.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <map>
#include <nlohmann/json.hpp>
#include <regex>
#include <set>

namespace norel::Desktop::Domain::Payloads::Test {
namespace {

using Tree = nlohmann::ordered_json;
using Pointer = Tree::json_pointer;
using Ids = std::set<unsigned int>;
using Differences = std::map<std::string, Ids>; // the path of a member, and the profiles in which it differs

std::string documentOf(unsigned int version) {
    return DefaultProducts::getSourceDocumentFromVersionInfo(version);
}

Differences differencesTo(unsigned int version) {
    Differences differences;
    const Tree before = Tree::parse(documentOf(version - 1));
    for (const Tree& to : Tree::parse(documentOf(version)))
        for (const Tree& from : before)
            for (const Tree& change : from["id"] == to["id"] ? Tree::diff(from, to) : Tree::array())
                differences[(change["op"] == "remove" ? "lost: " : "") + change["path"].get<std::string>()]
                    .insert(to["id"].get<unsigned int>());
    return differences;
}

struct Product {
    unsigned int id;
    const char* name;
    const char* fileExtension; // null for a product without lidar
    const char* alignment;
    std::vector<std::string> cameras;
    const char* mount;
    bool hasExternalImu;
};

const std::vector<std::string> RIG{"s-nadir", "x-rear", "w-front", "d-right", "a-left"};
const char* const GIMBAL = "synthetize gimbal data";
const Product PRODUCTS[] = {
    {793, "Korvane Gamma Vega", "rxp", "z y -x", {}, "none", true},
    {792, "Korvane Gamma Nova", "rxp", "z y -x", {}, "none", true},
    {523, "Tessaly Alpha Light", nullptr, nullptr, {"nadir"}, "none", false},
    {409, "Korvane Alpha Reach", "pck", "-z -x y", {"nadir"}, "none", false},
    {100, "Tessaly Alpha Relief", nullptr, nullptr, RIG, "none", false},
    {99, "Tessaly Gamma Relief", nullptr, nullptr, RIG, GIMBAL, true},
    {88, "Korvane Alpha Fine", "pck", "z y -x", {"nadir"}, "none", false},
    {8, "Tessaly Gamma Ultra", nullptr, nullptr, {"nadir"}, GIMBAL, true},
    {7, "Tessaly Gamma", nullptr, nullptr, {"nadir"}, GIMBAL, true},
    {5, "Tessaly Alpha", nullptr, nullptr, {"nadir"}, "none", false},
    {4, "Korvane Gamma Twin", "rxp", "y z x", {"nadir"}, "none", true},
    {3, "Korvane Gamma Reach", "rxp", "z y -x", {}, "none", true},
    {2, "Korvane Gamma", "rxp", "z y -x", {"nadir"}, "none", true},
    {1, "Korvane Alpha", "mrs", "x y z", {"nadir"}, "none", false},
};

TEST(FactoryDocuments, ExistForEveryVersion) {
    const std::map<unsigned int, std::size_t> sizes{{0, 0},      {1, 0},      {2, 154996}, {3, 215412},
                                                    {4, 249918}, {5, 363416}, {6, 0},      {4294967295U, 0}};
    for (const auto& [version, size] : sizes)
        EXPECT_EQ(documentOf(version).size(), size) << version;
    EXPECT_EQ(DefaultProducts::getSourceDocumentVersion2(), documentOf(2));
    EXPECT_EQ(DefaultProducts::getSourceDocumentVersion3(), documentOf(3));
    EXPECT_EQ(DefaultProducts::getSourceDocumentVersion4(), documentOf(4));
    EXPECT_EQ(DefaultProducts::getSourceDocument(), documentOf(5));
    // They have a regular layout, so the sizes above include no padding.
    for (unsigned int version = 2; version <= 5; ++version) {
        const std::string text = Tree::parse(documentOf(version)).dump(version == 5 ? 4 : 2);
        EXPECT_TRUE(documentOf(version) == std::regex_replace(text, std::regex("\n"), "\r\n")) << version;
    }
}

TEST(FactoryDocuments, ContainTheProductsInOrder) {
    for (unsigned int version = 2; version <= 5; ++version) {
        std::vector<Product> products;
        for (const Product& product : PRODUCTS) {
            if (version > 2 || product.id < 792)
                products.push_back(product);
            if (version == 2 && product.id == 409)
                products.push_back({370, "Korvane Alpha Fine", "pck", "z y -x", {"nadir"}, "none", false});
        }
        const Tree profiles = Tree::parse(documentOf(version));
        ASSERT_EQ(profiles.size(), products.size());
        for (std::size_t i = 0; i < products.size(); ++i) {
            const Tree &profile = profiles[i], &lidar = profile.at("lidar"),
                       &trajectory = profile["trajectory"];
            const Product& product = products[i];
            SCOPED_TRACE(std::to_string(product.id) + " in version " + std::to_string(version));
            EXPECT_EQ(profile["id"], product.id);
            EXPECT_EQ(profile["name"], product.name);
            EXPECT_EQ(profile["product"], product.name);
            EXPECT_TRUE(profile.at("serial_number").is_null() && profile.at("uploads").is_null());
            for (const char* key : {"creation_time", "last_modification_time"})
                EXPECT_THAT(profile[key].get<std::string>(),
                            testing::MatchesRegex("20[0-9-]{8}T[0-9]{2}:[0-9]{2}:[0-9]{2}\\+00:00"));
            std::vector<std::string> cameras;
            for (const Tree& camera : trajectory["cameras"])
                cameras.push_back(camera["orientation"]);
            EXPECT_EQ(cameras, product.cameras);
            EXPECT_EQ(trajectory["stabilized_mount"], product.mount);
            EXPECT_EQ(trajectory.contains("imu_external"), product.hasExternalImu);
            ASSERT_EQ(lidar.is_object(), product.fileExtension != nullptr);
            if (lidar.is_null())
                continue;
            EXPECT_EQ(lidar.size(), std::min(version + 7, 11U));
            EXPECT_EQ(lidar["file_extension"], product.fileExtension);
            EXPECT_EQ(lidar["alignment"], product.alignment);
            EXPECT_THAT(lidar["lidar_coverage_preview"]["downsampling_rate"]["value"].get<double>(),
                        testing::AnyOf(0.99, 0.995, 0.999));
            EXPECT_THAT(lidar["georeferencing"]["field_of_views"].size(),
                        testing::AllOf(testing::Ge(1U), testing::Le(5U)));
        }
    }
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

TEST(FactoryDocuments, DifferBetweenVersionsInTheseMembersOnly) {
    const Ids all{1, 2, 3, 4, 88, 409, 792, 793};
    const std::string precision = "/lidar/precision_enhancement/", ground = "/lidar/ground_classification/";
    const std::string rejection = precision + "morphological_rejection/";
    const std::string segmentation = ground + "interior_processing/segmentation/maximum_orthogonal_distance/";
    const std::string camera = "/trajectory/cameras/0/";
    EXPECT_EQ(differencesTo(3), (Differences{{"/lidar/ground_classification", {1, 2, 3, 4, 88, 409}},
                                             {camera + "boresight_angles/Tz/defaultValue", {409}},
                                             {camera + "boresight_angles/Tz/value", {409}},
                                             {camera + "kappa_cardinal/defaultValue", {409}},
                                             {camera + "kappa_cardinal/value", {409}}}));
    Differences toFour{{"/lidar/point_cloud_direct_colorization", all},
                       {precision + "average_point_cloud_thickness/maximum", {1, 2, 3, 4, 88, 792, 793}},
                       {precision + "neighbors_search_radius/maximum", all},
                       {precision + "maximum_neighbors_to_consider/precision", all},
                       {rejection + "average_point_cloud_density/precision", all},
                       {rejection + "number_of_neighbors/precision", {1, 2, 3, 4, 409, 792, 793}},
                       {rejection + "outlying_score_threshold/precision", all},
                       {segmentation + "minimum", all}};
    for (const char* member : {"defaultValue", "value", "precision"}) {
        for (const char* key :
             {"neighbors_search_radius/", "average_point_cloud_thickness/", "suppression_threshold/"})
            toFour[precision + key + member] = all;
        toFour[segmentation + member] = all;
    }
    for (const char* member : {"defaultValue", "value"})
        toFour[rejection + "outlying_score_threshold/" + member] = {1, 2, 4, 409, 792, 793};
    for (const char* name : {"flat urban", "hilly urban", "flat natural", "hilly natural", "mountainous"})
        toFour[segmentation + "presets/" + name] = all;
    EXPECT_EQ(differencesTo(4), toFour);
    EXPECT_EQ(differencesTo(5),
              (Differences{{ground + "dsm", all},
                           {"/lidar/strip_adjustment/temporal_time_frame/defaultValue", all},
                           {"/lidar/strip_adjustment/temporal_time_frame/value", all}}));
}

TEST(FactoryDocuments, ContainTheCharacteristicValuesOfTheirVersion) {
    const auto limits = [](double value, double minimum, double maximum, double precision, const char* unit) {
        return Tree{{"defaultValue", value},  {"minimum", minimum}, {"maximum", maximum},
                    {"precision", precision}, {"value", value},     {"unit", unit}};
    };
    const Tree dsm{{"grid_size", limits(0.1, 0.05, 1, 0.01, "m")},
                   {"tiles_size", limits(4000, 500, 10000, 100, "px")},
                   {"tiles_overlap", limits(400, 100, 2000, 10, "px")}};
    for (unsigned int version = 2; version <= 5; ++version)
        for (const Tree& profile : Tree::parse(documentOf(version))) {
            if (profile["lidar"].is_null())
                continue;
            SCOPED_TRACE(profile["id"].dump() + " in version " + std::to_string(version));
            const auto expect = [&](const char* pointer, const Tree& value) {
                EXPECT_EQ(profile["lidar"].at(Pointer(pointer)), value) << pointer;
            };
            const bool isRetuned = version >= 4;
            expect("/precision_enhancement/neighbors_search_radius/maximum", isRetuned ? 0.5 : 2.5);
            expect("/precision_enhancement/average_point_cloud_thickness/maximum",
                   isRetuned || profile["id"] == 409 ? 0.5 : 1);
            expect("/strip_adjustment/temporal_time_frame/value", version == 5 ? 25 : 5);
            expect("/strip_adjustment/temporal_time_frame/defaultValue", version == 5 ? 25 : 5);
            if (version >= 3)
                expect("/ground_classification/interior_processing/segmentation/maximum_orthogonal_distance/"
                       "precision",
                       isRetuned ? 0.01 : 0.1);
            if (version == 5)
                expect("/ground_classification/dsm", dsm);
            if (profile["id"] == 409) {
                const Tree& camera = profile["trajectory"]["cameras"][0];
                EXPECT_EQ(camera["boresight_angles"]["Tz"]["value"], version == 2 ? 0 : 10800);
                EXPECT_EQ(camera["kappa_cardinal"]["value"], version == 2 ? 90 : -90);
            }
        }
}

} // namespace
} // namespace norel::Desktop::Domain::Payloads::Test
