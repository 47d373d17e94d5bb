#include "RunApplication.h"
#include "terminal/Nearest.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace norel::Desktop::PayloadProfiles::Test {
namespace {

TEST(Nearest, IsTheCandidateWithTheFewestTypingErrors) {
    const std::vector<std::string> commands{"list", "set", "reset", "show", "lidar.imu_latency"};
    const std::pair<const char*, std::optional<std::string>> cases[] = {
        {"lst", "list"},
        {"lits", "list"},
        {"listt", "list"},
        {"lisd", "list"},
        {"sets", "set"},
        {"resets", "reset"},
        {"lidar.imu_latncy", "lidar.imu_latency"},
        {"", std::nullopt},
        {"lt", std::nullopt},
        {"frobnicate", std::nullopt}};
    for (const auto& [word, nearest] : cases)
        EXPECT_EQ(findNearest(word, commands), nearest) << word;
    EXPECT_EQ(findNearest(std::string(100000, 'a'), commands), std::nullopt);
}

class EditTest : public ApplicationTest {
protected:
    EditTest() { write("p.json", makeDocument(88)); }

    static std::string changed(const std::string& lines) {
        return "changed 88 \"Korvane Alpha Fine\"\n" + lines;
    }
};

TEST_F(EditTest, SetsMembersOfAProfile) {
    const std::string neighbors = "lidar.ground_classification.number_of_neighbors";
    const std::pair<std::string, std::string> cases[] = {
        {"lidar.imu_latency=0.002", "  lidar.imu_latency: 0.001 -> 0.002 sec\n"},
        {"lidar.imu_latency=1.5 lidar.imu_latency.maximum=2",
         "  lidar.imu_latency: 0.002 -> 1.5 sec\n  lidar.imu_latency.maximum: 1 -> 2 sec\n"},
        {neighbors + "=@mountainous", "  " + neighbors + ": 20 -> 40\n"},
        {"'" + neighbors + ".presets.my site=30'", "  " + neighbors + ".presets.my site: absent -> 30\n"},
        {"'lidar.imu_latency.presets.my site=0.5' lidar.imu_latency.presets.b=0",
         "  lidar.imu_latency.presets: absent -> present\n"},
        {"lidar.imu_latency=@b", "  lidar.imu_latency: 1.5 -> 0 sec\n"},
        {".trajectory.cameras[0].kappa_cardinal.value=90",
         "  trajectory.cameras.[0].kappa_cardinal: -90 -> 90 deg\n"},
        {"lidar.georeferencing.field_of_views.[0].view.minimum=-80",
         "  lidar.georeferencing.field_of_views.[0].view.minimum: -126 -> -80\n"},
        {"'lidar.point_cloud_direct_colorization.terrain_typology=[\"field\"]'",
         "  lidar.point_cloud_direct_colorization.terrain_typology: "
         "[\"field\", \"urban\", \"forest\"] -> [\"field\"]\n"},
        {"serial_number=a=b", "  serial_number: \"\" -> \"a=b\"\n"}};
    for (const auto& [assignments, lines] : cases)
        expect("set p.json 88 " + assignments, 0, changed(lines));
    expect("set p.json 88 serial_number=a=b", 0, "unchanged 88 \"Korvane Alpha Fine\"\n");
    expect("set p.json 88 'name=Drone 7'", 0, changed("  name: \"Korvane Alpha Fine\" -> \"Drone 7\"\n"));
}

TEST_F(EditTest, SetsAllMembersOrNone) {
    const std::string parameter = "Profile Parameter: ";
    const std::string neighbors = "lidar.ground_classification.number_of_neighbors";
    const std::pair<std::string, std::string> cases[] = {
        {"lidar.imu_latency=5",
         "lidar.imu_latency=5: " + parameter + "value (5) must be within min/max (-1/1) sec"},
        {"lidar.imu_latency.unit=s", "lidar.imu_latency.unit=s: " + parameter +
                                         R"(unit "s" is not supported; allowed: )"
                                         R"("sec", "m", "deg", "arcmin", "pts/m^2", "px", "")"},
        {"lidar.imu_latency=1s", "lidar.imu_latency=1s: the value must be a number, such as 0.5 or 1e-05"},
        {neighbors + "=-1", neighbors + "=-1: the value must be a whole number from 0 to 4294967295"},
        {neighbors + "=@hills", neighbors + "=@hills: the parameter has no such preset; it has flat natural, "
                                            "flat urban, hilly natural, hilly urban, mountainous"},
        {"trajectory.stabilized_mount=no",
         "trajectory.stabilized_mount=no: Profile Trajectory: stabilized mount "
         R"("no" is invalid; allowed: "none", "synthetize gimbal data")"},
        {"lidar.georeferencing.field_of_views.[0].is_default=yes",
         "lidar.georeferencing.field_of_views.[0].is_default=yes: the value must be true or false"},
        {"lidar.imu_latncy=1",
         R"(there is no "lidar.imu_latncy" in the profile; did you mean lidar.imu_latency?)"},
        {"imu_latency=1", R"(there is no "imu_latency" in the profile; did you mean lidar.imu_latency?)"},
        {"trajectory.cameras.[1].orientation=nadir",
         R"(there is no "trajectory.cameras.[1].orientation" in the profile; did you mean )"
         "trajectory.cameras.[0].orientation?"},
        {"frobnicate=1", R"(there is no "frobnicate" in the profile)"},
        {"trajectory.imu_external.lever_arm.x=1",
         R"(the profile has no "trajectory.imu_external"; "reset FILE ID trajectory.imu_external --factory" )"
         "adds that of the factory profile of its product, if it has one"},
        {"lidar.lidar_coverage_preview.downsampling_rate.presets.a=1",
         R"(there is no "lidar.lidar_coverage_preview.downsampling_rate.presets.a" in the profile; did )"
         "you mean lidar.lidar_coverage_preview.downsampling_rate?"},
        {"lidar.lever_arm=1",
         R"("lidar.lever_arm" is a section; name one of its members, such as lidar.lever_arm.x)"},
        {"id=5", "id cannot be assigned"},
        {"name=", "name=: The \"name\" string cannot be empty."},
        {"name=a name=b", "name is assigned twice"}};
    const std::string before = read("p.json");
    for (const auto& [assignments, message] : cases)
        expect("set p.json 88 serial_number=7 " + assignments, 2, "",
               failure("p.json", "nothing was changed: " + message));
    expect("set p.json 5 name=x", 2, "", failure("p.json", "there is no profile 5; nothing was changed"));
    EXPECT_EQ(read("p.json"), before);
}

TEST_F(EditTest, ResetsMembersOfAProfile) {
    expect("reset p.json 88 lidar.imu_latency", 0, changed("  lidar.imu_latency: 0.001 -> 0 sec\n"));
    expect("reset p.json 88 lidar.imu_latency", 0, "unchanged 88 \"Korvane Alpha Fine\"\n");
    expect("reset p.json 88 lidar --factory", 0, changed("  lidar.imu_latency: 0 -> 0.001 sec\n"));
    const std::string values = runWell("show p.json 88");
    runWell("reset p.json 88");
    EXPECT_THAT(runWell("show p.json 88"), testing::Not(testing::HasSubstr("differs from its default")));
    runWell("set p.json 88 lidar.imu_latency.maximum=2");
    runWell("reset p.json 88 --factory");
    expect("diff p.json factory --by product", 0, "");
    write("p.json", replaced(makeDocument(88), "\"lidar\"", "\"l\""));
    expect("reset p.json 88 lidar.imu_latency --factory --drop-unknown", 2, "",
           failure("p.json",
                   "nothing was changed: the profile has no \"lidar\"; \"reset FILE ID lidar --factory\" "
                   "adds that of the factory profile of its product, if it has one"));
    runWell("reset p.json 88 lidar --factory --drop-unknown");
    expect("diff p.json factory --by product", 0, "");
    const std::pair<const char*, const char*> refusals[] = {
        {"lidar.imu", R"(there is no "lidar.imu" in the profile)"},
        {"lidar.lidar_coverage_preview",
         "lidar.lidar_coverage_preview has no default; --factory resets it to the "
         "factory profile"},
        {"trajectory.imu_external --factory",
         R"(the factory profile of the product has no "trajectory.imu_external")"},
        {"lidar.imu_latncy --factory",
         R"(there is no "lidar.imu_latncy" in the profile; did you mean lidar.imu_latency?)"}};
    for (const auto& [path, message] : refusals)
        expect(std::string("reset p.json 88 ") + path, 2, "",
               failure("p.json", std::string("nothing was changed: ") + message));
}

TEST_F(EditTest, CopiesAndRenamesProfiles) {
    expect("copy factory 5 p.json", 0, "added 5 \"Tessaly Alpha\"\n");
    expect("copy p.json 5 p.json --name 'Drone 7'", 0, "added 89 \"Drone 7\": the id 5 is taken\n");
    expect("rename p.json 89 'Drone 8'", 0, "changed 89 \"Drone 7\"\n  name: \"Drone 7\" -> \"Drone 8\"\n");
    expect("rename p.json 89 ''", 2, "",
           failure("p.json", "nothing was changed: The \"name\" string cannot be empty."));
    expect("copy factory 6 q.json", 2, "", failure("factory", "there is no profile 6"));
    expect("copy p.json 5 factory", 2, "", failure("factory", "this is a source that cannot be changed"));
    EXPECT_EQ(listFiles(), "p.json ");
}

TEST_F(EditTest, ComparesProfiles) {
    const std::string document = read("p.json");
    write("q.json", replaced(DataFormat::Json::fromString(document).toString(-1),
                             "\"name\":", "\"other\":1,\"name\":"));
    expect("diff p.json q.json", 0, "");
    expect("diff p.json q.json --json", 0, "[]\n");
    write("q.json", replaced(document, "\"value\": 0.001,", "\"value\": 0.002,"));
    runWell("copy factory 5 q.json --name 'Drone\\7'");
    runWell("copy factory 7 p.json");
    const std::string changes =
        "changed 88 \"Korvane Alpha Fine\"\n  lidar.imu_latency: 0.001 -> 0.002 sec\n";
    for (const char* by : {"", " --by id", " --by name", " --by product"})
        expect(std::string("diff p.json q.json") + by, 1,
               changes + "removed 7 \"Tessaly Gamma\"\nadded 5 \"Drone\\7\"\n");
    expect("diff factory q.json --by product", 1, changes);
    expect("diff factory q.json --by name", 1, changes + "added 5 \"Drone\\7\"\n");
    expect("diff p.json q.json --by size", 2, "",
           "payload-profiles: --by: must be id, name or product\n"
           "payload-profiles: see payload-profiles diff --help\n");
    write("old.json",
          replaced(replaced(document, "\"dsm\"", "\"other\""), "\"value\": 0.001,", "\"value\": 9,"));
    expect("diff p.json old.json", 2, "",
           failure("old.json", "Profile Parameter: value (9) must be within min/max (-1/1) at "
                               "[0].lidar.imu_latency.value (line 16)"));
    expect("diff p.json missing.json", 2, "", failure("missing.json", "there is no such file"));
}

TEST_F(EditTest, ShowsWhatAnUpgradeAdds) {
    const std::string version4 = replaced(read("p.json"), "\"dsm\"", "\"other\"");
    write("q.json", replaced(version4, "\"value\": 0.001,", "\"value\": 0.002,"));
    write("p.json", version4);
    runWell("upgrade p.json");
    expect("diff p.json.v4.bak p.json", 1, changed("  lidar.ground_classification.dsm: absent -> present\n"));
    expect("diff q.json p.json", 1,
           changed("  lidar.imu_latency: 0.002 -> 0.001 sec\n"
                   "  lidar.ground_classification.dsm: absent -> present\n"));
    expect("diff q.json p.json.v4.bak --by name", 1, changed("  lidar.imu_latency: 0.002 -> 0.001 sec\n"));
}

TEST_F(EditTest, MakesOneListFromAnotherByAJsonPatch) {
    using nlohmann::json;
    const std::vector<unsigned int> ids{88, 100, 793};
    for (const unsigned int from : ids) {
        for (const unsigned int to : ids) {
            write("from.json", makeDocument(from));
            write("to.json", replaced(makeDocument(to), "\"id\": " + std::to_string(to),
                                      "\"id\": " + std::to_string(from)));
            for (const std::string file : {"from.json", "to.json"}) // in the layout of the library
                runWell("rename " + file + ' ' + std::to_string(from) + " 'a/b~c'");
            runWell("copy factory 1 " + std::string(from < to ? "from.json" : "to.json"));
            const int exitCode = run("diff from.json to.json --json");
            EXPECT_EQ(exitCode, 1) << from << ' ' << to;
            const json patch = json::parse(read("captured/output"));
            EXPECT_EQ(json::parse(read("from.json")).patch(patch), json::parse(read("to.json"))) << patch;
        }
    }
}

} // namespace
} // namespace norel::Desktop::PayloadProfiles::Test
