#pragma once

#include <QObject>

#include <exception>
#include <functional>

namespace Quillstacks {

/// Long work on the main thread, in slices between which the main loop has its turns. It ends unfinished when it is
/// destroyed; that may not happen within one of its own calls but the last.
class SlicedWork final : public QObject {
    Q_OBJECT
public:
    struct Parts {
        std::function<bool()> step; ///< a small piece; false when it was the last one. May throw
        std::function<void()> done;
        std::function<void(const std::exception&)> failed; ///< in place of `done`, when a step has thrown
        std::function<void()> sliced;                      ///< after each slice that is not the last; may be empty
    };
    /// Begins with the next turn of the main loop.
    explicit SlicedWork(Parts parts);

private:
    void run();

    const Parts parts;
};

} // namespace Quillstacks
