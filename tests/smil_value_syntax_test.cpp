#include "octets.h"

#include "smil/model/color.h"
#include "smil/model/smil_time.h"
#include "smil/parser/smil_parser.h"

#include <limits>

namespace {

using Parser = MMS_COMP_SMILParser;

TEST(ValueSyntax, Durations) {
    const int most = std::numeric_limits<int>::max();
    const int least = std::numeric_limits<int>::min();
    const struct {
        int milliseconds;
        QStringList texts;
    } rows[] = {{-1, {""}},
                {-2, {"indefinite", "-2.9ms"}},
                {2, {"2.9ms"}},
                {500, {"500ms", "0.5s", "0:0.500"}},
                {1005, {"0:01.5"}},
                {1500, {"1.5s", "0:01.500", "0:01.50099"}},
                {7000, {"7s", " 7s"}},
                {-2000, {"-2s"}},
                {65250, {"1:05.250"}},
                {75000, {"0:75.0"}},
                {-60000, {"-1:00.0"}},
                {120000, {"2min"}},
                {360000, {"0.1h"}},
                {3600000, {"1h"}},
                {16777216, {"16777.217s"}},
                {most, {"infs", "3e9ms", "2147483648ms", "9999999h", "2147483647:0.0"}},
                {least, {"-infh", "-1e30min", "-2147483648:0.0"}},
                {5000,
                 {"Indefinite", "5", "7s ", "7S", "s", "min", "1m", "nans", "0:01.5s", "1:05", "1:.5",
                  "1:05.", ":05.5", "2147483648:0.0", "0:0:05.0", "a:b:c:d"}}};
    for (const auto& row : rows)
        for (const QString& text : row.texts)
            EXPECT_EQ(Parser::parseDur(text), row.milliseconds) << qPrintable(text);
}

TEST(ValueSyntax, BeginAndEndTimes) {
    const struct {
        QString text;
        int type;
        QString id;
        int value;
    } rows[] = {{"", 2, "old", 7},
                {"0s", 0, "", 0},
                {"3s", 0, "", 3000},
                {"12", 3, "", 7},
                {"indefinite", 3, "", 7},
                {"id(t1)(begin)", 1, "t1", 0},
                {"id(t1)(end)", 1, "t1", -1},
                {"id(t1)(endbegin)", 1, "t1", 0},
                {"id(t1)(1.5s)", 1, "t1", 1500},
                {"id(t1)(-1ms)", 1, "t1", -1},
                {"id(img1)(300ms)", 1, "img1", 300},
                {"id(a)x1:02.003y", 1, "a", 62003},
                {"id()(begin)", 1, "", 0},
                {"id(begin)", 3, "begin", 7},
                {"id(t1)", 3, "t1", 7},
                {"id(t1)(", 3, "t1", 7},
                {"id(t1", 3, "t1", 7},
                {"ID(t1)(begin)", 3, "", 7},
                {"id(a)(nans)", 3, "a", 7}};
    for (const auto& row : rows) {
        MMS_COMP_SMIL_TIME time{MMS_COMP_SMIL_TIME_OFFSET, "old", 7};
        Parser::parseTime(row.text, &time);
        EXPECT_EQ(time.type, row.type) << qPrintable(row.text);
        EXPECT_EQ(time.id, row.id) << qPrintable(row.text);
        EXPECT_EQ(time.value, row.value) << qPrintable(row.text);
    }
    Parser::parseTime("3s", nullptr);
}

TEST(ValueSyntax, Colours) {
    const QColor old(1, 2, 3);
    const struct {
        int kind;
        QString name;
        QColor color;
        QStringList texts;
    } rows[] = {{0, "old", old, {"", " \t"}},
                {1, "white", QColor(255, 255, 255), {" white ", "white"}},
                {1, "gray", QColor(128, 128, 128), {"gray"}},
                {1, "silver", QColor(192, 192, 192), {"silver"}},
                {2, "", QColor(255, 128, 0), {"#FF8000"}},
                {2, "", QColor(255, 8, 0), {"\n#ff0800"}},
                {2, "", QColor(15, 8, 0), {"#f80"}},
                {2, "", QColor(1, 2, 3), {"#123", "#+1+2+3"}},
                {3, "", old, {"#ggg", "#12345g", "#-10000", "#++0000", "rgb(1,2,3)", "rgb(1,2,3,)", "rgb("}},
                {3, "old", old, {"White", "orange", "#", "#ff80", "rgb(1%,2%,3%)", "RGB(1,2,3)"}}};
    for (const auto& row : rows) {
        for (const QString& text : row.texts) {
            MMS_COMP_COLOR color{9, "old", old};
            Parser::parseColor(text, color);
            EXPECT_EQ(color.kind, row.kind) << qPrintable(text);
            EXPECT_EQ(color.text, row.name) << qPrintable(text);
            EXPECT_EQ(color.color, row.color) << qPrintable(text);
        }
    }
}

} // namespace
