#pragma once

#include <QByteArray>

namespace Quillstacks::LoopbackPort {

/// A port of 127.0.0.1 that nobody listens on at this moment; 0 when there is none.
[[nodiscard]] quint16 takeFree();
/// Whether it is this user who listens on the port. Between finding it free and listening on it another user's process
/// may have been quicker, and must not get to read what is meant for ours.
[[nodiscard]] bool isListenedOnByUs(quint16 port);
/// The same, of a table as the kernel gives it in /proc/net/tcp.
[[nodiscard]] bool isListenedOnBy(uint user, quint16 port, const QByteArray& table);

} // namespace Quillstacks::LoopbackPort
