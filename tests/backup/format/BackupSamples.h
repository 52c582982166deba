#pragma once

#include "backup/format/ExportedData.h"

#include <QByteArray>

#include <chrono>

namespace Quillstacks {

inline Date sampleDate(int year, unsigned month, unsigned day, int hour, int minute, int second) {
    using namespace std::chrono;
    return sys_days(std::chrono::year(year) / static_cast<int>(month) / static_cast<int>(day)) + hours(hour) +
           minutes(minute) + seconds(second);
}

/// A tag and a prompt with one version, as records …
inline ExportedData sampleData() {
    ExportedTag tag;
    tag.id = Uuid(QStringLiteral("8F3C6D34-1B34-4B63-A4E4-7B1C2A9F0D11"));
    tag.name = QStringLiteral("Writing");
    tag.colorHex = QStringLiteral("7C5CFC");
    tag.createdAt = tag.updatedAt = sampleDate(2025, 1, 2, 8, 0, 0);
    ExportedPrompt prompt;
    prompt.id = Uuid(QStringLiteral("0D7A3C11-9A54-4E7F-A3B2-5C0E4B7E2F30"));
    prompt.title = QStringLiteral("Summarise");
    prompt.body = QStringLiteral("Summarise {{text}} in three lines.");
    prompt.createdAt = sampleDate(2025, 1, 2, 8, 5, 0);
    prompt.updatedAt = sampleDate(2025, 2, 10, 17, 42, 10);
    prompt.tagIds = {tag.id};
    ExportedPromptVersion version;
    version.id = Uuid(QStringLiteral("C1B2D3E4-5F60-4718-8293-A4B5C6D7E8F9"));
    version.promptId = prompt.id;
    version.title = QStringLiteral("Summarise");
    version.body = QStringLiteral("Summarise {{text}}.");
    version.tagNames = {tag.name};
    version.tagColors = {tag.colorHex};
    version.createdAt = sampleDate(2025, 2, 10, 17, 40, 0);
    prompt.versions = {version};
    ExportedData data;
    data.version = QStringLiteral("1.0");
    data.exportedAt = sampleDate(2025, 3, 14, 9, 26, 53);
    data.tags = {tag};
    data.prompts = {prompt};
    return data;
}

/// … and the same as the file's text.
inline QByteArray sampleText() {
    return R"({
  "version" : "1.0",
  "exportedAt" : "2025-03-14T09:26:53Z",
  "tags" : [
    {
      "id" : "8F3C6D34-1B34-4B63-A4E4-7B1C2A9F0D11",
      "name" : "Writing",
      "colorHex" : "7C5CFC",
      "createdAt" : "2025-01-02T08:00:00Z",
      "updatedAt" : "2025-01-02T08:00:00Z"
    }
  ],
  "prompts" : [
    {
      "id" : "0D7A3C11-9A54-4E7F-A3B2-5C0E4B7E2F30",
      "title" : "Summarise",
      "body" : "Summarise {{text}} in three lines.",
      "createdAt" : "2025-01-02T08:05:00Z",
      "updatedAt" : "2025-02-10T17:42:10Z",
      "tagIds" : [
        "8F3C6D34-1B34-4B63-A4E4-7B1C2A9F0D11"
      ],
      "versions" : [
        {
          "id" : "C1B2D3E4-5F60-4718-8293-A4B5C6D7E8F9",
          "promptId" : "0D7A3C11-9A54-4E7F-A3B2-5C0E4B7E2F30",
          "title" : "Summarise",
          "body" : "Summarise {{text}}.",
          "tagNames" : [
            "Writing"
          ],
          "tagColors" : [
            "7C5CFC"
          ],
          "createdAt" : "2025-02-10T17:40:00Z"
        }
      ]
    }
  ]
})";
}

} // namespace Quillstacks
