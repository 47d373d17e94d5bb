#include "CountingAllocator.h"
#include "Documents.h"
#include "FixedClockProvider.h"
#include "HandWritten.h"
#include "InMemoryTextFileStorage.h"
#include "RatioTable.h"
#include "norel/Desktop/Domain/Payloads/Payloads.h"

#include <algorithm>
#include <cstdio>
#include <limits>
#include <malloc.h>
#include <nlohmann/json.hpp>
#include <string_view>

namespace {

using namespace norel::Benchmark;
using namespace norel::Desktop::Domain::Payloads;
using nlohmann::ordered_json;
using norel::Desktop::Test::FixedClockProvider;
using norel::Desktop::Test::InMemoryTextFileStorage;

const std::string& documentOf(const benchmark::State& state) {
    return norel::Benchmark::documentOf(static_cast<std::size_t>(state.range(0)));
}

ProfileList read(const std::string& document) { return JsonProfileListSerializer().deserialize(document); }

/// Times the operation after a first run, in which the heap puts in order what earlier rows freed.
template <typename Operation>
void measure(benchmark::State& state, const Operation& operation) {
    const auto run = [&] {
        if constexpr (std::is_void_v<decltype(operation())>)
            operation();
        else
            benchmark::DoNotOptimize(operation());
    };
    run();
    for (auto _ : state)
        run();
}

void parse(benchmark::State& state) {
    const std::string& document = documentOf(state);
    measure(state, [&] { return ordered_json::parse(document); });
}

void dump(benchmark::State& state) {
    const ordered_json json = ordered_json::parse(documentOf(state));
    measure(state, [&] { return json.dump(4); });
}

void deserialize(benchmark::State& state) {
    const std::string& document = documentOf(state);
    measure(state, [&] { return read(document); });
}

void serialize(benchmark::State& state) {
    const ProfileList list = read(documentOf(state));
    measure(state, [&] { return JsonProfileListSerializer().serialize(list); });
}

void readByHand(benchmark::State& state) {
    const std::string& document = documentOf(state);
    measure(state, [&] { return HandWrittenProfiles(document); });
}

void writeByHand(benchmark::State& state) {
    const HandWrittenProfiles profiles(documentOf(state));
    measure(state, [&] { return profiles.toDocument(); });
}

void copy(benchmark::State& state) {
    const ProfileList list = read(documentOf(state));
    measure(state, [&] { return ProfileList(list); });
}

void compare(benchmark::State& state) {
    const ProfileList list = read(documentOf(state));
    const ProfileList equal = list;
    measure(state, [&] { return list == equal; });
}

void add(benchmark::State& state) {
    const std::vector<Profile> profiles = read(documentOf(state)).list();
    measure(state, [&] {
        ProfileList list;
        for (Profile profile : profiles)
            list.add(profile);
        return list;
    });
}

void upgradeStep(benchmark::State& state) {
    const auto store = std::make_shared<InMemoryTextFileStorage>();
    // as the library writes it: the factory's "lidar": null is not upgraded
    const std::string document = JsonProfileListSerializer().serialize(read(documentOf(state)));
    const std::string defaults = DefaultProducts::getSourceDocument();
    measure(state, [&] {
        store->files["profiles.json"] = document;
        ProfileUpgrade().upgradeToVersion(5, store, "profiles.json", defaults);
    });
}

std::shared_ptr<ProfileListStorage> storageOf(const std::string& document) {
    const auto store = std::make_shared<InMemoryTextFileStorage>();
    store->files["/dev/null"] = document; // a path that exists, which the storage asks the file system for
    return std::make_shared<ProfileListFileStorage>("/dev/null", store,
                                                    std::make_shared<JsonProfileListSerializer>());
}

void addOrUpdate(benchmark::State& state) {
    const auto storage = storageOf(documentOf(state));
    UseCase::AddOrUpdateProfile useCase(
        storage, std::make_shared<FixedClockProvider>(norel::Desktop::DateTime::DateTime()));
    Profile profile = *storage->read().begin();
    measure(state, [&] { useCase.execute(profile); });
}

void merge(benchmark::State& state) {
    const std::string& document = documentOf(state);
    measure(state, [&] { UseCase::MergeProfileStorages(storageOf(document), storageOf("")).execute(); });
}

constexpr std::size_t MANY = 1400;
constexpr std::size_t FEW = 140;
constexpr std::size_t MOST = 14000;
constexpr int REPETITIONS = 9;

/// Rows of one size stand together, so that those that are compared run within a few seconds.
void registerRows() {
    struct Row {
        const char* name;
        void (*run)(benchmark::State&);
        std::vector<std::size_t> sizes;
    };
    const Row rows[] = {{"parse", parse, {FACTORY_PROFILES, MANY, FEW, MOST}},
                        {"deserialize", deserialize, {FACTORY_PROFILES, MANY, FEW, MOST}},
                        {"read by hand", readByHand, {FACTORY_PROFILES, MANY}},
                        {"dump", dump, {FACTORY_PROFILES, MANY, FEW, MOST}},
                        {"serialize", serialize, {FACTORY_PROFILES, MANY, FEW, MOST}},
                        {"write by hand", writeByHand, {FACTORY_PROFILES, MANY}},
                        {"copy", copy, {FACTORY_PROFILES, MANY, MOST}},
                        {"compare", compare, {FACTORY_PROFILES, MANY, MOST}},
                        {"add", add, {FACTORY_PROFILES, MANY, MOST}},
                        {"upgrade step", upgradeStep, {FACTORY_PROFILES, MANY}},
                        {"add or update", addOrUpdate, {FACTORY_PROFILES, MANY}},
                        {"merge", merge, {FACTORY_PROFILES, MANY}}};
    for (const std::size_t profiles : {FACTORY_PROFILES, MANY, FEW, MOST})
        for (const Row& row : rows)
            if (std::count(row.sizes.begin(), row.sizes.end(), profiles))
                benchmark::RegisterBenchmark(row.name, row.run)->Arg(static_cast<std::int64_t>(profiles));
}

void printRatios(const RatioTable& table) {
    std::puts("| ratio | median | spread |\n|---|---|---|");
    for (const std::string profiles : {"/14", "/1400"}) {
        table.printRatio("deserialize" + profiles, "parse" + profiles);
        table.printRatio("read by hand" + profiles, "parse" + profiles);
        table.printRatio("serialize" + profiles, "dump" + profiles);
        table.printRatio("write by hand" + profiles, "dump" + profiles);
        table.printRatio("upgrade step" + profiles, "parse" + profiles);
        table.printRatio("add or update" + profiles, "parse" + profiles);
        table.printRatio("merge" + profiles, "parse" + profiles);
        table.printRatio("copy" + profiles, "parse" + profiles);
        table.printRatio("compare" + profiles, "parse" + profiles);
        table.printRatio("add" + profiles, "parse" + profiles);
    }
    std::puts("\n| time per profile, 14,000 against 140 (copy, compare, add: 1,400) | median | spread "
              "|\n|---|---|---|");
    for (const std::string row : {"parse", "dump", "deserialize", "serialize"})
        table.printRatio(row + "/14000", row + "/140", static_cast<double>(FEW) / MOST);
    for (const std::string row : {"copy", "compare", "add"})
        table.printRatio(row + "/14000", row + "/1400", static_cast<double>(MANY) / MOST);
    std::puts("\n| time | median |\n|---|---|");
    for (const std::string profiles : {"/14", "/1400"})
        for (const std::string row : {"parse", "dump", "deserialize", "serialize"})
            table.printTime(row + profiles);
}

/// What one run of an operation takes of the heap.
struct HeapUse {
    std::size_t allocations;
    std::size_t peakBytes;
};

template <typename Operation>
HeapUse heapUseOf(const Operation& operation) {
    operation(); // what is made once is not counted
    const HeapCounter counter;
    operation();
    return {counter.allocations(), counter.peakBytes()};
}

HeapUse heapUseOfReading(std::size_t profiles) {
    const std::string& document = norel::Benchmark::documentOf(profiles);
    return heapUseOf([&] { benchmark::DoNotOptimize(read(document)); });
}

HeapUse heapUseOfWriting(std::size_t profiles) {
    const ProfileList list = read(norel::Benchmark::documentOf(profiles));
    return heapUseOf([&] { benchmark::DoNotOptimize(JsonProfileListSerializer().serialize(list)); });
}

void printHeapUse() {
    const auto parsing = [](std::size_t profiles) {
        const std::string& document = norel::Benchmark::documentOf(profiles);
        return heapUseOf([&] { benchmark::DoNotOptimize(ordered_json::parse(document)); });
    };
    const ProfileList list = read(norel::Benchmark::documentOf(FACTORY_PROFILES));
    const ProfileList equal = list;
    std::puts("\n| heap allocations, factory document | |\n|---|---|");
    std::printf("| parse | %zu |\n", parsing(FACTORY_PROFILES).allocations);
    std::printf("| deserialize | %zu |\n", heapUseOfReading(FACTORY_PROFILES).allocations);
    std::printf("| serialize | %zu |\n", heapUseOfWriting(FACTORY_PROFILES).allocations);
    std::printf("| copy | %zu |\n",
                heapUseOf([&] { benchmark::DoNotOptimize(ProfileList(list)); }).allocations);
    std::printf("| compare | %zu |\n",
                heapUseOf([&] { benchmark::DoNotOptimize(list == equal); }).allocations);
    const double bare = static_cast<double>(parsing(MANY).peakBytes);
    const double ours = static_cast<double>(heapUseOfReading(MANY).peakBytes);
    std::puts("\n| peak memory above the text, 1,400 profiles | |\n|---|---|");
    std::printf("| parse | %.0f MB |\n| deserialize | %.0f MB |\n| deserialize / parse | %.2f |\n",
                bare / 1e6, ours / 1e6, ours / bare);
}

/// Fails when reading or writing the factory document allocates more often than it did; lower the figures
/// when it comes to allocate less.
int checkAllocations() {
    struct Limit {
        const char* operation;
        std::size_t allocations;
        std::size_t limit;
    };
    int result = 0;
    for (const Limit& row : {Limit{"deserialize", heapUseOfReading(FACTORY_PROFILES).allocations, 7264},
                             Limit{"serialize", heapUseOfWriting(FACTORY_PROFILES).allocations, 5564}}) {
        std::printf("%s: %zu allocations, at most %zu\n", row.operation, row.allocations, row.limit);
        if (row.allocations > row.limit)
            result = 1;
    }
    return result;
}

} // namespace

/// Runs the rows that --benchmark_filter selects and prints their table; with --check-allocations only checks
/// that the numbers of allocations have not grown.
int main(int argc, char** argv) {
    if (argc == 2 && std::string_view(argv[1]) == "--check-allocations")
        return checkAllocations();
    // Freed memory is kept, that of large blocks too: given back to the system, it would come back page by
    // page in the time of whatever row is next.
    mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
    mallopt(M_MMAP_MAX, 0);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    registerRows();
    RatioTable table;
    for (int repetition = 0; repetition < REPETITIONS; ++repetition)
        if (benchmark::RunSpecifiedBenchmarks(&table) == 0)
            return 2; // and it has said why
    printRatios(table);
    printHeapUse();
}
