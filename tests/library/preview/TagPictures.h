#pragma once

#include <QString>

namespace Quillstacks {

class ContentView;
class ModelContext;

/// Takes pictures of the tag editor, the tags' rows and the tag selector into a folder, and leaves all as it was.
void takeTagPictures(ContentView& view, ModelContext& context, const QString& folder);

} // namespace Quillstacks
