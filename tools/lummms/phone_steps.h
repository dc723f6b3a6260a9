#pragma once

#include "qt2/qarray.h"

#include <QList>
#include <QString>

/// What the phone's decoder takes for one header field.
struct PhoneStep {
    qint64 begin;
    qint64 end;  ///< behind its last octet
    int code;    ///< the field's code; -1 for what is passed over, as two texts, because it is not known
    bool isRead; ///< false for the field at which the decoder gives up
    QString asWritten; ///< for a person: "Subject", "field 0x99", "header \"X-Colour\""

    bool isKnown() const { return code >= 0; }
};

/// Follows the phone through the header of a message: all fields up to Content-Type or to the one at which it
/// gives up.
QList<PhoneStep> phoneSteps(QArray<char> octets);
