#pragma once

#include "norel/Desktop/DataFormat/Json.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace norel::Desktop::DataFormat {

/// Reads a JSON text value by value, without building a tree. An extension of the reference host: not part of
/// the contract, so code that must run on any host uses it only where `Json::Reader` exists.
///
/// The caller asks for the values in the order of the text:
///
///     reader.beginObject();
///     while (reader.nextMember(key))
///         key == "id" ? reader.read(id) : reader.skip();
///     reader.end();
///
/// Whatever a Reader accepts, Json::fromString accepts too and typed reading of its result gives the same
/// values. A Reader also refuses rare texts which fromString accepts: a byte order mark, an integer of more
/// than 19 digits, a number too small for a double. It leaves duplicate keys to the caller.
///
/// Every failure throws JsonError with one fixed text; Json::fromString gives the details. Afterwards only
/// getRest may be used. Threads: one object must not be used by several threads at once.
class NOREL_DATAFORMAT_EXPORT Json::Reader {
public:
    /// The text must outlive the reader.
    explicit Reader(std::string_view text) noexcept
        : position(text.data()), textEnd(text.data() + text.size()) {}
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;

    /// Enters the object that comes next. Throws also when it nests deeper than MAXIMUM_DEPTH.
    void beginObject();
    /// Moves to the value of the next member; its key stays valid until the next call on this reader. False
    /// at the end of the object, which is left.
    bool nextMember(std::string_view& key);

    /// Enters the array that comes next. Throws also when it nests deeper than MAXIMUM_DEPTH.
    void beginArray();
    /// Moves to the next element. False at the end of the array, which is left.
    bool nextElement();

    /// Reads a null, if the next value is one.
    bool takeNull();

    void read(bool& boolean);
    /// Only a number without fraction and exponent that the type can hold.
    void read(int& number);
    void read(unsigned int& number);
    /// Any number.
    void read(double& number);
    void read(std::string& text);

    /// Skips a value of any kind, checked as strictly as if it were read.
    void skip();

    /// Throws unless only white space follows.
    void end();

    /// The text that was not read yet; after a failure, from where the text is not as expected: a string from
    /// its first character on, a word from its beginning, a number from the character that is no part of one.
    std::string_view getRest() const noexcept {
        return {position, static_cast<std::size_t>(textEnd - position)};
    }

private:
    friend class JsonTreeReader;

    struct Number {
        enum class Kind { UNSIGNED, NEGATIVE, FLOATING_POINT } kind;
        std::uint64_t magnitude; // of an integer
        double floatingPoint;
    };

    void skipWhiteSpace();
    char peekKind();
    char peek(); // the first character of what comes next, NUL at the end of the text
    void take(char expected);
    void takeWord(std::string_view word);
    bool nextItem(char closing);
    void open(char opening);
    std::string_view readString();
    void readEscape();
    unsigned int readHexadecimal();
    Number readNumber();

    const char* position;
    const char* textEnd;
    std::size_t depth = 0;
    bool isFirst = false; // whether an array or object was just entered
    std::string unescaped;
};

} // namespace norel::Desktop::DataFormat
