#pragma once

#include <QByteArray>

/// Reads an open file line by line and returns each line as soon as it is complete, also from a pipe that
/// stays open. Keeps at most 64 MiB of a line.
class LineReader {
public:
    static constexpr qsizetype LONGEST = 64 * 1024 * 1024;

    explicit LineReader(int descriptor) : descriptor_(descriptor) {}
    /// Waits for the next line, without its line end, which the last line may lack. False at the end and on
    /// failure.
    bool next();
    /// The line, or its first 64 MiB.
    const QByteArray& line() const { return line_; }
    bool isTooLong() const { return isTooLong_; }
    /// Why reading failed; empty if it did not.
    const QByteArray& failure() const { return failure_; }

private:
    bool fill();
    void take(qsizetype length);

    const int descriptor_;
    QByteArray buffer_ = QByteArray(64 * 1024, Qt::Uninitialized);
    qsizetype begin_ = 0; // of the input not yet returned
    qsizetype end_ = 0;
    QByteArray line_;
    bool isTooLong_ = false;
    QByteArray failure_;
};
