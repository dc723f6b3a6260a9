#include "octets.h"

#include "smil/model/color.h"
#include "smil/model/smil_time.h"
#include "smil/parser/smil_parser.h"

namespace {

using Parser = MMS_COMP_SMILParser;

TEST(ValueSyntax, Durations) {
    const QString rows =
        " = -1, indefinite = -2, -2.9ms = -2, 2.9ms = 2, 500ms = 500, 0.5s = 500, 0:0.500 = 500, "
        "0:01.5 = 1005, 0:01.500 = 1500, 0:01.50099 = 1500,  7s = 7000, 1:05.250 = 65250, "
        "0:75.0 = 75000, -1:00.0 = -60000, 2min = 120000, 0.1h = 360000, 16777.217s = 16777216, "
        "infs = 2147483647, 3e9ms = 2147483647, 2147483648ms = 2147483647, "
        "9999999h = 2147483647, 2147483647:0.0 = 2147483647, -infh = -2147483648, "
        "-1e30min = -2147483648, -2147483648:0.0 = -2147483648";
    for (const QString& row : rows.split(", ")) {
        const QString text = row.section(" = ", 0, 0);
        EXPECT_EQ(text + " = " + QString::number(Parser::parseDur(text)), row);
    }
    for (const char* text : {"Indefinite", "5", "7s ", "7S", "s", "1m", "nans", "0:01.5s", "1:05", "1:.5",
                             "1:05.", ":05.5", "2147483648:0.0", "0:0:05.0", "a:b:c:d"})
        EXPECT_EQ(Parser::parseDur(text), 5000) << text;
}

// A text, and the type, value and event that it gives.
TEST(ValueSyntax, BeginAndEndTimes) {
    const QString rows = " = 2 7 old, 0s = 0 0 , 3s = 0 3000 , 12 = 3 7 , indefinite = 3 7 , "
                         "id(t1)(end) = 1 -1 t1, id(t1)(endbegin) = 1 0 t1, id(t1)(1.5s) = 1 1500 t1, "
                         "id(t1)(-1ms) = 1 -1 t1, id(a)x1:02.003y = 1 62003 a, id()(begin) = 1 0 , "
                         "id(begin) = 3 7 begin, id(t1)( = 3 7 t1, id(t1 = 3 7 t1, ID(t1)(begin) = 3 7 ";
    for (const QString& row : rows.split(", ")) {
        const QString text = row.section(" = ", 0, 0);
        MMS_COMP_SMIL_TIME time{MMS_COMP_SMIL_TIME_OFFSET, "old", 7};
        Parser::parseTime(text, &time);
        EXPECT_EQ(text + QString(" = %1 %2 ").arg(time.type).arg(time.value) + time.id, row);
    }
    Parser::parseTime("3s", nullptr);
}

TEST(ValueSyntax, Colours) {
    const struct {
        const char* read; // kind, colour and name
        QStringList texts;
    } rows[] = {{"0 #010203 old", {"", " \t"}},
                {"1 #ffffff white", {" white "}},
                {"1 #808080 gray", {"gray"}},
                {"1 #c0c0c0 silver", {"silver"}},
                {"2 #ff8000 ", {"#FF8000"}},
                {"2 #0f0800 ", {"#f80", "\n#0f0800"}},
                {"2 #010203 ", {"#123", "#+1+2+3"}},
                {"3 #010203 ", {"#ggg", "#12345g", "#-10000", "#++0000", "rgb(1,2,3)", "rgb("}},
                {"3 #010203 old", {"White", "orange", "#", "#ff80", "rgb(1%,2%,3%)", "RGB(1,2,3)"}}};
    for (const auto& row : rows) {
        for (const QString& text : row.texts) {
            MMS_COMP_COLOR color{9, "old", QColor(1, 2, 3)};
            Parser::parseColor(text, color);
            EXPECT_EQ(QString("%1 %2 ").arg(color.kind).arg(color.color.name()) + color.text, row.read)
                << qPrintable(text);
        }
    }
}

} // namespace
