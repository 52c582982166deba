// Whatever bytes come as a backup: they are refused with one line that says why, or what was read is written and read
// back as it is. Built with -D QUILLSTACKS_FUZZ=ON and clang; the tests run it for a bounded number of rounds.

#include "backup/format/BackupError.h"
#include "backup/format/BackupReader.h"
#include "backup/format/BackupWriter.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

using namespace Quillstacks;

namespace {

void require(bool condition, const char* what) {
    if (condition)
        return;
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    try {
        const ExportedData data =
            BackupReader::decoded(QByteArray(reinterpret_cast<const char*>(bytes), static_cast<qsizetype>(size)));
        const QByteArray text = BackupWriter::encoded(data);
        require(BackupReader::decoded(text) == data, "what was written reads as something else");
        require(BackupWriter::encoded(BackupReader::decoded(text)) == text, "what was read is written differently");
    } catch (const BackupError& error) {
        const QString line = error.errorDescription();
        require(!line.isEmpty() && !line.contains(QLatin1Char('\n')), "the failure is not one line");
    }
    return 0;
}
