#pragma once

namespace Quillstacks {

/// This program as something that the desktop starts when the user logs in. The desktop's own record of that is the
/// only one; it is read anew at each question.
class AppService final {
public:
    enum class Status { notRegistered, enabled };

    [[nodiscard]] static AppService mainApp() { return {}; }

    /// `enabled` when the next login would start this very program.
    [[nodiscard]] Status status() const;
    /// Each does nothing where the state is the wished one already. They throw FileError.
    void registerItem() const;
    void unregister() const;

private:
    AppService() = default;
};

} // namespace Quillstacks
