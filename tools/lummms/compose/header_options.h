#pragma once

#include "codec/message_kinds.h"
#include "codec/ua_msg.h"

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QList>
#include <QString>

/// The options of compose that set header fields: at least one for each field that messages are written with,
/// except Message-Type and Content-Type.
QList<QCommandLineOption> headerOptions();

/// The words for the kinds of message: "send-req", "notification" and so on.
QString kindWords();

/// The kind with that word or full name ("m-notification-ind"); null for any other text.
const MessageKind* findKind(const QString& word);

/// Whether messages of the kind are written with that field.
bool carries(const MessageKind& kind, int field);

/// Fills the header of a message from the options. Reports a failure and returns false: for an option whose
/// field the kind does not have, an invalid value, and a missing mandatory field other than Content-Type,
/// which the body sets.
bool setHeader(const MessageKind& kind, const QCommandLineParser& options, MMS_UA_UAMsg& header);
