#pragma once

#include "qt2/qarray.h"
#include "tools/lummms/media_files.h"

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>

/// Makes a picture smaller step by step, as phones do before sending: upright, with its aspect ratio, as JPEG
/// of at most 640 x 480 pixels (480 x 640 if it is higher than wide).
class SmallerPicture {
public:
    /// Decodes the picture. An animation, a broken picture and one too large to decode have no smaller form.
    SmallerPicture(const QArray<char>& octets, const MediaType& type);

    /// The next smaller form; empty when there is none.
    QByteArray next();
    /// Whether there is no further form.
    bool isExhausted() const;
    /// Why there is no smaller form at all; empty when there is one.
    const QString& cause() const { return cause_; }
    /// What was done: dimensions and octets before and after.
    QString change(qint64 octetsNow) const;

private:
    qint64 octetsBefore_;
    QSize sizeBefore_;
    QSize sizeNow_;
    QImage image_; // in the largest size to be sent
    size_t step_ = 0;
    QString cause_;
};
