// The programs in examples/, each reading the output of the one before.

#include "tests/testing.h"

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

namespace {

/// Runs an example in `folder`; returns its output, or null for another exit status.
QString run(const QTemporaryDir& folder, const char* example, const QStringList& arguments, int status = 0) {
    QProcess process;
    process.setWorkingDirectory(folder.path());
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QString(EXAMPLES) + '/' + example, arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit ||
        process.exitCode() != status)
        return QString();
    return QString("") + QString::fromUtf8(process.readAll());
}

TEST(Examples, composeReadAndEdit) {
    const QTemporaryDir folder;
    QImage picture(16, 16, QImage::Format_RGB32);
    picture.fill(Qt::blue);
    ASSERT_TRUE(picture.save(folder.filePath("sea.jpg")));
    ASSERT_TRUE(QDir(folder.path()).mkdir("seen"));

    EXPECT_EQ(run(folder, "compose_message", {"sea.jpg", "first.mms"}), "");
    EXPECT_EQ(run(folder, "read_message", {"first.mms", "seen"}), "from \"+15550101\" subject \"Holidays\"\n"
                                                                  "slide 1 \"Greetings from the sea\"\n"
                                                                  "saved \"seen/picture1.jpg\"\n");
    EXPECT_EQ(contents(folder.filePath("seen/picture1.jpg")), contents(folder.filePath("sea.jpg")));
    EXPECT_EQ(run(folder, "first_message", {"first.mms"}).section('\n', 0, 1),
              "\"+15550101\" \"Holidays\"\n\"\" \"application/smil\" 417");
    EXPECT_EQ(run(folder, "first_message", {"missing"}, 2), "");
    EXPECT_EQ(run(folder, "file_type", {"sea.jpg"}),
              "\"sea.jpg\" \"image/jpeg\" WSP number 30 extension \"jpg\"\n");
    EXPECT_EQ(run(folder, "slide_text", {"first.mms", "1"}), "Greetings from the sea\n");
    EXPECT_EQ(run(folder, "slide_text", {"first.mms", "2"}, 1), "");
    EXPECT_EQ(run(folder, "list_parts", {"first.mms"}).section('\n', 2),
              "\"greeting.txt\" \"text/plain\" 22\npresentation \"file0\"\n");

    EXPECT_EQ(run(folder, "edit_message", {"first.mms", "Back again", "second.mms"}), "");
    EXPECT_EQ(run(folder, "read_message", {"second.mms", "seen"}, 2), // never replaces an existing file
              "from \"\" subject \"Re: Holidays\"\n"
              "slide 1 \"Back again\"\n");
    EXPECT_EQ(run(folder, "read_message", {"sea.jpg", "seen"}, 1), "") << "no message";
    EXPECT_EQ(run(folder, "edit_message", {"sea.jpg", "text", "new.mms"}, 1), "");
    EXPECT_EQ(run(folder, "compose_message", {"missing.jpg", "new.mms"}, 2), "");
}

TEST(Examples, whatTheOthersPrint) {
    const QTemporaryDir folder;
    QFile notification(folder.filePath("n.mms"));
    ASSERT_TRUE(notification.open(QIODevice::WriteOnly));
    notification.write(QByteArray::fromHex("8c82987431008d908a808e0204008805810302a300"
                                           "83687474703a2f2f612f6200"));
    notification.close();
    EXPECT_EQ(run(folder, "answer_notification", {"n.mms", "a.mms"}), "1024 octets wait at \"http://a/b\"\n");
    EXPECT_EQ(contents(folder.filePath("a.mms")).toHex(), "8c83987431008d909583");
    EXPECT_EQ(run(folder, "dump_message", {"a.mms"}), " 0 2 \"X-Mms-Message-Type\" \"m-notifyresp-ind\"\n"
                                                      " 2 4 \"X-Mms-Transaction-Id\" \"t1\"\n"
                                                      " 6 2 \"X-Mms-MMS-Version\" \"1.0\"\n"
                                                      " 8 2 \"X-Mms-Status\" \"Deferred\"\n"
                                                      "subject \"\" parts 0 other fields 0\n");
    EXPECT_EQ(run(folder, "store_slide", {"slide", "Bring a towel"}), "3000 ms Bring a towel\n");
    EXPECT_EQ(run(folder, "shared_octets", {}), "glide glide slide\n\"+15550100\" false\n");
    EXPECT_EQ(run(folder, "encode_field", {"Sea"}), "96 05 ea 53 65 61 00\nSubject \"Sea\"\n");
}

} // namespace
