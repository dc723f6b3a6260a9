#pragma once

#include "qt2/qarray.h"
#include "tools/lummms/media_files.h"

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>

/// A picture that is made smaller step by step, as phones do it before they send one: upright, with its
/// aspect kept, as a JPEG of at most 640 x 480 pixels (480 x 640 if it is higher than wide).
class SmallerPicture {
public:
    /// Decodes the picture. One that is moving, broken or too large to be decoded has no smaller form.
    SmallerPicture(const QArray<char>& octets, const MediaType& type);

    /// The next smaller form; empty when there is none.
    QByteArray next();
    /// Whether next() gave the last form, or there never was one.
    bool isExhausted() const;
    /// Why there is no smaller form at all; empty when there is one.
    const QString& cause() const { return cause_; }
    /// What was done: the measures and the size in octets before and after.
    QString change(qint64 octetsNow) const;

private:
    qint64 octetsBefore_;
    QSize sizeBefore_;
    QSize sizeNow_;
    QImage image_; // in the largest size that it is sent in
    size_t step_ = 0;
    QString cause_;
};
