#pragma once

#include "FindingList.h"
#include "JsonItems.h"
#include "ParsingErrors.h"
#include "Rules.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace norel::Desktop::Domain::Payloads {

/// Words the findings about the members of a document. `path` leads to a member, and `text` is its text.
class DocumentFindings {
public:
    using JsonPath = JsonProfileListSerializer::JsonPath;
    using Kind = ProfileListValidator::Kind;
    using Severity = ProfileListValidator::Severity;

    explicit DocumentFindings(FindingList& target) : list(target) {}

    bool isFull() const { return list.isFull(); }
    std::size_t size() const { return list.size(); }

    void constrainFrom(std::size_t count, const ProfileListValidator::Constraints& constraints) {
        list.constrainFrom(count, constraints);
    }

    /// Runs `operation`; its error, if any, is a finding. Whether there was none.
    template <typename Operation>
    bool attempt(Kind kind, const JsonPath& path, std::string_view text, const Operation& operation) {
        try {
            operation();
            return true;
        } catch (const ProfileListSerializer::ParsingError& error) {
            addError(kind, path, text, error.what());
        } catch (const DataFormat::Json::JsonError& error) {
            addError(kind, path, text, error.what());
        }
        return false;
    }

    void addViolation(Severity severity, Kind kind, const JsonPath& path, std::string_view text,
                      const RuleCheck::Violation& violation);

    // What reading accepts, but not as it is written

    void warnOfMember(Kind kind, const JsonPath& object, const JsonItems& member);

    void warnOfNumbers(const JsonPath& path, std::string_view text, const unsigned int& number) {
        warnOfNumber(path, text, number);
    }
    void warnOfNumbers(const JsonPath& path, std::string_view text, const int& number) {
        warnOfNumber(path, text, number);
    }
    template <typename Number>
    void warnOfNumbers(const JsonPath& path, std::string_view text,
                       const std::map<std::string, Number>& numbers) {
        std::map<std::string, std::string_view> texts;
        for (JsonItems items(text); items.next();) {
            std::string_view& textOfNumber = texts[items.getKey()];
            if (!textOfNumber.empty())
                warnOfMember(Kind::RepeatedMember, path, items);
            textOfNumber = items.getValueText();
        }
        for (const auto& [key, textOfNumber] : texts)
            warnOfNumbers(ChildPath::make(path, key), textOfNumber, numbers.at(key));
    }
    /// Every other type is read as it is.
    template <typename Other>
    void warnOfNumbers(const JsonPath& /*path*/, std::string_view /*text*/, const Other& /*value*/) {}

private:
    void addError(Kind kind, const JsonPath& path, std::string_view text, std::string message);
    void addWarning(Kind kind, const JsonPath& path, std::string_view text, const std::string& message);
    void warnOfNumber(const JsonPath& path, std::string_view text, std::int64_t number);

    FindingList& list;
};

} // namespace norel::Desktop::Domain::Payloads
