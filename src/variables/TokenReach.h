#pragma once

class QTextDocument;

namespace Quillstacks {

/// How far an edit can reach: the part of a document outside of which no placeholder, and no CR LF, begins or ends
/// because of what has changed between two positions. A placeholder is a run of braces, white space and a name, and
/// another run of braces, so the reach ends with the braces nearest to the change.
class TokenReach final {
public:
    /// Positions of the document; tokens and objects are taken whole.
    TokenReach(const QTextDocument& document, int from, int to);

    [[nodiscard]] int from() const { return first; }
    [[nodiscard]] int to() const { return last; }

private:
    int first;
    int last;
};

} // namespace Quillstacks
