#pragma once

#include "foundation/LocalizedError.h"
#include "foundation/ManualClock.h"
#include "platform/http/HttpServer.h"
#include "support/LogCapture.h"
#include "support/TestPreferences.h"

#include <QCoroTask>

#include <gtest/gtest.h>

namespace Quillstacks {

/// How a task ended, once it has.
template <typename T>
struct Ending {
    std::optional<T> result;
    std::exception_ptr error;

    [[nodiscard]] bool hasCome() const { return result || error; }
    /// The error's sentence; empty without one.
    [[nodiscard]] QString description() const {
        try {
            if (error)
                std::rethrow_exception(error);
        } catch (const std::exception& thrown) {
            return localizedDescription(thrown);
        }
        return {};
    }
    template <typename E>
    [[nodiscard]] std::optional<E> as() const {
        try {
            if (error)
                std::rethrow_exception(error);
        } catch (const E& thrown) {
            return thrown;
        } catch (...) {
        }
        return std::nullopt;
    }
};

template <typename T>
QCoro::Task<> follow(QCoro::Task<T> task, std::shared_ptr<Ending<T>> ending) {
    try {
        ending->result = co_await task;
    } catch (...) {
        ending->error = std::current_exception();
    }
}

/// Lets a task run on; what became of it is seen in the ending.
template <typename T>
std::shared_ptr<Ending<T>> started(QCoro::Task<T> task) {
    auto ending = std::make_shared<Ending<T>>();
    follow(std::move(task), ending);
    return ending;
}

/// Runs a task to its end.
template <typename T>
Ending<T> finished(QCoro::Task<T> task) {
    const auto ending = started(std::move(task));
    EXPECT_TRUE(QTest::qWaitFor([&] { return ending->hasCome(); }, 10000)) << "the task does not end";
    return *ending;
}

/// A server, preferences and log of the test's own, and a clock that stands still until it is moved.
class AnalysisFixture : public testing::Test {
protected:
    /// Moves the clock; what awaits goes on.
    void advance(std::chrono::nanoseconds duration) {
        clock.advance(duration);
        QCoreApplication::processEvents();
    }

    TestPreferences preferences;
    LogCapture log;
    ManualClock clock;
    HttpServer server;
};

} // namespace Quillstacks
