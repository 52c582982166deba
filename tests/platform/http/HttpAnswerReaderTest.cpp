#include "platform/http/HttpAnswerReader.h"

#include <gtest/gtest.h>

namespace Quillstacks {
namespace {

using State = HttpAnswerReader::State;

/// Reads it whole, and byte by byte; both must come to the same.
HttpAnswerReader readOf(const QByteArray& bytes, bool ends = true) {
    HttpAnswerReader whole;
    whole.take(bytes);
    HttpAnswerReader slow;
    for (const char each : bytes)
        slow.take(QByteArray(1, each));
    if (ends) {
        whole.takeEnd();
        slow.takeEnd();
    }
    EXPECT_EQ(whole.state(), slow.state()) << bytes.left(200).constData();
    EXPECT_EQ(whole.status(), slow.status());
    EXPECT_EQ(whole.body(), slow.body());
    return whole;
}

} // namespace

TEST(HttpAnswerReader, aBodyOfAGivenLengthIsReadToItsLastByte) {
    const HttpAnswerReader reader = readOf("HTTP/1.1 200 OK\r\nContent-Length: 5\r\nX: y\r\n\r\nHello and more", false);
    EXPECT_EQ(reader.state(), State::complete);
    EXPECT_EQ(reader.status(), 200);
    EXPECT_EQ(reader.body(), "Hello");
    EXPECT_EQ(reader.header("x"), "y");
}

TEST(HttpAnswerReader, aBodyInChunksIsPutTogether) {
    const HttpAnswerReader reader = readOf("HTTP/1.1 200 OK\r\nTransfer-Encoding: Chunked\r\n\r\n5;x=y\r\nHello\r\n"
                                           "A \r\n, everyone\r\n0\r\nTrailer: z\r\n\r\n",
                                           false);
    EXPECT_EQ(reader.state(), State::complete);
    EXPECT_EQ(reader.body(), "Hello, everyone");
}

TEST(HttpAnswerReader, aBodyWithoutALengthEndsWithTheConnection) {
    EXPECT_EQ(readOf("HTTP/1.0 200 OK\n\nHello", false).state(), State::reading);
    EXPECT_EQ(readOf("HTTP/1.0 200 OK\n\nHello").state(), State::complete);
    EXPECT_EQ(readOf("HTTP/1.0 200 OK\n\nHello").body(), "Hello");
}

TEST(HttpAnswerReader, anAnswerWithoutABodyIsCompleteAtOnce) {
    EXPECT_EQ(readOf("HTTP/1.1 204 No Content\r\n\r\n", false).state(), State::complete);
    EXPECT_EQ(readOf("HTTP/1.1 304\r\n\r\n", false).state(), State::complete);
    EXPECT_EQ(readOf("HTTP/1.1 500 Oops\r\nContent-Length: 0\r\n\r\n", false).status(), 500);
}

TEST(HttpAnswerReader, whatGoesAheadOfTheAnswerIsPassedOver) {
    const HttpAnswerReader reader = readOf("HTTP/1.1 100 Continue\r\nContent-Length: 9\r\n\r\nHTTP/1.1 200 OK\r\n"
                                           "Content-Length: 1\r\n\r\nx",
                                           false);
    EXPECT_EQ(reader.status(), 200);
    EXPECT_EQ(reader.body(), "x");
}

TEST(HttpAnswerReader, whatEndsTooEarlyIsBroken) {
    for (const char* cut : {"", "HTTP/1.1 200 OK", "HTTP/1.1 200 OK\r\nContent-Length: 5\r\n",
                            "HTTP/1.1 200 OK\r\nContent-Length: 5\r\n\r\nHell",
                            "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n5\r\nHello\r\n",
                            "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n0\r\n"})
        EXPECT_EQ(readOf(cut).state(), State::broken) << cut;
}

TEST(HttpAnswerReader, whatIsNoHttpIsBroken) {
    for (const char* other :
         {"garbage\r\n\r\n", "SSH-2.0-OpenSSH\r\n", "HTTP/2 200\r\n\r\n", "HTTP/1.1 2000 OK\r\n\r\n",
          "HTTP/1.1 abc OK\r\n\r\n", "\r\n\r\n", "HTTP/1.1 200 OK\r\nno colon\r\n\r\n",
          "HTTP/1.1 200 OK\r\n: x\r\n\r\n", "HTTP/1.1 200 OK\r\nContent-Length: -1\r\n\r\n",
          "HTTP/1.1 200 OK\r\nContent-Length: 1x\r\n\r\n",
          "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\nxyz\r\n",
          "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n1\r\nabc\r\n"})
        EXPECT_EQ(readOf(other, false).state(), State::broken) << other;
}

TEST(HttpAnswerReader, theBodyIsBounded) {
    for (const char* large : {"16777217", "99999999999999999999999999"})
        EXPECT_EQ(readOf("HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray(large) + "\r\n\r\n", false).state(),
                  State::tooLarge);
    for (const char* large : {"1000001", "fffffffffffffffffffffff"})
        EXPECT_EQ(
            readOf("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n" + QByteArray(large) + "\r\n", false).state(),
            State::tooLarge);
    HttpAnswerReader reader;
    reader.take("HTTP/1.1 200 OK\r\n\r\n");
    EXPECT_EQ(reader.take(QByteArray(HttpAnswerReader::mostBodyBytes, 'x')), State::reading);
    EXPECT_EQ(reader.take("x"), State::tooLarge);
    EXPECT_EQ(reader.takeEnd(), State::tooLarge);
}

TEST(HttpAnswerReader, theHeadIsBounded) {
    HttpAnswerReader lines;
    lines.take("HTTP/1.1 200 OK\r\n");
    for (int i = 0; i < 100000 && lines.state() == State::reading; ++i)
        lines.take("X: y\r\n");
    EXPECT_EQ(lines.state(), State::tooLarge);
    HttpAnswerReader line;
    for (int i = 0; i < 1000 && line.state() == State::reading; ++i)
        line.take(QByteArray(1000, 'x'));
    EXPECT_EQ(line.state(), State::tooLarge);
    HttpAnswerReader interim;
    for (int i = 0; i < 100000 && interim.state() == State::reading; ++i)
        interim.take("HTTP/1.1 100 Continue\r\n\r\n");
    EXPECT_EQ(interim.state(), State::tooLarge);
}

} // namespace Quillstacks
