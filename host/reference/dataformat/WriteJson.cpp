#include "WriteJson.h"

#include "JsonErrors.h"
#include "norel/Desktop/DataFormat/Json.h"

#include <cmath>

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

class JsonTreeWriter {
public:
    static void write(Json::Writer& writer, const Node& value) {
        switch (value.type()) {
        case Node::value_t::object:
            writer.beginObject();
            for (const auto& [key, member] : value.get_ref<const Node::object_t&>()) {
                writer.key(key);
                write(writer, member);
            }
            return writer.endObject();
        case Node::value_t::array:
            return writeArray(writer, value.get_ref<const Node::array_t&>());
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

private:
    static void writeArray(Json::Writer& writer, const Node::array_t& elements) {
        writer.beginArray();
        for (std::size_t i = 0; i < elements.size(); ++i) {
            write(writer, elements[i]);
            writer.tellProgress(i + 1, elements.size());
        }
        writer.endArray();
    }
};

std::string writeJson(const Node& value, int indent) {
    try {
        Json::Writer writer(indent);
        JsonTreeWriter::write(writer, value);
        return writer.takeText();
    } catch (const Json::JsonError&) {
        checkNumbersAndDepth(value); // their errors precede that of a string, wherever they stand
        throw;
    }
}

} // namespace norel::Desktop::DataFormat
