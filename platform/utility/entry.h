#pragma once

#include "platform/export.h"

#include <QString>

/// One address of a message: its sender or a recipient.
class LUM_EXPORT MMS_UTIL_Entry {
public:
    /// Kinds of address. Other numbers are stored unchanged; they mark an address that cannot be sent.
    enum TYPE {
        EMAIL = 0,       ///< an e-mail address
        PLMN = 1,        ///< a phone number
        PLACEHOLDER = 2, ///< the sender of a received message that has no sender's address
    };

    /// An empty phone number without a name.
    MMS_UTIL_Entry() = default;
    /// The three values as given; `type` is one of TYPE or another number.
    MMS_UTIL_Entry(const QString& name, int type, const QString& address)
        : name_(name), type_(type), address_(address) {}

    /// The display name; empty when there is none.
    QString getName() const { return name_; }
    /// Sets the display name.
    void setName(const QString& name) { name_ = name; }
    /// One of TYPE, or another number for an address that is neither.
    int getType() const { return type_; }
    /// Sets the type, which may be any number.
    void setType(int type) { type_ = type; }
    /// The address: digits, or an e-mail address without angle brackets.
    QString getAddress() const { return address_; }
    /// Sets the address.
    void setAddress(const QString& address) { address_ = address; }

    /// True when there is no address; a name alone does not count.
    bool isEmpty() const { return address_.isEmpty(); }

private:
    QString name_;
    int type_ = PLMN;
    QString address_;
};
