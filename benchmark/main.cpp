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

/// A derived serializer reads and writes through JSON values, as it may have overridden their conversion.
class DerivedSerializer : public JsonProfileListSerializer {};

template <typename Serializer = JsonProfileListSerializer>
ProfileList read(const std::string& document) {
    return Serializer().deserialize(document);
}

/// Times the operation after one run that is not timed, in which the heap consolidates what earlier rows
/// freed.
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
    const std::string& document = documentOf(state);
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

constexpr std::size_t FEW = 140;
constexpr std::size_t MANY = 1400;
constexpr std::size_t MOST = 14000;
constexpr int REPETITIONS = 7;

struct Row {
    std::string name;
    std::function<void(benchmark::State&)> run;
};

const std::string BARE = "bare JSON library";

/// The rows of reading: the one that the others are compared with, this library's, and the peers'.
std::vector<Row> readingRows() {
    std::vector<Row> rows{{BARE, parse},
                          {"this library", deserialize<JsonProfileListSerializer>},
                          {"derived serializer", deserialize<DerivedSerializer>}};
    for (const Peer& peer : peers())
        rows.push_back({peer.name, [peer](benchmark::State& state) {
                            const std::string& document = documentOf(state);
                            measure(state, [&] { return peer.read(document); });
                        }});
    return rows;
}

/// The same for writing, by the same names.
std::vector<Row> writingRows() {
    std::vector<Row> rows{{BARE, dump},
                          {"this library", serialize<JsonProfileListSerializer>},
                          {"derived serializer", serialize<DerivedSerializer>}};
    for (const Peer& peer : peers())
        if (peer.write)
            rows.push_back({peer.name, [peer](benchmark::State& state) {
                                const auto profiles = peer.read(documentOf(state));
                                measure(state, [&] { return peer.write(*profiles); });
                            }});
    return rows;
}

const Row OTHER_ROWS[] = {{"copy", copy},
                          {"compare", compare},
                          {"add", add},
                          {"upgrade step", upgradeStep},
                          {"add or update", addOrUpdate},
                          {"merge", merge}};

