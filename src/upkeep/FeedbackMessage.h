#pragma once

#include <QString>

namespace Quillstacks {

/// What became of a change, said beside its control.
struct FeedbackMessage {
    QString text;
    bool isError = false;

    friend bool operator==(const FeedbackMessage&, const FeedbackMessage&) = default;
};

} // namespace Quillstacks
