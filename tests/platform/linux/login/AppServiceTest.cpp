#include "platform/AppService.h"

#include "login/DesktopEntry.h"
#include "platform/FileError.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <array>
#include <linux/capability.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace Quillstacks {
namespace {

/// While one is alive, rights of files hold for root too.
class OrdinaryRights final {
public:
    OrdinaryRights() { setOverride(false); }
    ~OrdinaryRights() { setOverride(true); }
    Q_DISABLE_COPY_MOVE(OrdinaryRights)

private:
    static void setOverride(bool isOn) {
        __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
        std::array<__user_cap_data_struct, _LINUX_CAPABILITY_U32S_3> data{};
        ::syscall(SYS_capget, &header, data.data());
        constexpr auto bit = 1U << CAP_DAC_OVERRIDE;
        data[0].effective = isOn ? data[0].effective | (data[0].permitted & bit) : data[0].effective & ~bit;
        ::syscall(SYS_capset, &header, data.data());
    }
};

/// Configuration folders of one's own: the user's, and one for all users.
class LoginItem : public testing::Test {
protected:
    LoginItem() {
        qputenv("XDG_CONFIG_HOME", user.path().toUtf8());
        qputenv("XDG_CONFIG_DIRS", system.path().toUtf8());
        qunsetenv("XDG_CURRENT_DESKTOP");
    }
    ~LoginItem() override {
        qunsetenv("XDG_CONFIG_DIRS");
        qunsetenv("XDG_CURRENT_DESKTOP");
    }

    [[nodiscard]] static bool isOn() { return AppService::mainApp().status() == AppService::Status::enabled; }
    static void turnOn() { AppService::mainApp().registerItem(); }
    static void turnOff() { AppService::mainApp().unregister(); }

