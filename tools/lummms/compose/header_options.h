#pragma once

#include "codec/message_kinds.h"
#include "codec/ua_msg.h"

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QList>
#include <QString>

/// The options of compose that set header fields: at least one for each field that a message is written with,
/// Message-Type and Content-Type apart.
QList<QCommandLineOption> headerOptions();

/// The words for the kinds of message that can be made: "send-req", "notification" and so on.
QString kindWords();

/// The kind of message with that word, or with its whole name, such as "m-notification-ind"; null if there is
/// none.
const MessageKind* findKind(const QString& word);

/// Whether messages of the kind are written with that field.
bool carries(const MessageKind& kind, int field);

/// Fills the header of a message of that kind from the options. Complains to the user and gives false for an
/// option whose field the kind does not carry, a value that cannot be used, and a field that the kind must
/// have and nobody gave; what a body brings with it (Content-Type) is left to the body.
bool setHeader(const MessageKind& kind, const QCommandLineParser& options, MMS_UA_UAMsg& header);
