#pragma once

namespace Quillstacks::TokenAccessible {

/// Lets assistive tools read and edit the plain text of a TokenTextView: its placeholders in place of the objects, with
/// all offsets counted in it. May be called any number of times.
void install();

} // namespace Quillstacks::TokenAccessible
