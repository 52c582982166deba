#pragma once

#include "foundation/MainQueue.h"

#include <QPointer>
#include <QTimer>

#include <deque>
#include <vector>

namespace Quillstacks {

/// What stands behind MainQueue: blocks for the next turn in a row of their own, delayed ones in a heap with one timer
/// for the next of them.
class BlockQueue final : public QObject {
public:
    static BlockQueue& shared();

    void append(const QObject* context, MainQueue::Block block);
    void insert(std::chrono::nanoseconds due, const QObject* context, MainQueue::Block block);
    void runDue();
    /// Runs all blocks of the next turn, and those that they append, until none is left.
    void runAppended();
    /// When the next delayed block falls due on Clock::uptime(); max() when none waits.
    [[nodiscard]] std::chrono::nanoseconds nextDue();
    /// Drops everything that waits.
    void clear();

private:
    struct Entry {
        std::chrono::nanoseconds due{};
        quint64 sequence = 0;
        bool hasContext = false;
        QPointer<const QObject> context;
        MainQueue::Block block;

        [[nodiscard]] bool isDropped() const { return hasContext && context.isNull(); }
        void run() const;
    };
    static bool isLater(const Entry& a, const Entry& b);

    BlockQueue();
    Entry takeFirst();
    void runOneAppended();
    void arm();

    std::deque<Entry> appended;
    std::vector<Entry> delayed; ///< a heap, the next one in front
    quint64 lastSequence = 0;
    QTimer timer;
};

} // namespace Quillstacks
