#pragma once

#include <cstddef>
#include <string_view>

namespace Quillstacks {

/// Finds where the parts of a document end, without reading them, so that a long document can be read part by part.
class JsonScanner final {
public:
    explicit JsonScanner(std::string_view document) : text(document) {}

    /// The next character after white space; 0 at the end. It stays the next.
    [[nodiscard]] char peek();
    /// Whether the next character is this one; it is taken then.
    [[nodiscard]] bool take(char wanted);
    /// The extent of the next string, number, word, list or object; empty where there is none, or where it has no end.
    /// What stands in it may still not be JSON. Brackets are only counted.
    [[nodiscard]] std::string_view value();
    /// In bytes, from the document's start.
    [[nodiscard]] std::size_t position() const { return at; }

private:
    /// Right after the string that begins at `from`; npos where it has no end.
    [[nodiscard]] std::size_t afterString(std::size_t from) const;
    [[nodiscard]] std::size_t afterBrackets(std::size_t from) const;

    std::string_view text;
    std::size_t at = 0;
};

} // namespace Quillstacks
