#pragma once

#include "library/model/Prompt.h"
#include "library/model/PromptVersion.h"
#include "library/model/Tag.h"

#include <memory>
#include <vector>

namespace SQLite {
class Database;
class Statement;
} // namespace SQLite

namespace Quillstacks {

/// What is read at opening: prompts and tags in the order of insertion, both sides' lists set.
struct StoredRecords {
    std::vector<std::unique_ptr<Prompt>> prompts;
    std::vector<std::unique_ptr<Tag>> tags;
    qint64 lastLinkOrder = 0;
    qint64 lastVersionRow = 0;
};

/// Reads records. Throws SQLite::Exception.
namespace StoreReader {

[[nodiscard]] StoredRecords readAll(SQLite::Database& database);

/// The columns that readVersions() expects.
inline constexpr const char* versionColumns =
    "row, position, id, prompt_id, title, body, tag_names, tag_colors, created";
/// All rows of a statement that is bound and selects versionColumns.
[[nodiscard]] std::vector<std::unique_ptr<PromptVersion>> readVersions(SQLite::Statement& rows);

} // namespace StoreReader
} // namespace Quillstacks
