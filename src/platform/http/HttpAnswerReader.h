#pragma once

#include <QByteArray>
#include <QHash>

namespace Quillstacks {

/// Reads the answer to one request of HTTP/1.1 (RFC 9112) as it comes in, in pieces of any size. Both the headers and
/// the body are bounded, whatever the other side sends.
class HttpAnswerReader final {
public:
    static constexpr qsizetype mostHeadBytes = 256 * 1024; ///< also of the trailers
    static constexpr qsizetype mostBodyBytes = 16 * 1024 * 1024;

    enum class State {
        reading,
        complete,
        broken,   ///< no HTTP, or it ended too early
        tooLarge, ///< more than either bound
    };

    State take(const QByteArray& bytes);
    /// The other side has closed the connection.
    State takeEnd();

    [[nodiscard]] State state() const { return current; }
    /// Of the last head that was read; 0 before.
    [[nodiscard]] int status() const { return code; }
    [[nodiscard]] const QByteArray& body() const { return content; }
    /// The value of a header, its name in lower case; the last one where there are several.
    [[nodiscard]] QByteArray header(const QByteArray& name) const { return headers.value(name); }

private:
    enum class Part { head, length, untilEnd, chunkSize, chunk, chunkEnd, trailers };

    [[nodiscard]] bool step();
    [[nodiscard]] bool readHead();
    void beginBody();
    [[nodiscard]] bool readBody(Part next);
    [[nodiscard]] bool readChunkSize();
    [[nodiscard]] bool readChunkEnd();
    [[nodiscard]] bool readTrailer();
    /// A line without its end; false while there is none yet.
    [[nodiscard]] bool takeLine(QByteArray& line);
    bool end(State state);

    State current = State::reading;
    Part part = Part::head;
    QByteArray pending;
    QHash<QByteArray, QByteArray> headers;
    QByteArray content;
    qsizetype headBytes = 0;
    qint64 left = 0; ///< of the body or the chunk
    int code = 0;
    bool startsAnswer = true; ///< the next line is a status line
};

} // namespace Quillstacks
