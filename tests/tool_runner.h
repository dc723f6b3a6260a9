#pragma once

#include "tests/testing.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

/// What a run of lummms left behind.
struct Outcome {
    int status;
    QByteArray out;
    QByteArray err;

    QJsonObject json() const { return QJsonDocument::fromJson(out).object(); }
};

/// Runs the program; a crash gives the status -1.
inline Outcome lummms(const QStringList& arguments, const QStringList& environment = {}) {
    QProcess process;
    process.setEnvironment(QProcess::systemEnvironment() + environment);
    process.start(QStringLiteral(LUMMMS), arguments);
    process.waitForFinished(60'000);
    const bool exited = process.exitStatus() == QProcess::NormalExit;
    return {exited ? process.exitCode() : -1, process.readAllStandardOutput(),
            process.readAllStandardError()};
}

/// A test with a directory of its own, and files in it.
class ToolTest : public testing::Test {
protected:
    QString path(const QString& name) const { return dir_.filePath(name); }
    QString write(const QString& name, const QByteArray& octets) const {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(octets);
        return path(name);
    }
    QByteArray read(const QString& name) const {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

private:
    QTemporaryDir dir_;
};

/// An entry whose content type, below 31 octets, is given without its length.
inline QByteArray entry(const QByteArray& contentType, const QByteArray& headers, const QByteArray& data) {
    return entry(char(contentType.size()) + contentType + headers, data);
}
