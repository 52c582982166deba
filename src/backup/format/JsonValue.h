#pragma once

#include "foundation/Date.h"
#include "foundation/Uuid.h"

#include "JsonPlace.h"

#include <QString>
#include <QStringList>

#include <simdjson.h>

namespace Quillstacks {

/// A value of a document, read by getters that check. Each throws BackupError, which names the place. A value can be
/// read once, before the next one of its document is.
class JsonValue final {
public:
    JsonValue(simdjson::ondemand::value read, const JsonPlace& at) : value(read), place(at) {}

    [[nodiscard]] QString string();
    /// A string as it stands in the parser's memory. `name` is what it should have been, for the failure.
    [[nodiscard]] std::string_view utf8(const char* name);
    [[nodiscard]] Uuid uuid();
    [[nodiscard]] Date date();
    /// Calls `use(JsonValue element)` for each, in order.
    template <typename Use>
    void eachElement(Use use) {
        expect(simdjson::ondemand::json_type::array, "an array");
        guarded([&] {
            qsizetype index = 0;
            for (auto element : simdjson::ondemand::array(value.get_array())) {
                const JsonPlace at{&place, {}, index++};
                use(JsonValue(element.value(), at));
            }
        });
    }
    /// The same where the list is none of the document's own: its elements stand where the list does.
    template <typename Use>
    void eachElementInPlace(Use use) {
        guarded([&] {
            for (auto element : simdjson::ondemand::array(value.get_array()))
                use(JsonValue(element.value(), place));
        });
    }
    /// Calls `use(std::string_view key, JsonValue field)` for each, in order.
    template <typename Use>
    void eachField(Use use) {
        expect(simdjson::ondemand::json_type::object, "an object");
        guarded([&] {
            for (auto field : simdjson::ondemand::object(value.get_object())) {
                const std::string_view key = field.unescaped_key();
                const JsonPlace at{&place, key};
                use(key, JsonValue(field.value(), at));
            }
        });
    }
    /// Passes over the value, but sees that it is JSON. `depth`: how many brackets are around it already.
    void skip(int depth = 0);

    /// "prompts[3].title stands there twice"
    [[noreturn]] void refuse(const char* why) const { refuse(place, why); }
    [[noreturn]] void refuseMissing(std::string_view key) const;
    [[noreturn]] static void refuse(const JsonPlace& at, const char* why);
    [[noreturn]] static void refuse(const JsonPlace& at, simdjson::error_code error);

    /// Deeper than any backup, and shallow enough for the stack.
    static constexpr int deepest = 1000;

private:
    void expect(simdjson::ondemand::json_type type, const char* name);
    template <typename Work>
    void guarded(Work work) {
        try {
            work();
        } catch (const simdjson::simdjson_error& error) {
            refuse(place, error.error());
        }
    }

    simdjson::ondemand::value value;
    const JsonPlace& place;
};

} // namespace Quillstacks
