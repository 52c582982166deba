#include "languagemodel/LoopbackPort.h"

#include <QHostAddress>
#include <QTcpServer>

#include <gtest/gtest.h>

namespace Quillstacks {

namespace {

// 127.0.0.1:8080 listening, of user 1000; 127.0.0.1:8081 connected, of user 1000.
constexpr const char* table =
    "  sl  local_address rem_address   st tx_queue rx_queue tr tm->when retrnsmt   uid  timeout inode\n"
    "   0: 0100007F:1F90 00000000:0000 0A 00000000:00000000 00:00000000 00000000  1000        0 1401 1 0 100 0 0 10 0\n"
    "   1: 0100007F:1F91 0100007F:0CEA 01 00000000:00000000 00:00000000 00000000  1000        0 1402 1 0 100 0 0 10 "
    "0\n";

TEST(LoopbackPort, theListenersUserIsRead) {
    EXPECT_TRUE(LoopbackPort::isListenedOnBy(1000, 8080, table));
    EXPECT_FALSE(LoopbackPort::isListenedOnBy(1001, 8080, table)) << "another user's";
}

TEST(LoopbackPort, aConnectionIsNoListener) {
    EXPECT_FALSE(LoopbackPort::isListenedOnBy(1000, 8081, table));
}

TEST(LoopbackPort, aPortThatIsNotThereIsNobodys) {
    EXPECT_FALSE(LoopbackPort::isListenedOnBy(1000, 80, table));
    EXPECT_FALSE(LoopbackPort::isListenedOnBy(1000, 8080, QByteArray()));
}

TEST(LoopbackPort, aFreePortCanBeTakenAndIsSeenAsOurs) {
    const quint16 port = LoopbackPort::takeFree();
    ASSERT_NE(port, 0);
    EXPECT_FALSE(LoopbackPort::isListenedOnByUs(port));
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost, port));
    EXPECT_TRUE(LoopbackPort::isListenedOnByUs(port));
}

} // namespace
} // namespace Quillstacks
