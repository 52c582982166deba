#pragma once

#include "languagemodel/ModelFiles.h"

#include <QObject>

class QProcess;

namespace Quillstacks {

/// A running llama-server that ends with this object, and with this program however that ends.
class RuntimeProcess final : public QObject {
    Q_OBJECT
public:
    explicit RuntimeProcess(QObject* parent = nullptr);
    ~RuntimeProcess() override;

    /// Serves the model on 127.0.0.1 to those who have the key. Once.
    void start(const ModelFiles& files, quint16 port, const QByteArray& key);
    /// What went wrong, in a line of its own: the first that speaks of an error, or else the last. Cut to a length that
    /// fits a sentence.
    [[nodiscard]] QString complaint() const;

Q_SIGNALS:
    void failedToStart(const QString& reason);
    void ended();

private:
    void keepOutput();

    QProcess* process;
    QByteArray output; ///< the end of what it wrote
};

} // namespace Quillstacks
