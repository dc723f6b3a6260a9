#pragma once

#include "tools/lummms/message.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

// What all JSON of the program has in common.

/// The text of a document that strict readers take, too.
QByteArray jsonText(const QJsonObject& json, QJsonDocument::JsonFormat format);
/// The number of an item; the largest there is for one beyond 63 bits.
QJsonValue numberJson(const MMS_WIRE_Item& item);
/// Something to be said of a message; without a place for an offset below 0.
QJsonObject remarkJson(qint64 offset, const char* severity, const QString& what);
/// All that is wrong with a message.
QJsonArray problemsJson(const QList<Problem>& problems);