/// Rows of one size stand together, so that those that are compared run within a few seconds.
void registerRows() {
    for (const std::size_t profiles : {FACTORY_PROFILES, MANY, FEW, MOST}) {
        const auto add = [&](const std::string& prefix, const Row& row) {
            benchmark::RegisterBenchmark((prefix + row.name).c_str(), row.run)
                ->Arg(static_cast<std::int64_t>(profiles));
        };
        for (const Row& row : readingRows())
            add("read, ", row);
        for (const Row& row : writingRows())
            add("write, ", row);
        if (profiles == FACTORY_PROFILES || profiles == MANY)
            for (const Row& row : OTHER_ROWS)
                add("", row);
    }
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

/// Each way to read and write beside the bare JSON library, from the fastest reader to the slowest, with the
/// least ratio of each column in bold.
void printComparison(const RatioTable& table) {
    struct Line {
        std::string name;
        std::vector<RatioTable::Ratios> columns;
    };
    std::vector<Line> lines;
    for (const Row& row : readingRows()) {
        if (row.name == BARE)
            continue;
        Line& line = lines.emplace_back(Line{row.name, {}});
        for (const std::string operation : {"read, ", "write, "})
            for (const std::string size : {"/14", "/1400"})
                line.columns.push_back(table.ratios(operation + row.name + size, operation + BARE + size));
    }
    const auto isLess = [](const RatioTable::Ratios& a, const RatioTable::Ratios& b) {
        return !a.empty() && (b.empty() || median(a) < median(b));
    };
    std::stable_sort(lines.begin(), lines.end(), [&](const Line& a, const Line& b) {
        return isLess(a.columns.front(), b.columns.front());
    });
    std::puts("| | read, 14 | read, 1,400 | write, 14 | write, 1,400 |\n|---|---|---|---|---|");
    for (const Line& line : lines) {
        std::printf("| %s |", line.name.c_str());
        for (std::size_t column = 0; column < line.columns.size(); ++column) {
            const RatioTable::Ratios& ratios = line.columns[column];
            const auto isFaster = [&](const Line& other) { return isLess(other.columns[column], ratios); };
            const bool isFastest = !ratios.empty() && std::none_of(lines.begin(), lines.end(), isFaster);
            std::printf(isFastest ? " **%s** |" : " %s |", cell(ratios).c_str());
        }
        std::puts("");
    }
}

void printOtherRows(const RatioTable& table) {
    std::puts("\n| | 14 | 1,400 |\n|---|---|---|");
    for (const Row& row : OTHER_ROWS) {
        std::printf("| %s |", row.name.c_str());
        for (const std::string size : {"/14", "/1400"})
            std::printf(" %s |", cell(table.ratios(row.name + size, "read, " + BARE + size)).c_str());
        std::puts("");
    }
}

/// benchmark/chart.py reads this table.
void printTimes(const RatioTable& table) {
    std::puts("\n| ms, read / write | 14 | 140 | 1,400 | 14,000 | growth, read | growth, write |\n"
              "|---|---|---|---|---|---|---|");
    const auto print = [](double seconds, const char* end) {
        if (seconds > 0)
            std::printf(" %.2f%s", 1000 * seconds, end);
        else
            std::printf(" -%s", end);
    };
    for (const Row& row : readingRows()) {
        const std::string reading = "read, " + row.name;
        const std::string writing = "write, " + row.name;
        std::printf("| %s |", row.name.c_str());
        for (const std::string size : {"/14", "/140", "/1400", "/14000"}) {
            print(table.time(reading + size), " /");
            print(table.time(writing + size), " |");
        }
        for (const std::string& operation : {reading, writing}) {
            const double scale = static_cast<double>(FEW) / MOST;
            std::printf(" %s |", cell(table.ratios(operation + "/14000", operation + "/140", scale)).c_str());
        }
        std::puts("");
    }
}

/// What one run of an operation takes of the heap.
struct HeapUse {
    std::size_t allocations;
    std::size_t peakBytes;
};

template <typename Operation>
HeapUse heapUseOf(const Operation& operation) {
    operation(); // what is allocated only once is not counted
    const HeapCounter counter;
    operation();
    return {counter.allocations(), counter.peakBytes()};
}

HeapUse heapUseOfParsing(std::size_t profiles) {
    const std::string& document = norel::Benchmark::documentOf(profiles);
    return heapUseOf([&] { benchmark::DoNotOptimize(ordered_json::parse(document)); });
}

HeapUse heapUseOfDumping(std::size_t profiles) {
    const auto json = ordered_json::parse(norel::Benchmark::documentOf(profiles));
    return heapUseOf([&] { benchmark::DoNotOptimize(json.dump(4)); });
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
    std::puts("\n| heap | read, 14: allocations | read, 1,400: peak | write, 14: allocations "
              "| write, 1,400: peak |\n|---|---|---|---|---|");
    const auto print = [](const char* name, HeapUse (*reading)(std::size_t),
                          HeapUse (*writing)(std::size_t)) {
        std::printf("| %s |", name);
        for (HeapUse (*const heapUse)(std::size_t) : {reading, writing})
            std::printf(" %zu | %.0f MB |", heapUse(FACTORY_PROFILES).allocations,
                        static_cast<double>(heapUse(MANY).peakBytes) / 1e6);
        std::puts("");
    };
    print("this library", heapUseOfReading<>, heapUseOfWriting<>);
    print("derived serializer", heapUseOfReading<DerivedSerializer>, heapUseOfWriting<DerivedSerializer>);
    print("bare JSON library", heapUseOfParsing, heapUseOfDumping);
}

/// Fails when reading or writing uses more of the heap than the limits, which are a little above what was
/// measured last. Lower them when less is needed.
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
          Limit{"peak bytes of deserialize, 1,400 profiles", heapUseOfReading(MANY).peakBytes, 50'000'000},
          Limit{"peak bytes of serialize, 1,400 profiles", heapUseOfWriting(MANY).peakBytes, 56'000'000}}) {
        std::printf("%s: %zu, at most %zu\n", row.what, row.used, row.limit);
        if (row.used > row.limit)
            result = 1;
    }
    return result;
}

} // namespace

/// Runs the rows that --benchmark_filter selects and prints their tables; with --check-allocations only
/// checks the use of the heap.
int main(int argc, char** argv) {
    if (argc == 2 && std::string_view(argv[1]) == "--check-allocations")
        return checkHeapUse();
    // Freed memory is kept, large blocks too. If it were returned to the system, the next row would pay for
    // getting it back page by page.
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
            return 2; // it has printed the reason
    printComparison(table);
    printOtherRows(table);
    printTimes(table);
    printHeapUse();
}
