// The examples of the manual page, typed into a shell one after the other.

#include "tests/tool_runner.h"

#include <QFileInfo>
#include <QImage>

namespace {

/// The lines of all literal displays, as the reader of the page types them.
QByteArray typedLines(const QByteArray& page) {
    QByteArray typed;
    bool literal = false;
    for (QByteArray line : page.split('\n')) {
        if (line.startsWith(".Bd") || line.startsWith(".Ed"))
            literal = line.startsWith(".Bd");
        else if (literal)
            typed += line.replace("$ ", "").replace("\\e", "\\") + '\n';
    }
    return typed;
}

TEST_F(ToolTest, manualsExamplesWork) {
    QFile page(MANUAL);
    ASSERT_TRUE(page.open(QIODevice::ReadOnly));
    const QByteArray typed = typedLines(page.readAll());
    for (const char* command : {"compose", "show", "unpack", "smil", "render", "help"})
        EXPECT_TRUE(typed.contains(QByteArray("lummms ") + command)) << command;

    QImage picture(16, 16, QImage::Format_RGB32);
    picture.fill(Qt::blue);
    ASSERT_TRUE(picture.save(path("sea.jpg")));
    QProcess shell;
    shell.setWorkingDirectory(path(""));
    shell.setEnvironment(QProcess::systemEnvironment()
                         << "PATH=" + QFileInfo(LUMMMS).path() + ':' + qEnvironmentVariable("PATH"));
    shell.setProcessChannelMode(QProcess::MergedChannels);
    shell.start("sh", {"-exc", typed});
    ASSERT_TRUE(shell.waitForFinished(120'000));
    EXPECT_EQ(shell.exitCode(), 0) << shell.readAll().constData();
    EXPECT_EQ(read("parts/sea.jpg"), read("sea.jpg"));
    EXPECT_FALSE(QImage(path("trip.png")).isNull());
}

} // namespace
