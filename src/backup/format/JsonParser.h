#pragma once

#include "JsonValue.h"

#include <string>

namespace Quillstacks {

/// Reads parts of a document. What a value gives out dies with the next part.
class JsonParser final {
public:
    /// Beyond each part's end so many bytes must be readable, whatever they hold.
    static constexpr std::size_t padding = simdjson::SIMDJSON_PADDING;

    /// Calls `use(JsonValue)` for a list or an object that stands in padded memory.
    template <typename Use>
    void read(std::string_view part, const JsonPlace& place, Use use) {
        try {
            const simdjson::padded_string_view padded(part.data(), part.size(), part.size() + padding);
            simdjson::ondemand::document document = parser.iterate(padded);
            use(JsonValue(document.get_value(), place));
        } catch (const simdjson::simdjson_error& error) {
            JsonValue::refuse(place, error.error());
        }
    }
    /// The same for any value, which is copied, with its key before it: `use(std::string_view key, JsonValue value)`.
    template <typename Use>
    void readField(std::string_view key, std::string_view value, const JsonPlace& place, Use use) {
        pair.clear();
        pair.push_back('[');
        pair.append(key).push_back(',');
        pair.append(value).push_back(']');
        const std::size_t size = pair.size();
        pair.append(padding, ' ');
        read(std::string_view(pair).substr(0, size), place, [&](JsonValue both) {
            std::string_view name;
            bool isName = true;
            both.eachElementInPlace([&](JsonValue one) {
                if (isName)
                    name = one.utf8("a string");
                else
                    use(name, std::move(one));
                isName = false;
            });
        });
    }

private:
    simdjson::ondemand::parser parser;
    std::string pair;
};

} // namespace Quillstacks
