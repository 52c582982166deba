#pragma once

namespace Quillstacks {
class TokenTextView;
}

namespace Quillstacks::TokenAccessible {

/// Lets assistive tools read and edit the plain text of a TokenTextView: its placeholders in place of the objects, with
/// all offsets counted in it. May be called any number of times.
void install();
/// Tells assistive tools where caret and selection are in the plain text. The toolkit tells its own positions, which
/// are others behind a token.
void announceCaret(TokenTextView* view);

} // namespace Quillstacks::TokenAccessible
