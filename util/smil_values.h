#pragma once

#include <QString>
#include <QStringView>

struct MMS_COMP_COLOR;
struct MMS_COMP_SMIL_TIME;

// Readers for values of SMIL attributes; the public interface is MMS_COMP_SMILParser::parseDur(), parseTime()
// and parseColor().

/// Milliseconds; -1 for an empty text, -2 for "indefinite", 5000 for one that cannot be read.
int durationOf(QStringView text);

/// Reads a begin or end time. The text is passed by value, because it may be the id of `time` itself.
void readTime(QString text, MMS_COMP_SMIL_TIME& time);

/// Reads a colour and sets its kind to the outcome.
void readColor(const QString& text, MMS_COMP_COLOR& color);
