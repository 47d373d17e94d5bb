#pragma once

#include "ValueRows.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace norel::Desktop::Domain::Payloads::Test {

/// A member of a Builder or of one of its nested Builders, with a value that no other leaf has.
struct Leaf {
    std::function<void()> reset;      ///< assigns its original value
    std::function<void()> change;     ///< assigns another valid value
    std::function<void()> invalidate; ///< makes it invalid; empty when it has no rule
    std::string message;              ///< the error when it is invalid
};

/// Fills a Builder, including all optionals and lists, and lists its leaves in the order in which they must
/// be built. The Builder must not be moved while its leaves are in use.
class Sample {
public:
    template <typename Builder>
    explicit Sample(Builder& builder) {
        visit(builder, 0);
    }

    std::vector<Leaf> leaves;

private:
    int nextNumber() const { return static_cast<int>(leaves.size()) + 1; }

    void add(Leaf&& leaf) {
        leaves.push_back(std::move(leaf));
        leaves.back().reset();
    }

    template <typename T>
    void add(T& member, const T& value, const T& other) {
        add({[&member, value] { member = value; }, [&member, other] { member = other; }, {}, {}});
    }

    /// `item` is the index of the Builder in its list.
    template <typename Builder>
    void visit(Builder& builder, std::size_t item) {
        using Value = decltype(builder.build());
        if constexpr (requires { builder.presets; })
            visitParameter(builder);
        else
            std::apply([&](const auto&... rows) { (visitRow(builder, rows, item), ...); }, rowsOf<Value>());
    }

    template <typename Builder, typename Member, typename Getter>
    void visitRow(Builder& builder, const Row<Member, Getter>& row, std::size_t item) {
        if (!row.errorPrefix)
            return visit(builder.*row.member, item);
        if constexpr (is<Member, std::string Builder::*>) {
            std::string& text = builder.*row.member;
            const std::string wrong = "wrong " + std::to_string(nextNumber());
            add(text, std::string(row.valid[item]), std::string(row.valid[2]));
            leaves.back().invalidate = [&text, wrong] { text = wrong; };
            leaves.back().message = std::string(row.errorPrefix) + " \"" + wrong + "\" is invalid";
        }
    }

    template <typename Builder>
    void visitParameter(Builder& parameter) {
        using T = decltype(parameter.value);
        const T value = static_cast<T>(nextNumber() / (is<T, double> ? 1000.0 : 1.0));
        const int bound = 5000 + nextNumber();
        const auto reset = [&parameter, value] {
            const T one = 1;
            parameter = {value, 0, 4000, one, {{"high", value}, {"Low", one}}, 0.01, "m"};
        };
        const auto invalidate = [&parameter, bound] {
            parameter.presets.clear();
            parameter.minimum = parameter.maximum = parameter.defaultValue = static_cast<T>(bound);
        };
        const std::string range = std::to_string(bound) + "/" + std::to_string(bound);
        add({reset, [&parameter] { parameter.presets["other"] = parameter.value; }, invalidate,
             "Profile Parameter: value (" + Utils::ConvertToGenericString::convertToGenericString(value) +
                 ") must be within min/max (" + range + ")"});
    }

    void visit(FieldOfViewRange::Builder& range, std::size_t /*item*/) {
        const int bound = nextNumber();
        add({[&range, bound] {
                 range = {-1.0 * bound, 1.0 * bound, "deg"};
             },
             [&range] { range.minimum -= 0.5; }, [&range, bound] { range.minimum = 5000 + bound; },
             "Profile FieldOfViewRange: minimum (" + std::to_string(5000 + bound) +
                 ") must be smaller or equal to maximum (" + std::to_string(bound) + ")"});
    }

    void visit(std::string& text, std::size_t /*item*/) {
        const std::string value = "text " + std::to_string(nextNumber());
        add(text, value, value + " ");
    }
    void visit(std::vector<std::string>& texts, std::size_t /*item*/) {
        const std::string text = "text " + std::to_string(nextNumber());
        add(texts, {text, "a"}, {"a", text});
    }
    void visit(unsigned int& number, std::size_t /*item*/) {
        add(number, static_cast<unsigned int>(nextNumber()), 0U);
    }
    void visit(DateTime::DateTime& time, std::size_t /*item*/) {
        const std::chrono::sys_days day{std::chrono::days{nextNumber()}};
        add(time, DateTime::DateTime(day), DateTime::DateTime());
    }
    void visit(bool& flag, std::size_t item) { add(flag, item == 0, item != 0); }

    template <typename Builder>
    void visit(std::optional<Builder>& optional, std::size_t item) {
        visit(optional.emplace(), item);
        const auto other = std::make_shared<std::optional<Builder>>();
        const auto exchange = [&optional, other] { other->swap(optional); };
        leaves.push_back({exchange, exchange, {}, {}});
    }

    template <typename Builder>
    void visit(std::vector<Builder>& items, std::size_t /*item*/) {
        items.resize(2);
        const std::size_t first = leaves.size();
        visit(items[0], 0);
        visit(items[1], 1);
        // Exactly one field of view must be the default, so the flag of one alone cannot change.
        for (std::size_t i = first; is<Builder, FieldOfView::Builder> && i < leaves.size(); ++i)
            if (!leaves[i].invalidate)
                leaves[i].change = nullptr;
        const auto exchange = [&items] { std::swap(items[0], items[1]); };
        leaves.push_back({exchange, exchange, {}, {}});
    }
};

} // namespace norel::Desktop::Domain::Payloads::Test
