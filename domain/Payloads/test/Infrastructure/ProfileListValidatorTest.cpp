#include "norel/Desktop/Domain/Payloads/ProfileListValidator.h"

#include "InMemoryTextFileStorage.h"
#include "ProfileLists.h"
#include "norel/Desktop/Domain/Payloads/DefaultProducts.h"
#include "norel/Desktop/Domain/Payloads/ProfileUpgrade.h"

#include <algorithm>
#include <array>
#include <gmock/gmock.h>
#include <regex>

namespace norel::Desktop::Domain::Payloads::Test {
namespace {

using Finding = ProfileListValidator::Finding;
using Kind = ProfileListValidator::Kind;
using Severity = ProfileListValidator::Severity;

constexpr unsigned int CURRENT = 5;

ProfileListValidator::Result validate(const std::string& text, unsigned int version = CURRENT) {
    return ProfileListValidator().validate(text, {}, version);
}

/// "LINE:COLUMN KIND PATH: message"; the number of a warning's kind is in brackets.
std::string describe(const Finding& finding) {
    const std::string kind = std::to_string(static_cast<int>(finding.kind));
    return std::to_string(finding.line) + ":" + std::to_string(finding.column) + " " +
           (finding.severity == Severity::Error ? kind : "[" + kind + "]") + " " + finding.path + ": " +
           finding.message;
}

std::vector<std::string> describeAll(const std::string& text, unsigned int version = CURRENT) {
    std::vector<std::string> lines;
    for (const Finding& finding : validate(text, version).findings)
        lines.push_back(describe(finding));
    return lines;
}

/// The current version of a document of an earlier one.
std::string upgraded(const std::string& text, unsigned int version) {
    const auto files = std::make_shared<Desktop::Test::InMemoryTextFileStorage>();
    files->write("file", text);
    while (++version <= CURRENT)
        ProfileUpgrade().upgradeToVersion(version, files, "file",
                                          DefaultProducts::getSourceDocumentFromVersionInfo(version));
    return files->read("file");
}

/// The message of the serializer, empty when it reads the text.
std::string readingError(const std::string& text) {
    try {
        JsonProfileListSerializer().deserialize(text);
        return "";
    } catch (const std::exception& error) {
        return error.what();
    }
}

/// The message of the first error as the serializer words it, empty when there is none.
std::string firstError(const std::string& text, unsigned int version) {
    for (const auto& [severity, kind, path, line, column, message, constraints] :
         validate(text, version).findings)
        if (severity == Severity::Error)
            return kind == Kind::RuleBroken || path.empty() ? message : message + " at " + path;
    return "";
}

/// Replaces the first `part` after `from`.
void replace(std::string& text, const std::string& from, const std::string& part,
             const std::string& replacement) {
    const std::size_t position = text.find(part, text.find(from));
    ASSERT_NE(position, std::string::npos) << part;
    text.replace(position, part.size(), replacement);
}

std::string makeText(const std::vector<std::pair<unsigned int, std::string>>& profiles) {
    return JsonProfileListSerializer().serialize(makeList(profiles));
}

TEST(ProfileListValidator, ReportsTheErrorOfTheSerializerForEveryDamagedLeaf) {
    const std::regex leaf("\"[^\"\n]*\": ([^\n\\[{]*[^,\n\\[{])");
    const std::array<std::string, 15> values{"null", "true", "\"text\"", "\"\"",       "-0",
                                             "-1",   "0.5",  "1e300",    "4294967296", "[]",
                                             "{}",   "[{}]", "",         "1e",         "-3e9"};
    const auto firstProfile = [](unsigned int version) {
        const std::string document = DefaultProducts::getSourceDocumentFromVersionInfo(version);
        return DataFormat::Json(std::vector{*DataFormat::Json::fromString(document).begin()}).toString(4);
    };
    const struct {
        unsigned int version;
        std::string document;
        std::size_t step; // every which leaf is damaged
    } cases[] = {{CURRENT, JsonProfileListSerializer().serialize(makeFullList()), 1},
                 {2, firstProfile(2), 29},
                 {3, firstProfile(3), 31},
                 {4, firstProfile(4), 37}};
    for (const auto& [version, document, step] : cases) {
        const std::string text = std::regex_replace(document, std::regex("\n +"), "\n");
        ASSERT_EQ(firstError(text, version), "");
        std::size_t leaves = 0, damage = 0, errors = 0;
        for (std::sregex_iterator line(text.begin(), text.end(), leaf), end; line != end; ++line, ++leaves) {
            if (leaves % step != 0)
                continue;
            const auto begin = static_cast<std::size_t>(line->position(1));
            const auto length = static_cast<std::size_t>(line->length(1));
            const std::string& value = values[damage++ % values.size()];
            const std::string damaged = std::string(text).replace(begin, length, value);
            std::string current;
            try {
                current = upgraded(damaged, version);
            } catch (const std::exception&) { // no JSON, or an unknown product
                continue;
            }
            const std::string expected = readingError(current);
            ASSERT_EQ(firstError(damaged, version), expected)
                << version << ' ' << line->str() << " -> " << value;
            errors += expected.empty() ? 0U : 1U;
        }
        EXPECT_GT(errors, damage / 3) << version;
    }
}

TEST(ProfileListValidator, ChecksNoSectionOfALaterVersion) {
    const std::string lacking = "1 [0].lidar: [json.exception.out_of_range.403] key "
                                "'point_cloud_direct_colorization' not found";
    std::string text =
        DataFormat::Json(
            std::vector{*DataFormat::Json::fromString(DefaultProducts::getSourceDocumentVersion3()).begin()})
            .toString(4);
    EXPECT_EQ(describeAll(text, 3), std::vector<std::string>());
    EXPECT_EQ(describeAll(text, 4), std::vector<std::string>{"9:18 " + lacking});
    replace(text, "\"lidar\"", "\"lidar\": {",
            "\"lidar\": {\"dsm\": 1, \"point_cloud_direct_colorization\": 2,");
    replace(text, "\"ground_classification\"", "{", "{\"dsm\": 1,");
    EXPECT_EQ(
        describeAll(text, 3),
        std::vector<std::string>{
            "9:19 [5] [0].lidar.dsm: unknown member; it is ignored, and lost when the document is written"});
}

TEST(ProfileListValidator, FindsNothingInTheFactoryDocument) {
    std::string text = DefaultProducts::getSourceDocument();
    EXPECT_EQ(describeAll(text), std::vector<std::string>());
    // A key is a remain of earlier releases only where they wrote it.
    replace(text, "\"morphological_rejection\"", "\"number_of_neighbors\"", "\"neighbors_search_radius\"");
    EXPECT_EQ(describeAll(text),
              std::vector<std::string>{
                  "288:21 [5] "
                  "[0].lidar.precision_enhancement.morphological_rejection.neighbors_search_radius: unknown "
                  "member; it is ignored, and lost when the document is written"});
}

TEST(ProfileListValidator, FindsTenFaultsInThreeProfilesInOneRun) {
    const std::string valid = makeText({{1, "first"}, {2, "second"}, {3, "third"}});
    EXPECT_EQ(describeAll(valid), std::vector<std::string>());
    const struct {
        std::string after, part, replacement, finding;
    } faults[] = {
        {"first", "first", "", "4:17 3 [0].name: The \"name\" string cannot be empty."},
        {"Tessaly", "1970-", "",
         "7:26 2 [0].creation_time: \"01-01T00:00:00+00:00\" is not an ISO 8601 date-time such as "
         "2021-10-05T21:18:26+00:00"},
        {"\"x\"", "\"unit\": \"\"", "\"unit\": \"s\"",
         "17:33 3 [0].trajectory.imu_onboard.lever_arm.x.unit: Profile Parameter: unit \"s\" is not "
         "supported"},
        {"\"y\"", "\"value\": 0.0", "\"value\": \"0.0\"",
         "23:34 2 [0].trajectory.imu_onboard.lever_arm.y.value: [json.exception.type_error.302] type must be "
         "number, but is string"},
        {"second", "Tessaly Alpha\"", "\u00e4\", \"c\": null, \"b\": [5]",
         "100:36 [5] [1].b: unknown member; it is ignored, and lost when the document is written"},
        {"second", "\"cameras\": []", "\"cameras\": [7]",
         "188:25 2 [1].trajectory.cameras.[0]: [json.exception.type_error.304] cannot use at() with number"},
        {"second", "SD1m", "SD2m",
         "186:44 3 [1].trajectory.imu_onboard.gnss_standard_deviation: Profile Imu: GNSS standard deviation "
         "\"SD2m\" is invalid"},
        {"second", "none", "None",
         "189:33 3 [1].trajectory.stabilized_mount: Profile Trajectory: stabilized mount \"None\" is "
         "invalid"},
        {"\"id\": 3", "\"id\": 3", "\"id\": 1",
         "193:15 [7] [2].id: the id 1 is taken by an earlier profile; reading assigns another id"},
        {"third", ",\n            \"stabilized_mount\": \"none\"", "",
         "199:23 1 [2].trajectory: [json.exception.out_of_range.403] key 'stabilized_mount' not found"},
    };
    std::string text = valid;
    std::vector<std::string> expected;
    for (const auto& [after, part, replacement, finding] : faults) {
        replace(text, after, part, replacement);
        expected.push_back(finding);
    }
    EXPECT_THAT(describeAll(text), testing::UnorderedElementsAreArray(expected));
}

/// What is found in the full profile after the replacements.
std::vector<std::string> describeWith(const std::vector<std::array<std::string, 3>>& replacements) {
    std::string text = JsonProfileListSerializer().serialize(makeFullList());
    for (const auto& [after, part, replacement] : replacements)
        replace(text, after, part, replacement);
    std::vector<std::string> lines = describeAll(text);
    for (std::string& line : lines)
        line.erase(0, line.find(' ') + 1);
    return lines;
}

TEST(ProfileListValidator, ReportsEachFaultOnceAmongThoseThatFollowFromIt) {
    const std::string camera = "[0].trajectory.cameras.[0].",
                      criteria = "[0].lidar.boresight_calibration.number_of_criteria.";
    const std::string unknown = ": unknown member; it is ignored, and lost when the document is written";
    const std::string repeated = ": repeated member; only the last one is read";
    const std::string typeError = ": [json.exception.type_error.302] type must be ";
    const struct {
        std::vector<std::array<std::string, 3>> replacements;
        std::vector<std::string> findings;
    } cases[] = {
        // Nothing lies within wrong bounds, but the unit can still be checked.
        {{{"imu_latency", "\"minimum\": 0.0", "\"minimum\": 5000.5"},
          {"imu_latency", "\"unit\": \"m\"", "\"unit\": \"km\""}},
         {"3 [0].lidar.imu_latency.minimum: Profile Parameter: minimum (5000.5) must be smaller or equal to "
          "maximum (4000)",
          "3 [0].lidar.imu_latency.unit: Profile Parameter: unit \"km\" is not supported"}},
        {{{"\"cameras\"", "nadir", "unknown"}, {"unknown\"", "a-left", "unknown"}},
         {"3 " + camera + "orientation: Profile Camera: orientation \"unknown\" is invalid",
          "3 [0].trajectory.cameras.[1].orientation: Profile Camera: orientation \"unknown\" is invalid"}},
        // The orientation is compared although another member of the camera is wrong.
        {{{"\"cameras\"", "\"value\": ", "\"value\": null, \"v\": "}, {"\"cameras\"", "a-left", "nadir"}},
         {"2 " + camera + "lever_arm.x.value" + typeError + "number, but is null",
          "[5] " + camera + "lever_arm.x.v" + unknown,
          "3 [0].trajectory.cameras.[1].orientation: Profile Cameras: camera with orientation \"nadir\" "
          "appears more than once"}},
        {{{"field_of_views", "\"is_default\": true", "\"is_default\": 1"}},
         {"2 [0].lidar.georeferencing.field_of_views.[0].is_default" + typeError + "boolean, but is number"}},
        {{{"lidar_coverage_preview", "\"value\": ", "\"value\": 1"}},
         {"3 [0].lidar.lidar_coverage_preview.downsampling_rate.value: Profile LidarCoveragePreview: "
          "downsampling rate (10.11) must be smaller than one"}},
        {{{"lidar_coverage_preview", "\"value\": ", "\"value\": [], \"v\": "}},
         {"2 [0].lidar.lidar_coverage_preview.downsampling_rate.value" + typeError + "number, but is array",
          "[5] [0].lidar.lidar_coverage_preview.downsampling_rate.v" + unknown}},
        // A number that wraps is either against a rule or a warning.
        {{{"number_of_criteria", "\"value\": ", "\"value\": -"}},
         {"3 " + criteria + "value: Profile Parameter: value (4294967164) must be within min/max (0/4000)"}},
        {{{"number_of_criteria", "\"Low\": 1", "\"Low\": 1.5, \"Low\": 2, \"\\u004cow\": 2.5"}},
         {"[6] " + criteria + "presets.Low" + repeated, "[6] " + criteria + "presets.Low" + repeated,
          "[4] " + criteria + "presets.Low: 2.5 is read as 2"}},
        {{{"number_of_criteria", "\"minimum\": 0", "\"minimum\": false"}},
         {"[2] " + criteria + "minimum: false is read as 0"}},
        {{{"[", "\"id\": ", "\"id\": 7, \"id\": 4294967296, \"x\": "}},
         {"[6] [0].id" + repeated, "[4] [0].id: 4294967296 is read as 0", "[5] [0].x" + unknown}},
        {{{"[", "\"id\": ", "\"id\": -"}, {"[", "\"id\": -", "\"id\": -1, \"x\": "}},
         {"[7] [0].id: the id 4294967295 requests a new id", "[5] [0].x" + unknown}},
    };
    for (const auto& [replacements, findings] : cases)
        EXPECT_EQ(describeWith(replacements), findings);
}

TEST(ProfileListValidator, FindsWhereATextStopsBeingAList) {
    const std::string syntax = "[json.exception.parse_error.101] parse error at line ";
    const std::pair<std::string, std::string> cases[] = {
        {"", ""},
        {"\xEF\xBB\xBF[5]", "1:2 2 [0]: [json.exception.type_error.304] cannot use at() with number"},
        {"\xEF\xBB\xBF[\n\"\u00e4\", tru]", "2:6 0 : " + syntax +
                                                "2, column 10: syntax error while parsing value - invalid "
                                                "literal; last read: '\"\u00e4\", tru]'"},
        {"[{}", "1:4 0 : " + syntax +
                    "1, column 4: syntax error while parsing array - unexpected end of input; expected ']'"},
        {"{}", "1:1 2 : [json.exception.type_error.302] type must be array, but is object"},
    };
    for (const auto& [text, finding] : cases) {
        const std::vector<std::string> lines = describeAll(text);
        EXPECT_EQ(lines.empty() ? "" : lines.front(), finding) << text;
    }
}

TEST(ProfileListValidator, ReadsValuesOfTheWrongKindWhateverTheyContain) {
    // Alone, the array would take too much memory for a JSON value.
    std::string deep = "[";
    for (int count = 0; count < 2000; ++count)
        deep += std::string(80, '[') + std::string(80, ']') + ",";
    deep += "0]";
    const std::string noObject = "[json.exception.type_error.304] cannot use at() with array";
    const std::string typeError = "[json.exception.type_error.302] type must be ";
    const std::array<std::string, 3> cases[] = {
        {R"([)", "]", "[0]: " + noObject},
        {R"([{"name":)", "}]", "[0].name: " + typeError + "string, but is array"},
        {R"([{"trajectory":{"cameras":[)", "]}}]", "[0].trajectory.cameras.[0]: " + noObject},
        {R"([{"lidar":{"imu_latency":{"presets":{"a":)", "}}}}]",
         "[0].lidar.imu_latency.presets: " + typeError + "number, but is array"}};
    for (const auto& [before, after, finding] : cases)
        EXPECT_THAT(describeAll(before + deep + after + std::string(deep.size(), ' ')),
                    testing::Contains(testing::EndsWith(" 2 " + finding)));
}

TEST(ProfileListValidator, KeepsErrorsWhenThereAreTooManyFindings) {
    constexpr std::size_t maximum = ProfileListValidator::MAXIMUM_FINDINGS;
    const auto makeList = [](const std::string& item, std::size_t count) {
        std::string text = "[" + item;
        for (; count > 1; --count)
            text += "," + item;
        return text + "]";
    };
    EXPECT_FALSE(validate(makeList("5", maximum)).isCut);
    for (const char* const item : {"5", "{\"a\":1}"}) {
        const auto result = validate(makeList(item, 2 * maximum));
        EXPECT_EQ(result.findings.size(), maximum);
        EXPECT_TRUE(result.isCut);
        for (const Finding& finding : result.findings)
            EXPECT_EQ(finding.severity, Severity::Error);
    }
}

TEST(ProfileListValidator, GivesTheConstraintsOfAParameterAndTheChoicesOfAText) {
    std::string text = JsonProfileListSerializer().serialize(makeFullList());
    replace(text, "imu_latency", "\"value\": ", "\"value\": 9999");
    replace(text, "\"cameras\"", "\"stabilized_mount\": ", "\"stabilized_mount\": \"x\", \"y\": ");
    const auto result = validate(text);
    ASSERT_EQ(result.findings.size(), 3U);
    EXPECT_EQ(result.findings[0].constraints.range, std::pair(0.0, 4000.0));
    EXPECT_EQ(result.findings[0].constraints.unit, "m");
    EXPECT_EQ(result.findings[1].constraints.choices,
              (std::vector<std::string>{"none", "synthetize gimbal data"}));
}

} // namespace
} // namespace norel::Desktop::Domain::Payloads::Test
