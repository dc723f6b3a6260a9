#pragma once

#include <QByteArray>
#include <QString>

class MMS_UA_UAMsg;
struct Draft;

/// Encodes a message without a body.
bool encodeMessage(MMS_UA_UAMsg& header, QByteArray& pdu, QString& cause);

/// Builds presentation and parts of the draft and encodes the message, whose header gets its content type.
/// False, with the reason in `cause`, when the message cannot be encoded.
bool encodeMessage(const Draft& draft, MMS_UA_UAMsg& header, QByteArray& pdu, QString& cause);
