#include "JsonScanner.h"

namespace Quillstacks {
namespace {

constexpr auto npos = std::string_view::npos;
constexpr std::string_view space = " \t\r\n";

} // namespace

char JsonScanner::peek() {
    const std::size_t next = text.find_first_not_of(space, at);
    at = next == npos ? text.size() : next;
    return next == npos ? '\0' : text[at];
}

bool JsonScanner::take(char wanted) {
    if (peek() != wanted || at == text.size())
        return false;
    ++at;
    return true;
}

std::string_view JsonScanner::value() {
    const char first = peek();
    std::size_t end = npos;
    if (first == '"')
        end = afterString(at);
    else if (first == '{' || first == '[')
        end = afterBrackets(at);
    else
        end = std::min(text.find_first_of(" \t\r\n,:]}", at), text.size());
    if (end == npos)
        return {};
    const std::string_view found = text.substr(at, end - at);
    at = end;
    return found;
}

std::size_t JsonScanner::afterString(std::size_t from) const {
    std::size_t next = from + 1;
    for (;;) {
        const std::size_t quote = text.find('"', next);
        if (quote == npos)
            return npos;
        // Behind an odd number of backslashes it is a character of the string.
        std::size_t before = quote;
        while (text[before - 1] == '\\' && before - 1 > from)
            --before;
        if ((quote - before) % 2 == 0)
            return quote + 1;
        next = quote + 1;
    }
}

std::size_t JsonScanner::afterBrackets(std::size_t from) const {
    std::size_t depth = 0;
    for (std::size_t next = from; next < text.size(); ++next) {
        switch (text[next]) {
        case '"': {
            const std::size_t after = afterString(next);
            if (after == npos)
                return npos;
            next = after - 1;
            break;
        }
        case '{':
        case '[':
            ++depth;
            break;
        case '}':
        case ']':
            if (--depth == 0)
                return next + 1;
            break;
        default:
            break;
        }
    }
    return npos;
}

} // namespace Quillstacks
