#pragma once

#include "platform/utility/msg_header_base.h"

#include <QDateTime>
#include <QString>

/// The value of an option as the user typed it. Each member reads it in one form; what does not have that
/// form is told by cause(), and the value given back is of no use then.
class OptionValue {
public:
    explicit OptionValue(QString typed) : typed_(std::move(typed)) {}

    /// Why the value cannot be used, for a message to the user; empty when it can.
    const QString& cause() const { return cause_; }

    /// Any text but a blank one.
    QString text();
    /// A text of printable ASCII, as identifiers and locations are.
    QString ascii();
    /// A phone number or an e-mail address.
    MMS_UTIL_Entry address();
    /// The octet of a header field whose values have words (see wireField()): one of these words, or a number
    /// from 128 to 255.
    unsigned char octet(int field);
    /// One of two words; true for the first of them.
    bool either(const char* first, const char* second);
    /// A version such as 1.0, as MMS_UA_UAMsg::version holds it.
    unsigned char version();
    /// A number from 1 to 2147483647.
    int size();
    /// A moment in ISO 8601, in local time if it names no zone, as local time; from 1970 to 2106, as header
    /// fields hold it.
    QDateTime moment();
    /// Seconds from now to a moment that is not past, 2147483647 at the most. The value is their number, or
    /// that moment.
    unsigned int secondsToCome();
    /// Such a moment itself.
    QDateTime momentToCome();

private:
    /// Notes what is wrong with the value: "'soon' " and the cause.
    void refuse(const QString& cause);
    /// The value as a decimal number, or -1 when it is none up to 2147483647.
    int number() const;

    QString typed_;
    QString cause_;
};
