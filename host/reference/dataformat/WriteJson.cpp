#include "WriteJson.h"

#include "norel/Desktop/DataFormat/Json.h"

namespace norel::Desktop::DataFormat {

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
            writer.beginArray();
            for (const Node& element : value.get_ref<const Node::array_t&>())
                write(writer, element);
            return writer.endArray();
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
};

std::string writeJson(const Node& value, int indent) {
    Json::Writer writer(indent);
    JsonTreeWriter::write(writer, value);
    return writer.takeText();
}

} // namespace norel::Desktop::DataFormat
