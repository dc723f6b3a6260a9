#pragma once

#include "tests/testing.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QStringList>
#include <QTemporaryDir>

/// The result of running lummms.
struct Outcome {
    int status;
    QByteArray out;
    QByteArray err;

    QJsonObject json() const { return QJsonDocument::fromJson(out).object(); }
};

/// Runs the program; the status is -1 when it crashes, hangs or does not start.
inline Outcome lummms(const QStringList& arguments, const QStringList& environment = {},
                      const QByteArray& input = {}) {
    QProcess process;
    process.setEnvironment(QProcess::systemEnvironment() + environment);
    process.start(QStringLiteral(LUMMMS), arguments);
    process.write(input);
    process.closeWriteChannel();
    const bool exited = process.waitForFinished(60'000) && process.exitStatus() == QProcess::NormalExit;
    return {exited ? process.exitCode() : -1, process.readAllStandardOutput(),
            process.readAllStandardError()};
}

/// The expected output.
const QString SHOWN = QString(SOURCES) + "/tests/data/show/";

/// A test with a temporary directory and files in it.
class ToolTest : public testing::Test {
protected:
    QString path(const QString& name) const { return dir_.filePath(name); }
    QString write(const QString& name, const QByteArray& octets) const { return put(path(name), octets); }
    QByteArray read(const QString& name) const { return contents(path(name)); }

    /// Expects that `show` prints a message as in a file of tests/data/show, except what differs between
    /// runs.
    static void expectShown(const QStringList& arguments, const char* expected) {
        const Outcome run = lummms(QStringList("show") + arguments);
        EXPECT_TRUE(run.status == 0 && run.err.isEmpty()) << run.err.constData();
        const QRegularExpression varying("\\d{4}-\\d\\d-\\d\\d [\\d:]{8} ?|[0-9a-f-]{36}");
        EXPECT_EQ(QString(run.out).remove(varying), contents(SHOWN + QString(expected)))
            << run.out.constData();
    }
    /// Expects wrong usage: one line on standard error that names the cause.
    static void expectRefused(const QStringList& arguments, const char* cause) {
        const Outcome run = lummms(arguments);
        EXPECT_TRUE(run.status == 2 && run.out.isEmpty()) << qPrintable(arguments.join(' '));
        EXPECT_TRUE(run.err.contains(cause) && run.err.count('\n') == 1) << run.err.constData();
    }

private:
    QTemporaryDir dir_;
};
