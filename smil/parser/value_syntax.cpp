#include "smil/parser/smil_parser.h"
#include "util/smil_values.h"

int MMS_COMP_SMILParser::parseDur(const QString& text) {
    return durationOf(text);
}

void MMS_COMP_SMILParser::parseTime(const QString& text, MMS_COMP_SMIL_TIME* time) {
    if (time)
        readTime(text, *time);
}

void MMS_COMP_SMILParser::parseColor(const QString& text, MMS_COMP_COLOR& color) {
    readColor(text, color);
}
