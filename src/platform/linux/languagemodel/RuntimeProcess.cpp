#include "languagemodel/RuntimeProcess.h"

#include <QProcess>
#include <QProcessEnvironment>

#include <algorithm>
#include <csignal>
#include <sys/prctl.h>
#include <unistd.h>

namespace Quillstacks {

namespace {

constexpr qsizetype keptOutput = 4096;
constexpr int longestWords = 200;
constexpr int startFailed = 127;

/// What tunes llama-server from outside could make it listen elsewhere, fetch a model, or run tools: this one takes
/// nothing but what we tell it. Its key goes this way and not on the command line, which every user can read.
QProcessEnvironment environmentWith(const QByteArray& key) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString& name : environment.keys())
        if (name.startsWith(QLatin1String("LLAMA_")))
            environment.remove(name);
    environment.insert(QStringLiteral("LLAMA_API_KEY"), QString::fromLatin1(key));
    return environment;
}

/// Runs in the new process ahead of llama-server, where only a few system calls are safe.
void tieTo(pid_t program) {
    ::setpgid(0, 0); // so that it can be ended together with what it may have started itself
    // The kernel's promise comes too late if the program ended just before.
    if (::prctl(PR_SET_PDEATHSIG, SIGKILL) != 0 || ::getppid() != program)
        ::_exit(startFailed);
}

/// Owns what has been told to end. It is never destroyed, as the end of the program would wait for the end of each.
QObject& leaving() {
    static QObject& owner = *new QObject;
    return owner;
}

} // namespace

RuntimeProcess::RuntimeProcess(QObject* parent) : QObject(parent), process(new QProcess) {
    process->setProcessChannelMode(QProcess::MergedChannels);
    process->setStandardInputFile(QProcess::nullDevice());
    process->setChildProcessModifier([program = ::getpid()] { tieTo(program); });
    connect(process, &QProcess::readyReadStandardOutput, this, &RuntimeProcess::keepOutput);
    connect(process, &QProcess::finished, this, [this] {
        keepOutput();
        Q_EMIT ended();
    });
    connect(process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            Q_EMIT failedToStart(process->errorString());
    });
}

RuntimeProcess::~RuntimeProcess() {
    process->disconnect(this);
    if (process->state() == QProcess::NotRunning) {
        process->deleteLater();
        return;
    }
    // It keeps nothing that it would have to save, and one that hangs would not hear a more polite word. Its object
    // stays until it is gone, as a model of many gigabytes takes its time to leave memory.
    process->setParent(&leaving());
    QObject::connect(process, &QProcess::finished, process, &QObject::deleteLater);
    if (const auto group = static_cast<pid_t>(process->processId()); group > 0)
        ::kill(-group, SIGKILL);
    process->kill();
}

void RuntimeProcess::start(const ModelFiles& files, quint16 port, const QByteArray& key) {
    process->setProcessEnvironment(environmentWith(key));
    process->start(files.runtime,
                   {QStringLiteral("--host"), QStringLiteral("127.0.0.1"), QStringLiteral("--port"),
                    QString::number(port), QStringLiteral("--model"), files.model},
                   QProcess::ReadOnly);
}

void RuntimeProcess::keepOutput() {
    output = (output + process->readAllStandardOutput()).right(keptOutput);
}

QString RuntimeProcess::complaint() const {
    QStringList lines = QString::fromUtf8(output).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    if (lines.isEmpty())
        return {};
    // An error while loading is followed by lines which only say that loading has failed.
    const auto error = std::ranges::find_if(
        lines, [](const QString& line) { return line.contains(QLatin1String("error"), Qt::CaseInsensitive); });
    return (error != lines.end() ? *error : lines.last()).simplified().left(longestWords);
}

} // namespace Quillstacks
