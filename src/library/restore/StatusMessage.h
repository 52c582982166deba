#pragma once

#include <QString>

namespace Quillstacks {

/// What became of a restore.
struct StatusMessage {
    QString text;
    bool isError = false;

    friend bool operator==(const StatusMessage&, const StatusMessage&) = default;
};

} // namespace Quillstacks
