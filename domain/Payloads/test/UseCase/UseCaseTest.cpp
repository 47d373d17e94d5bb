#include "FixedClockProvider.h"
#include "ProfileLists.h"

#include <gmock/gmock.h>

namespace norel::Desktop::Domain::Payloads::UseCase {
namespace {

using namespace Payloads::Test;
using Desktop::Test::FixedClockProvider;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::ThrowsMessage;

constexpr unsigned int NONE = Profile::ID_IS_UNASSIGNED;

/// A list in memory that counts the calls. Each call first runs `failRead` or `failWrite`, which may throw.
struct MemoryStorage : ProfileListStorage {
    explicit MemoryStorage(const ProfileList& initial) : list(initial) {}

    void remove() override { ADD_FAILURE() << "no use case may remove the document"; }
    ProfileList read() override {
        ++reads;
        failRead();
        return list;
    }
    void write(const ProfileList& written) override {
        ++writes;
        failWrite();
        list = written;
    }

    ProfileList list;
    int reads = 0, writes = 0;
    std::function<void()> failRead = [] {}, failWrite = [] {};
};

std::shared_ptr<MemoryStorage>
makeStorage(const std::vector<std::pair<unsigned int, std::string>>& profiles) {
    return std::make_shared<MemoryStorage>(makeList(profiles));
}

DateTime::DateTime dayNumber(int day) {
    return DateTime::DateTime(std::chrono::sys_days(std::chrono::days(day)));
}

TEST(UseCases, RejectNullParameters) {
    const std::shared_ptr<ProfileListStorage> storage = makeStorage({}), none;
    const std::string profileListStorage = "The \"profile list storage\" parameter cannot be null.";
    const std::pair<std::function<void()>, std::string> cases[] = {
        {[&] { AddOrUpdateProfile(none, nullptr); }, profileListStorage},
        {[&] { AddOrUpdateProfile(storage, nullptr); }, "The \"clock provider\" parameter cannot be null."},
        {[&] { DeleteProfile{none}; }, profileListStorage},
        {[&] { GetProfileListFromStorage{none}; }, profileListStorage},
        {[&] { MergeProfileStorages(none, none); },
         "The \"profile list source storage\" parameter cannot be null."},
        {[&] { MergeProfileStorages(storage, none); },
         "The \"profile list destination storage\" parameter cannot be null."},
    };
    for (const auto& [construct, message] : cases)
        EXPECT_THAT(construct, ThrowsMessage<std::runtime_error>(message));
}

TEST(AddOrUpdateProfile, AddsOrReplacesByIdAndSetsTheTimesOfTheCallersProfile) {
    struct {
        std::vector<std::pair<unsigned int, std::string>> before;
        unsigned int id;
        std::vector<std::pair<unsigned int, std::string>> after;
        std::size_t position;
        bool isAdded;
    } const cases[] = {
        {{}, NONE, {{1, "new"}}, 0, true},
        {{}, 7, {{7, "new"}}, 0, true},
        {{{3, "a"}, {1, "b"}}, NONE, {{3, "a"}, {1, "b"}, {4, "new"}}, 2, true},
        {{{3, "a"}, {1, "new"}}, 2, {{3, "a"}, {1, "new"}, {2, "new"}}, 2, true},
        {{{3, "a"}, {1, "b"}, {5, "c"}}, 1, {{3, "a"}, {1, "new"}, {5, "c"}}, 1, false},
    };
    for (const auto& test : cases) {
        const auto storage = makeStorage(test.before);
        const auto clock = std::make_shared<FixedClockProvider>(dayNumber(9));
        Profile::Builder builder = makeProfile(test.id, "new");
        builder.creationTime = builder.lastModificationTime = dayNumber(2);
        Profile profile = builder.build();
        AddOrUpdateProfile(storage, clock).execute(profile);
        EXPECT_EQ(idsAndNames(storage->list), test.after);
        EXPECT_TRUE(storage->list.list()[test.position] == profile);
        EXPECT_EQ(profile.getCreationTime(), dayNumber(test.isAdded ? 9 : 2));
        EXPECT_EQ(profile.getLastModificationTime(), dayNumber(9));
        EXPECT_THAT((std::vector{clock->calls, storage->reads, storage->writes}), ElementsAre(1, 1, 1));
    }
}

TEST(AddOrUpdateProfile, ChangesTheCallersProfileAfterTheReadAndBeforeTheWrite) {
    const auto storage = makeStorage({{1, "a"}});
    const auto clock = std::make_shared<FixedClockProvider>(dayNumber(9));
    const Profile original = makeProfile(NONE, "new").build();
    Profile profile = original;
    storage->failRead = [] { throw ProfileListStorage::CannotReadProfileList("unreadable"); };
    EXPECT_THAT([&] { AddOrUpdateProfile(storage, clock).execute(profile); },
                ThrowsMessage<ProfileListStorage::CannotReadProfileList>("unreadable"));
    EXPECT_TRUE(profile == original);
    EXPECT_EQ(storage->writes, 0);
    storage->failRead = [] {};
    storage->failWrite = [] { throw ProfileListStorage::CannotWriteProfileList("unwritable"); };
    EXPECT_THAT([&] { AddOrUpdateProfile(storage, clock).execute(profile); },
                ThrowsMessage<ProfileListStorage::CannotWriteProfileList>("unwritable"));
    EXPECT_EQ(profile.getId(), 2U);
    EXPECT_EQ(profile.getCreationTime(), dayNumber(9));
    EXPECT_TRUE(storage->list == makeList({{1, "a"}}));
}

TEST(DeleteProfile, WritesOnlyWhenTheProfileExists) {
    const auto storage = makeStorage({{5, "a"}, {2, "b"}, {9, "c"}});
    DeleteProfile deleteProfile(storage);
    deleteProfile.execute(2);
    EXPECT_THAT(idsAndNames(storage->list), ElementsAre(Pair(5, "a"), Pair(9, "c")));
    deleteProfile.execute(2);
    EXPECT_THAT((std::vector{storage->reads, storage->writes}), ElementsAre(2, 1));
}

TEST(MergeProfileStorages, AddsProfilesWithNewNames) {
    using Profiles = std::vector<std::pair<unsigned int, std::string>>;
    struct {
        Profiles source, destination, merged;
    } const cases[] = {
        {{{9, "a"}, {2, "b"}}, {}, {{9, "a"}, {2, "b"}}},
        {{{9, "a"}, {2, "b"}, {3, "a"}}, {}, {{9, "a"}, {2, "b"}}},
        {{{1, "A"}, {2, "a "}}, {{7, "a"}}, {{7, "a"}, {1, "A"}, {2, "a "}}},
        {{{7, "b"}, {3, "c"}, {8, "d"}},
         {{7, "a"}, {3, "z"}},
         {{7, "a"}, {3, "z"}, {8, "b"}, {9, "c"}, {10, "d"}}},
        {{}, {{4, "a"}, {6, "a"}}, {{4, "a"}, {6, "a"}}},
    };
    for (const auto& [sourceProfiles, destinationProfiles, merged] : cases) {
        const auto source = makeStorage(sourceProfiles), destination = makeStorage(destinationProfiles);
        MergeProfileStorages(source, destination).execute();
        EXPECT_EQ(idsAndNames(destination->list), merged);
        EXPECT_TRUE(source->list == makeList(sourceProfiles));
        EXPECT_THAT((std::vector{source->writes, destination->writes}), ElementsAre(0, 1));
    }
}

TEST(MergeProfileStorages, KeepsExistingProfilesAndCopiesTheOthersUnchanged) {
    const auto factory = std::make_shared<ProfileListDefaultProductsStorage>();
    const auto user = makeStorage({{409, "Korvane Gamma"}});
    MergeProfileStorages(factory, user).execute();
    const std::vector<Profile> profiles = user->list.list(), products = factory->read().list();
    ASSERT_EQ(profiles.size(), 14U);
    EXPECT_TRUE(profiles[0] == makeProfile(409, "Korvane Gamma").build());
    EXPECT_TRUE(profiles[1] == products[0]);
    Profile renumbered = products[3];
    renumbered.setId(794);
    EXPECT_TRUE(profiles[4] == renumbered);
}

TEST(MergeProfileStorages, PropagatesEveryFailure) {
    const auto source = makeStorage({{1, "a"}}), destination = makeStorage({});
    MergeProfileStorages merge(source, destination);
    const auto fail = [](const char* text) { return [text] { throw std::runtime_error(text); }; };
    destination->failWrite = fail("unwritable");
    EXPECT_THAT([&] { merge.execute(); }, ThrowsMessage<std::runtime_error>("unwritable"));
    destination->failRead = fail("destination");
    EXPECT_THAT([&] { merge.execute(); }, ThrowsMessage<std::runtime_error>("destination"));
    source->failRead = fail("source");
    EXPECT_THAT([&] { merge.execute(); }, ThrowsMessage<std::runtime_error>("source"));
    EXPECT_THAT((std::vector{destination->reads, destination->writes}), ElementsAre(2, 1));
    EXPECT_THAT(idsAndNames(destination->list), IsEmpty());
}

} // namespace
} // namespace norel::Desktop::Domain::Payloads::UseCase
