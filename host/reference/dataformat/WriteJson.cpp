#include "WriteJson.h"

#include "JsonErrors.h"
#include "norel/Desktop/DataFormat/Json.h"

#include <cmath>
#include <type_traits>

namespace norel::Desktop::DataFormat {

namespace {

/// Throws for the first number that is not finite, or for nesting that is too deep.
void checkNumbersAndDepth(const Node& value, std::size_t depth = 0) {
    if (const auto* number = value.get_ptr<const double*>(); number && !std::isfinite(*number))
        throw notFinite();
    if (value.is_structured() && depth == Json::MAXIMUM_DEPTH)
        throw tooDeep();
    if (const auto* elements = value.get_ptr<const Node::array_t*>())
        for (const Node& element : *elements)
            checkNumbersAndDepth(element, depth + 1);
    if (const auto* members = value.get_ptr<const Node::object_t*>())
        for (const auto& member : *members)
            checkNumbersAndDepth(member.second, depth + 1);
}

} // namespace

/// Writes a node. Unless it is constant, its children are destroyed as soon as they are written, while they
/// are still in the processor's cache.
class JsonTreeWriter {
public:
    template <typename AnyNode>
    static void write(Json::Writer& writer, AnyNode& value) {
        if (value.is_object())
            writeObject(writer, *value.template get_ptr<CopyConst<AnyNode, Node::object_t>*>());
        else if (value.is_array())
            writeArray(writer, *value.template get_ptr<CopyConst<AnyNode, Node::array_t>*>());
        else
            writeScalar(writer, value);
    }

private:
    template <typename From, typename To>
    using CopyConst = std::conditional_t<std::is_const_v<From>, const To, To>;

    template <typename Members>
    static void writeObject(Json::Writer& writer, Members& members) {
        writer.beginObject();
        for (auto& [key, member] : members) {
            writer.key(key);
            write(writer, member);
        }
        writer.endObject();
        clear(members);
    }

    template <typename Elements>
    static void writeArray(Json::Writer& writer, Elements& elements) {
        writer.beginArray();
        for (std::size_t i = 0; i < elements.size(); ++i) {
            write(writer, elements[i]);
            writer.tellProgress(i + 1, elements.size());
        }
        writer.endArray();
        clear(elements);
    }

    static void writeScalar(Json::Writer& writer, const Node& value) {
        switch (value.type()) {
        case Node::value_t::string:
            return writer.write(value.get_ref<const std::string&>());
        case Node::value_t::boolean:
            return writer.write(value.get_ref<const bool&>());
        case Node::value_t::number_integer:
            return writer.writeInteger(value.get_ref<const std::int64_t&>());
        case Node::value_t::number_unsigned:
            return writer.writeInteger(value.get_ref<const std::uint64_t&>());
        case Node::value_t::number_float:
            return writer.write(value.get_ref<const double&>());
        default: // no Json holds any other kind
            return writer.write(nullptr);
        }
    }

    template <typename Children>
    static void clear(Children& children) {
        if constexpr (!std::is_const_v<Children>)
            children.clear(); // which have no children any more
    }
};

namespace {

template <typename AnyNode>
std::string write(AnyNode& value, int indent) {
    try {
        Json::Writer writer(indent);
        JsonTreeWriter::write(writer, value);
        return writer.takeText();
    } catch (const Json::JsonError&) {
        // Their errors precede that of a string, wherever they stand. What is written already has none.
        checkNumbersAndDepth(value);
        throw;
    }
}

} // namespace

std::string writeJson(const Node& value, int indent) { return write(value, indent); }

std::string writeJson(Node&& value, int indent) { return write(value, indent); }

} // namespace norel::Desktop::DataFormat
