#pragma once

#include "norel/Desktop/Domain/Payloads/DocumentVersions.h"
#include "norel/Desktop/Domain/Payloads/Export.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace norel::Desktop::Domain::Payloads {

/// Finds everything that is wrong with the text of a profile-list document, where JsonProfileListSerializer
/// stops at the first error. A text without errors is one that the serializer reads; where a text has a
/// single error, it is the one that the serializer reports. The same is true of a document of an earlier
/// version and what its upgrade gives.
///
/// Stateless: several threads may share one.
class NOREL_PAYLOADS_EXPORT ProfileListValidator {
public:
    enum class Severity {
        Error,  ///< the document cannot be read
        Warning ///< reading ignores or changes something
    };

    enum class Kind {
        NotJson,
        Missing,          ///< a required member
        WrongKind,        ///< for example, a string where a number is expected; or a text that is no date
        RuleBroken,       ///< a rule of the model
        NumberOutOfRange, ///< a fraction or a number that the type of the member cannot hold
        UnknownMember,    ///< not reported when it is null or a known remnant of earlier releases
        RepeatedMember,   ///< the last one is read
        Id                ///< taken by an earlier profile, or Profile::ID_IS_UNASSIGNED
    };

    /// What the value of a parameter or of a text must be, as far as it is known.
    struct Constraints {
        std::optional<std::pair<double, double>> range; ///< of a parameter, both inclusive
        std::optional<std::string> unit;                ///< of a parameter
        std::vector<std::string> choices;               ///< all that the member accepts
    };

    /// One error or warning.
    struct Finding {
        Severity severity;
        Kind kind;
        /// As in ParsingError; of a missing member, the path of the object that lacks it. Empty for the
        /// document as a whole.
        std::string path;
        /// From 1, the column in characters: where the value begins, or the key of an unknown or repeated
        /// member.
        std::size_t line = 1;
        std::size_t column = 1;
        /// The message of the serializer or of the rule, without the path.
        std::string message;
        Constraints constraints;
    };

    /// What was found in a document.
    struct Result {
        std::vector<Finding> findings; ///< in the order of the document, an error before a warning
        bool isCut = false;            ///< whether there were more than MAXIMUM_FINDINGS
    };

    /// Of more findings, warnings are left out first.
    static constexpr std::size_t MAXIMUM_FINDINGS = 1000;

    /// Is called now and then with the number of bytes that have been checked.
    using Progress = std::function<void(std::size_t bytes)>;

    /// Of a document of an earlier version (see DocumentVersions), the sections that the upgrade adds or
    /// replaces are not checked. Takes time linear in the text, and at most the memory that reading it takes.
    /// With a host that lacks Json::Reader, a text that is not JSON is reported at its beginning. Throws only
    /// std::bad_alloc and what `progress` throws.
    Result validate(const std::string& text, const Progress& progress = {},
                    unsigned int version = DocumentVersions::getCurrent()) const;
};

} // namespace norel::Desktop::Domain::Payloads
