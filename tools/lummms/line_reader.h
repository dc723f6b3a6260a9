#pragma once

#include <QByteArray>

/// Reads an open file line by line and hands on each line as soon as it is there, also from a pipe that stays
/// open. Holds no more of a line than 64 MiB.
class LineReader {
public:
    static constexpr qsizetype LONGEST = 64 * 1024 * 1024;

    explicit LineReader(int descriptor) : descriptor_(descriptor) {}
    /// Waits for the next line, without its line end; a last one may lack it. False at the end, or on
    /// failure.
    bool next();
    /// The line, or as much of its start as may be held.
    const QByteArray& line() const { return line_; }
    bool isTooLong() const { return isTooLong_; }
    /// Why reading ended before the end; empty if it did not.
    const QByteArray& failure() const { return failure_; }

private:
    bool fill();
    void take(qsizetype length);

    const int descriptor_;
    QByteArray buffer_ = QByteArray(64 * 1024, Qt::Uninitialized);
    qsizetype begin_ = 0; // of what was not taken yet
    qsizetype end_ = 0;
    QByteArray line_;
    bool isTooLong_ = false;
    QByteArray failure_;
};
