#pragma once

#include <QString>
#include <QStringView>

struct MMS_COMP_COLOR;
struct MMS_COMP_SMIL_TIME;

// The values of SMIL attributes, as MMS_COMP_SMILParser offers them: parseDur(), parseTime(), parseColor().

/// Milliseconds; -1 for an empty text, -2 for "indefinite", 5000 for one that cannot be read.
int durationOf(QStringView text);

/// Reads a begin or end time. The text is a copy: it may be the id of that very time.
void readTime(QString text, MMS_COMP_SMIL_TIME& time);

/// Reads a colour; the outcome is the record's kind.
void readColor(const QString& text, MMS_COMP_COLOR& color);
