#include "Sample.h"

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
using Differences = std::map<std::string, Ids>; // the profiles that differ at a place

std::string documentOf(unsigned int version) {
    return DefaultProducts::getSourceDocumentFromVersionInfo(version);
}

/// The members at the bottom of a profile by their place; a section that `other` has not is one of them.
std::map<std::string, Tree> leavesOf(const Tree& profile, const Tree& other) {
    std::map<std::string, Tree> leaves;
    const Tree flat = profile.flatten();
    for (const auto& [place, value] : flat.items()) {
        std::size_t end = place.find('/', 1);
        while (end != std::string::npos && other.contains(Pointer(place.substr(0, end))))
            end = place.find('/', end + 1);
        leaves[place.substr(0, end)] = end == std::string::npos ? value : Tree("a section");
    }
    return leaves;
}

Differences differencesTo(unsigned int version) {
    Differences differences;
    const Tree before = Tree::parse(documentOf(version - 1));
    for (const Tree& to : Tree::parse(documentOf(version)))
        for (const Tree& from : before) {
            if (from["id"] != to["id"])
                continue;
            std::map<std::string, Tree> old = leavesOf(from, to);
            for (const auto& [place, value] : leavesOf(to, from)) {
                if (old.count(place) == 0 || old[place] != value)
                    differences[place].insert(to["id"].get<unsigned int>());
                old.erase(place);
            }
            for (const auto& [place, value] : old)
                differences["lost: " + place].insert(to["id"].get<unsigned int>());
        }
    return differences;
}

