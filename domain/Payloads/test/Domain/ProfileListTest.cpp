#include "norel/Desktop/Domain/Payloads/ProfileList.h"

#include "ProfileLists.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <iterator>
#include <ranges>

namespace norel::Desktop::Domain::Payloads::Test {
namespace {

using testing::ElementsAre;
using testing::Pair;
constexpr unsigned int NONE = Profile::ID_IS_UNASSIGNED;

TEST(ProfileList, AssignsIdsToAddedProfiles) {
    const std::pair<std::vector<unsigned int>, std::vector<unsigned int>> cases[] = {
        {{0, NONE}, {0, 1}},
        {{7, 7, NONE}, {7, 8, 9}},
        {{5, 2, NONE, 2}, {5, 2, 6, 7}},
        {{NONE, NONE, 1, 3, 3}, {1, 2, 3, 4, 5}},
        {{4294967293U, NONE, NONE, 9, NONE}, {4294967293U, 4294967294U, 4294967295U, 9, 0}},
        {{4294967294U, NONE, NONE, NONE, 0},
         {4294967294U, 4294967295U, 0, 0, 0}}, // wraps around; ids may then repeat
    };
    for (const auto& [given, expected] : cases) {
        ProfileList list;
        std::vector<unsigned int> assigned, stored;
        for (const unsigned int id : given) {
            Profile profile = makeProfile(id, "name").build();
            list.add(profile);
            assigned.push_back(profile.getId());
        }
        for (const Profile& profile : list)
            stored.push_back(profile.getId());
        EXPECT_EQ(assigned, expected);
        EXPECT_EQ(stored, expected);
    }
}

TEST(ProfileList, ReusesTheLargestIdOnceItsProfileIsRemoved) {
    ProfileList list = makeList({{1, "a"}, {9, "b"}, {4, "c"}});
    list.remove(5);
    EXPECT_EQ(list.list().size(), 3U);
    list.remove(9);
    EXPECT_THAT(idsAndNames(list), ElementsAre(Pair(1, "a"), Pair(4, "c")));
    Profile profile = makeProfile(NONE, "d").build();
    list.add(profile);
    EXPECT_EQ(profile.getId(), 5U);
    EXPECT_FALSE(list.existById(9));
    for (const unsigned int id : {5U, 1U, 4U})
        list.remove(id);
    profile = makeProfile(NONE, "e").build();
    list.add(profile);
    list.add(profile); // the same object again
    EXPECT_EQ(profile.getId(), 2U);
    EXPECT_THAT(idsAndNames(list), ElementsAre(Pair(1, "e"), Pair(2, "e")));
}

TEST(ProfileList, UsesTheFirstProfileWithAnIdOrName) {
    ProfileList list =
        makeList({{4294967294U, "a"}, {NONE, "a"}, {NONE, "c"}, {NONE, "d"}}); // the last two are both 0
    list.update(makeProfile(0, "e").build());
    list.update(makeProfile(17, "f").build());
    EXPECT_THAT(idsAndNames(list),
                ElementsAre(Pair(4294967294U, "a"), Pair(NONE, "a"), Pair(0, "e"), Pair(0, "d")));
    EXPECT_EQ((*list.get(0)).getName(), "e");
    list.remove(0);
    EXPECT_TRUE(list.existById(0));
    EXPECT_EQ((*list.get(0)).getName(), "d");
    EXPECT_EQ(list.getProfileByName("a")->getId(), 4294967294U);
    list.remove(0);
    EXPECT_FALSE(list.existById(0));
    EXPECT_TRUE(list.get(0) == list.end());
}

TEST(ProfileList, ComparesNamesByteForByte) {
    const ProfileList list = makeList({{1, "Korvane"}});
    EXPECT_TRUE(list.existByName("Korvane"));
    for (const char* name : {"korvane", "Korvane ", "Korvan", ""}) {
        EXPECT_FALSE(list.existByName(name)) << name;
        EXPECT_FALSE(list.getProfileByName(name).has_value()) << name;
    }
}

TEST(ProfileList, ComparesProfilesAndTheirOrder) {
    const ProfileList list = makeList({{1, "a"}, {2, "b"}});
    EXPECT_TRUE(list == makeList({{1, "a"}, {2, "b"}}));
    EXPECT_TRUE(list != makeList({{2, "b"}, {1, "a"}}));
    EXPECT_TRUE(list != makeList({{1, "a"}}));
    ProfileList reduced = makeList({{1, "a"}, {7, "c"}, {2, "b"}});
    reduced.remove(7);
    EXPECT_TRUE(list == reduced);
}

TEST(ProfileList, WorksWithStandardAlgorithmsAndRanges) {
    static_assert(std::input_iterator<ProfileListConstIterator> && std::ranges::input_range<ProfileList>);
    EXPECT_TRUE(ProfileList().empty());
    const ProfileList list = makeList({{1, "a"}, {7, "c"}, {2, "b"}});
    EXPECT_FALSE(list.empty());
    EXPECT_EQ(list.size(), 3U);
    EXPECT_EQ(std::ranges::find(list, 7U, &Profile::getId)->getName(), "c");
    std::string names;
    std::ranges::for_each(
        list, [&](const std::string& name) { names += name; }, &Profile::getName);
    EXPECT_EQ(names, "acb");
    ProfileListConstIterator position = list.begin();
    EXPECT_EQ((*position++).getId(), 1U);
    EXPECT_EQ((++position)->getId(), 2U);
}

} // namespace
} // namespace norel::Desktop::Domain::Payloads::Test
