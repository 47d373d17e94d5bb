#include "CountingAllocator.h"
#include "Documents.h"
#include "FixedClockProvider.h"
#include "InMemoryTextFileStorage.h"
#include "Peers.h"
#include "RatioTable.h"
#include "norel/Desktop/Domain/Payloads/Payloads.h"

#include <algorithm>
#include <cstdio>
#include <functional>
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

/// Takes the road over JSON values, as whatever is derived from the serializer may have overridden it.
class DerivedSerializer : public JsonProfileListSerializer {};

template <typename Serializer = JsonProfileListSerializer>
ProfileList read(const std::string& document) {
    return Serializer().deserialize(document);
}

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

template <typename Serializer>
void deserialize(benchmark::State& state) {
    const std::string& document = documentOf(state);
    measure(state, [&] { return read<Serializer>(document); });
}

template <typename Serializer>
void serialize(benchmark::State& state) {
    const ProfileList list = read(documentOf(state));
    measure(state, [&] { return Serializer().serialize(list); });
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

/// A way to read and write documents, by the names of its rows.
struct Way {
    std::string name;
    std::string reading;
    std::string writing; ///< empty for one that only reads
};

std::vector<Way> allWays() {
    std::vector<Way> ways{{"this library", "deserialize", "serialize"},
                          {"this library, derived serializer", "deserialize derived", "serialize derived"}};
    for (const Peer& peer : peers())
        ways.push_back({peer.name, "read " + peer.name, peer.write ? "write " + peer.name : ""});
    return ways;
}

/// Rows of one size stand together, so that those that are compared run within a few seconds.
void registerRows() {
    struct Row {
        std::string name;
        std::function<void(benchmark::State&)> run;
        bool isOfReadingOrWriting = false;
    };
    std::vector<Row> rows{{"parse", parse, true},
                          {"deserialize", deserialize<JsonProfileListSerializer>, true},
                          {"deserialize derived", deserialize<DerivedSerializer>, true}};
    for (const Peer& peer : peers())
        rows.push_back({"read " + peer.name,
                        [read = peer.read](benchmark::State& state) {
                            measure(state, [&] { return read(documentOf(state)); });
                        },
                        true});
    rows.insert(rows.end(), {{"dump", dump, true},
                             {"serialize", serialize<JsonProfileListSerializer>, true},
                             {"serialize derived", serialize<DerivedSerializer>, true}});
    for (const Peer& peer : peers())
        if (peer.write)
            rows.push_back({"write " + peer.name,
                            [peer](benchmark::State& state) {
                                const auto profiles = peer.read(documentOf(state));
                                measure(state, [&] { return peer.write(*profiles); });
                            },
                            true});
    rows.insert(rows.end(), {{"copy", copy},
                             {"compare", compare},
                             {"add", add},
                             {"upgrade step", upgradeStep},
                             {"add or update", addOrUpdate},
                             {"merge", merge}});
    for (const std::size_t profiles : {FACTORY_PROFILES, MANY, FEW, MOST})
        for (const Row& row : rows)
            if (row.isOfReadingOrWriting || profiles == FACTORY_PROFILES || profiles == MANY)
                benchmark::RegisterBenchmark(row.name.c_str(), row.run)
                    ->Arg(static_cast<std::int64_t>(profiles));
}

/// Whether every peer keeps all that a document holds; says which does not.
bool arePeersComplete() {
    const std::string document =
        JsonProfileListSerializer().serialize(read(norel::Benchmark::documentOf(FACTORY_PROFILES)));
    const auto isWriter = [](const Peer& peer) { return peer.write != nullptr; };
    const auto writer = std::find_if(peers().begin(), peers().end(), isWriter);
    for (const Peer& peer : peers()) {
        const std::string written = (peer.write ? peer : *writer).write(*peer.read(document));
        const auto difference =
            ordered_json::diff(ordered_json::parse(document), ordered_json::parse(written));
        if (difference.empty())
            continue;
        std::fprintf(stderr, "%s: %s\n", peer.name.c_str(), difference.front().dump().c_str());
        return false;
    }
    return true;
}

/// The ways from the fastest reader to the slowest, with the least ratio of each column in bold.
void printWays(const RatioTable& table) {
    struct Line {
        std::string name;
        std::vector<RatioTable::Ratios> columns;
    };
    std::vector<Line> lines;
    for (const Way& way : allWays()) {
        Line& line = lines.emplace_back(Line{way.name, {}});
        for (const auto& [row, base] : {std::pair(way.reading, "parse"), std::pair(way.writing, "dump")})
            for (const std::string size : {"/14", "/1400"})
                line.columns.push_back(table.ratios(row + size, base + size));
    }
    const auto isLess = [](const RatioTable::Ratios& a, const RatioTable::Ratios& b) {
        return !a.empty() && (b.empty() || median(a) < median(b));
    };
    std::stable_sort(lines.begin(), lines.end(), [&](const Line& a, const Line& b) {
        return isLess(a.columns.front(), b.columns.front());
    });
    std::puts("| | read / parse, 14 | 1,400 | write / dump, 14 | 1,400 |\n|---|---|---|---|---|");
    for (const Line& line : lines) {
        std::printf("| %s |", line.name.c_str());
        for (std::size_t column = 0; column < line.columns.size(); ++column) {
            const RatioTable::Ratios& ratios = line.columns[column];
            const bool isLeast =
                !ratios.empty() && std::none_of(lines.begin(), lines.end(), [&](const Line& other) {
                    return isLess(other.columns[column], ratios);
                });
            std::printf(isLeast ? " **%s** |" : " %s |", cell(ratios).c_str());
        }
        std::puts("");
    }
}

void printTimes(const RatioTable& table) {
    std::puts("\n| other operations / parse | 14 | 1,400 |\n|---|---|---|");
    for (const std::string row : {"upgrade step", "add or update", "merge", "copy", "compare", "add"})
        std::printf("| %s | %s | %s |\n", row.c_str(), cell(table.ratios(row + "/14", "parse/14")).c_str(),
                    cell(table.ratios(row + "/1400", "parse/1400")).c_str());

    std::puts("\n| ms | 14 | 140 | 1,400 | 14,000 | a profile, 14,000 / 140 |\n|---|---|---|---|---|---|");
    const auto printRow = [&](const std::string& row) {
        std::printf("| %s |", row.c_str());
        for (const std::string size : {"/14", "/140", "/1400", "/14000"})
            std::printf(" %.2f |", 1000 * table.time(row + size));
        std::printf(
            " %s |\n",
            cell(table.ratios(row + "/14000", row + "/140", static_cast<double>(FEW) / MOST)).c_str());
    };
    printRow("parse");
    for (const Way& way : allWays())
        printRow(way.reading);
    printRow("dump");
    for (const Way& way : allWays())
        if (!way.writing.empty())
            printRow(way.writing);
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

HeapUse heapUseOfParsing(std::size_t profiles) {
    const std::string& document = norel::Benchmark::documentOf(profiles);
    return heapUseOf([&] { benchmark::DoNotOptimize(ordered_json::parse(document)); });
}

template <typename Serializer = JsonProfileListSerializer>
HeapUse heapUseOfReading(std::size_t profiles) {
    const std::string& document = norel::Benchmark::documentOf(profiles);
    return heapUseOf([&] { benchmark::DoNotOptimize(read<Serializer>(document)); });
}

template <typename Serializer = JsonProfileListSerializer>
HeapUse heapUseOfWriting(std::size_t profiles) {
    const ProfileList list = read(norel::Benchmark::documentOf(profiles));
    return heapUseOf([&] { benchmark::DoNotOptimize(Serializer().serialize(list)); });
}

void printHeapUse() {
    std::puts("\n| heap | allocations, 14 | peak above the text, 1,400 |\n|---|---|---|");
    const auto printRow = [](const char* name, const auto& heapUse) {
        std::printf("| %s | %zu | %.0f MB |\n", name, heapUse(FACTORY_PROFILES).allocations,
                    static_cast<double>(heapUse(MANY).peakBytes) / 1e6);
    };
    printRow("parse", heapUseOfParsing);
    printRow("deserialize", heapUseOfReading<>);
    printRow("deserialize derived", heapUseOfReading<DerivedSerializer>);
    printRow("serialize", heapUseOfWriting<>);
    printRow("serialize derived", heapUseOfWriting<DerivedSerializer>);
}

/// Fails when reading or writing takes more of the heap than it did; lower the limits when it comes to take
/// less.
int checkHeapUse() {
    struct Limit {
        const char* what;
        std::size_t used;
        std::size_t limit;
    };
    int result = 0;
    for (const Limit& row :
         {Limit{"allocations of deserialize", heapUseOfReading(FACTORY_PROFILES).allocations, 800},
          Limit{"allocations of serialize", heapUseOfWriting(FACTORY_PROFILES).allocations, 110},
          Limit{"peak bytes of deserialize, 1,400 profiles", heapUseOfReading(MANY).peakBytes, 50'000'000}}) {
        std::printf("%s: %zu, at most %zu\n", row.what, row.used, row.limit);
        if (row.used > row.limit)
            result = 1;
    }
    return result;
}

} // namespace

/// Runs the rows that --benchmark_filter selects and prints their table; with --check-allocations only checks
/// that the heap is not used more than it was.
int main(int argc, char** argv) {
    if (argc == 2 && std::string_view(argv[1]) == "--check-allocations")
        return checkHeapUse();
    // Freed memory is kept, that of large blocks too: given back to the system, it would come back page by
    // page in the time of whatever row is next.
    mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
    mallopt(M_MMAP_MAX, 0);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    if (!arePeersComplete())
        return 1;
    registerRows();
    RatioTable table;
    for (int repetition = 0; repetition < REPETITIONS; ++repetition)
        if (benchmark::RunSpecifiedBenchmarks(&table) == 0)
            return 2; // and it has said why
    printWays(table);
    printTimes(table);
    printHeapUse();
}
