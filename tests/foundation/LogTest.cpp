#include "foundation/Log.h"
#include "support/LogCapture.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <thread>

namespace Quillstacks {
namespace {

TEST(Log, theSixLoggersHaveTheirCategories) {
    const LogCapture log;
    for (const Logger* logger :
         {&Log::general, &Log::data, &Log::hotkey, &Log::permissions, &Log::ui, &Log::importExport})
        logger->info(QStringLiteral("x"));
    EXPECT_EQ(log.lines(), QStringList({QStringLiteral("general info: x"), QStringLiteral("data info: x"),
                                        QStringLiteral("hotkey info: x"), QStringLiteral("permissions info: x"),
                                        QStringLiteral("ui info: x"), QStringLiteral("importExport info: x")}));
    for (const LogRecord& record : log.records())
        EXPECT_EQ(record.subsystem, QStringLiteral("app.Quillstacks"));
}

TEST(Log, thereAreFiveLevels) {
    const LogCapture log;
    Log::ui.debug(QStringLiteral("a"));
    Log::ui.info(QStringLiteral("b"));
    Log::ui.standard(QStringLiteral("c"));
    Log::ui.error(QStringLiteral("d"));
    Log::ui.fault(QStringLiteral("e"));
    EXPECT_EQ(log.lines(),
              QStringList({QStringLiteral("ui debug: a"), QStringLiteral("ui info: b"), QStringLiteral("ui default: c"),
                           QStringLiteral("ui error: d"), QStringLiteral("ui fault: e")}));
}

TEST(Log, dataErrorTellsContextAndLocalizedDescription) {
    const LogCapture log;
    Log::logDataError(QStringLiteral("saving prompt"), std::runtime_error("disk full"));
    EXPECT_EQ(log.lines(), QStringList(QStringLiteral("data error: Data error in saving prompt: disk full")));
}

TEST(Log, valuesThatLookLikePlaceholdersStayAsTheyAre) {
    const LogCapture log;
    Log::logDataError(QStringLiteral("%2 %1 %s"), std::runtime_error("%1 %ld"));
    EXPECT_EQ(log.lines(), QStringList(QStringLiteral("data error: Data error in %2 %1 %s: %1 %ld")));
}

TEST(Log, storageLocationTellsThePath) {
    const LogCapture log;
    Log::logStorageLocation(QStringLiteral("/home/ada/x"));
    EXPECT_EQ(log.lines(), QStringList(QStringLiteral("data info: Data storage location: /home/ada/x")));
}

TEST(Log, hotkeyRegistrationIsInfoOnSuccessAndErrorOnFailure) {
    const LogCapture log;
    Log::logHotkeyRegistration(49, 1179648, true);
    Log::logHotkeyRegistration(49, 1179648, false);
    EXPECT_EQ(log.lines(),
              QStringList({QStringLiteral("hotkey info: Hotkey registered - keyCode: 49, modifiers: 1179648"),
                           QStringLiteral("hotkey error: Failed to register hotkey - keyCode: 49, modifiers: "
                                          "1179648")}));
}

TEST(Log, permissionIsInfoIfGrantedAndDefaultIfNot) {
    const LogCapture log;
    Log::logPermission(QStringLiteral("Accessibility"), true);
    Log::logPermission(QStringLiteral("Accessibility"), false);
    EXPECT_EQ(log.lines(), QStringList({QStringLiteral("permissions info: Permission granted: Accessibility"),
                                        QStringLiteral("permissions default: Permission denied: Accessibility")}));
}

TEST(Log, operationTellsItsItemsOnlyOnSuccess) {
    const LogCapture log;
    Log::logOperation(QStringLiteral("Export"), true, 12);
    Log::logOperation(QStringLiteral("Import"), false, 12);
    EXPECT_EQ(log.lines(), QStringList({QStringLiteral("importExport info: Export completed - items: 12"),
                                        QStringLiteral("importExport error: Import failed")}));
}

TEST(Log, aBundleWithNoVersionKeysLogsUnknownUnknown) {
    const LogCapture log;
    Log::setVersion({}, {});
    Log::logAppStart();
    EXPECT_EQ(log.lines(), QStringList(QStringLiteral("general info: Quillstacks initialized - version: Unknown "
                                                      "(Unknown)")));
}

TEST(Log, appStartTellsVersionAndBuild) {
    const LogCapture log;
    Log::setVersion(QStringLiteral("1.2"), QStringLiteral("34"));
    Log::logAppStart();
    Log::setVersion({}, {});
    EXPECT_EQ(log.lines(), QStringList(QStringLiteral("general info: Quillstacks initialized - version: 1.2 (34)")));
    EXPECT_EQ(Log::versionText(QStringLiteral("1.2"), {}), QStringLiteral("1.2 (Unknown)"));
    EXPECT_EQ(Log::versionText({}, QStringLiteral("34")), QStringLiteral("Unknown (34)"));
}

TEST(Log, aPrivateValueIsNotReadableWhateverItIs) {
    EXPECT_EQ(Log::redacted(QStringLiteral("secret")), QStringLiteral("<private>"));
    EXPECT_EQ(Log::redacted({}), QStringLiteral("<private>"));
}

TEST(Log, anEmptySinkIsALineOnStandardError) {
    const Log::Sink before = Log::setSink({});
    testing::internal::CaptureStderr();
    Log::hotkey.standard(QStringLiteral("grün"));
    Log::ui.fault(QStringLiteral("x"));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Quillstacks[hotkey] default: grün\nQuillstacks[ui] fault: x\n");
    Log::setSink(before);
}

TEST(Log, setSinkReturnsTheOneBefore) {
    const LogCapture outer;
    {
        const LogCapture inner;
        Log::ui.info(QStringLiteral("inner"));
        EXPECT_EQ(inner.records().size(), 1U);
    }
    Log::ui.info(QStringLiteral("outer"));
    EXPECT_EQ(outer.lines(), QStringList(QStringLiteral("ui info: outer")));
}

TEST(Log, aSinkMayLogItself) {
    int depth = 0;
    const Log::Sink before = Log::setSink([&](const LogRecord&) {
        if (++depth < 3)
            Log::ui.info(QStringLiteral("again"));
    });
    Log::ui.info(QStringLiteral("first"));
    Log::setSink(before);
    EXPECT_EQ(depth, 3);
}

TEST(Log, isSafeFromAnyThread) {
    const LogCapture log;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([] {
            for (int line = 0; line < 500; ++line)
                Log::general.info(QString::number(line));
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(log.records().size(), 2000U);
}

} // namespace
} // namespace Quillstacks
