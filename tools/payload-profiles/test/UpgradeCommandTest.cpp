#include "RunApplication.h"

#include <algorithm>
#include <gmock/gmock.h>

namespace norel::Desktop::PayloadProfiles::Test {
namespace {

using Domain::Payloads::DefaultProducts::getSourceDocumentFromVersionInfo;
using testing::HasSubstr;

const std::string STEP_2 = "version 1 to 2: lidar.strip_adjustment added in 7 profiles, "
                           "lidar.precision_enhancement.average_point_cloud_thickness added in 7 profiles, "
                           "lidar.precision_enhancement.morphological_rejection.average_point_cloud_density "
                           "added in 7 profiles\n";

/// A factory document, which has null lidars. For version 1, the sections of version 2 are renamed.
std::string makeStoredDocument(unsigned int version) {
    std::string text = getSourceDocumentFromVersionInfo(std::max(version, 2U));
    if (version == 1)
        for (const char* key :
             {"\"strip_adjustment\"", "\"average_point_cloud_thickness\"", "\"average_point_cloud_density\""})
            text = replaced(text, key, "\"former\"");
    return text;
}

std::string found(unsigned int version) {
    return "old.json is version " + std::to_string(version) +
           ", judging by the sections of its lidar profiles\n";
}

std::string unchanged(const std::string& reason) { return "the file is unchanged: " + reason; }

class UpgradeCommandTest : public ApplicationTest {};

TEST_F(UpgradeCommandTest, UpgradesEachVersionToTheCurrentOne) {
    for (unsigned int version = 1; version <= 4; ++version) {
        const std::string lidars = version < 3 ? " added in 7 profiles\n" : " added in 8 profiles\n";
        const std::string steps[] = {STEP_2, "version 2 to 3: lidar.ground_classification" + lidars,
                                     "version 3 to 4: lidar.point_cloud_direct_colorization" + lidars,
                                     "version 4 to 5: lidar.ground_classification.dsm" + lidars};
        const std::string original = makeStoredDocument(version);
        const std::string backup = "old.json.v" + std::to_string(version) + ".bak";
        std::string output = found(version);
        for (unsigned int step = version; step <= 4; ++step)
            output += steps[step - 1];
        output.append("old.json is now version 5; the original was kept as ").append(backup).append("\n");
        write("old.json", original);
        expect("upgrade old.json", 0, output);
        EXPECT_EQ(read(backup), original);
        runWell("validate old.json");
        const std::string text = read("old.json");
        expect("upgrade old.json", 0, found(5) + "nothing to do\n");
        EXPECT_EQ(read("old.json"), text);
    }
}

TEST_F(UpgradeCommandTest, ReportsInADryRunWhatWouldBeReplaced) {
    const std::string document = makeStoredDocument(3);
    write("old.json", document);
    EXPECT_THAT(runWell("upgrade old.json --from 2 --to 3 --dry-run"),
                HasSubstr("version 2 to 3:\n  lidar.ground_classification would be replaced in 793 \"Korvane "
                          "Gamma Vega\", 792 "));
    expect("upgrade --dry-run old.json --to 4", 0,
           found(3) +
               "version 3 to 4:\n  lidar.point_cloud_direct_colorization would be added in 8 profiles\n"
               "nothing was changed: this was a dry run\n");
    EXPECT_EQ(read("old.json"), document);
    EXPECT_EQ(listFiles(), "old.json ");
}

TEST_F(UpgradeCommandTest, IsRecommendedForFilesOfEarlierVersions) {
    const std::string old = makeStoredDocument(3);
    const std::string advice = "the document is of version 3, not 5; run: payload-profiles upgrade ";
    write("my old.json", old);
    write("profile.json", makeDocument(88));
    const std::string refusal =
        failure("my old.json", "[json.exception.out_of_range.403] key 'dsm' not found at "
                               "[0].lidar.ground_classification (line 443); " +
                                   advice + "\"my old.json\"");
    for (const char* command :
         {"list 'my old.json'", "set 'my old.json' 88 name=x", "add p.json 'my old.json'",
          "add 'my old.json' profile.json", "merge factory 'my old.json'"})
        expect(command, 2, "", refusal);
    expect("validate 'my old.json'", 1,
           "my old.json:1:1: error: " + advice + "\"my old.json\"\n1 error, 0 warnings\n");
    // What the upgrade keeps is checked.
    write("old.json", replaced(old, "\"id\": 88", "\"id\": \"88\", \"idd\": 88"));
    expect("validate old.json", 1,
           "old.json:1:1: error: " + advice +
               "old.json, after fixing the errors below\n"
               "old.json:3528:11: error: [6].id: [json.exception.type_error.302] type must be number, but is "
               "string\n"
               "old.json:3528:17: warning: [6].idd: unknown member; it is ignored, and lost when the "
               "document is "
               "written\n2 errors, 1 warning\n");
}

TEST_F(UpgradeCommandTest, NeverReplacesADifferentBackup) {
    const std::string document = makeStoredDocument(4);
    const std::string refusal = "this backup already exists and differs from the file; move it away, or "
                                "upgrade with --no-backup";
    write("old.json", document);
    write("old.json.v4.bak", "mine");
    expect("upgrade old.json", 2, "", failure("old.json.v4.bak", refusal));
    expect("upgrade old.json --dry-run", 2, "", failure("old.json.v4.bak", refusal));
    EXPECT_EQ(read("old.json"), document);
    runWell("upgrade old.json --no-backup");
    EXPECT_EQ(read("old.json.v4.bak"), "mine");
    write("old.json", document);
    std::filesystem::remove(folder / "old.json.v4.bak");
    createLink("old.json", "old.json.v4.bak");
    if (std::filesystem::is_symlink(folder / "old.json.v4.bak"))
        expect("upgrade old.json", 2, "",
               failure("old.json.v4.bak",
                       "this backup is a symbolic link; move it away, or upgrade with --no-backup"));
    EXPECT_EQ(read("old.json"), document);
    std::filesystem::remove(folder / "old.json.v4.bak");
    for (const std::string& backup : {document, std::string()}) { // empty: of an interrupted upgrade
        write("old.json", document);
        write("old.json.v4.bak", backup);
        runWell("upgrade old.json");
        EXPECT_EQ(read("old.json.v4.bak"), document);
    }
}

TEST_F(UpgradeCommandTest, LeavesTheFileUnchangedOnFailure) {
    const std::string old = makeStoredDocument(2);
    const auto rename = [&](const char* part, const char* replacement) {
        return replaced(old, part, replacement);
    };
    std::string mixture = old;
    mixture.insert(mixture.find("\"lidar\": {") + 10, R"("ground_classification": {},)");
    std::string contradiction = old;
    contradiction.insert(contradiction.find("\"lidar\": {") + 10,
                         R"("point_cloud_direct_colorization": {},)");
    const std::string others =
        "88 \"Korvane Alpha Fine\", 4 \"Korvane Gamma Twin\", 3 \"Korvane Gamma Reach\", 2 "
        "\"Korvane Gamma\", 1 \"Korvane Alpha\"";
    std::string manyLidars = "[";
    for (int id = 1; id <= 22; ++id)
        manyLidars += (id > 1 ? ",{\"id\":" : "{\"id\":") + std::to_string(id) + ",\"name\":\"" +
                      std::string(id == 1 ? 101 : 1, 'n') + "\",\"lidar\":0}";
    std::string twentyLabels = "1 \"" + std::string(100, 'n') + "...\"";
    for (int id = 2; id <= 20; ++id)
        twentyLabels += ", " + std::to_string(id) + " \"n\"";
    const std::pair<std::string, std::string> cases[] = {
        {manyLidars + ']', unchanged("a lidar that is not an object cannot be upgraded, remove it from " +
                                     twentyLabels + " and 2 others")},
        {mixture, "the profiles are of several versions (version 2: 370 \"Korvane Alpha Fine\", " + others +
                      "; version 3: 409 \"Korvane Alpha Reach\"); give the one to upgrade from with --from"},
        {contradiction,
         "the profile 409 \"Korvane Alpha Reach\" has lidar.point_cloud_direct_colorization but lacks "
         "lidar.ground_classification; give its version with --from"},
        {rename("\"product\": \"Tessaly Alpha\"", "\"product\": \"Unknown\""),
         unchanged("the step to version 3 failed: A profile cannot be upgraded because its product, "
                   "\"Unknown\", is unknown.")},
        {rename("\"lidar\": null", "\"lidar\": \"none\""),
         unchanged("a lidar that is not an object cannot be upgraded, remove it from 523 \"Tessaly Alpha "
                   "Light\", 100 \"Tessaly Alpha Relief\", 99 \"Tessaly Gamma Relief\", 8 \"Tessaly Gamma "
                   "Ultra\", 7 \"Tessaly Gamma\", 5 \"Tessaly Alpha\"")},
        {rename("\"z y -x\"", "\"z y x y\""),
         unchanged(
             "as version 5 it is not a valid profile list: Profile Lidar: alignment \"z y x y\" is invalid "
             "at [2].lidar.alignment (line 771)")},
        {"[1", "[json.exception.parse_error.101] parse error at line 1, column 3: syntax error while parsing "
               "array - unexpected end of input; expected ']'"}};
    for (const auto& [text, message] : cases) {
        write("old.json", text);
        expect("upgrade old.json", 2, "", failure("old.json", message));
        EXPECT_EQ(read("old.json"), text);
    }
    write("old.json", old);
    EXPECT_EQ(read("old.json"), old);
    EXPECT_EQ(listFiles(), "old.json ");
}

} // namespace
} // namespace norel::Desktop::PayloadProfiles::Test
