#include "Fuzzing.h"
#include "norel/Desktop/DataFormat/Json.h"

#include <array>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <stdexcept>
#include <utility>
#include <vector>

using norel::Desktop::DataFormat::Json;
using norel::Fuzzing::require;

namespace {

using Tree = nlohmann::ordered_json;

/// The reference for a Json: a tree that copies do not share and, for a view, the path of keys to its member.
struct Model {
    std::shared_ptr<Tree> root = std::make_shared<Tree>();
    std::vector<std::string> path = {};

    Tree& get() const {
        Tree* node = root.get();
        for (const std::string& key : path)
            node = &node->at(key);
        return *node;
    }
};

Model makeModel(const Tree& tree) { return {std::make_shared<Tree>(tree)}; }

struct Pair {
    Json json;
    Model model;
};

/// Runs the operation on both and requires that it fails on both or on neither.
template <typename InJson, typename InModel>
void expectSame(const InJson& inJson, const InModel& inModel) {
    bool fails = false, modelFails = false;
    try {
        inJson();
    } catch (const Json::JsonError&) {
        fails = true;
    }
    try {
        inModel();
    } catch (const Tree::exception&) {
        modelFails = true;
    }
    require(fails == modelFails, "an operation fails when it fails on the model");
}

std::optional<std::string> textOf(const Pair& pair) {
    std::optional<std::string> text, modelText;
    expectSame([&] { text = pair.json.toString(-1); }, [&] { modelText = pair.model.get().dump(); });
    require(text == modelText, "a value equals its model");
    return text;
}

void getValue(const Pair& from, Pair& to, const std::string& key) {
    expectSame([&] { to.json = std::as_const(from.json).getValue(key); },
               [&] { to.model = makeModel(std::as_const(from.model.get()).at(key)); });
}

void makeView(Pair& from, Pair& to, const std::string& key) {
    expectSame([&] { to.json = from.json.getValue(key); },
               [&] {
                   Model view = from.model;
                   view.path.push_back(key);
                   view.get();
                   to.model = view;
               });
}

void set(Pair& target, const std::string& key, const Pair& value) {
    expectSame([&] { target.json.set(key, value.json); },
               [&] {
                   const Tree copy = value.model.get();
                   target.model.get()[key] = copy;
               });
}

void copy(const Pair& from, Pair& to) {
    expectSame([&] { to.json = from.json; }, [&] { to.model = makeModel(from.model.get()); });
}

void move(Pair& from, Pair& to) {
    to = std::move(from);
    from = Pair();
}

void gatherElements(const Pair& from, Pair& to) {
    expectSame(
        [&] {
            std::vector<Json> elements;
            const auto end = from.json.end();
            for (auto element = from.json.begin(); element != end; ++element)
                elements.push_back(*element);
            elements.emplace_back(static_cast<int>(elements.size()));
            to.json = Json(elements);
        },
        [&] {
            Tree elements = from.model.get().get<Tree::array_t>();
            elements.push_back(elements.size());
            to.model = makeModel(elements);
        });
}

void makeArray(const Pair& first, const Pair& second, Pair& to) {
    expectSame(
        [&] {
            to.json = Json(std::vector<Json>{first.json, second.json});
        },
        [&] {
            to.model = makeModel(Tree::array({first.model.get(), second.model.get()}));
        });
}

} // namespace

/// Applies two bytes of input at a time as an operation on four values or views. Stops when a value becomes
/// too long to be compared after every operation.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t LONGEST = 20000;
    const char* const keys[] = {"a", "b", "c", "a text that needs memory of its own"};
    std::array<Pair, 4> pairs;
    for (std::size_t i = 0; i + 1 < size; i += 2) {
        Pair &first = pairs[data[i + 1] & 3], &second = pairs[data[i + 1] >> 2 & 3];
        const std::string key = keys[data[i + 1] >> 4 & 3];
        switch (data[i] % 8) {
        case 0:
            second = {Json(data[i]), makeModel(data[i])};
            break;
        case 1:
            getValue(first, second, key);
            break;
        case 2:
            makeView(first, second, key);
            break;
        case 3:
            set(first, key, second);
            break;
        case 4:
            if (&first != &second)
                copy(first, second);
            break;
        case 5:
            if (&first != &second)
                move(first, second);
            break;
        case 6:
            gatherElements(first, second);
            break;
        default:
            makeArray(first, second, second);
        }
        for (const Pair& pair : pairs)
            if (textOf(pair).value_or("").size() > LONGEST)
                return 0;
    }
    return 0;
}
