// Whatever bytes come as a backup: they are refused with one line that says why, or they are JSON and what was read is
// written and read back as it is. Built with -D QUILLSTACKS_FUZZ=ON and clang; the tests run it for a bounded number of
// rounds.

#include "backup/format/BackupError.h"
#include "backup/format/BackupReader.h"
#include "backup/format/BackupWriter.h"

#include <QJsonDocument>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <tuple>

using namespace Quillstacks;

namespace {

void require(bool condition, const char* what) {
    if (condition)
        return;
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

/// To another reader as well, which knows no numbers beyond those of a double.
bool isJson(const QByteArray& text) {
    QJsonParseError error;
    std::ignore = QJsonDocument::fromJson(text, &error);
    return error.error == QJsonParseError::NoError || error.error == QJsonParseError::IllegalNumber;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const QByteArray input(reinterpret_cast<const char*>(bytes), static_cast<qsizetype>(size));
    try {
        const ExportedData data = BackupReader::decoded(input);
        require(isJson(input), "what was read is not JSON");
        const QByteArray text = BackupWriter::encoded(data);
        require(BackupReader::decoded(text) == data, "what was written reads as something else");
        require(BackupWriter::encoded(BackupReader::decoded(text)) == text, "what was read is written differently");
    } catch (const BackupError& error) {
        const QString line = error.errorDescription();
        require(!line.isEmpty() && !line.contains(QLatin1Char('\n')), "the failure is not one line");
    }
    return 0;
}