struct Product {
    unsigned int id;
    const char* name;
    const char* fileExtension; // none for a product without lidar
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

TEST(FactoryDocuments, AreThereForTheirVersions) {
    const std::map<unsigned int, std::size_t> sizes{{0, 0},      {1, 0},      {2, 154996}, {3, 215412},
                                                    {4, 249918}, {5, 363416}, {6, 0},      {4294967295U, 0}};
    for (const auto& [version, size] : sizes)
        EXPECT_EQ(documentOf(version).size(), size) << version;
    EXPECT_EQ(DefaultProducts::getSourceDocumentVersion2(), documentOf(2));
    EXPECT_EQ(DefaultProducts::getSourceDocumentVersion3(), documentOf(3));
    EXPECT_EQ(DefaultProducts::getSourceDocumentVersion4(), documentOf(4));
    EXPECT_EQ(DefaultProducts::getSourceDocument(), documentOf(5));
    // They are laid out as usual, with nothing to fill up the size.
    for (unsigned int version = 2; version <= 5; ++version) {
        const std::string text = Tree::parse(documentOf(version)).dump(version == 5 ? 4 : 2);
        EXPECT_TRUE(documentOf(version) == std::regex_replace(text, std::regex("\n"), "\r\n")) << version;
    }
}

/// The sections of a lidar in a version of the document.
std::vector<std::string> lidarSectionsOf(unsigned int version) {
    std::vector<std::string> sections{"file_extension",
                                      "imu_latency",
                                      "alignment",
                                      "lever_arm",
                                      "georeferencing",
                                      "boresight_calibration",
                                      "precision_enhancement",
                                      "lidar_coverage_preview",
                                      "strip_adjustment"};
    if (version >= 3)
        sections.emplace_back("ground_classification");
    if (version >= 4)
        sections.emplace_back("point_cloud_direct_colorization");
    return sections;
}

TEST(FactoryDocuments, HoldTheProductsInOrderWithTheSectionsOfTheirVersion) {
    for (unsigned int version = 2; version <= 5; ++version) {
        std::vector<std::pair<unsigned int, std::string>> expected, found;
        for (const Product& product : PRODUCTS) {
            if (version > 2 || product.id < 792)
                expected.emplace_back(product.id, product.name);
            if (version == 2 && product.id == 409)
                expected.emplace_back(370, "Korvane Alpha Fine");
        }
        for (const Tree& profile : Tree::parse(documentOf(version))) {
            SCOPED_TRACE(profile["id"].dump() + " in version " + std::to_string(version));
            found.emplace_back(profile["id"], profile["product"]);
            EXPECT_EQ(profile["name"], profile["product"]);
            EXPECT_TRUE(profile.at("serial_number").is_null() && profile.at("uploads").is_null());
            for (const char* key : {"creation_time", "last_modification_time"})
                EXPECT_THAT(profile[key].get<std::string>(),
                            testing::MatchesRegex("20[0-9-]{8}T[0-9]{2}:[0-9]{2}:[0-9]{2}\\+00:00"));
            const Tree& lidar = profile.at("lidar");
            ASSERT_EQ(lidar.is_null(), found.back().second.front() == 'T');
            if (lidar.is_null())
                continue;
            std::vector<std::string> sections;
            for (const auto& [key, section] : lidar.items())
                sections.push_back(key);
            EXPECT_EQ(sections, lidarSectionsOf(version));
            EXPECT_EQ(lidar.contains(Pointer("/ground_classification/dsm")), version == 5);
        }
        EXPECT_EQ(found, expected) << version;
    }
}

TEST(FactoryDocuments, OfTheCurrentVersionReadAsTheProducts) {
    const std::vector<Profile> profiles = ProfileListDefaultProductsStorage().read().list();
    ASSERT_EQ(profiles.size(), std::size(PRODUCTS));
    for (std::size_t i = 0; i < profiles.size(); ++i) {
        const Profile& profile = profiles[i];
        const Product& product = PRODUCTS[i];
        SCOPED_TRACE(product.id);
        EXPECT_EQ(profile.getId(), product.id);
        EXPECT_EQ(profile.getName(), product.name);
        EXPECT_EQ(profile.getProduct(), product.name);
        EXPECT_EQ(profile.getSerialNumber(), "");
        ASSERT_EQ(profile.getLidar().has_value(), product.fileExtension != nullptr);
        if (product.fileExtension) {
            EXPECT_EQ(profile.getLidar()->getFileExtension(), product.fileExtension);
            EXPECT_EQ(profile.getLidar()->getAlignment(), product.alignment);
            const double rate =
                profile.getLidar()->getLidarCoveragePreview().getDownsamplingRate().getValue();
            EXPECT_TRUE(rate == 0.99 || rate == 0.995 || rate == 0.999) << rate;
            const std::size_t fieldOfViews =
                profile.getLidar()->getGeoreferencing().getFieldOfViews().getListOfFieldOfViews().size();
            EXPECT_TRUE(fieldOfViews >= 1 && fieldOfViews <= 5) << fieldOfViews;
        }
        std::vector<std::string> cameras;
        const Cameras listed = profile.getTrajectory().getCameras();
        for (const Camera& camera : listed.getListOfCameras())
            cameras.push_back(camera.getOrientation());
        EXPECT_EQ(cameras, product.cameras);
        EXPECT_EQ(profile.getTrajectory().getStabilizedMount(), product.mount);
        EXPECT_EQ(profile.getTrajectory().getImuExternal().has_value(), product.hasExternalImu);
    }
}

TEST(FactoryDocuments, AreRewrittenWithoutWhatTheModelDoesNotKnow) {
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

TEST(FactoryDocuments, DifferFromVersionToVersionInTheseMembersOnly) {
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

TEST(FactoryDocuments, HoldTheTellingValuesOfTheirVersion) {
    const auto full = [](double value, double minimum, double maximum, double precision, const char* unit) {
        return Tree{{"defaultValue", value},  {"minimum", minimum}, {"maximum", maximum},
                    {"precision", precision}, {"value", value},     {"unit", unit}};
    };
    const Tree dsm{{"grid_size", full(0.1, 0.05, 1, 0.01, "m")},
                   {"tiles_size", full(4000, 500, 10000, 100, "px")},
                   {"tiles_overlap", full(400, 100, 2000, 10, "px")}};
    for (unsigned int version = 2; version <= 5; ++version)
        for (const Tree& profile : Tree::parse(documentOf(version))) {
            if (profile["lidar"].is_null())
                continue;
            SCOPED_TRACE(profile["id"].dump() + " in version " + std::to_string(version));
            const auto expect = [&](const char* place, const Tree& value) {
                EXPECT_EQ(profile["lidar"].at(Pointer(place)), value) << place;
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
