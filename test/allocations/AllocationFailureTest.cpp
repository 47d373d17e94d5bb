#include "InMemoryTextFileStorage.h"
#include "MemoryShortage.h"
#include "ProfileLists.h"

/// An operation that runs out of memory throws std::bad_alloc, never another error, and leaves its values
/// unchanged.
namespace norel::Desktop::Domain::Payloads::Test {
namespace {

using DataFormat::Json;
using Desktop::Test::InMemoryTextFileStorage;
using Desktop::Test::MemoryShortage;
using Desktop::Test::runWithEachAllocationFailing;

const JsonProfileListSerializer serializer;

/// A list in memory, which a write replaces entirely or not at all.
struct MemoryStorage : ProfileListStorage {
    explicit MemoryStorage(const ProfileList& stored) : list(stored) {}

    void remove() override {}
    ProfileList read() override { return list; }
    void write(const ProfileList& written) override { list = ProfileList(written); }

    ProfileList list;
};

/// Runs `change` on a copy of `before`, which must then equal `after`, or still `before` if `change` failed.
template <typename Value, typename Change>
void expectAllOrNothing(const char* name, const Value& before, const Value& after, const Change& change) {
    SCOPED_TRACE(name);
    runWithEachAllocationFailing([&](MemoryShortage& shortage) {
        Value value = before;
        const bool isChanged = shortage.allows([&] { change(value); });
        EXPECT_TRUE(value == (isChanged ? after : before));
    });
}

TEST(AllocationFailure, OfReadingAndWriting) {
    const std::string text = serializer.serialize(makeFullList());
    const ProfileList list = serializer.deserialize(text);
    expectAllOrNothing("deserialize", ProfileList(), list,
                       [&](ProfileList& target) { target = serializer.deserialize(text); });
    expectAllOrNothing("serialize", std::string(), text,
                       [&](std::string& target) { target = serializer.serialize(list); });
}

TEST(AllocationFailure, OfChangingAList) {
    const ProfileList one = makeList({{1, "a"}}), two = makeList({{1, "a"}, {2, "b"}}), full = makeFullList();
    const Profile added = two.list().back(), longer = makeProfile(1, std::string(100, 'x')).build();
    expectAllOrNothing("add", one, two, [&](ProfileList& list) {
        Profile profile = added;
        list.add(profile);
    });
    expectAllOrNothing("update", one, makeList({{1, longer.getName()}}),
                       [&](ProfileList& list) { list.update(longer); });
    expectAllOrNothing("assign a shorter list", full, two, [&](ProfileList& list) { list = two; });
    expectAllOrNothing("assign a longer list", two, full, [&](ProfileList& list) { list = full; });
}

TEST(AllocationFailure, OfMerging) {
    const ProfileList before = makeList({{1, "a"}}), after = makeList({{1, "a"}, {2, "b"}, {3, "c"}});
    runWithEachAllocationFailing([&](MemoryShortage& shortage) {
        const auto source = std::make_shared<MemoryStorage>(makeList({{1, "b"}, {3, "c"}}));
        const auto destination = std::make_shared<MemoryStorage>(before);
        const bool isMerged =
            shortage.allows([&] { UseCase::MergeProfileStorages(source, destination).execute(); });
        EXPECT_TRUE(destination->list == (isMerged ? after : before));
    });
}

TEST(AllocationFailure, OfUpgrading) {
    const std::string before = R"([{"product": "P", "lidar": {"a": [1, {"b": "text"}]}}])";
    const std::string defaults =
        R"([{"product": "p", "lidar": {"ground_classification": {"c": [null, 0.5]}}}])";
    const auto storage = std::make_shared<InMemoryTextFileStorage>();
    std::string& file = storage->files["f"];
    const auto upgrade = [&] { ProfileUpgrade().upgradeToVersion(3, storage, "f", defaults); };
    file = before;
    upgrade();
    const std::string after = file;
    runWithEachAllocationFailing([&](MemoryShortage& shortage) {
        file = before;
        const bool isUpgraded = shortage.allows(upgrade);
        EXPECT_EQ(file, isUpgraded ? after : before);
    });
}

TEST(AllocationFailure, OfJsonViews) {
    const std::string before = R"({"a":{"b":{"c":"a text that needs memory"}},"d":[1,2,{"e":null}]})";
    const std::string after = R"({"a":{"b":{"c":[1,2,{"e":null}]}},"d":[1,2,{"e":null}]})";
    runWithEachAllocationFailing([&](MemoryShortage& shortage) {
        Json document = Json::fromString(before);
        const Json copy = document;
        const bool isChanged = shortage.allows([&] {
            Json outer = document.getValue("a");
            Json inner = outer.getValue("b");
            const Json independent = inner;
            inner.set("c", document.getValue("d"));
        });
        EXPECT_EQ(document.toString(-1), isChanged ? after : before);
        EXPECT_EQ(copy.toString(-1), before);
    });
}

} // namespace
} // namespace norel::Desktop::Domain::Payloads::Test
