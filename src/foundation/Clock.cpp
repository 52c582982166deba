#include "foundation/Clock.h"

namespace Quillstacks {
namespace {

Date systemNow() {
    return std::chrono::floor<std::chrono::microseconds>(std::chrono::system_clock::now());
}

std::chrono::nanoseconds systemUptime() {
    return std::chrono::steady_clock::now().time_since_epoch();
}

Clock::Source current{systemNow, systemUptime};

} // namespace

Date Clock::now() {
    return current.now();
}

std::chrono::nanoseconds Clock::uptime() {
    return current.uptime();
}

void Clock::setSource(Source source) {
    current.now = source.now ? source.now : systemNow;
    current.uptime = source.uptime ? source.uptime : systemUptime;
}

} // namespace Quillstacks
