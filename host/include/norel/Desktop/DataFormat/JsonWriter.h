#pragma once

#include "norel/Desktop/DataFormat/Json.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace norel::Desktop::DataFormat {

/// Writes a JSON text value by value, without building a tree; Json::toString gives the same text for the
/// same values. An extension of the reference host: not part of the contract, so code that must run on any
/// host uses it only where `Json::Writer` exists.
///
/// The caller writes exactly one value: a scalar, or an array or object with all that it holds. In an object
/// a key precedes each value. The order of calls and duplicate keys are not checked.
///
/// Throws JsonError for what Json::toString refuses; the writer must not be used afterwards. Threads: one
/// object must not be used by several threads at once.
class NOREL_DATAFORMAT_EXPORT Json::Writer {
public:
    /// A key that is prepared once to be written often.
    class NOREL_DATAFORMAT_EXPORT Key {
    public:
        /// Throws JsonError when the name is not UTF-8.
        explicit Key(std::string_view name);

    private:
        friend class Writer;
        std::string quoted; // with the colon and a space
    };

    /// The layout is that of Json::toString(indent).
    explicit Writer(int indent);

    void beginObject() { open('{'); }
    void endObject() { close('}'); }
    void beginArray() { open('['); }
    void endArray() { close(']'); }
    /// May follow each element of the outermost array: tells how many of them are written, and how many there
    /// will be. From a quarter of them the writer judges how much memory it needs for all.
    void tellProgress(std::size_t written, std::size_t count);

    void key(const Key& prepared);
    void key(std::string_view name);

    void write(std::nullptr_t);
    void write(bool boolean);
    void write(int number) { writeInteger(std::int64_t{number}); }
    void write(unsigned int number) { writeInteger(std::uint64_t{number}); }
    void write(double number);
    void write(std::string_view string);
    void write(const std::string& string) { write(std::string_view(string)); }
    void write(const char* string) { write(std::string_view(string)); }

    /// The text written so far. The writer must not be used afterwards.
    std::string takeText();

private:
    friend class JsonTreeWriter;

    void writeInteger(std::int64_t number);
    void writeInteger(std::uint64_t number);
    void open(char opening);
    void close(char closing);
    void beginItem();
    void beginValue();

    char* makeRoom(std::size_t size); // the place for that many characters
    void setEnd(const char* end);     // after they were written there
    void append(std::string_view piece);
    void appendQuoted(std::string_view before, std::string_view string, std::size_t lengthOfColon);
    void appendEscaped(std::string_view string);
    void flush();

    std::string text;         // without its end, which is gathered in the tail: most pieces need no call
    std::string tail;         // with room for more
    std::size_t tailSize = 0; // without that room
    std::string separator;    // between two items: a comma, and a line break with the indentation
    std::size_t depth = 0;
    unsigned int spacesPerLevel;
    bool isOneLine;
    bool isFirst = true;      // whether nothing was written yet into the innermost array or object
    bool isKeyWritten = true; // so that the value follows on the same line
};

} // namespace norel::Desktop::DataFormat
