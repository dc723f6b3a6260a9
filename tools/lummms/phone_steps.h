#pragma once

#include "qt2/qarray.h"

#include <QList>
#include <QString>

/// What the phone's decoder reads as one header field.
struct PhoneStep {
    qint64 begin;
    qint64 end;        ///< position behind its last octet
    int code;          ///< the field's code; -1 for an unknown one, which is skipped as two texts
    bool isRead;       ///< false for the field at which the decoder gives up
    QString asWritten; ///< for the user: "Subject", "field 0x99", "code 0x58"

    bool isKnown() const { return code >= 0; }
};

/// The fields that the phone's decoder reads: up to Content-Type, or to the one at which it gives up.
QList<PhoneStep> phoneSteps(QArray<char> octets);