    [[nodiscard]] static QString fileIn(const QTemporaryDir& folder) {
        return folder.filePath(QStringLiteral("autostart/app.Quillstacks.desktop"));
    }
    static void put(const QTemporaryDir& folder, const QByteArray& contents) {
        QDir(folder.path()).mkpath(QStringLiteral("autostart"));
        QFile file(fileIn(folder));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(contents);
    }
    [[nodiscard]] QByteArray written() const {
        QFile file(fileIn(user));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    /// An entry that starts this program, with more lines.
    [[nodiscard]] static QByteArray entry(const QByteArray& more = {}) {
        return "[Desktop Entry]\nType=Application\nName=Quillstacks\nExec=" + exec() + "\n" + more + "\n";
    }
    [[nodiscard]] static QByteArray exec() {
        return DesktopEntry::execOf(QCoreApplication::applicationFilePath()).toUtf8();
    }
    /// The sentence of the failure; empty when there is none.
    template <typename Action>
    [[nodiscard]] static QString failureOf(Action action) {
        try {
            action();
        } catch (const FileError& error) {
            return error.errorDescription();
        }
        return {};
    }

    QTemporaryDir user;
    QTemporaryDir system;
};

TEST_F(LoginItem, isOffWhereThereIsNoEntry) {
    EXPECT_FALSE(isOn());
}

TEST_F(LoginItem, turnedOnIsOnAndTurnedOffLeavesNoFile) {
    turnOn();
    EXPECT_TRUE(isOn());
    EXPECT_TRUE(written().contains("\nExec=" + exec() + "\n"));
    turnOff();
    EXPECT_FALSE(isOn());
    EXPECT_FALSE(QFile::exists(fileIn(user)));
}

TEST_F(LoginItem, turnedTwiceIsTheSameAsOnce) {
    turnOff();
    EXPECT_FALSE(isOn());
    turnOn();
    put(user, written() + "X-Note=kept\n");
    turnOn();
    EXPECT_TRUE(isOn());
    EXPECT_TRUE(written().contains("X-Note=kept")) << "what is on already is not written again";
}

TEST_F(LoginItem, anEntryRemovedBySomebodyElseIsOff) {
    turnOn();
    QFile::remove(fileIn(user));
    EXPECT_FALSE(isOn());
}

TEST_F(LoginItem, hiddenIsOff) {
    put(user, entry("Hidden=true"));
    EXPECT_FALSE(isOn());
    put(user, entry("Hidden=false"));
    EXPECT_TRUE(isOn());
}

TEST_F(LoginItem, disabledByTheDesktopsOwnSettingsIsOff) {
    put(user, entry("X-GNOME-Autostart-enabled=false"));
    EXPECT_FALSE(isOn());
    put(user, entry("X-GNOME-Autostart-enabled=true"));
    EXPECT_TRUE(isOn());
}

TEST_F(LoginItem, turnedOnAgainAfterTheDesktopsSettingsHaveDisabledIt) {
    put(user, entry("Hidden=true\nX-GNOME-Autostart-enabled=false"));
    turnOn();
    EXPECT_TRUE(isOn());
}

TEST_F(LoginItem, keysOfOtherGroupsAndCommentsSayNothing) {
    put(user, entry("#Hidden=true\n[Desktop Action x]\nHidden=true"));
    EXPECT_TRUE(isOn());
}

TEST_F(LoginItem, followsTheDesktopsThatTheEntryNames) {
    put(user, entry("OnlyShowIn=GNOME;XFCE;"));
    EXPECT_FALSE(isOn());
    qputenv("XDG_CURRENT_DESKTOP", "ubuntu:GNOME");
    EXPECT_TRUE(isOn());
    put(user, entry("NotShowIn=GNOME;"));
    EXPECT_FALSE(isOn());
    qputenv("XDG_CURRENT_DESKTOP", "KDE");
    EXPECT_TRUE(isOn());
}

TEST_F(LoginItem, anEntryOfAnotherTypeIsOff) {
    put(user, "[Desktop Entry]\nType=Link\nExec=" + exec() + "\n");
    EXPECT_FALSE(isOn());
}

TEST_F(LoginItem, anEntryThatStartsAnotherProgramIsOff) {
    put(user, "[Desktop Entry]\nType=Application\nExec=/bin/true\n");
    EXPECT_FALSE(isOn());
    put(user, "[Desktop Entry]\nType=Application\nExec=/nowhere/quillstacks\n");
    EXPECT_FALSE(isOn());
    put(user, "[Desktop Entry]\nType=Application\nExec=\"unclosed\n");
    EXPECT_FALSE(isOn());
}

TEST_F(LoginItem, aLinkToThisProgramIsThisProgram) {
    const QString link = user.filePath(QStringLiteral("linked"));
    QFile::link(QCoreApplication::applicationFilePath(), link);
    put(user, "[Desktop Entry]\nType=Application\nExec=" + link.toUtf8() + " %U\n");
    EXPECT_TRUE(isOn());
}

TEST_F(LoginItem, aFileThatIsNoDesktopEntryIsOff) {
    put(user, QByteArray("\xff\xfe\0\n=\n[", 7));
    EXPECT_FALSE(isOn());
    put(user, QByteArray(2 * 1024 * 1024, 'x') + entry());
    EXPECT_FALSE(isOn());
}

TEST_F(LoginItem, aPipeInItsPlaceHoldsNobody) {
    QDir(user.path()).mkpath(QStringLiteral("autostart"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(fileIn(user)).constData(), 0600), 0);
    EXPECT_FALSE(isOn());
}

TEST_F(LoginItem, anEntryForAllUsersCountsAndIsHiddenNotRemoved) {
    put(system, entry());
    EXPECT_TRUE(isOn());
    turnOff();
    EXPECT_FALSE(isOn());
    EXPECT_TRUE(QFile::exists(fileIn(system)));
    EXPECT_TRUE(written().contains("\nHidden=true\n"));
    turnOn();
    EXPECT_TRUE(isOn());
}

TEST_F(LoginItem, aLinkIsReplacedAndItsTargetStays) {
    put(system, entry("NotShowIn=GNOME;"));
    qputenv("XDG_CURRENT_DESKTOP", "GNOME");
    QDir(user.path()).mkpath(QStringLiteral("autostart"));
    QFile::link(fileIn(system), fileIn(user));
    turnOn();
    EXPECT_TRUE(isOn());
    QFile target(fileIn(system));
    ASSERT_TRUE(target.open(QIODevice::ReadOnly));
    EXPECT_EQ(target.readAll(), entry("NotShowIn=GNOME;"));
}

TEST_F(LoginItem, theDesktopsFolderKeepsItsRights) {
    QDir(user.path()).mkpath(QStringLiteral("autostart"));
    const QByteArray folder = QFile::encodeName(user.filePath(QStringLiteral("autostart")));
    ASSERT_EQ(::chmod(folder.constData(), 0755), 0);
    turnOn();
    struct stat now {};
    ASSERT_EQ(::stat(folder.constData(), &now), 0);
    EXPECT_EQ(now.st_mode & 07777, 0755U);
}

TEST_F(LoginItem, aFolderThatIsAFileIsAReadableFailure) {
    QFile file(user.filePath(QStringLiteral("autostart")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    const QString failure = failureOf([] { turnOn(); });
    EXPECT_TRUE(failure.contains(QStringLiteral("Not a directory"))) << failure.toStdString();
    EXPECT_FALSE(isOn());
}

TEST_F(LoginItem, aFolderThatCannotBeWrittenIsAReadableFailureEitherWay) {
    const QByteArray folder = QFile::encodeName(user.filePath(QStringLiteral("autostart")));
    put(user, entry());
    ASSERT_EQ(::chmod(folder.constData(), 0555), 0);
    {
        const OrdinaryRights rights;
        const QString failure = failureOf([] { turnOff(); });
        EXPECT_TRUE(failure.contains(fileIn(user)) && failure.contains(QStringLiteral("Permission denied")))
            << failure.toStdString();
        EXPECT_TRUE(isOn());
    }
    ASSERT_EQ(::chmod(folder.constData(), 0755), 0);
    QFile::remove(fileIn(user));
    ASSERT_EQ(::chmod(folder.constData(), 0555), 0);
    {
        const OrdinaryRights rights;
        const QString failure = failureOf([] { turnOn(); });
        EXPECT_TRUE(failure.contains(fileIn(user)) && failure.contains(QStringLiteral("Permission denied")))
            << failure.toStdString();
        EXPECT_FALSE(isOn());
    }
    ASSERT_EQ(::chmod(folder.constData(), 0755), 0);
}

TEST_F(LoginItem, theEntryPassesTheDesktopsValidator) {
    const QString validator = QStandardPaths::findExecutable(QStringLiteral("desktop-file-validate"));
    if (validator.isEmpty())
        GTEST_SKIP() << "desktop-file-validate is not installed";
    const auto complaints = [&](const QString& path) {
        QProcess process;
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(validator, {path});
        process.waitForFinished();
        return process.exitCode() == 0 ? QString::fromUtf8(process.readAll()) : QStringLiteral("failed");
    };
    turnOn();
    EXPECT_EQ(complaints(fileIn(user)), QString());
    put(system, entry());
    turnOff();
    EXPECT_EQ(complaints(fileIn(user)), QString());
}

TEST_F(LoginItem, theSessionManagerWouldStartIt) {
    const QString generator = QStringLiteral("/usr/lib/systemd/user-generators/systemd-xdg-autostart-generator");
    if (!QFile::exists(generator))
        GTEST_SKIP() << "systemd's autostart generator is not installed";
    const auto units = [&] {
        const QTemporaryDir out;
        QProcess::execute(generator, {out.path(), out.path(), out.path()});
        return QDir(out.path()).entryList({QStringLiteral("*Quillstacks*.service")});
    };
    turnOn();
    EXPECT_EQ(units().size(), 1);
    turnOff();
    EXPECT_TRUE(units().isEmpty());
}

TEST(DesktopEntryExec, takesAnyPathAndGivesItBack) {
    for (const char* path :
         {"/usr/bin/quillstacks", "/a b/\"c\"/$HOME`x`/100%/d\\e", "/line\nbreak\tand\rmore", "/ä"}) {
        const QString text = QString::fromUtf8(path);
        const DesktopEntry entry("[Desktop Entry]\nExec=" + DesktopEntry::execOf(text).toUtf8());
        EXPECT_EQ(entry.program(), text) << path;
    }
}

TEST(DesktopEntryExec, takesWhatOthersWrite) {
    const auto program = [](const char* exec) {
        return DesktopEntry(QByteArray("[Desktop Entry]\r\nExec = ") + exec + "\r\n").program();
    };
    EXPECT_EQ(program("quillstacks %U"), QStringLiteral("quillstacks"));
    EXPECT_EQ(program("\"/opt/my programs/quillstacks\" --x"), QStringLiteral("/opt/my programs/quillstacks"));
    EXPECT_EQ(program("/opt/my\\sprograms"), QStringLiteral("/opt/my")) << "a blank, however it is written";
    EXPECT_EQ(program(""), QString());
}

} // namespace
} // namespace Quillstacks
