#include "platform/http/HttpAnswerReader.h"

#include <algorithm>

namespace Quillstacks {
namespace {

constexpr int noContent = 204;
constexpr int notModified = 304;
constexpr int leastFinalStatus = 200;

/// -1 for what is no status line.
int statusOf(const QByteArray& line) {
    const bool isHttp = line.size() >= 12 && line.startsWith("HTTP/1.") && line.at(8) == ' ';
    bool isNumber = false;
    const int status = isHttp ? line.mid(9, 3).toInt(&isNumber) : -1;
    return isNumber && status >= 100 && (line.size() == 12 || line.at(12) == ' ') ? status : -1;
}

/// Of a chunk or a body; -1 for what is no number. What is too large for us need not be told from what is much larger.
qint64 sizeOf(const QByteArray& text, int base) {
    const auto isDigit = [base](char c) {
        return (c >= '0' && c <= '9') || (base == 16 && ((c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F')));
    };
    if (text.isEmpty() || !std::all_of(text.begin(), text.end(), isDigit))
        return -1;
    bool fits = false;
    const qint64 size = text.toLongLong(&fits, base);
    return fits ? size : HttpAnswerReader::mostBodyBytes + 1;
}

} // namespace

HttpAnswerReader::State HttpAnswerReader::take(const QByteArray& bytes) {
    if (current != State::reading)
        return current;
    pending += bytes;
    while (step()) {
    }
    return current;
}

HttpAnswerReader::State HttpAnswerReader::takeEnd() {
    if (current == State::reading)
        current = part == Part::untilEnd ? State::complete : State::broken;
    return current;
}

// Whether there is more to be done with what has come.
bool HttpAnswerReader::step() {
    switch (part) {
    case Part::head:
        return readHead();
    case Part::length:
    case Part::untilEnd:
        return readBody(part);
    case Part::chunkSize:
        return readChunkSize();
    case Part::chunk:
        return readBody(Part::chunkEnd);
    case Part::chunkEnd:
        return readChunkEnd();
    case Part::trailers:
        return readTrailer();
    }
    return false;
}

bool HttpAnswerReader::end(State state) {
    current = state;
    return false;
}

bool HttpAnswerReader::takeLine(QByteArray& line) {
    const qsizetype at = pending.indexOf('\n');
    if (headBytes + (at < 0 ? pending.size() : at) > mostHeadBytes)
        return end(State::tooLarge);
    if (at < 0)
        return false;
    headBytes += at + 1;
    line = pending.first(at > 0 && pending.at(at - 1) == '\r' ? at - 1 : at);
    pending.remove(0, at + 1);
    return true;
}

bool HttpAnswerReader::readHead() {
    QByteArray line;
    if (!takeLine(line))
        return false;
    if (startsAnswer) {
        startsAnswer = false;
        code = std::max(0, statusOf(line));
        return code > 0 || end(State::broken);
    }
    if (line.isEmpty()) {
        beginBody();
        return current == State::reading;
    }
    const qsizetype colon = line.indexOf(':');
    if (colon <= 0)
        return end(State::broken);
    headers.insert(line.first(colon).toLower(), line.mid(colon + 1).trimmed());
    return true;
}

void HttpAnswerReader::beginBody() {
    if (code < leastFinalStatus) { // what goes ahead of the answer itself
        startsAnswer = true;
        headers.clear();
    } else if (code == noContent || code == notModified) {
        current = State::complete;
    } else if (header("transfer-encoding").toLower().endsWith("chunked")) {
        part = Part::chunkSize;
    } else if (headers.contains("content-length")) {
        part = Part::length;
        left = sizeOf(header("content-length"), 10);
        if (left <= 0)
            current = left == 0 ? State::complete : State::broken;
        else if (left > mostBodyBytes)
            current = State::tooLarge;
    } else {
        part = Part::untilEnd;
    }
}

bool HttpAnswerReader::readBody(Part next) {
    const bool isBounded = part != Part::untilEnd;
    const qsizetype count = isBounded ? std::min<qsizetype>(pending.size(), left) : pending.size();
    if (content.size() + count > mostBodyBytes)
        return end(State::tooLarge);
    content += pending.first(count);
    pending.remove(0, count);
    left -= isBounded ? count : 0;
    if (!isBounded || left > 0)
        return false;
    if (part == Part::length)
        return end(State::complete);
    part = next;
    return true;
}

bool HttpAnswerReader::readChunkSize() {
    QByteArray line;
    headBytes = 0;
    if (!takeLine(line))
        return false;
    left = sizeOf(line.first(line.indexOf(';') < 0 ? line.size() : line.indexOf(';')).trimmed(), 16);
    if (left < 0)
        return end(State::broken);
    if (left > mostBodyBytes)
        return end(State::tooLarge);
    headBytes = 0;
    part = left == 0 ? Part::trailers : Part::chunk;
    return true;
}

bool HttpAnswerReader::readChunkEnd() {
    QByteArray line;
    headBytes = 0;
    if (!takeLine(line))
        return false;
    part = Part::chunkSize;
    return line.isEmpty() || end(State::broken);
}

bool HttpAnswerReader::readTrailer() {
    QByteArray line;
    if (!takeLine(line))
        return false;
    return !line.isEmpty() || end(State::complete);
}

} // namespace Quillstacks
