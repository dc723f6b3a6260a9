#pragma once

#include "platform/utility/msg_header_base.h"

#include <QDateTime>
#include <QString>

/// The value of an option as typed. Each member reads it in one form; if it does not have that form, cause()
/// is set and the result is meaningless.
class OptionValue {
public:
    explicit OptionValue(QString typed) : typed_(std::move(typed)) {}

    /// Why the value is invalid, for a message to the user; empty when it is valid.
    const QString& cause() const { return cause_; }

    /// Any text that is not blank.
    QString text();
    /// Printable ASCII, as in identifiers and locations.
    QString ascii();
    /// A phone number or an e-mail address.
    MMS_UTIL_Entry address();
    /// The octet of a header field with words (see wireField()): one of these words, or a number from 128 to
    /// 255.
    unsigned char octet(int field);
    /// One of two words; true for the first.
    bool either(const char* first, const char* second);
    /// A version such as 1.0, as in MMS_UA_UAMsg::version.
    unsigned char version();
    /// A number from 1 to 2147483647.
    int size();
    /// A date and time in ISO 8601, local time unless it has a zone, from 1970 to 2106 (the range of header
    /// fields). The result is local time.
    QDateTime moment();
    /// Seconds from now, at most 2147483647. The value is that number, or a date and time that is not past.
    unsigned int secondsToCome();
    /// The same as a date and time.
    QDateTime momentToCome();

private:
    /// Sets the cause: the value in quotes, then `what`.
    void refuse(const QString& cause);
    /// The value as a decimal number up to 2147483647; -1 for any other.
    int number() const;

    QString typed_;
    QString cause_;
};
