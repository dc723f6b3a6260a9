#pragma once

#include "tools/lummms/message.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

// What the JSON outputs of the program share.

/// The text of a document, valid for strict readers too.
QByteArray jsonText(const QJsonObject& json, QJsonDocument::JsonFormat format);
/// The number of an item; the largest for one beyond 63 bits.
QJsonValue numberJson(const MMS_WIRE_Item& item);
/// A fault or note; without position for an offset below 0.
QJsonObject remarkJson(qint64 offset, const char* severity, const QString& what);
/// All faults of a message.
QJsonArray problemsJson(const QList<Problem>& problems);
