#include "norel/Desktop/DataFormat/Json.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <type_traits>

namespace norel::Desktop::DataFormat {
namespace {

using Tree = nlohmann::ordered_json;

template <typename Operation>
auto withJsonErrors(const Operation& operation) {
    try {
        return operation();
    } catch (const Tree::type_error& error) {
        if (error.id == 302)
            throw Json::IncompatibleTypeError(error.what());
        throw Json::JsonError(error.what());
    } catch (const Tree::exception& error) {
        throw Json::JsonError(error.what());
    }
}

bool isFinite(const Tree& tree) {
    return tree.is_structured()     ? std::all_of(tree.begin(), tree.end(), isFinite)
           : tree.is_number_float() ? std::isfinite(tree.get<double>())
                                    : true;
}

} // namespace

Json::Json() : tree(std::make_shared<Tree>()) {}
Json::Json(const std::vector<Json>& elements) : tree(std::make_shared<Tree>(Tree::array())) {
    for (const Json& element : elements)
        tree->push_back(*element.tree);
}
Json::Json(const Json& other) : tree(std::make_shared<Tree>(*other.tree)) {}
Json::Json(std::shared_ptr<Tree> shared) : tree(std::move(shared)) {}

Json& Json::operator=(const Json& other) {
    tree = std::make_shared<Tree>(*other.tree);
    return *this;
}

Json Json::fromString(const std::string& text) {
    return Json(withJsonErrors([&] { return std::make_shared<Tree>(Tree::parse(text)); }));
}

std::string Json::toString(int indent) const {
    if (!isFinite(*tree))
        throw JsonError("JSON cannot hold a number that is not finite");
    return withJsonErrors([&] { return tree->dump(indent); });
}

bool Json::contains(const std::string& key) const { return tree->contains(key); }

bool Json::isNull() const { return tree->is_null(); }

const Json Json::getValue(const std::string& key) const {
    return Json(withJsonErrors([&] { return std::make_shared<Tree>(tree->at(key)); }));
}

Json Json::getValue(const std::string& key) {
    return Json(withJsonErrors([&] { return std::shared_ptr<Tree>(tree, &tree->at(key)); }));
}

void Json::set(const std::string& key, const Json& value) {
    withJsonErrors([&] { (*tree)[key] = Tree(*value.tree); });
}

std::string Json::get(const std::string& key) const { return getValue(key).getAsString(); }

std::string Json::getAsString() const { return as<std::string>(); }

JsonConstIterator Json::begin() const {
    const auto elements = as<std::vector<Tree>>();
    return {std::make_shared<std::vector<Json>>(elements.begin(), elements.end()), 0};
}

JsonConstIterator Json::end() const { return {nullptr, tree->size()}; }

template <typename T>
T Json::as() const {
    return withJsonErrors([&] { return tree->get<T>(); });
}

template <typename T>
Json::Json(const T& value) : tree(std::make_shared<Tree>(value)) {}

template Json::Json(const int&);
template int Json::as<int>() const;
template Json::Json(const unsigned int&);
template unsigned int Json::as<unsigned int>() const;
template Json::Json(const double&);
template double Json::as<double>() const;
template Json::Json(const bool&);
template bool Json::as<bool>() const;
template Json::Json(const std::string&);
template std::string Json::as<std::string>() const;
template Json::Json(const std::map<std::string, int>&);
template std::map<std::string, int> Json::as<std::map<std::string, int>>() const;
template Json::Json(const std::map<std::string, unsigned int>&);
template std::map<std::string, unsigned int> Json::as<std::map<std::string, unsigned int>>() const;
template Json::Json(const std::map<std::string, double>&);
template std::map<std::string, double> Json::as<std::map<std::string, double>>() const;
template Json::Json(const std::vector<std::string>&);
template std::vector<std::string> Json::as<std::vector<std::string>>() const;

} // namespace norel::Desktop::DataFormat
